#include "HostFixture.h"

namespace demo {

namespace {

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
