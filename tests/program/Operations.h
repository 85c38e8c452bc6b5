#pragma once

#include <iosfwd>

#include "Program.h"
#include "support/Scenarios.h"

namespace blattwart::test {

/// A text that was typed into a drawing's command line, "\r" for Return.
struct Typed {
    std::wstring drawing;
    std::wstring text;
    int filedia = 1;  ///< at that moment: 0 when AutoCAD is to ask in the command line, not in dialogs
    friend bool operator==(const Typed&, const Typed&) = default;
};
void PrintTo(const Typed& typed, std::ostream* stream);

/// The program on the sample drawings; the library has D8 Rahmen.dwg besides, and L4 is selected.
class Operations : public Program {
  protected:
    Operations() { restart(); }

    /// Everything anew: another host with the same files, another program.
    void restart();
    /// "Plan.dwg/Blatt 1 of 2": the host's active drawing, its current layout, the number of open drawings.
    std::wstring hostState();
    demo::DocumentPtr document(const std::wstring& name) {
        return host().findDocument(L"C:\\Projekte\\" + name);
    }
    using Program::layoutsOf;
    std::wstring layoutsOf(const std::wstring& name) { return layoutsOf(document(name)); }
    std::vector<Typed> typed();
    /// The program takes the host's active drawing for the active one.
    bool activeDocumentIsRight();
    /// The next call that changes something by this member fails: it was carried out and nobody waited for
    /// the answer, or it was refused.
    void loseAnswerOf(std::wstring_view className, std::wstring_view name,
                      std::int32_t error = hresult::callCanceled);
    void selectInList(const std::vector<std::wstring>& keys) { test::selectInList(form(), keys); }
    void endTreeEdit(const std::wstring& text) { tree().userEndsLabelEdit(&text); }
    void endListEdit(const std::wstring& text) { list().userEndsLabelEdit(&text); }
};

// What is told of a name that AutoCAD must not be given.
inline constexpr const wchar_t* controlCharacters =
    L"Ein Name enthält Steuerzeichen und kann nicht an AutoCAD übergeben werden!";
inline const std::wstring asExpression = L"AutoCAD würde den Namen als Ausdruck ausführen: ";

/// What is told where the macro project does not answer.
inline constexpr const wchar_t* tarvixMissing = L"Bitte rufen Sie Tarvix über das AutoCAD-Menü auf!";

/// The parts of a text between its commas.
std::vector<std::wstring> split(const std::wstring& text);

}  // namespace blattwart::test
