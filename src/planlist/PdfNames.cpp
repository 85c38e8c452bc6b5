#include "planlist/PdfNames.h"

#include <algorithm>
#include <array>
#include <map>

#include "planlist/PlanPlaceholders.h"

namespace blattwart {

namespace {

constexpr std::size_t longestPath = 259;
constexpr std::size_t longestFileName = 255;

bool isForbidden(wchar_t c) {
    constexpr std::wstring_view forbidden = L"\"*/:<>?\\|";
    return c < L' ' || c == 0x7F || forbidden.find(c) != std::wstring_view::npos;
}

std::wstring cleaned(std::wstring text) {
    std::ranges::replace_if(text, isForbidden, L'_');
    return text;
}

/// Windows takes these for devices, whatever extension follows.
bool isDeviceName(const std::wstring& name, const Locale& locale) {
    std::wstring stem = locale.upperCase(name.substr(0, name.find(L'.')));
    stem.erase(stem.find_last_not_of(L' ') + 1);
    constexpr std::array<std::wstring_view, 6> fixed{L"CON", L"PRN", L"AUX", L"NUL", L"CONIN$", L"CONOUT$"};
    if (std::ranges::find(fixed, stem) != fixed.end()) return true;
    constexpr std::wstring_view digits = L"0123456789¹²³";
    return stem.size() == 4 && (stem.starts_with(L"COM") || stem.starts_with(L"LPT")) &&
           digits.find(stem[3]) != std::wstring_view::npos;
}

std::wstring stemOf(std::wstring text, const Locale& locale) {
    text.erase(text.find_last_not_of(L". ") + 1);
    text.erase(0, text.find_first_not_of(L' '));
    return isDeviceName(text, locale) ? L"_" + text : text;
}

/// As many digits as the drawing's largest tab number has.
int digitsOf(const PlanDrawing& drawing) {
    std::int32_t largest = 0;
    for (const PlanRow& row : drawing.rows) largest = std::max(largest, row.tabOrder.value_or(0));
    return static_cast<int>(std::to_wstring(largest).size());
}

/// The text outside of placeholders goes into the file name as it is.
bool holdsForbidden(std::wstring_view pattern, const Locale& locale) {
    const std::array<PlanPlaceholder, 3> nothing{{{L"Zeichnung", L""}, {L"Layout", L""}, {L"Nr", L""}}};
    const auto plain = expandPlaceholders(pattern, nothing, locale);
    return plain && std::ranges::any_of(*plain, isForbidden);
}

/// From a drive or a share on; what is not, AutoCAD would look for elsewhere.
bool isFullPath(const std::wstring& path) {
    const auto isSeparator = [](wchar_t c) { return c == L'\\' || c == L'/'; };
    if (path.size() < 3) return false;
    return path[1] == L':' ? isSeparator(path[2]) : isSeparator(path[0]) && isSeparator(path[1]);
}

PdfName nameFor(const PlanList::Place& place, const std::wstring& folder, std::wstring_view pattern,
                const Locale& locale) {
    const PlanDrawing& drawing = *place.drawing;
    const PlanRow& row = *place.row;
    const auto conflict = [&](const wchar_t* text) { return PdfName{row.number, L"", text}; };
    const std::wstring number = row.tabOrder ? paddedNumber(*row.tabOrder, digitsOf(drawing)) : L"";
    const std::array<PlanPlaceholder, 3> values{
        {{L"Zeichnung", cleaned(drawing.title())}, {L"Layout", cleaned(row.name)}, {L"Nr", number}}};
    const auto expanded = expandPlaceholders(pattern, values, locale);
    if (!expanded) return conflict(L"unbekannter Platzhalter");
    if (holdsForbidden(pattern, locale)) return conflict(L"unzulässiges Zeichen im Dateinamen");
    const std::wstring stem = stemOf(*expanded, locale);
    if (stem.empty()) return conflict(L"Dateiname leer");
    const std::wstring& target = folder.empty() ? drawing.folder : folder;
    if (target.empty()) return conflict(L"Bitte Ordner wählen");
    const std::wstring name = stem + L".pdf";
    std::wstring file = target + (target.ends_with(L'\\') ? L"" : L"\\") + name;
    if (!isFullPath(file)) return conflict(L"Der Ordner ist kein vollständiger Pfad.");
    if (file.size() > longestPath || name.size() > longestFileName) return conflict(L"Pfad zu lang");
    return {row.number, std::move(file), {}};
}

}  // namespace

std::vector<PdfName> pdfNames(PlanList& plan, std::span<const int> rowNumbers, const std::wstring& folder,
                              std::wstring_view pattern, const Locale& locale) {
    std::vector<PdfName> names;
    std::map<std::wstring, int> used;
    for (const int number : rowNumbers) {
        const PlanList::Place place = plan.find(number);
        if (!place) continue;
        names.push_back(nameFor(place, folder, pattern, locale));
        if (names.back().conflict.empty()) ++used[locale.upperCase(names.back().file)];
    }
    for (PdfName& name : names) {
        if (name.conflict.empty() && used[locale.upperCase(name.file)] > 1)
            name = {name.row, L"", L"Dateiname doppelt"};
    }
    return names;
}

}  // namespace blattwart
