#include "planlist/PlanWriteResult.h"

namespace blattwart {

namespace {

constexpr std::size_t mostNames = 20;

std::wstring listed(const std::vector<std::wstring>& names) {
    std::wstring text;
    for (std::size_t i = 0; i < names.size() && i < mostNames; ++i)
        text += (i == 0 ? L"„" : L", „") + names[i] + L"“";
    return names.size() > mostNames ? text + L" …" : text;
}

std::wstring lines(const std::vector<std::wstring>& reasons) {
    std::wstring text;
    for (const std::wstring& reason : reasons) text += L"\n" + reason;
    return text;
}

}  // namespace

std::wstring PlanWriteResult::Refusal::text() const {
    std::wstring text =
        drawing + L": „" + from + L"“ kann nicht in „" + to + L"“ umbenannt werden: " + reason;
    if (takenBack) return text;
    return text + L"\nIn dieser Zeichnung heißen die Layouts jetzt: " + listed(namesNow) + L".";
}

PlanWriteResult PlanWriteResult::of(const PlanReader::Check& check) {
    using Result = PlanReader::Check::Result;
    PlanWriteResult result;
    result.drawings = check.changed;
    switch (check.result) {
        case Result::asRead:
            break;
        case Result::commandRunning:
            result.end = End::commandRunning;
            break;
        case Result::changed:
            result.end = End::changedInHost;
            break;
        case Result::noAnswer:
            result.end = End::noAnswer;
            break;
        case Result::cancelled:
            result.end = End::cancelled;
            break;
    }
    return result;
}

std::wstring PlanWriteResult::message() const {
    switch (end) {
        case End::commandRunning:
            return L"In AutoCAD läuft noch ein Befehl. Bitte beenden Sie ihn zuerst!";
        case End::noAnswer:
            return L"AutoCAD antwortet nicht. Bitte versuchen Sie es noch einmal." + lines(reasons);
        case End::changedInHost: {
            std::wstring names;
            for (const std::wstring& drawing : drawings) names += (names.empty() ? L"" : L", ") + drawing;
            return L"In AutoCAD wurden Layouts geändert: " + names +
                   L". Es wurde nichts ausgeführt, die Planliste ist neu gelesen. Bitte prüfen Sie die "
                   L"Auswahl!";
        }
        case End::refused: {
            std::wstring text =
                refusal.text() + (refusal.takenBack ? L"\nIn dieser Zeichnung gelten wieder die alten Namen."
                                                    : L" „Rückgängig“ stellt die alten Namen her.");
            return text + L"\nUmbenannt: " + std::to_wstring(done) + L", nicht bearbeitet: " +
                   std::to_wstring(chosen - done) + L".";
        }
        case End::partly: {
            const std::wstring text =
                done > 0 ? L"Rückgängig gemacht bis auf:"
                         : L"Der Vorgang kann nicht mehr rückgängig gemacht werden: " + what + L".";
            return text + lines(reasons);
        }
        case End::otherwise:
            return lines(reasons).substr(1);
        default:
            return {};
    }
}

std::wstring PlanWriteResult::statusText() const {
    if (end == End::cancelled)
        return L"Abgebrochen: " + std::to_wstring(done) + L" von " + std::to_wstring(chosen) + L" erledigt.";
    if (end != End::done) return {};
    if (undoing) return L"Rückgängig gemacht: " + what + L".";
    return doneText;
}

}  // namespace blattwart
