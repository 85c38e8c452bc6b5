#include "Program.h"

namespace blattwart::test {
namespace {

constexpr const wchar_t* startQuestion =
    L"Soll AutoCAD gestartet werden? Mit 'Nein' wird der Blattwart geschlossen!";
constexpr const wchar_t* startCaption = L"Blattwart: AutoCAD ist nicht aktiv!";

using StartUp = Program;

TEST_F(StartUp, AttachesToTheRunningHostAndShowsItsDrawings) {
    host().addDocument(L"C:\\Projekte", L"Plan.dwg", {L"Blatt 1", L"Blatt 2"});
    ASSERT_TRUE(start());
    EXPECT_EQ(treeText(),
              L"A Geladene Zeichnungen*\n"
              L"  Z1 Plan.dwg*\n"
              L"    L2 Blatt 1*<\n"
              L"    L3 Blatt 2\n"
              L"B Bibliothek\n"
              L"  D4 Plan A3.dwt\n"
              L"  D5 Rahmen.dwg\n");
    EXPECT_EQ(status(), L"C:\\Projekte\\Plan.dwg");
    EXPECT_EQ(main->gWasForeground, 1);
    EXPECT_EQ(main->views->tree.CurrentNodeKind, L"L");
    EXPECT_TRUE(tree().dragAutomatic());
    EXPECT_EQ(world.desktop.foregroundWindow, FakeWindow::ownHandle);
    EXPECT_TRUE(world.messages.shown.empty());
}

TEST_F(StartUp, AsksBeforeStartingTheHost) {
    demo.end();
    world.messages.answer(MessageAnswer::no);
    EXPECT_FALSE(start());
    EXPECT_EQ(
        world.messages.shown,
        (std::vector<ShownBox>{{startQuestion, startCaption, MessageButtons::yesNo, MessageIcon::question}}));
    EXPECT_EQ(main->fMainForm, nullptr);
    EXPECT_EQ(world.settings.writes, 0);

    // Whoever does not wait for its answers sees it when he comes back.
    calls.beforeCall([this](std::size_t number) {
        const demo::RecordedCall& call = calls.calls().back();
        const bool made = call.kind == demo::RecordedCall::Kind::create && call.ofHost;
        if (made || call.name == L"Visible")
            calls.failAt(number, RuntimeError(hresult::callCanceled, L"Abgebrochen"),
                         made ? demo::Moment::after : demo::Moment::before);
    });
    world.messages.answer(MessageAnswer::yes);
    ASSERT_TRUE(start());
    calls.beforeCall({});
    calls.heal();
    EXPECT_FALSE(host().visible());
    for (const std::size_t shown : {1U, 0U}) {
        calls.clear();
        leaveAndReturn();
        EXPECT_EQ(calls.count(L"Visible"), shown);
    }
    EXPECT_TRUE(host().visible());
    EXPECT_TRUE(main->autoCAD.gAcadDoc);
    EXPECT_EQ(status(), L"\\Zeichnung1.dwg");
}

TEST_F(StartUp, GoesOnWithoutAHostThatCannotBeStarted) {
    demo.end();
    demo.setCreateError(L"Server konnte nicht gestartet werden.");
    world.files.add(ownLibrary + std::wstring(L"\\Eigene.dwt"));
    world.messages.answer(MessageAnswer::yes);
    ASSERT_TRUE(start());
    ASSERT_EQ(world.messages.shown.size(), 2U);
    EXPECT_EQ(world.messages.shown[1], told(L"Server konnte nicht gestartet werden.", MessageIcon::none));
    const TreeNode& root = tree().node(L"A");
    EXPECT_EQ(root.text(), L"AutoCAD nicht aktiv!");
    EXPECT_EQ(root.image(), 10);
    EXPECT_EQ(root.color(), SystemColor::appWorkspace);
    EXPECT_FALSE(root.bold());
    EXPECT_EQ(tree().node(L"B").children().size(), 1U);
    EXPECT_TRUE(form().item(L"mnuStart").enabled());

    demo.setCreateError(L"");
    choose(L"mnuStart");
    EXPECT_EQ(tree().node(L"A").text(), L"Geladene Zeichnungen");
    EXPECT_FALSE(form().item(L"mnuStart").enabled());
}

TEST_F(StartUp, HandsOverToTheFirstInstance) {
    world.process.hasPreviousInstance = true;
    world.desktop.windows[5] = {L"Blattwart", FakeDesktop::State::normal, true};
    world.desktop.windows[9] = {L"Blattwart", FakeDesktop::State::minimised, false};
    EXPECT_FALSE(start());
    EXPECT_EQ(world.desktop.log, (std::vector<std::wstring>{L"showNormal 9", L"setForeground 9"}));

    // While the first one has no window yet, the second ends silently; without a host it asks before that.
    world.desktop.windows.clear();
    demo.end();
    world.messages.answer(MessageAnswer::yes);
    EXPECT_FALSE(start());
    EXPECT_EQ(world.messages.texts(), std::vector<std::wstring>{startQuestion});
    EXPECT_NE(demo.host(), nullptr);
    EXPECT_EQ(main->fMainForm, nullptr);
}

TEST_F(StartUp, NoDrawingOpen) {
    // Without a drawing the host does not tell its template folder.
    world.files.addFolder(ownLibrary);
    ASSERT_TRUE(start());
    EXPECT_EQ(status(), L"Keine aktive AutoCAD-Zeichnung !");
    EXPECT_EQ(tree().selected()->key(), L"A");
    click(L"B");
    EXPECT_EQ(status(), ownLibrary);

    // Once told, it is kept when the last drawing is closed.
    const auto drawing = host().addDocument(L"C:\\P", L"D.dwg", std::vector<std::wstring>{});
    leaveAndReturn();
    EXPECT_EQ(status(), L"C:\\Vorlagen");
    host().close(drawing);
    leaveAndReturn();
    EXPECT_EQ(status(), L"C:\\Vorlagen");
    EXPECT_TRUE(world.messages.shown.empty());
}

TEST_F(StartUp, BrokenSettingsEndTheProgramWithTheirNameAndPlace) {
    for (const wchar_t* key : {L"MainLeft", L"MainHeight", L"Col_2_4"}) {
        world.settings.values = {{key, L"12 Zoll"}};
        world.messages.clear();
        EXPECT_FALSE(start());
        ASSERT_EQ(world.messages.shown.size(), 1U);
        const std::wstring& text = world.messages.shown[0].text;
        EXPECT_NE(text.find(std::wstring(L"„") + key + L"“ ist keine Zahl: „12 Zoll“"), std::wstring::npos);
        EXPECT_NE(text.find(L"HKEY_CURRENT_USER\\Software\\Blattwart\\Settings\\"), std::wstring::npos);
        EXPECT_EQ(world.settings.writes, 0);
    }
    // These are read as far as they are numbers, or passed over.
    world.settings.values = {{L"ViewMode", L"gross"}, {L"ColOrderL", L"x"}, {L"MainLeft", L"-250,5"}};
    EXPECT_TRUE(start());
    EXPECT_EQ(list().mode(), ListViewMode::largeIcons);
    EXPECT_EQ(presenter.window.place.left, -250.5F);
}

class Watchdog : public Program {
  protected:
    Watchdog() {
        host().addDocument(L"C:\\Projekte", L"Plan.dwg", {L"Blatt 1"});
        start();
        calls.clear();
    }
};

TEST_F(Watchdog, NoticesThatTheHostHasGone) {
    demo.end();
    form().ctlTimer_Timer();
    EXPECT_TRUE(world.messages.shown.empty());

    world.messages.expect(startQuestion, MessageAnswer::no);
    const int writes = world.settings.writes;
    leaveAndReturn();
    EXPECT_EQ(world.messages.shown.size(), 1U);
    EXPECT_TRUE(world.process.ended);
    EXPECT_EQ(world.settings.writes, writes);
}

TEST_F(Watchdog, OnlyAReturnReadsTheHostAndDoesSoOnce) {
    const auto cost = [this](const std::function<void()>& action) {
        calls.clear();
        action();
        return calls.count();
    };
    const std::size_t refresh = cost([this] { choose(L"mnuViewRefresh"); });
    EXPECT_EQ(cost([this] {
                  form().ctlTimer_Timer();
                  leave();
              }),
              0U);
    host().addDocument(L"C:\\Projekte", L"Neu.dwg", {L"Blatt 1"});
    world.desktop.foregroundWindow = FakeWindow::ownHandle;
    form().Form_Activate();
    EXPECT_NE(treeText().find(L"Neu.dwg*"), std::wstring::npos);
    EXPECT_EQ(cost([this] { form().ctlTimer_Timer(); }), 0U);
    host().close(host().documents().back());
    leave();
    world.desktop.foregroundWindow = FakeWindow::ownHandle;
    EXPECT_LE(cost([this] {
                  form().Form_Activate();
                  form().ctlTimer_Timer();
              }),
              refresh + 3);

    // Who was not away has the list filled.
    const int rows = list().count();
    list().clear();
    form().Form_Activate();
    EXPECT_EQ(list().count(), rows);
    EXPECT_GT(rows, 0);
}

TEST_F(Watchdog, AHostThatDoesNotAnswerIsRunning) {
    const std::wstring before = drawingsText();
    for (const std::int32_t refusal : {hresult::callRejected, hresult::callCanceled}) {
        calls.refuse(RuntimeError(refusal, L"Abgelehnt"));
        leaveAndReturn();
        EXPECT_EQ(world.messages.shown,
                  std::vector{told(L"Geladene AutoCAD-Zeichnungen können nicht ermittelt werden!",
                                   MessageIcon::critical)});
        EXPECT_EQ(tree().node(L"A").children().size(), 1U);
        EXPECT_EQ(tree().node(L"B").children().size(), 2U);
        EXPECT_TRUE(form().item(L"mnuShow").enabled());
        world.messages.clear();
        main->autoCAD.StartAutoCAD();
        EXPECT_EQ(world.messages.texts(),
                  std::vector<std::wstring>{L"AutoCAD antwortet nicht. Bitte versuchen Sie es noch einmal."});
        world.messages.clear();
        calls.heal();
        leaveAndReturn();
        EXPECT_EQ(drawingsText(), before);
        EXPECT_TRUE(world.messages.shown.empty());
    }
    // One that the user has started before he answers is taken.
    demo.end();
    world.messages.whileOpen = [this](const ShownBox&) { demo.start(); };
    world.messages.expect(startQuestion, MessageAnswer::yes);
    calls.clear();
    leaveAndReturn();
    EXPECT_TRUE(host().documents().empty()) << "a second one would have a new drawing";
}

TEST_F(Watchdog, AttachesToANewHost) {
    demo.end();
    demo.start();
    host().addDocument(L"C:\\Projekte", L"Anders.dwg", {L"Blatt 9"});
    leaveAndReturn();
    EXPECT_TRUE(world.messages.shown.empty());
    EXPECT_EQ(drawingsText(),
              L"A Geladene Zeichnungen*\n"
              L"  Z5 Anders.dwg*<\n"
              L"    L6 Blatt 9*\n");

    // Closed behind the program's back and started again on its question.
    demo.end();
    world.messages.expect(startQuestion, MessageAnswer::yes);
    leaveAndReturn();
    EXPECT_EQ(world.messages.shown.size(), 1U);
    EXPECT_EQ(status(), L"\\Zeichnung1.dwg");
}

TEST_F(Watchdog, StepsAsideWhileACallALabelEditOrAMessageBoxIsPending) {
    leave();
    world.desktop.foregroundWindow = FakeWindow::ownHandle;
    {
        const Gate::Call call(world.gate);
        form().ctlTimer_Timer();
        form().Form_Activate();
    }
    tree().startLabelEdit(L"Neu");
    form().ctlTimer_Timer();
    EXPECT_NE(tree().editedNode(), nullptr);
    tree().userEndsLabelEdit(nullptr);
    EXPECT_EQ(calls.count(), 0U);
    EXPECT_EQ(main->gWasForeground, 0);

    demo.end();
    world.messages.answer(MessageAnswer::yes);
    world.messages.whileOpen = [this](const ShownBox&) { form().ctlTimer_Timer(); };
    form().ctlTimer_Timer();
    EXPECT_EQ(world.messages.shown.size(), 1U);
    EXPECT_EQ(main->gWasForeground, 1);
}

}  // namespace
}  // namespace blattwart::test
