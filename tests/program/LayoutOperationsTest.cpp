#include "Operations.h"

#include <algorithm>
#include <array>

namespace blattwart::test {
namespace {

using LayoutOperations = Operations;

TEST_F(LayoutOperations, CopiesAreNumberedAndTheFirstBecomesCurrent) {
    struct Case {
        const wchar_t* base;
        std::int16_t copies;
        const wchar_t* layouts;
        const wchar_t* current;
    };
    for (const Case& c :
         {Case{L"Kopie von Süd", 1, L"Kopie von Süd,Blatt 1,Blatt 2,Schnitt", L"Kopie von Süd"},
          Case{L"blatt 1", 1, L"blatt 11,Blatt 1,Blatt 2,Schnitt", L"blatt 11"},
          Case{L"Neu", 3, L"Neu1,Neu2,Neu3,Blatt 1,Blatt 2,Schnitt", L"Neu1"},
          Case{L"Blatt ", 3, L"Blatt 3,Blatt 4,Blatt 5,Blatt 1,Blatt 2,Schnitt", L"Blatt 3"}}) {
        restart();
        std::wstring name = c.base;
        EXPECT_TRUE(main->tarvix.CopyLayouts(L"Blatt 1", name, c.copies));
        EXPECT_EQ(layoutsOf(L"Plan.dwg"), c.layouts);
        EXPECT_EQ(hostState(), L"Plan.dwg/" + std::wstring(c.current) + L" of 2");
        if (c.copies == 1) {
            EXPECT_EQ(name, c.current);
            EXPECT_EQ(typed(), (std::vector{Typed{L"Plan.dwg", L"_layout\r_copy\rBlatt 1\r" + name + L"\r"},
                                            Typed{L"Plan.dwg", L"_layout\r_set\r" + name + L"\r"}}));
        }
        document(L"Plan.dwg")->save();
        EXPECT_EQ(layoutsOf(host().disk().load(L"C:\\Projekte\\Plan.dwg")), c.layouts);
        leaveAndReturn();
        EXPECT_EQ(tree().node(L"Z3").children().size(), 3U + static_cast<std::size_t>(c.copies));
    }
    restart();
    for (const auto& [source, base, message] :
         std::vector<std::array<std::wstring, 3>>{{L"Blatt 1", L"Neu\nX", controlCharacters},
                                                  {L"Blatt 1", L"(quit)", asExpression + L"(quit)"},
                                                  {L"Blatt 1", L" !x", asExpression + L" !x"},
                                                  {L"'_.ERASE", L"Neu", asExpression + L"'_.ERASE"}}) {
        std::wstring name = base;
        EXPECT_FALSE(main->tarvix.CopyLayouts(source, name, 2));
        EXPECT_EQ(world.messages.shown.back(), told(message));
    }
    EXPECT_TRUE(typed().empty());
    EXPECT_TRUE(document(L"Plan.dwg")->commandLine().history().empty());
    // Elsewhere in a name they do no harm.
    std::wstring name = L"Neu (1)!";
    EXPECT_TRUE(main->tarvix.CopyLayouts(L"Blatt 1", name, 1));
    EXPECT_EQ(layoutsOf(L"Plan.dwg"), L"Neu (1)!,Blatt 1,Blatt 2,Schnitt");
    // What fails on the way leaves the copies made before.
    loseAnswerOf(L"Document", L"SendCommand");
    name = L"Zwei";
    EXPECT_TRUE(main->tarvix.CopyLayouts(L"Blatt 1", name, 2));
    EXPECT_EQ(world.messages.shown.back(),
              told(L"Kopieren des neuen Layouts fehlgeschlagen!", MessageIcon::critical));
    EXPECT_EQ(layoutsOf(L"Plan.dwg"), L"Neu (1)!,Zwei1,Blatt 1,Blatt 2,Schnitt");
    host().activate(document(L"Haus.dwg"));
    loseAnswerOf(L"Document", L"SendCommand", hresult::callRejected);
    EXPECT_TRUE(main->tarvix.CopyLayouts(L"Blatt 1", name, 2));
    EXPECT_TRUE(activeDocumentIsRight()) << "nothing was activated";
    // The search gives up: the bare name, which is taken.
    std::int16_t counter = 2500;
    EXPECT_EQ(main->tarvix.NextFreeLayoutNumber({}, L"Neu", counter), 0);
    counter = 32000;
    EXPECT_EQ(main->tarvix.NextFreeLayoutNumber({}, L"Neu", counter), 0);
}

TEST_F(LayoutOperations, DeleteExactlyTheSelectedOnes) {
    struct Case {
        const wchar_t* node;
        std::vector<std::wstring> items;
        const wchar_t* left;
        std::vector<ShownBox> shown;
    };
    for (const Case& c :
         {Case{L"L5", {}, L"Blatt 1,Schnitt", {}}, Case{L"Z3", {L"L4", L"L6"}, L"Blatt 2", {}},
          Case{L"Z3", {}, L"Blatt 1,Blatt 2,Schnitt", {}},
          Case{L"Z3",
               {L"L4", L"L5", L"L6"},
               L"Blatt 1,Blatt 2,Schnitt",
               {told(L"Das Löschen sämtlicher Layouts einer Zeichnung ist nicht zulässig!")}}}) {
        restart();
        host().activate(document(L"Haus.dwg"));
        click(c.node);
        selectInList(c.items);
        choose(L"mnuFileDelete");
        EXPECT_EQ(layoutsOf(L"Plan.dwg"), c.left);
        EXPECT_EQ(layoutsOf(L"Haus.dwg"), L"Blatt 1");
        EXPECT_EQ(world.messages.shown, c.shown);
        EXPECT_EQ(tree().node(L"Z3").children().size(),
                  static_cast<std::size_t>(std::ranges::count(std::wstring(c.left), L',')) + 1);
        document(L"Plan.dwg")->save();
        EXPECT_EQ(layoutsOf(host().disk().load(L"C:\\Projekte\\Plan.dwg")), c.left);
    }
    // The single layout of a drawing stays although the command was enabled when there were two.
    click(L"L2");
    main->layouts->DeleteLayouts();
    EXPECT_EQ(layoutsOf(L"Haus.dwg"), L"Blatt 1");

    restart();
    host().options().vbaInstalled = false;
    click(L"L5");
    choose(L"mnuFileDelete");
    EXPECT_EQ(layoutsOf(L"Plan.dwg"), L"Blatt 1,Blatt 2,Schnitt");
    EXPECT_EQ(world.messages.shown, std::vector{told(L"Bitte rufen Sie Tarvix über das AutoCAD-Menü auf!")});
}

TEST_F(LayoutOperations, DeleteNothingElseThanTheSelectedOnes) {
    struct Case {
        const wchar_t* call;  // the user clicks elsewhere directly before it
        int attempt;
        bool otherDrawing;  // on another drawing, else on another tab
        const wchar_t* left;
    };
    const auto spared = told(L"Das Layout ist nicht mehr das aktive und wurde nicht gelöscht: Blatt 2");
    for (const Case& c :
         {Case{L"LoadDVB", 1, true, L"Blatt 1"}, Case{L"LoadDVB", 1, false, L"Blatt 1"},
          Case{L"get ActiveDocument", 1, true, nullptr}, Case{L"get ActiveDocument", 2, true, nullptr},
          Case{L"get ActiveLayout", 1, false, nullptr}, Case{L"get ActiveLayout", 2, false, nullptr}}) {
        restart();
        click(L"Z3");
        selectInList({L"L5", L"L6"});
        world.desktop.log.clear();
        int met = 0;
        calls.beforeCall([&](std::size_t) {
            const demo::RecordedCall& call = calls.calls().back();
            const bool isGet = call.kind == demo::RecordedCall::Kind::get;
            if ((isGet ? L"get " + call.name : call.name) != c.call || ++met != c.attempt) return;
            if (c.otherDrawing) {
                host().activate(document(L"Haus.dwg"));
            } else {
                demo::Drawing& drawing = document(L"Plan.dwg")->drawing();
                drawing.setCurrentLayout(*drawing.findLayout(L"Blatt 1"));
            }
        });
        choose(L"mnuFileDelete");
        calls.beforeCall({});
        EXPECT_EQ(layoutsOf(L"Plan.dwg"), c.left ? c.left : L"Blatt 1,Blatt 2,Schnitt");
        EXPECT_EQ(layoutsOf(L"Haus.dwg"), L"Blatt 1");
        EXPECT_EQ(world.messages.shown, c.left ? std::vector<ShownBox>{} : std::vector{spared});
        EXPECT_EQ(world.desktop.log.size(), c.left ? 3U : static_cast<std::size_t>(c.attempt));
    }
    // A lost answer ends the series: whether a layout went is not known.
    restart();
    host().macros().load(L"Tarvix.dvb");
    click(L"Z3");
    selectInList({L"L5", L"L6"});
    loseAnswerOf(L"Application", L"RunMacro");
    choose(L"mnuFileDelete");
    EXPECT_EQ(layoutsOf(L"Plan.dwg"), L"Blatt 1,Schnitt");
}

TEST_F(LayoutOperations, WorkInFoldersWithASemicolon) {
    host().addDocument(L"C:\\Alt; neu", L"Bad;1.dwg", {L"Decke", L"Wand"});
    host().activate(document(L"Plan.dwg"));
    refresh();
    const std::wstring key = tree().roots().front()->children().back()->children().back()->key();
    click(key);
    form().tbToolBar.userClicks(L"Active");
    EXPECT_EQ(hostState(), L"Bad;1.dwg/Wand of 3");
    for (const wchar_t* name : {L"Boden oben", L"Dach"}) {
        choose(L"mnuFileRename");
        endTreeEdit(name);
        refresh();
        EXPECT_EQ(tree().node(key).text(), name);
    }
    form().tbToolBar.userClicks(L"Delete");
    EXPECT_EQ(layoutsOf(host().activeDocument()->drawing()), L"Decke");
    EXPECT_TRUE(world.messages.shown.empty());
}

TEST_F(LayoutOperations, CreateInTheChosenOrInTheActiveDrawing) {
    click(L"Z1");
    world.desktop.log.clear();
    choose(L"mnuCreate");
    EXPECT_EQ(layoutsOf(L"Plan.dwg"), L"Blatt 1,Blatt 2,Schnitt,Layout4");
    // The macro project was loaded on demand.
    std::vector<std::wstring> macros;
    for (const demo::RecordedCall& call : calls.calls())
        if (call.name == L"LoadDVB" || call.name == L"RunMacro")
            macros.push_back(*call.arguments.front().as<std::wstring>());
    EXPECT_EQ(macros, (std::vector<std::wstring>{L"Programm.TX_Layout", world.files.folder + L"\\Tarvix.dvb",
                                                 L"Programm.TX_Starten", L"Programm.TX_Layout"}));
    EXPECT_EQ(world.desktop.log.size(), 2U);
    click(L"A");
    choose(L"popCreate");
    EXPECT_EQ(world.messages.shown, std::vector{told(L"Es ist nichts ausgewählt.", MessageIcon::none)});
    selectInList({L"Z1"});
    choose(L"popCreate");
    EXPECT_EQ(layoutsOf(L"Haus.dwg"), L"Blatt 1,Layout2");
    EXPECT_EQ(calls.count(L"LoadDVB"), 1U);
    EXPECT_TRUE(activeDocumentIsRight());
    // Closed since the last refresh: no other drawing gets the layout.
    host().close(document(L"Haus.dwg"));
    choose(L"popCreate");
    EXPECT_EQ(world.messages.shown.back(),
              told(L"Die Zeichnung ist in AutoCAD nicht mehr geöffnet!", MessageIcon::none));
    EXPECT_EQ(layoutsOf(L"Plan.dwg"), L"Blatt 1,Blatt 2,Schnitt,Layout4");
}

TEST_F(LayoutOperations, RenameByLabel) {
    struct Case {
        bool inList;
        std::wstring name;
        std::wstring message;  // "": accepted
    };
    const std::wstring longest(255, L'x');
    for (const Case& c :
         {Case{false, L"Süd Ost 1", L""}, Case{true, L"Größe (1. OG)", L""}, Case{true, longest, L""},
          Case{false, L"BLATT 2", L""}, Case{true, L"Blatt 2", L""}, Case{true, L" EG  ", L""},
          Case{false, L"schnitt", L"Bezeichnung ist bereits vergeben!"},
          Case{true, L"BLATT 1 ", L"Bezeichnung ist bereits vergeben!"},
          Case{true, L"A\rB", controlCharacters}, Case{false, L"A\tB", controlCharacters},
          Case{false, L"A'B", L"Eingabe enthält ungültige Zeichen!"},
          Case{true, L"", L"Das Layout kann nicht umbenannt werden!\n\n„“ ist kein gültiger Layoutname."}}) {
        restart();
        click(c.inList ? L"Z3" : L"L5");
        if (c.inList) selectInList({L"L5"});
        choose(L"mnuFileRename");
        if (c.inList) {
            ASSERT_NE(list().editedItem(), nullptr);
            endListEdit(c.name);
        } else {
            EXPECT_EQ(tree().editText(), L"Blatt 2");
            endTreeEdit(c.name);
        }
        // AutoCAD cuts off blanks at the ends.
        const std::wstring name = !c.message.empty() ? L"Blatt 2" : c.name == L" EG  " ? L"EG" : c.name;
        EXPECT_EQ(world.messages.shown,
                  c.message.empty() ? std::vector<ShownBox>{} : std::vector{told(c.message)});
        EXPECT_EQ(layoutsOf(L"Plan.dwg"), L"Blatt 1," + name + L",Schnitt");
        for (const bool afterRefresh : {false, true}) {
            if (afterRefresh) leaveAndReturn();
            EXPECT_EQ(tree().node(L"L5").text(), name);
            EXPECT_EQ(tree().node(L"Z3").children().size(), 3U);
            EXPECT_TRUE(!c.inList || list().find(L"L5")->text() == name);
        }
    }
}

TEST_F(LayoutOperations, RenameOnlyWhatIsOpen) {
    click(L"L5");
    loseAnswerOf(L"Layout", L"Name");
    choose(L"mnuFileRename");
    endTreeEdit(L"Neu");
    EXPECT_EQ(world.messages.shown.back(),
              told(L"Ob das Layout umbenannt wurde, ist nicht bekannt!\n\nFehler"));
    host().close(document(L"Plan.dwg"));
    world.messages.clear();
    choose(L"mnuFileRename");
    endTreeEdit(L"Neu 2");
    EXPECT_EQ(hint(), L"Die Zeichnung ist in AutoCAD nicht mehr geöffnet.");
    EXPECT_TRUE(world.messages.shown.empty());
    EXPECT_EQ(tree().node(L"L5").text(), L"Blatt 2");
}

TEST_F(LayoutOperations, RenamingSeveralRefusesControlCharactersAndEndsWithEsc) {
    click(L"Z3");
    selectInList({L"L4", L"L5"});
    std::int16_t counter = 1;
    main->layouts->RenameSelectedLayouts(L"Plan\r", counter);
    EXPECT_EQ(world.messages.shown, std::vector{told(controlCharacters)});
    EXPECT_EQ(layoutsOf(L"Plan.dwg"), L"Blatt 1,Blatt 2,Schnitt");
    world.readings.escAfter = 1;
    main->layouts->RenameSelectedLayouts(L"Plan", counter);
    EXPECT_EQ(layoutsOf(L"Plan.dwg"), L"Plan1,Blatt 2,Schnitt") << "Esc";
}

}  // namespace
}  // namespace blattwart::test
