// Which AutoCAD the program works with.

#include <algorithm>

#include "Operations.h"

namespace blattwart::test {
namespace {

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
        ASSERT_TRUE(startAgain());
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
    // Of an LT nothing is heard. Not installed is a release whose program is missing, and one without a name
    // beside sisters with theirs unless it is the family's first (24.0).
    install(L"19.1");
    install(L"24.1");
    install(L"24.3");
    install(L"25.0");
    world.installations.entered.push_back({L"R26.0", L"ACAD-A109:407", L"AutoCAD LT"});
    world.installations.entered.push_back({L"R24.2", L"ACAD-6101:407", L"AutoCAD 2023"});
    world.installations.entered.push_back({L"R24.0", L"ACAD-4101:407", L"AutoCAD 2021"});
    demo.install(demo::ofRelease(L"24.0"));
    world.installations.entered.push_back({L"R23.1", L"ACAD-3101", L""});
    world.installations.classes[L"AutoCAD.Application.23.1"] = L"{23.1}";
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
          Case{L"24.2", {L"18", L"24.3"}, L"Haus.dwg Plan.dwg ", 0},
          Case{L"23.1", {L"18"}, L"Haus.dwg Plan.dwg ", 0}, Case{L"24.0", {L"18", L"24.0"}, L"24.0.dwg ", 1},
          // Another one of the same family is found by the family's name and not taken.
          Case{L"24.3", {L"24.1"}, L"", 1}}) {
        SCOPED_TRACE(testing::PrintToString(c.chosen));
        for (const wchar_t* each : {L"19.1", L"24.0", L"24.1", L"24.3"}) demo.end(each);
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
    EXPECT_EQ(world.messages.shown.back(), told(L"Es ist ein anderes AutoCAD gestartet als das gesuchte!"));
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
    // One that was removed since does not start.
    calls.heal();
    choose(L"mnuRelease(24.3)");
    demo.end(L"24.3");
    world.installations.classes.clear();
    demo.setCreateError(L"Ungültige Klassenzeichenfolge");
    world.messages.answer(MessageAnswer::yes);
    leaveAndReturn();
    EXPECT_EQ(world.messages.texts().at(2), L"Ungültige Klassenzeichenfolge");
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

}  // namespace
}  // namespace blattwart::test
