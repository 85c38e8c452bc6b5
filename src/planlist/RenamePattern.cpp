#include "planlist/RenamePattern.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>

#include "data/LayoutName.h"
#include "planlist/PlanPlaceholders.h"

namespace blattwart {

namespace {

struct Numbering {
    int first = 0;
    int step = 0;
    int digits = 0;
};

/// A whole number in digits alone, within the range.
std::optional<int> numberIn(std::wstring_view text, int lowest, int highest) {
    constexpr std::size_t mostDigits = 9;
    const auto isDigit = [](wchar_t c) { return c >= L'0' && c <= L'9'; };
    if (text.empty() || text.size() > mostDigits || !std::ranges::all_of(text, isDigit)) return std::nullopt;
    const int number = std::stoi(std::wstring(text));
    if (number < lowest || number > highest) return std::nullopt;
    return number;
}

std::optional<Numbering> numberingOf(const RenamePattern& pattern) {
    const auto first = numberIn(pattern.first, 0, 999999);
    const auto step = numberIn(pattern.step, 1, 1000);
    const auto digits = numberIn(pattern.digits, 1, 6);
    if (!first || !step || !digits) return std::nullopt;
    return Numbering{*first, *step, *digits};
}

std::wstring replaced(const std::wstring& name, const RenamePattern& pattern, const Locale& locale) {
    if (pattern.find.empty()) return name;
    const std::wstring upper = locale.upperCase(name);
    const std::wstring wanted = locale.upperCase(pattern.find);
    std::wstring result;
    std::size_t from = 0;
    for (std::size_t at = 0; (at = upper.find(wanted, from)) != std::wstring::npos; from = at + wanted.size())
        result += name.substr(from, at - from) + pattern.replacement;
    return result + name.substr(from);
}

/// The preview's rows of one drawing, in order to compare their names with all the drawing's.
class DrawingCheck {
  public:
    DrawingCheck(const PlanDrawing& drawing, const Locale& locale) : drawing_(drawing), locale_(locale) {}

    void add(RenamePreviewRow& row) {
        rows_.push_back(&row);
        ++planned_[upper(row.newName)];
        chosen_.insert(row.number);
    }

    void noteConflicts() {
        for (const PlanRow& row : drawing_.rows)
            if (!chosen_.contains(row.number)) others_.insert({upper(row.name), &row});
        for (RenamePreviewRow* row : rows_) {
            if (row->conflict) continue;
            row->note = conflictOf(*row);
            row->conflict = !row->note.empty();
            if (!row->conflict) row->note = hintFor(*row);
        }
    }

  private:
    std::wstring upper(const std::wstring& name) const { return locale_.upperCase(name); }

    std::wstring conflictOf(const RenamePreviewRow& row) const {
        // A name that stays may be one that the host would not take any more.
        if (row.changes()) {
            if (std::wstring fault = layoutNameFault(row.newName, drawing_.modelName, locale_);
                !fault.empty())
                return fault;
            const auto holder = others_.find(upper(row.newName));
            if (holder != others_.end()) {
                const auto& place = holder->second->tabOrder;
                return L"vergeben an Layout Nr. " + (place ? std::to_wstring(*place) : L"?");
            }
        }
        return planned_.at(upper(row.newName)) > 1 ? L"doppelt in der Vorschau" : L"";
    }

    std::wstring hintFor(const RenamePreviewRow& row) const {
        if (!row.changes()) return L"unverändert";
        return drawing_.readOnly ? L"schreibgeschützt, nicht speicherbar" : L"";
    }

    const PlanDrawing& drawing_;
    const Locale& locale_;
    std::vector<RenamePreviewRow*> rows_;
    std::map<std::wstring, int> planned_;  // how many rows get this name
    std::set<int> chosen_;
    std::map<std::wstring, const PlanRow*> others_;
};

RenamePreviewRow rowOf(const PlanList::Place& place) {
    return {.number = place.row->number,
            .drawing = place.drawing->shownName,
            .oldName = place.row->name,
            .newName = place.row->name,
            .note = {},
            .conflict = false};
}

void check(RenamePreview& preview, PlanList& plan, const Locale& locale) {
    std::map<const PlanDrawing*, DrawingCheck> drawings;
    for (RenamePreviewRow& row : preview.rows) {
        const PlanDrawing* drawing = plan.find(row.number).drawing;
        drawings.try_emplace(drawing, *drawing, locale).first->second.add(row);
    }
    for (auto& [drawing, rows] : drawings) rows.noteConflicts();
    preview.changes = static_cast<int>(std::ranges::count_if(preview.rows, &RenamePreviewRow::changes));
    preview.conflicts = static_cast<int>(std::ranges::count_if(preview.rows, &RenamePreviewRow::conflict));
}

}  // namespace

std::wstring RenamePreview::statusText() const {
    std::wstring text = std::to_wstring(changes) + (changes == 1 ? L" wird umbenannt" : L" werden umbenannt");
    if (conflicts == 0) return text;
    return text + L", " + std::to_wstring(conflicts) + (conflicts == 1 ? L" Konflikt" : L" Konflikte");
}

RenamePreview previewPattern(PlanList& plan, std::span<const int> rowNumbers, const RenamePattern& pattern,
                             const Locale& locale) {
    const std::optional<Numbering> numbering = numberingOf(pattern);
    const bool numbered = hasPlaceholder(pattern.text, L"Nr", locale);
    std::map<const PlanDrawing*, std::int64_t> counted;
    RenamePreview preview;
    for (const int number : rowNumbers) {
        const PlanList::Place place = plan.find(number);
        if (!place) continue;
        RenamePreviewRow& row = preview.rows.emplace_back(rowOf(place));
        if (numbered && !numbering) {
            row.note = L"Nummer ungültig";
            row.conflict = true;
            continue;
        }
        std::vector<PlanPlaceholder> values{{L"Name", replaced(row.oldName, pattern, locale)},
                                            {L"Zeichnung", place.drawing->title()}};
        if (numbered) {
            const std::int64_t k = counted[pattern.restartInEachDrawing ? place.drawing : nullptr]++;
            values.push_back(
                {L"Nr", paddedNumber(numbering->first + k * numbering->step, numbering->digits)});
        }
        if (std::optional<std::wstring> name = expandPlaceholders(pattern.text, values, locale)) {
            row.newName = std::move(*name);
        } else {
            row.note = L"unbekannter Platzhalter";
            row.conflict = true;
        }
    }
    check(preview, plan, locale);
    return preview;
}

RenamePreview previewName(PlanList& plan, int rowNumber, std::wstring_view newName, const Locale& locale) {
    RenamePreview preview;
    if (const PlanList::Place place = plan.find(rowNumber)) {
        preview.rows.push_back(rowOf(place));
        preview.rows.back().newName = newName;
        check(preview, plan, locale);
    }
    return preview;
}

}  // namespace blattwart
