#include "planlist/PlanWindowSettings.h"

#include <algorithm>
#include <array>

#include "platform/Conversions.h"
#include "platform/RuntimeError.h"

namespace blattwart {

namespace {

constexpr double widestColumn = 30000;  // twips
constexpr double farthest = 200000;     // twips, of a window's place and size

/// Exactly so many numbers, separated by commas, each within the range; or none at all.
std::vector<double> numbers(const Settings& settings, std::wstring_view key, std::size_t count, double least,
                            double most) {
    std::vector<double> found;
    const bool readable = ignoringErrors([&] {
        std::wstring rest = settings.get(key, L"");
        for (std::size_t comma = 0; comma != std::wstring::npos;) {
            comma = rest.find(L',');
            found.push_back(plainNumber(rest.substr(0, comma)));
            if (comma != std::wstring::npos) rest.erase(0, comma + 1);
        }
    });
    const bool fits = std::ranges::all_of(found, [&](double n) { return n >= least && n <= most; });
    return readable && fits && found.size() == count ? found : std::vector<double>{};
}

void store(Settings& settings, std::wstring_view key, const std::wstring& text) {
    ignoringErrors([&] { settings.set(key, text); });
}

}  // namespace

void restoreColumns(ListView& list, const Settings& settings) {
    const Update<ListView> update(list);
    const std::size_t count = list.columns().size();
    const auto last = static_cast<double>(count);
    int index = 0;
    for (const double width : numbers(settings, L"PlanCols", count, 0, widestColumn))
        list.setColumnWidth(++index, toFloat(width));
    std::vector<int> positions;
    for (const double position : numbers(settings, L"PlanColOrder", count, 0, last - 1))
        positions.push_back(toInt32(position));
    // What is no permutation is refused.
    ignoringErrors([&] { list.setColumnPositions(positions); });
    const std::vector<double> sorting = numbers(settings, L"PlanSort", 2, 0, last);
    if (sorting.empty() || sorting[0] < 1 || sorting[1] > 1) return;
    list.setSortKey(toInt32(sorting[0]) - 1);
    list.setSortOrder(sorting[1] < 1 ? SortOrder::ascending : SortOrder::descending);
}

void storeColumns(const ListView& list, Settings& settings) {
    std::wstring widths;
    std::wstring positions;
    for (const ListColumn& column : list.columns()) {
        if (!widths.empty()) widths += L',';
        if (!positions.empty()) positions += L',';
        widths += plainText(column.width);
        positions += std::to_wstring(column.position);
    }
    store(settings, L"PlanCols", widths);
    store(settings, L"PlanColOrder", positions);
    store(settings, L"PlanSort",
          std::to_wstring(list.sortKey() + 1) + (list.sortOrder() == SortOrder::ascending ? L",0" : L",1"));
}

std::optional<DialogPlacement> storedPlacement(const Settings& settings) {
    std::array<float, 4> place{};
    std::size_t i = 0;
    for (const wchar_t* key : {L"PlanLeft", L"PlanTop", L"PlanWidth", L"PlanHeight"}) {
        const std::vector<double> number = numbers(settings, key, 1, i < 2 ? -farthest : 1, farthest);
        if (number.empty()) return std::nullopt;
        place.at(i++) = toFloat(number.front());
    }
    return DialogPlacement{{place[0], place[1], place[2], place[3]}, settings.get(L"PlanMax", L"0") == L"1"};
}

void storePlacement(const DialogPlacement& placement, Settings& settings) {
    store(settings, L"PlanLeft", plainText(placement.normal.left));
    store(settings, L"PlanTop", plainText(placement.normal.top));
    store(settings, L"PlanWidth", plainText(placement.normal.width));
    store(settings, L"PlanHeight", plainText(placement.normal.height));
    store(settings, L"PlanMax", placement.maximised ? L"1" : L"0");
}

}  // namespace blattwart
