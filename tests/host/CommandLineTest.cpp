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
    bool shown(const std::wstring& text) const {
        const auto& history = host_->activeDocument()->commandLine().history();
        return std::ranges::any_of(history,
                                   [&](const auto& line) { return line.find(text) != std::wstring::npos; });
    }
    /// A template file with these layouts.
    void makeTemplate(const std::wstring& path, const Names& layouts) {
        host_->addDocument(L"C:\\Vorlagen", fileNameOf(path), layouts)->saveAs(path);
        host_->close(host_->activeDocument());
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

TEST_F(CommandLineTest, SavesALayoutAsTemplate) {
    open({L"A", L"B"});
    host_->setFiledia(0);
    send(L"_layout\rSI\rB\rC:\\Vorlagen\\Mein Blatt.dwt\r");
    EXPECT_EQ(activity(), 0);
    host_->newDocument(L"Mein Blatt");
    EXPECT_EQ(tabs(), (Names{L"B"}));
    host_->close(host_->activeDocument());

    send(L"_layout\rSI\rA\rMein Blatt\r");
    EXPECT_EQ(activity(), 1) << "asks before it overwrites";
    send(L"\r_layout\r_sa\rA\rMein Blatt\rJa\r");
    EXPECT_EQ(activity(), 0);
    host_->newDocument(L"Mein Blatt");
    EXPECT_EQ(tabs(), (Names{L"A"}));
}

TEST_F(CommandLineTest, InsertsLayoutsThatTheUserChooses) {
    makeTemplate(L"C:\\Vorlagen\\Satz 1.dwt", {L"Eins", L"Zwei"});
    open({L"A"});
    const DocumentPtr document = host_->activeDocument();
    host_->setFiledia(0);
    send(L"layout\rvorlage\rC:\\Vorlagen\\Satz 1.dwt\r");
    EXPECT_EQ(activity(), 1);
    document->commandLine().type(L"Zwei\r");
    EXPECT_EQ(tabs(), (Names{L"A", L"Zwei"}));

    host_->setFiledia(1);
    const ObjectPtr state = *call(application_, L"GetAcadState").as<ObjectPtr>();
    send(L"layout\rvorlage\r");
    ASSERT_TRUE(host_->dialog());
    EXPECT_EQ(errorOf([&] { get(application_, L"Documents"); }), blattwart::hresult::callRejected);
    EXPECT_EQ(get(state, L"IsQuiescent"), Value(false));
    host_->answerDialog(L"C:\\Vorlagen\\Satz 1.dwt");
    ASSERT_TRUE(host_->dialog());
    EXPECT_EQ(host_->dialog()->proposal, L"Eins,Zwei");
    host_->answerDialog(L"Eins");
    EXPECT_EQ(tabs(), (Names{L"A", L"Zwei", L"Eins"}));

    send(L"layout\rvorlage\r_layout\r_new\rDanach\r");
    host_->cancelDialog();
    EXPECT_EQ(tabs(), (Names{L"A", L"Zwei", L"Eins", L"Danach"})) << "what was typed behind it is used then";
}

TEST_F(CommandLineTest, ClosingAndSavingAskTheUser) {
    open({L"A"});
    send(L"_layout\r_new\rB\r");
    send(L"_Close\r");
    ASSERT_TRUE(host_->dialog());
    host_->cancelDialog();
    EXPECT_EQ(host_->documents().size(), 1u);
    send(L"_saveas\r");
    host_->answerDialog(L"C:\\Projekte\\Anders.dwg");
    EXPECT_EQ(host_->activeDocument()->fullName(), L"C:\\Projekte\\Anders.dwg");
    send(L"_Close\r");
    EXPECT_TRUE(host_->documents().empty()) << "nothing to save, nothing to ask";
}

TEST_F(CommandLineTest, DesignCenterReadsOnePathAndUnknownCommandsDoNoHarm) {
    open({L"A"});
    send(L"ADCNAVIGIEREN\r\rC:\\Vorlagen\r");
    EXPECT_TRUE(shown(L"Unbekannter Befehl: C:\\Vorlagen"));
    EXPECT_EQ(activity(), 0);
    send(L"ADCNAVIGIEREN\r\r\r");
    EXPECT_EQ(activity(), 1) << "an empty answer repeats the command";
}

}  // namespace

}  // namespace demo
