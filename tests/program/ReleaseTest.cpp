// Which AutoCAD the program works with, and how it goes on where one has no macro project.

#include <algorithm>

#include "Operations.h"

namespace blattwart::test {
namespace {

constexpr const wchar_t* tarvixMissing = L"Bitte rufen Sie Tarvix über das AutoCAD-Menü auf!";
constexpr const wchar_t* choice = L"AutoCADVersion";

class Releases : public Operations {
  protected:
    /// Entered in the registry and installed; it runs when it is started.
    void install(const wchar_t* number) {
        world.installations.install(number, L"AutoCAD " + std::wstring(number) + L" – Deutsch");
        demo.install(demo::ofRelease(number));
    }
    /// A release runs with a drawing that tells it.
    void run(const std::wstring& number) {
        demo.start(number).addDocument(L"C:\\Projekte", number + L".dwg", {L"Blatt " + number});
    }
    /// The program begins anew.
    void begin() {
        world.messages.clear();
        calls.clear();
        main = std::make_unique<basMain>(world.platform, presenter);
        ASSERT_TRUE(start());
    }
    /// What is shown of the loaded drawings.
    std::wstring drawings() {
        std::wstring names;
        for (const auto& node : tree().node(L"A").children()) names += node->text() + L" ";
        return names;
    }
    std::vector<std::wstring> askedFor(demo::RecordedCall::Kind kind) {
        std::vector<std::wstring> names;
        for (const demo::RecordedCall& call : calls.calls())
            if (call.kind == kind && call.ofHost)
                names.push_back(call.className.substr(std::wstring(L"AutoCAD.Application").size()));
        return names;
    }
    std::wstring chosenInMenu() {
        std::wstring name;
        for (const wchar_t* item :
             {L"mnuReleaseAutomatic", L"mnuRelease(24.3)", L"mnuRelease(24.1)", L"mnuRelease(19.1)"})
            if (form().item(item).checked()) name += item;
        return name;
    }
};

TEST_F(Releases, AreLookedForInTheirOrder) {
    // Of an LT nothing is heard; a release whose program is missing is not installed.
    install(L"19.1");
    install(L"24.1");
    install(L"24.3");
    install(L"25.0");
    world.installations.entered.push_back({L"R26.0", L"ACAD-A109:407", L"AutoCAD LT"});
    world.installations.withoutServer = {L"{25.0}", L"{25}"};
    world.installations.classes[L"AutoCAD.Application"] = L"{24}";
    world.files.add(ownLibrary + std::wstring(L"\\Eigene.dwt"));
    struct Case {
        const wchar_t* chosen;
        std::vector<std::wstring> running;
        const wchar_t* drawings;
        std::size_t versions;  // asked for
    };
    for (const Case& c :
         {Case{L"", {L"18", L"24.3"}, L"Haus.dwg Plan.dwg ", 0},
          Case{L"", {L"24.3", L"19.1"}, L"24.3.dwg ", 1}, Case{L"", {L"24.1"}, L"24.1.dwg ", 1},
          Case{L"", {L"19.1"}, L"19.1.dwg ", 1}, Case{L"24.3", {L"18", L"24.3"}, L"24.3.dwg ", 1},
          Case{L"19.1", {L"18", L"24.3", L"19.1"}, L"19.1.dwg ", 1},
          // Chosen, but not installed any more.
          Case{L"25.0", {L"18", L"24.3"}, L"Haus.dwg Plan.dwg ", 0},
          Case{L"24", {L"18"}, L"Haus.dwg Plan.dwg ", 0},
          // Another one of the same family is found by the family's name and not taken.
          Case{L"24.3", {L"24.1"}, L"", 1}}) {
        SCOPED_TRACE(testing::PrintToString(c.chosen));
        for (const wchar_t* each : {L"19.1", L"24.1", L"24.3"}) demo.end(each);
        world.settings.values.clear();
        restart();
        if (std::ranges::find(c.running, L"18") == c.running.end()) demo.end(L"18");
        for (const std::wstring& each : c.running)
            if (each != L"18") run(each);
        world.settings.values[choice] = c.chosen;
        begin();
        EXPECT_EQ(drawings(), c.drawings);
        EXPECT_EQ(calls.count(L"Version"), c.versions);
        EXPECT_TRUE(world.messages.shown.empty());
    }
    // None runs: all that may be attached were looked for, each class once.
    for (const wchar_t* each : {L"18", L"24.1"}) demo.end(each);
    world.settings.values.clear();
    main = std::make_unique<basMain>(world.platform, presenter);
    calls.clear();
    EXPECT_FALSE(start());
    EXPECT_EQ(askedFor(demo::RecordedCall::Kind::running),
              (std::vector<std::wstring>{L".18", L".24.3", L".24", L".24.1", L".19.1", L".19"}));
    // The first that is installed is started.
    world.messages.clear();
    world.messages.answer(MessageAnswer::yes);
    calls.clear();
    ASSERT_TRUE(start());
    EXPECT_EQ(askedFor(demo::RecordedCall::Kind::create), std::vector<std::wstring>{L".24.3"});
    EXPECT_EQ(tree().node(L"A").text(), L"Geladene Zeichnungen");
}

TEST_F(Releases, TheEstablishedHostIsAskedNothingMore) {
    const auto talk = [this] {
        host().options().vbaInstalled = false;
        begin();
        for (const wchar_t* item : {L"mnuFileDelete", L"mnuCreate", L"mnuViewRefresh"}) {
            click(L"L5");
            choose(item);
        }
        leaveAndReturn();
        return std::pair(calls.list(), world.messages.shown);
    };
    const auto alone = talk();
    EXPECT_EQ(alone.second, (std::vector{told(tarvixMissing), told(tarvixMissing)}));
    restart();
    install(L"24.3");
    run(L"24.3");
    world.installations.classes[L"AutoCAD.Application.18"] = L"{18}";
    EXPECT_EQ(talk(), alone);
    for (const wchar_t* member : {L"Version", L"LocaleId", L"Handle"}) EXPECT_EQ(calls.count(member), 0U);
}

TEST_F(Releases, AnAttachedOneIsKeptUntilItEndsOrTheEstablishedOneRuns) {
    install(L"19.1");
    install(L"24.3");
    demo.end();
    run(L"19.1");
    begin();
    run(L"24.3");
    leaveAndReturn();
    EXPECT_EQ(drawings(), L"19.1.dwg ");
    demo.end(L"19.1");
    leaveAndReturn();
    EXPECT_EQ(drawings(), L"24.3.dwg ");
    EXPECT_TRUE(world.messages.shown.empty());
    // With the host everything of it is dropped.
    const std::int32_t drawing = main->records.DrawingRecords.Item(1)->Nummer;
    demo.host(L"24.3")->options().templateFolder = L"C:\\Andere";
    calls.hostEnded();
    demo.start().addDocument(L"C:\\Projekte", L"24.3.dwg", {L"Blatt 18"});
    leaveAndReturn();
    EXPECT_EQ(drawings(), L"24.3.dwg ");
    EXPECT_EQ(calls.deadObjects(), 0U);
    EXPECT_EQ(main->records.DrawingRecords.Count(), 1);
    EXPECT_EQ(main->records.LayoutRecords.Count(), 1);
    EXPECT_GT(main->records.DrawingRecords.Item(1)->Nummer, drawing);
    EXPECT_EQ(main->records.TemplateRecords.Count(), 2);
    EXPECT_GT(main->records.TemplateRecords.Item(1)->Nummer, drawing);
}

TEST_F(Releases, AreChosenInTheMenu) {
    install(L"19.1");
    install(L"24.1");
    install(L"24.3");
    world.installations.entered.push_back({L"R24.3", L"ACAD-7104:407", L"AutoCAD Architecture"});
    run(L"24.3");
    begin();
    EXPECT_EQ(form().item(L"mnuRelease(24.3)").caption(), L"AutoCAD 24.3 – Deutsch");
    EXPECT_EQ(chosenInMenu(), L"mnuReleaseAutomatic");
    // One that runs is attached at once.
    choose(L"mnuRelease(24.3)");
    EXPECT_EQ(drawings(), L"24.3.dwg ");
    EXPECT_EQ(chosenInMenu(), L"mnuRelease(24.3)");
    EXPECT_EQ(world.settings.values[choice], L"24.3");
    EXPECT_TRUE(world.messages.shown.empty());
    leaveAndReturn();
    EXPECT_EQ(drawings(), L"24.3.dwg ");
    // One that does not run is started if wanted, and could be another one.
    const auto offer = question(L"AutoCAD 19.1 starten?");
    for (const bool fails : {false, true}) {
        world.messages.clear();
        world.messages.answer(fails ? MessageAnswer::yes : MessageAnswer::no);
        demo.setCreateError(fails ? L"Kein Server" : L"");
        choose(L"mnuRelease(19.1)");
        EXPECT_EQ(drawings(), L"24.3.dwg ");
        EXPECT_EQ(chosenInMenu(), L"mnuRelease(24.3)");
        EXPECT_EQ(world.messages.shown,
                  fails ? (std::vector{offer, told(L"Kein Server", MessageIcon::none)}) : std::vector{offer});
    }
    demo.setCreateError(L"");
    world.messages.clear();
    for (const MessageAnswer answer : {MessageAnswer::yes, MessageAnswer::ok, MessageAnswer::yes})
        world.messages.answer(answer);
    demo::HostOptions wrong = demo::ofRelease(L"24.1");
    wrong.version = L"24.0s (LMS Tech)";
    demo.install(wrong);
    choose(L"mnuRelease(24.1)");
    EXPECT_EQ(world.messages.shown.back(), told(L"Es ist ein anderes AutoCAD gestartet als das gewählte!"));
    EXPECT_EQ(chosenInMenu(), L"mnuRelease(24.3)");
    EXPECT_TRUE(demo.host(L"24.1")->visible());
    choose(L"mnuRelease(19.1)");
    EXPECT_EQ(drawings(), L"Zeichnung1.dwg ");
    EXPECT_TRUE(demo.host(L"19.1")->visible());
    EXPECT_EQ(chosenInMenu(), L"mnuRelease(19.1)");
    // What cannot be kept holds all the same.
    world.settings.fails = [](std::wstring_view) { return true; };
    choose(L"mnuReleaseAutomatic");
    EXPECT_EQ(drawings(), L"Haus.dwg Plan.dwg ");
    EXPECT_EQ(hint(), L"Die Einstellung kann nicht gespeichert werden.");
    // One that hangs is there: nothing changes.
    calls.refuse(RuntimeError(hresult::callRejected, L""));
    world.messages.clear();
    choose(L"mnuRelease(24.3)");
    EXPECT_EQ(world.messages.shown,
              std::vector{told(L"AutoCAD antwortet nicht. Bitte versuchen Sie es noch einmal.")});
    EXPECT_EQ(chosenInMenu(), L"mnuReleaseAutomatic");
}

TEST_F(Releases, OfTheirIdsNothingIsCutOff) {
    // Without 32-bit ids and, at first, without a drawing.
    install(L"24.3");
    demo.end();
    demo.start(L"24.3");
    begin();
    EXPECT_EQ(drawings(), L"");
    demo.host(L"24.3")->addDocument(L"C:\\Projekte", L"Halle.dwg", {L"Blatt"});
    leaveAndReturn();
    EXPECT_EQ(drawings(), L"Halle.dwg ");
    EXPECT_EQ(main->records.LayoutRecords.Item(1)->AObjId, 0);
}

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
        {L"the last", [&](auto& drawing) { drawing.deleteLayout(named(drawing, L"Blatt 1")); },
         L"Blatt 2,Schnitt", L"Das letzte Layout einer Zeichnung kann nicht gelöscht werden: Blatt 2"},
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
    click(L"D7");
    before(L"SetVariable", 2, [&] { calls.goneFrom(calls.count()); });
    choose(L"popInsert");
    calls.beforeCall({});
    EXPECT_EQ(host().filedia(), 0);
    calls.heal();
    demo.start(L"18").addDocument(L"C:\\Projekte", L"Haus.dwg", {L"Blatt 1"});
    demo.host(L"18")->setFiledia(0);
    leaveAndReturn();
    EXPECT_EQ(demo.host(L"18")->filedia(), 0) << "as its user has it";
    demo.end(L"18");
    leaveAndReturn();
    EXPECT_EQ(host().filedia(), 1);
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
    EXPECT_EQ(hostState(), L"Plan.dwg/Dach 2");
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
    EXPECT_EQ(hostState(), L"Haus.dwg/Layout1 2");
}

}  // namespace
}  // namespace blattwart::test
