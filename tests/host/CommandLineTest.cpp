#include "HostFixture.h"

namespace demo {

namespace {

class CommandLineTest : public HostTest {
  protected:
    void send(const std::wstring& text) {
        call(object(application_, L"ActiveDocument"), L"SendCommand", {Value(text)});
    }
    std::int16_t activity() {
        const Value value =
            call(object(application_, L"ActiveDocument"), L"GetVariable", {Value(L"CMDACTIVE")});
        return *value.as<std::int16_t>();
    }
};

TEST_F(CommandLineTest, LayoutOptions) {
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
        open({L"A", L"B"});
        send(each.typed);
        EXPECT_EQ(tabs(), each.tabs) << &each - cases;
    }
}

TEST_F(CommandLineTest, AnswersMayComeInPieces) {
    open({L"A", L"B"});
    const ObjectPtr state = *call(application_, L"GetAcadState").as<ObjectPtr>();
    EXPECT_EQ(activity(), 0);
    send(L"_layout\r_co");
    EXPECT_EQ(activity(), 1);
    EXPECT_EQ(get(state, L"IsQuiescent"), Value(false));
    send(L"py\rA\r");
    send(L"_layout\r");
    EXPECT_EQ(tabs(), (Names{L"_layout", L"A", L"B"})) << "the text answers the prompt that is open";
    EXPECT_EQ(get(state, L"IsQuiescent"), Value(true));
}

}  // namespace

}  // namespace demo
