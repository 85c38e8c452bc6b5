#include "HostFixture.h"

#include <algorithm>
#include <array>

#include "autocad/CommandTexts.h"

namespace demo {

namespace {

bool isComplaint(const std::wstring& line) {
    return line.starts_with(L"Unbekannter Befehl: ") || line.starts_with(L"Unknown command: ") ||
           line == L"Ungültiges Optionsschlüsselwort." || line == L"Invalid option keyword.";
}

TEST_F(HostTest, CommandLineTakesTheLayoutOptions) {
    struct Case {
        const wchar_t* typed;
        Names tabs;
    };
    const Case cases[] = {
        {L"_layout\r_copy\rB\rB neu\r", {L"A", L"B neu", L"B"}},
        {L"_layout\r_copy\r\r\r", {L"A (2)", L"A", L"B"}},
        {L"layout _c B\rC\r", {L"A", L"C", L"B"}},
        {L"LAYOUT\rk\rB\rC\r", {L"A", L"C", L"B"}},
        {L"_layout\r_copy\rfehlt\rC\r", {L"A", L"B"}},
        {L"_layout\r_copy\rA\rb\r", {L"A", L"B"}},
        {L"_layout\r_delete\rA\r", {L"B"}},
        {L"_layout\r_delete\rModel\r", {L"A", L"B"}},
        {L"-layout\r_new\rPlan 3\r", {L"A", L"B", L"Plan 3"}},
        {L"_-layout\r_rename\rA\rPlan 3\r", {L"Plan 3", L"B"}},
        {L"_layout\runsinn\r_new\rC\r", {L"A", L"B", L"C"}},
        {L"_layout\rcopy\rA\rC\r\x1b", {L"A", L"B"}},
        {L"_layout\r_n\rC\x1b\r", {L"A", L"B"}},
    };
    for (const Case& each : cases) {
        restart({});
        call(open({L"A", L"B"}), L"SendCommand", {Value(each.typed)});
        EXPECT_EQ(tabs(), each.tabs) << &each - cases;
    }
}

using blattwart::TypedCommand;
using blattwart::Wording;

struct WordingCase {
    TypedCommand command;
    std::vector<std::wstring_view> answers;
    // What is not understood of the established words: by a German host, by an English one.
    std::array<std::ptrdiff_t, 2> refused;
    // Of the template's layout that is inserted the user tells the name.
    const wchar_t* last = L"";
    Names tabs = {L"A", L"B"};
};

class Wordings : public HostTest {
  protected:
    void expect(const WordingCase& each, Language language, Wording wording) {
        restart({.language = language});
        host_->addDocument(L"C:\\Projekte", L"Neu.dwt", {L"V"})->save();
        host_->close(host_->activeDocument());
        open({L"A", L"B"});
        host_->setFiledia(0);
        const bool makesFile = each.command == TypedCommand::saveLayoutAsTemplate;
        if (makesFile) std::filesystem::remove(host_->disk().realPath(file));
        std::wstring text = blattwart::commandText(each.command, wording, {});
        for (const std::wstring_view answer : each.answers) text.append(answer) += L'\r';
        const DocumentPtr document = host_->activeDocument();
        host_->sendCommand(document, text);
        const bool english = language == Language::english;
        const std::ptrdiff_t refused =
            wording == Wording::international ? 0 : each.refused.at(english ? 1 : 0);
        SCOPED_TRACE(testing::PrintToString(text) + (english ? ", English" : ", German"));
        EXPECT_EQ(std::ranges::count_if(document->commandLine().history(), isComplaint), refused);
        EXPECT_TRUE(!makesFile || host_->disk().exists(file) == (refused == 0));
        if (refused > 0) return;
        host_->sendCommand(document, each.last);
        if (host_->activeDocument()) {
            EXPECT_EQ(tabs(), each.tabs);
        }
    }

    const std::wstring file = L"C:\\Projekte\\Neu.dwt";
};

TEST_F(Wordings, AreTakenOnlyInTheirLanguage) {
    const WordingCase cases[] = {
        {TypedCommand::copyLayout, {L"B", L"C"}, {0, 0}, L"", {L"A", L"C", L"B"}},
        {TypedCommand::setLayout, {L"B"}, {0, 0}},
        {TypedCommand::saveLayoutAsTemplate, {L"B", file}, {0, 3}},
        {TypedCommand::insertLayouts, {file}, {0, 2}, L"V\r", {L"A", L"B", L"V"}},
        {TypedCommand::closeDrawing, {}, {0, 0}, L"", {}},
        {TypedCommand::saveDrawingAs, {L"C:\\Projekte\\Neu.dwg"}, {0, 0}},
        // The second return takes a default, and the target is another command.
        {TypedCommand::navigateDesignCenter, {L"C:\\Projekte"}, {1, 2}},
    };
    for (const WordingCase& each : cases)
        for (const Language language : {Language::german, Language::english})
            for (const Wording wording : {Wording::established, Wording::international})
                expect(each, language, wording);
}

TEST_F(HostTest, CommandLineEvaluatesWhatLooksLikeAnExpression) {
    struct Case {
        const wchar_t* typed;
        Names history;
    };
    const std::wstring option =
        L"Layoutoption eingeben [Kopieren/Löschen/Neu/Vorlage/Umbenennen/SIchals/"
        L"SEtzen/?] <setzen>: ";
    const std::wstring source = L"Name des zu kopierenden Layouts eingeben: ";
    for (const Case& each :
         {Case{L"(quit) ", {L"Ausdruck: (quit)"}}, Case{L"(a \r(b))\r", {L"Ausdruck: (a \r(b))"}},
          Case{L"!x\r", {L"Variable: !x"}}, Case{L"'_qsave\r", {L"Transparenter Befehl: '_qsave"}},
          // The prompt stays, and the next answer is taken for its answer.
          Case{L"_layout\r_copy\r (1)\rA\r",
               {L"Befehl: _layout", option + L"_copy", L"Ausdruck:  (1)", source + L"A"}}}) {
        restart({});
        call(open({L"A", L"B"}), L"SendCommand", {Value(each.typed)});
        EXPECT_EQ(host_->activeDocument()->commandLine().history(), each.history);
        EXPECT_EQ(tabs(), (Names{L"A", L"B"}));
    }
}

}  // namespace

}  // namespace demo
