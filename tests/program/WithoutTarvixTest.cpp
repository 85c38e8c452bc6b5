// How the program goes on with an AutoCAD that has no macro project.

#include "Operations.h"

#include <algorithm>

namespace blattwart::test {
namespace {

/// On a host without the macro project, whose layouts open the page setup when they are shown first.
class WithoutTarvix : public Operations {
  protected:
    WithoutTarvix() {
        demo::HostOptions options = demo::ofRelease(L"24.3");
        options.vbaInstalled = false;
        options.profile->showsPageSetup = true;
        useHost(options);
        restart();
    }
    bool pageSetupIsBack() { return host().options().profile->showsPageSetup && !host().dialog(); }
    /// The user deletes these layouts of Plan.dwg, with this answer.
    void remove(const std::vector<std::wstring>& keys, MessageAnswer answer = MessageAnswer::yes) {
        click(L"Z3");
        selectInList(keys);
        world.messages.clear();
        world.messages.expect(tarvixMissing, MessageAnswer::ok);
        world.messages.answer(answer);
        choose(L"mnuFileDelete");
    }
    /// Something happens directly before the n-th call of this member.
    void before(std::wstring_view member, int n, const std::function<void()>& happens) {
        calls.clear();
        calls.beforeCall([=, met = 0, this](std::size_t) mutable {
            if (calls.calls().back().name == member && ++met == n) happens();
        });
    }
    static std::wstring deleteQuestion(const wchar_t* names) {
        return L"Ohne Tarvix aus der Zeichnung 'Plan.dwg' löschen?\n\n" + std::wstring(names);
    }
};

TEST_F(WithoutTarvix, DeletesWhatTheUserWants) {
    for (const bool wanted : {false, true}) {
        restart();
        // The current layout is one of them.
        remove({L"L4", L"L6"}, wanted ? MessageAnswer::yes : MessageAnswer::no);
        EXPECT_EQ(world.messages.shown,
                  (std::vector{told(tarvixMissing),
                               ShownBox{deleteQuestion(L"Blatt 1\nSchnitt"), L"Blattwart",
                                        MessageButtons::yesNoDefaultNo, MessageIcon::question}}));
        EXPECT_EQ(layoutsOf(L"Plan.dwg"), wanted ? L"Blatt 2" : L"Blatt 1,Blatt 2,Schnitt");
        EXPECT_TRUE(pageSetupIsBack());
        EXPECT_EQ(tree().node(L"Z3").children().size(), wanted ? 1U : 3U);
    }
}

TEST_F(WithoutTarvix, DeletesNothingElse) {
    struct Case {
        const wchar_t* what;
        std::function<void(demo::Drawing&)> meanwhile;  // while the question is open
        const wchar_t* left;
        std::wstring message;
    };
    const auto named = [](demo::Drawing& drawing, const wchar_t* name) -> demo::Layout& {
        return *drawing.findLayout(name);
    };
    const Case cases[] = {
        {L"renamed",
         [&](auto& drawing) {
             drawing.renameLayout(named(drawing, L"Blatt 2"), L"Dach");
             drawing.renameLayout(named(drawing, L"Blatt 1"), L"Blatt 2");
         },
         L"Blatt 2", L""},
        {L"gone", [&](auto& drawing) { drawing.deleteLayout(named(drawing, L"Blatt 2")); }, L"Blatt 1", L""},
        {L"the last", [&](auto& drawing) { drawing.deleteLayout(named(drawing, L"Blatt 1")); }, L"Schnitt",
         L"Das letzte Layout einer Zeichnung kann nicht gelöscht werden: Schnitt"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::PrintToString(c.what));
        restart();
        world.messages.whileOpen = [&](const ShownBox& box) {
            if (box.buttons == MessageButtons::yesNoDefaultNo) c.meanwhile(document(L"Plan.dwg")->drawing());
        };
        remove({L"L5", L"L6"});
        world.messages.whileOpen = {};
        EXPECT_EQ(layoutsOf(L"Plan.dwg"), c.left);
        EXPECT_EQ(world.messages.shown.size(), c.message.empty() ? 2U : 3U);
        EXPECT_EQ(world.messages.shown.back().text == c.message, !c.message.empty());
    }
    // A command that runs by then would be disturbed.
    restart();
    world.messages.whileOpen = [&](const ShownBox& box) {
        if (box.buttons == MessageButtons::yesNoDefaultNo)
            document(L"Plan.dwg")->commandLine().type(L"LAYOUT\r");
    };
    remove({L"L5"});
    EXPECT_EQ(layoutsOf(L"Plan.dwg"), L"Blatt 1,Blatt 2,Schnitt");
    EXPECT_EQ(world.messages.shown.back(),
              told(L"In AutoCAD läuft noch ein Befehl. Bitte beenden Sie ihn zuerst!"));
}

TEST_F(WithoutTarvix, TellsWhatFailsHalfWayAndIsNeverOfferedAfterALostAnswer) {
    struct Case {
        const wchar_t* member;
        int n;
        RuntimeError error;
        demo::Moment moment;
        const wchar_t* left;
        std::wstring message;
    };
    const RuntimeError broken(hresult::memberNotFound, L"Fehler");
    const RuntimeError lost(hresult::callCanceled, L"Fehler");
    for (const Case& c :
         {Case{L"Delete", 2, broken, demo::Moment::before, L"Blatt 1,Schnitt",
               L"Das Layout kann nicht gelöscht werden: Schnitt\n\nFehler"},
          Case{L"Delete", 1, lost, demo::Moment::after, L"Blatt 1,Schnitt",
               L"Ob das Layout gelöscht wurde, ist nicht bekannt: Blatt 2"},
          Case{L"RunMacro", 1, lost, demo::Moment::before, L"Blatt 1,Blatt 2,Schnitt", tarvixMissing},
          Case{L"LoadDVB", 1, lost, demo::Moment::before, L"Blatt 1,Blatt 2,Schnitt", tarvixMissing},
          Case{L"RunMacro", 2, lost, demo::Moment::before, L"Blatt 1,Blatt 2,Schnitt", tarvixMissing}}) {
        SCOPED_TRACE(testing::PrintToString(c.member));
        restart();
        before(c.member, c.n, [&] { calls.failAt(calls.count(), c.error, c.moment); });
        remove({L"L5", L"L6"});
        calls.beforeCall({});
        EXPECT_EQ(layoutsOf(L"Plan.dwg"), c.left);
        EXPECT_EQ(world.messages.shown.back(), told(c.message));
        EXPECT_TRUE(pageSetupIsBack());
    }
    // The project is there; only the routine is not.
    restart();
    host().options().vbaInstalled = true;
    before(L"RunMacro", 3, [&] { calls.failAt(calls.count(), broken); });
    remove({L"L5"});
    EXPECT_EQ(world.messages.shown, std::vector{told(tarvixMissing)});
}

TEST_F(WithoutTarvix, GivesTheHostItsPreferenceBackAfterADeath) {
    for (const bool creating : {false, true}) {
        restart();
        host().options().profile->showsPageSetup = true;
        presenter.inErstellen = [](frmErstellen& dialog) { dialog.cmdStart.userClicks(); };
        before(creating ? L"Add" : L"Delete", 1, [&] { calls.goneFrom(calls.count()); });
        if (creating) {
            world.messages.clear();
            world.messages.expect(tarvixMissing, MessageAnswer::ok);
            world.messages.answer(MessageAnswer::yes);
            choose(L"mnuCreate");
        } else {
            remove({L"L5"});
        }
        calls.beforeCall({});
        EXPECT_FALSE(host().options().profile->showsPageSetup);
        // Another host is not given what this one is owed.
        calls.heal();
        world.messages.clear();
        demo.start(L"18").addDocument(L"C:\\Projekte", L"Haus.dwg", {L"Blatt 1"});
        leaveAndReturn();
        EXPECT_FALSE(demo.host(L"18")->options().profile->showsPageSetup);
        demo.end(L"18");
        leaveAndReturn();
        EXPECT_TRUE(host().options().profile->showsPageSetup);
        EXPECT_EQ(layoutsOf(L"Plan.dwg"), L"Blatt 1,Blatt 2,Schnitt");
        EXPECT_EQ(calls.deadObjects(), 0U);
    }
}

TEST_F(WithoutTarvix, OwesFilediaToTheHostThatLostIt) {
    for (const bool saving : {false, true}) {
        restart();
        click(saving ? L"L5" : L"D7");
        before(L"SetVariable", 2, [&] {
            EXPECT_EQ(world.settings.values[L"PlanRestore"], L"24.3:FILEDIA=1");
            calls.goneFrom(calls.count());
        });
        choose(saving ? L"mnuLayoutImport" : L"popInsert");
        if (saving) endTreeEdit(L"Neu");
        calls.beforeCall({});
        EXPECT_EQ(host().filedia(), 0);
        calls.heal();
        demo.start(L"18").addDocument(L"C:\\Projekte", L"Haus.dwg", {L"Blatt 1"});
        demo.host(L"18")->setFiledia(0);
        leaveAndReturn();
        EXPECT_EQ(demo.host(L"18")->filedia(), 0) << "as its user has it";
        demo.end(L"18");
        // The program has ended meanwhile, too.
        ASSERT_TRUE(startAgain());
        EXPECT_EQ(host().filedia(), 1);
        EXPECT_EQ(world.settings.values[L"PlanRestore"], L"");
    }
}

TEST_F(WithoutTarvix, CreatesUnderANameThatAutoCadTakes) {
    document(L"Plan.dwg")->drawing().addLayout(L"layout1");
    host().activate(document(L"Haus.dwg"));
    int shown = 0;
    std::wstring proposal;
    presenter.inErstellen = [&](frmErstellen& dialog) {
        ++shown;
        proposal = dialog.txtDokument.text() + L"/" + dialog.txtLayout.text();
        for (const auto& [name, fault] : std::vector<std::pair<std::wstring, std::wstring>>{
                 {L" blatt 1 ", L"bereits vergeben"},
                 {L"A,B", L"unzulässiges Zeichen: ,"},
                 {L"model", L"„model“ ist der Modellbereich"},
                 {std::wstring(256, L'x'), L"länger als 255 Zeichen"}}) {
            dialog.txtLayout.setText(name);
            dialog.cmdStart.userClicks();
            EXPECT_EQ(world.messages.shown.back(), told(L"AutoCAD nimmt diesen Namen nicht an: " + fault));
            EXPECT_FALSE(presenter.dialog.closed);
        }
        dialog.txtLayout.setText(L"  ");
        EXPECT_FALSE(dialog.cmdStart.enabled());
        // The user may have begun a command since the dialog opened.
        dialog.txtLayout.setText(L"Dach");
        document(L"Plan.dwg")->commandLine().type(L"LAYOUT\r");
        dialog.cmdStart.userClicks();
        EXPECT_EQ(world.messages.shown.back(),
                  told(L"In AutoCAD läuft noch ein Befehl. Bitte beenden Sie ihn zuerst!"));
        EXPECT_FALSE(presenter.dialog.closed);
        document(L"Plan.dwg")->commandLine().type(L"\x1b");
        // What the host refuses all the same is told in its words.
        before(L"Add", 1,
               [&] { calls.failAt(calls.count(), RuntimeError(hresult::memberNotFound, L"EXTNAMES")); });
        dialog.txtLayout.setText(L" Dach ");
        dialog.cmdStart.userClicks();
        calls.beforeCall({});
        EXPECT_EQ(world.messages.shown.back(),
                  told(L"Das Layout kann nicht erstellt werden: Dach\n\nEXTNAMES"));
        EXPECT_FALSE(presenter.dialog.closed);
        calls.heal();
        dialog.cmdStart.userClicks();
        EXPECT_TRUE(presenter.dialog.closed);
    };
    click(L"A");
    selectInList({L"Z3"});
    world.messages.answer(MessageAnswer::ok);
    world.messages.answer(MessageAnswer::no);
    choose(L"popCreate");
    EXPECT_EQ(shown, 0);
    const auto asks = question(L"Soll das Layout ohne Tarvix erstellt werden?");
    EXPECT_EQ(world.messages.shown, (std::vector{told(tarvixMissing), asks}));
    world.messages.clear();
    world.messages.answer(MessageAnswer::ok);
    world.messages.answer(MessageAnswer::yes);
    choose(L"popCreate");
    EXPECT_EQ(proposal, L"Plan.dwg/Layout2");
    EXPECT_EQ(layoutsOf(L"Plan.dwg"), L"Blatt 1,Blatt 2,Schnitt,layout1,Dach");
    EXPECT_EQ(hostState(), L"Plan.dwg/Dach of 2");
    EXPECT_TRUE(pageSetupIsBack());
    const auto& nodes = tree().node(L"Z3").children();
    EXPECT_TRUE(
        std::ranges::any_of(nodes, [](const auto& each) { return each->text() == L"Dach" && each->bold(); }));
    // Not asked for again; without a choice it is the drawing that is active by then.
    presenter.inErstellen = [](frmErstellen& dialog) { dialog.cmdStart.userClicks(); };
    host().activate(document(L"Haus.dwg"));
    click(L"L5");
    world.messages.clear();
    choose(L"mnuCreate");
    EXPECT_EQ(world.messages.shown, std::vector{told(tarvixMissing)});
    EXPECT_EQ(hostState(), L"Haus.dwg/Layout1 of 2");
}

}  // namespace
}  // namespace blattwart::test
