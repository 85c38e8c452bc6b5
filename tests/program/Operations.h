#pragma once

#include "Program.h"

namespace blattwart::test {

/// The program on two drawings that the host has on its disk, with a template beside them:
///
///     A Geladene Zeichnungen     Z1 Haus.dwg (L2 Blatt 1)
///                                Z3 Plan.dwg, active (L4 Blatt 1, active and selected; L5 Blatt 2; L6
///                                Schnitt)
///     B Bibliothek               D7 Plan A3.dwt, D8 Rahmen.dwg
class Operations : public Program {
  protected:
    Operations() { restart(); }

    /// Everything anew: another host with the same files, another program.
    void restart();
    /// "Plan.dwg/Blatt 1 2": the host's active drawing, its current layout, the number of open drawings.
    std::wstring hostState();
    demo::DocumentPtr document(const std::wstring& name) {
        return host().findDocument(L"C:\\Projekte\\" + name);
    }
    /// Names of the paper layouts in the order of their tabs, separated by commas.
    static std::wstring layoutsOf(const demo::Drawing& drawing);
    std::wstring layoutsOf(const std::wstring& name) { return layoutsOf(document(name)->drawing()); }
    /// What was typed: "Plan.dwg 1 _Close¶", document, FILEDIA at that moment, text with "¶" for returns.
    std::vector<std::wstring> typed();
    /// The program takes the host's active drawing for the active one.
    bool activeDocumentIsRight();
    /// The hint in the status line.
    std::wstring hint() { return form().sbStatusBar.panelText(2); }
    /// The next call that changes something by this member fails: it was carried out and nobody waited for
    /// the answer, or it was refused.
    void loseAnswerOf(std::wstring_view className, std::wstring_view name,
                      std::int32_t error = hresult::callCanceled);
    void selectInList(const std::vector<std::wstring>& keys);
    void endTreeEdit(const std::wstring& text) { tree().userEndsLabelEdit(&text); }
    void endListEdit(const std::wstring& text) { list().userEndsLabelEdit(&text); }
};

/// The parts of a text between its commas.
std::vector<std::wstring> split(const std::wstring& text);

inline ShownBox question(std::wstring text) {
    return {std::move(text), L"Blattwart", MessageButtons::yesNo, MessageIcon::question};
}
inline ShownBox told(std::wstring text, MessageIcon icon = MessageIcon::exclamation) {
    return {std::move(text), L"Blattwart", MessageButtons::ok, icon};
}

}  // namespace blattwart::test
