#include "Program.h"

namespace blattwart::test {
namespace {

class Navigator : public Program {
  protected:
    Navigator() {
        host().addDocument(L"C:\\Haus 1", L"Plan.dwg", {L"Blatt 2", L"Blatt 10"});
        host().addDocument(L"C:\\Haus 2", L"Größe.dwg", {L"Übersicht"});
    }
    std::int32_t lastNumber() const { return main->records.LastNumber; }
};

TEST_F(Navigator, KeepsKeysOverRefreshesAndGoesOnCounting) {
    start();
    const std::wstring before = treeText();
    EXPECT_EQ(before,
              L"A Geladene Zeichnungen*\n"
              L"  Z1 Plan.dwg\n"
              L"    L2 Blatt 10\n"
              L"    L3 Blatt 2\n"
              L"  Z4 Größe.dwg*\n"
              L"    L5 Übersicht*<\n"
              L"B Bibliothek\n"
              L"  D6 Plan A3.dwt\n"
              L"  D7 Rahmen.dwg\n");
    EXPECT_EQ(lastNumber(), 7);
    tree().userExpands(tree().node(L"Z1"), true);
    click(L"L2");
    refresh();
    refresh();
    EXPECT_EQ(lastNumber(), 21);
    EXPECT_EQ(tree().selected()->key(), L"L2");
    EXPECT_TRUE(tree().node(L"Z1").expanded());
    EXPECT_TRUE(tree().node(L"Z4").expanded());
    click(L"L5");
    EXPECT_EQ(treeText(), before);
    tree().userExpands(tree().node(L"A"), false);
    tree().userExpands(tree().node(L"B"), false);
    refresh();
    EXPECT_TRUE(tree().node(L"A").expanded());
    EXPECT_TRUE(tree().node(L"B").expanded());

    struct Look {
        const wchar_t* key;
        int image;
        int selectedImage;
    };
    for (const Look& look :
         {Look{L"A", 2, 0}, {L"B", 3, 0}, {L"Z1", 12, 13}, {L"L2", 8, 9}, {L"D6", 6, 4}, {L"D7", 7, 5}}) {
        EXPECT_EQ(tree().node(look.key).image(), look.image);
        EXPECT_EQ(tree().node(look.key).selectedImage(), look.selectedImage);
    }
    EXPECT_EQ(tree().node(L"A").color(), SystemColor::buttonText);
}

TEST_F(Navigator, FollowsTheHost) {
    start();
    const auto plan = host().findDocument(L"C:\\Haus 1\\Plan.dwg");
    plan->drawing().renameLayout(*plan->findLayout(L"Blatt 2"), L"Blatt 3");
    host().activate(plan);
    leaveAndReturn();
    // The renamed layout is a new one behind the others; what is active has moved.
    EXPECT_EQ(drawingsText(),
              L"A Geladene Zeichnungen*\n"
              L"  Z1 Plan.dwg*\n"
              L"    L2 Blatt 10\n"
              L"    L10 Blatt 3*\n"
              L"  Z4 Größe.dwg\n"
              L"    L5 Übersicht<\n");
}

TEST_F(Navigator, RecordsOutliveTheirNodes) {
    start();
    host().close(host().findDocument(L"C:\\Haus 2\\Größe.dwg"));
    world.readings.escAfter = 0;
    leaveAndReturn();
    EXPECT_NE(tree().find(L"Z4"), nullptr) << "nobody has seen that it is stale";
    world.readings.escAfter = 1000;
    leaveAndReturn();
    EXPECT_EQ(tree().find(L"Z4"), nullptr);
    EXPECT_EQ(tree().find(L"L5"), nullptr);
    EXPECT_NE(tree().selected(), nullptr);

    // Opened again it is known, so it gets no node; only a host found gone forgets it.
    host().addDocument(L"C:\\HAUS 2", L"größe.dwg", {L"Übersicht", L"Neu"});
    leaveAndReturn();
    EXPECT_EQ(tree().node(L"A").children().size(), 1U);
    EXPECT_EQ(main->records.DrawingRecords.Count(), 2);
    EXPECT_EQ(hint(), L"1 geladene Zeichnung fehlt im Baum: Strg+F5");
    host().addDocument(L"C:\\Haus 1", L"Neu.dwg", {L"Blatt 1", L"Blatt 2"});
    leaveAndReturn();
    host().close(host().documents().back());
    leaveAndReturn();
    host().addDocument(L"C:\\Haus 1", L"Neu.dwg", {L"Blatt 1", L"Blatt 2"});
    const auto plan = host().findDocument(L"C:\\Haus 1\\Plan.dwg");
    demo::Layout& second = *plan->findLayout(L"Blatt 2");
    plan->drawing().renameLayout(second, L"Blatt 3");
    refresh();
    plan->drawing().renameLayout(second, L"Blatt 2");
    leaveAndReturn();
    EXPECT_EQ(hint(), L"2 geladene Zeichnungen und 1 Layout fehlen im Baum: Strg+F5");

    // Unless the user has the tree built anew. Numbers go on; the selection is where it was.
    click(L"L2");
    const std::int32_t last = lastNumber();
    form().tbToolBar.userClicks(L"Descending");
    choose(L"mnuViewRebuild");
    EXPECT_EQ(tree().node(L"A").children().size(), 3U);
    EXPECT_EQ(tree().node(L"A").children().front()->key(), L"Z" + std::to_wstring(last + 1));
    EXPECT_EQ(tree().selected()->text(), L"Blatt 10");
    EXPECT_EQ(list().find(L"ILayoutname")->column(2), L"Blatt 10");
    EXPECT_EQ(tree().node(L"B").children().size(), 2U);
    EXPECT_EQ(tree().find(L"D6"), nullptr);
    EXPECT_EQ(hint(), L"");

    host().close(plan);
    leaveAndReturn();
    host().addDocument(L"C:\\Haus 1", L"Plan.dwg", {L"Blatt 10"});
    leaveAndReturn();
    EXPECT_EQ(hint(), L"1 geladene Zeichnung fehlt im Baum: Strg+F5");
    world.files.addFolder(ownLibrary);
    demo.end();
    world.messages.answer(MessageAnswer::yes);
    demo.setCreateError(L"geht nicht");
    leaveAndReturn();
    EXPECT_EQ(main->records.DrawingRecords.Count(), 0);
    EXPECT_TRUE(tree().node(L"A").children().empty());
    EXPECT_EQ(hint(), L"");
    EXPECT_EQ(main->records.TemplateFolder, ownLibrary) << "not that of the host that is gone";
    demo.start();
    host().addDocument(L"C:\\Haus 2", L"Größe.dwg", {L"Übersicht"});
    leaveAndReturn();
    EXPECT_EQ(tree().node(L"A").children().size(), 1U);
}

TEST_F(Navigator, TheLastDrawingCloses) {
    start();
    const std::wstring before = treeText();
    for (const auto& document : std::vector(host().documents())) host().close(document);
    // Without an active drawing everything stays.
    choose(L"mnuViewRefresh");
    EXPECT_EQ(status(), L"Keine aktive AutoCAD-Zeichnung !");
    const std::size_t library = before.find(L"B ");
    EXPECT_EQ(tree().node(L"A").children().size(), 2U);

    // One that is closed since it was met leaves quietly.
    host().addDocument(L"C:\\Haus 3", L"Neu.dwg", {L"Blatt 1"});
    leaveAndReturn();
    host().close(host().documents().front());
    refresh();
    EXPECT_TRUE(tree().node(L"A").children().empty());
    EXPECT_EQ(treeText().substr(treeText().find(L"B ")).substr(0, 5), before.substr(library, 5));
    EXPECT_TRUE(world.messages.shown.empty());
}

TEST_F(Navigator, DrawingsOfOneNameAreBothActive) {
    host().addDocument(L"C:\\Haus 3", L"Plan.dwg", {L"Blatt 1"});
    start();
    EXPECT_TRUE(tree().node(L"Z1").bold());
    EXPECT_TRUE(tree().node(L"Z6").bold());
    EXPECT_FALSE(tree().node(L"Z4").bold());
    // Of one path there is one node, however often it is open.
    const std::size_t nodes = tree().node(L"A").children().size();
    host().addDocument(L"C:\\Haus 5", L"Doppelt.dwg", {L"Blatt 1"});
    host().addDocument(L"C:\\Haus 5", L"Doppelt.dwg", {L"Blatt 1"});
    host().activate(host().findDocument(L"C:\\Haus 3\\Plan.dwg"));
    leaveAndReturn();
    EXPECT_EQ(tree().node(L"A").children().size(), nodes + 1);
    // A name in other case is another name.
    host().addDocument(L"C:\\Haus 4", L"PLAN.DWG", {L"Blatt 1"});
    leaveAndReturn();
    EXPECT_FALSE(tree().node(L"Z1").bold());
}

TEST_F(Navigator, UnchangedRefreshAsksNoMoreThanNeeded) {
    onEveryKindOfHost([this] {
        std::size_t layouts = 0;
        constexpr std::size_t drawings = 7;
        for (std::size_t i = 0; i < drawings; ++i) {
            const std::vector<std::wstring> names{L"A" + std::to_wstring(i), L"B", L"C"};
            host().addDocument(L"C:\\P", L"D" + std::to_wstring(i) + L".dwg", names);
            layouts += names.size() + 1;
        }
        start();
        click(L"B");
        calls.clear();
        refresh();
        EXPECT_LE(hostCalls(calls), 14 + 5 * drawings + layouts);
        const std::size_t unchanged = hostCalls(calls);

        auto& drawing = host().documents().front()->drawing();
        drawing.addLayout(L"Neu 1");
        drawing.addLayout(L"Neu 2");
        calls.clear();
        refresh();
        // One name and one id for each new layout.
        EXPECT_EQ(hostCalls(calls), unchanged + 4);
    });
}

using Library = Navigator;

TEST_F(Library, FollowsTheFolder) {
    start();
    world.files.forget(L"C:\\Vorlagen\\Plan A3.dwt");
    world.files.add(L"C:\\Vorlagen\\PLAN.dwt.DWG");
    refresh();
    EXPECT_EQ(tree().find(L"D6"), nullptr);
    ASSERT_EQ(tree().node(L"B").children().size(), 2U);
    EXPECT_EQ(tree().node(L"B").children()[1]->image(), 7);
    // A template that comes back is known and gets no node, in whatever case.
    world.files.add(L"C:\\Vorlagen\\plan a3.DWT");
    refresh();
    EXPECT_EQ(tree().node(L"B").children().size(), 2U);
    EXPECT_TRUE(world.messages.shown.empty());
}

TEST_F(Library, UnreadableFolderIsTold) {
    start();
    for (const wchar_t* file : {L"Plan A3.dwt", L"Rahmen.dwg", L"Skizze.dwf"})
        world.files.forget(std::wstring(L"C:\\Vorlagen\\") + file);
    host().options().templateFolder = L"C:\\Fehlt\\";
    refresh();
    EXPECT_EQ(main->records.TemplateFolder, L"C:\\Fehlt");
    EXPECT_EQ(world.messages.shown,
              std::vector{told(L"Vorlagen-Ordner kann nicht gelesen werden!", MessageIcon::critical)});
    EXPECT_NE(tree().find(L"D6"), nullptr);
}

TEST_F(Library, StaysAsItWasWhileItsDriveDoesNotAnswer) {
    start();
    const std::wstring database = (folder.path() / "Tarvix.mdb").wstring();
    world.files.forget(L"C:\\Vorlagen\\Plan A3.dwt");
    const std::wstring before = treeText();
    for (const std::wstring& silent : {std::wstring(L"C:\\Vorlagen"), database}) {
        world.files.silentPaths = {silent};
        calls.clear();
        const std::int32_t last = lastNumber();
        refresh();
        EXPECT_EQ(hint(), L"Bibliothek antwortet nicht: letzter Stand");
        EXPECT_EQ(calls.count(L"Open") > 0, silent != database);
        EXPECT_EQ(tree().find(L"D6") != nullptr, silent != database);
        EXPECT_GT(lastNumber(), last) << "the drawings are read";
        if (silent == database) continue;
        EXPECT_EQ(treeText(), before);
        choose(L"mnuViewRebuild");
        EXPECT_EQ(tree().node(L"B").children().size(), 2U);
    }
    world.files.silentPaths.clear();
    refresh();
    EXPECT_EQ(hint(), L"");
    EXPECT_TRUE(world.messages.shown.empty());
}

TEST_F(Library, RunningNumberDecidesItsEmptyLook) {
    for (const auto& document : std::vector(host().documents())) host().close(document);
    for (const wchar_t* file : {L"Plan A3.dwt", L"Rahmen.dwg"})
        world.files.forget(std::wstring(L"C:\\Vorlagen\\") + file);
    start();
    const TreeNode& library = tree().node(L"B");
    EXPECT_EQ(library.text(), L"Keine Vorlagen vorhanden!");
    EXPECT_EQ(library.image(), 11);
    EXPECT_EQ(library.color(), SystemColor::appWorkspace);

    // Once anything was counted, the look is the normal one for good; the text stays as it was.
    host().addDocument(L"C:\\P", L"D.dwg", std::vector<std::wstring>{});
    leaveAndReturn();
    host().close(host().documents().front());
    leaveAndReturn();
    EXPECT_EQ(library.image(), 3);
    EXPECT_EQ(library.color(), SystemColor::buttonText);
    EXPECT_EQ(library.text(), L"Keine Vorlagen vorhanden!");
}

TEST_F(Library, DefinitionDatabaseInAllItsStates) {
    const ShownBox openFailed = told(L"Fehler beim Öffnen der Def-Datenbank!", MessageIcon::critical);
    const std::wstring folderFailed = L"Vorlagen-Ordner kann nicht gelesen werden!";

    // Without a provider each load tells so; without type 1 there is no folder.
    adoFaults.providerMissing = true;
    ASSERT_TRUE(start());
    ASSERT_EQ(world.messages.shown.size(), 4U);
    EXPECT_EQ(world.messages.shown[0], openFailed);
    EXPECT_EQ(world.messages.shown[2], openFailed);
    EXPECT_EQ(world.messages.shown[3].text, folderFailed);
    EXPECT_EQ(tree().node(L"A").children().size(), 2U);

    adoFaults.providerMissing = false;
    world.messages.clear();
    refresh();
    EXPECT_TRUE(world.messages.shown.empty());
    EXPECT_EQ(tree().node(L"B").children().size(), 2U);

    // The user's own folder, written with a backslash at its end, is the same folder.
    useDatabase(L"DELETE FROM Typen; INSERT INTO Typen VALUES (1, 'Vorlagen', 'C:\\Vorlagen\\', NULL);");
    refresh();
    EXPECT_EQ(main->records.TemplateFolder, L"C:\\Vorlagen");
    EXPECT_EQ(tree().node(L"B").children().size(), 2U);

    // The file is gone: what was read last goes on.
    std::filesystem::remove(folder.path() / "Tarvix.mdb");
    refresh();
    EXPECT_EQ(world.messages.shown, (std::vector<ShownBox>{openFailed, openFailed}));
    EXPECT_EQ(tree().node(L"B").children().size(), 2U);

    world.messages.clear();
    useDatabase(L"DELETE FROM Typen;");
    refresh();
    EXPECT_EQ(world.messages.texts(), std::vector<std::wstring>{folderFailed});
}

}  // namespace
}  // namespace blattwart::test
