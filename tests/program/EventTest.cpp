#include "Operations.h"

#include <algorithm>

namespace blattwart::test {
namespace {

constexpr const wchar_t* wrongTarget = L"Objekte können nur in die Bibliothek eingefügt oder geladen werden!";

using TreeEvents = Operations;

TEST_F(TreeEvents, NodeClickTakesThePlaceholderAwayBeforeTheListFollows) {
    click(L"L5");
    choose(L"mnuLayoutImport");
    ASSERT_NE(tree().find(L"D0"), nullptr);
    world.settings.values[L"ViewMode"] = L"3";
    calls.clear();
    bool placeholderSeen = false;
    calls.beforeCall([&](std::size_t) { placeholderSeen |= tree().find(L"D0") != nullptr; });
    click(L"Z1");
    calls.beforeCall({});
    EXPECT_GT(calls.count(), 0U);
    EXPECT_FALSE(placeholderSeen);
    EXPECT_EQ(tree().editedNode(), nullptr);
    EXPECT_EQ(list().mode(), ListViewMode::details);
    EXPECT_EQ(list().count(), 1);
    EXPECT_EQ(list().columns().size(), 5U);
    EXPECT_FALSE(form().item(L"mnuFileDelete").enabled());
    EXPECT_TRUE(typed().empty());
    click(L"B");
    EXPECT_EQ(status(), L"C:\\Vorlagen");
}

TEST_F(TreeEvents, LabelEditsThatEndWithoutATextLeaveEverything) {
    const std::wstring before = treeText();
    for (const wchar_t* command : {L"mnuLayoutImport", L"mnuFileRename"}) {
        for (const bool byEscape : {true, false}) {
            choose(command);
            ASSERT_NE(tree().editedNode(), nullptr);
            form().ctlTimer_Timer();
            ASSERT_NE(tree().editedNode(), nullptr);
            if (byEscape) {
                tree().userEndsLabelEdit(nullptr);
            } else {
                click(L"L5");
                click(L"L4");
            }
            EXPECT_EQ(treeText(), before);
            EXPECT_EQ(list().find(L"D0"), nullptr);
            // What the window reports late, when the edit is over, means nothing.
            endTreeEdit(L"Spät");
            EXPECT_EQ(treeText(), before);
        }
    }
    EXPECT_TRUE(typed().empty());
    EXPECT_EQ(layoutsOf(L"Plan.dwg"), L"Blatt 1,Blatt 2,Schnitt");
    EXPECT_TRUE(world.messages.shown.empty());
}

TEST_F(TreeEvents, ACommandDuringTheNamingOfATemplateIsMeantForTheSource) {
    click(L"L5");
    choose(L"mnuLayoutImport");
    choose(L"mnuFileDelete");
    EXPECT_EQ(tree().find(L"D0"), nullptr);
    EXPECT_EQ(layoutsOf(L"Plan.dwg"), L"Blatt 1,Schnitt");
}

TEST_F(TreeEvents, KeysDroppedOnTheTree) {
    struct Case {
        const wchar_t* node;
        const wchar_t* listItem;
        const wchar_t* dropped;
        const wchar_t* target;
        const wchar_t* effect;  // what is edited then, or "new", "refused", ""
    };
    for (const Case& c :
         {Case{L"L5", L"", L"L5", L"B", L"Blatt 2"}, Case{L"Z3", L"L6", L"L6", L"B", L"Schnitt"},
          Case{L"D7", L"", L"D7", L"A", L"new"}, Case{L"D7", L"", L"D7", L"B", L""},
          Case{L"L5", L"", L"L5", L"A", L""}, Case{L"Z3", L"", L"Z3", L"B", L""},
          Case{L"L5", L"", L"L4", L"B", L""}, Case{L"B", L"D7", L"D7", L"A", L""},
          Case{L"L5", L"", L"L5", L"Z1", L"refused"}, Case{L"D7", L"", L"D7", L"D8", L"refused"},
          Case{L"D7", L"", L"D7", L"L4", L"refused"}, Case{L"L5", L"", L"L5", L"", L""}}) {
        restart();
        click(c.node);
        if (*c.listItem) selectInList({c.listItem});
        tree().setDropHighlight(tree().find(c.target));
        tree().events.keyDropped(c.dropped);
        const std::wstring effect = c.effect;
        const bool edits = !effect.empty() && effect != L"new" && effect != L"refused";
        EXPECT_EQ(tree().editText(), edits ? effect : L"");
        EXPECT_EQ(host().documents().size(), effect == L"new" ? 3U : 2U);
        EXPECT_EQ(world.messages.shown,
                  effect == L"refused" ? std::vector{told(wrongTarget)} : std::vector<ShownBox>{});
    }
}

TEST_F(TreeEvents, FilesDroppedOnTheTree) {
    const std::vector<std::wstring> files{L"C:\\Projekte\\Bild.png", L"C:\\Projekte\\Haus.dwg",
                                          L"C:\\Vorlagen\\plan a3.DWT", L"C:\\Projekte\\Eins.dwg"};
    for (const wchar_t* target : {L"B", L"Z1", L"A"}) {
        restart();
        host().addDocument(L"C:\\Projekte", L"Eins.dwg", {L"Blatt 1"})->save();
        host().close(document(L"Eins.dwg"));
        tree().setDropHighlight(&tree().node(target));
        tree().events.filesDropped(files);
        const bool opens = *target == L'A';
        EXPECT_EQ(host().documents().size(), opens ? 4U : 2U);
        EXPECT_EQ(world.messages.shown, opens
                                            ? std::vector{told(L"C:\\Projekte\\Haus.dwg ist bereits geladen!",
                                                               MessageIcon::information)}
                                        : *target == L'Z' ? std::vector{told(wrongTarget)}
                                                          : std::vector<ShownBox>{});
        if (!opens) continue;
        EXPECT_TRUE(activeDocumentIsRight());
        EXPECT_NE(treeText().find(L"plan a3.DWT"), std::wstring::npos);
        EXPECT_NE(treeText().find(L"Eins.dwg*"), std::wstring::npos);
        EXPECT_EQ(status(), L"C:\\Projekte\\Eins.dwg");
    }
}

TEST_F(TreeEvents, ListFollowsColumnClicksAndDoubleClicks) {
    click(L"Z3");
    const auto first = [this](int column) {
        list().events.columnClick(column);
        return list().row(0).text();
    };
    EXPECT_EQ(first(1), L"Blatt 1");
    EXPECT_EQ(first(1), L"Schnitt");
    EXPECT_EQ(first(1), L"Blatt 1");

    selectInList({L"L5"});
    list().events.doubleClick();
    EXPECT_EQ(tree().selected()->key(), L"Z3");
    click(L"A");
    selectInList({L"Z1"});
    list().events.doubleClick();
    EXPECT_EQ(tree().selected()->key(), L"Z1");
    EXPECT_TRUE(tree().selected()->expanded());
    EXPECT_EQ(list().count(), 1);
    EXPECT_EQ(hostState(), L"Plan.dwg/Blatt 1 of 2");
}

}  // namespace
}  // namespace blattwart::test
