#include "Operations.h"

#include <algorithm>

namespace blattwart::test {
namespace {

constexpr const wchar_t* controlCharacters =
    L"Ein Name enthält Steuerzeichen und kann nicht an AutoCAD übergeben werden!";

using DocumentOperations = Operations;

TEST_F(DocumentOperations, TypeTheirTextExactly) {
    struct Case {
        const wchar_t* node;
        const wchar_t* item;
        const wchar_t* typed;
    };
    for (const Case& c :
         {Case{L"Z3", L"mnuFileClose", L"Plan.dwg 1 _Close¶"},
          Case{L"Z1", L"mnuFileClose", L"Haus.dwg 1 _Close¶"},
          Case{L"Z1", L"mnuSaveAS", L"Haus.dwg 1 _saveas¶"},
          Case{L"B", L"popDCB", L"Plan.dwg 1 ADCNAVIGIEREN¶¶C:\\Vorlagen¶"},
          Case{L"B", L"popDCD", L"Plan.dwg 1 ADCNAVIGIEREN¶¶¶"},
          Case{L"D7", L"popDCD", L"Plan.dwg 1 ADCNAVIGIEREN¶¶C:\\Vorlagen\\Plan A3.dwt¶"},
          Case{L"D7", L"popInsert", L"Plan.dwg 0 layout¶vorlage¶C:\\Vorlagen\\Plan A3.dwt¶"}}) {
        // A command that is running would take the text for its own answers.
        for (const bool commandRuns : {true, false}) {
            restart();
            click(c.node);
            world.desktop.log.clear();
            if (commandRuns)
                for (const auto& open : host().documents()) open->commandLine().type(L"LAYOUT\r");
            choose(c.item);
            EXPECT_EQ(world.desktop.log, std::vector<std::wstring>{L"setForeground 68108"});
            EXPECT_EQ(host().filedia(), 1);
            if (commandRuns) {
                EXPECT_TRUE(typed().empty());
                EXPECT_EQ(
                    world.messages.shown,
                    std::vector{told(L"In AutoCAD läuft noch ein Befehl. Bitte beenden Sie ihn zuerst!")});
            } else {
                EXPECT_EQ(typed(), std::vector<std::wstring>{c.typed});
                EXPECT_TRUE(world.messages.shown.empty());
            }
        }
    }
}

TEST_F(DocumentOperations, AskAndGoWhereTheAnswerLeads) {
    struct Case {
        const wchar_t* node;
        const wchar_t* listItem;
        const wchar_t* item;  // "": a double click
        const wchar_t* question;
        const wchar_t* no;
        const wchar_t* yes;
    };
    constexpr const wchar_t* before = L"Plan.dwg/Blatt 1 2";
    constexpr const wchar_t* house = L"Haus.dwg/Blatt 1 2";
    constexpr const wchar_t* opened = L"Plan A3.dwt/Rahmen A3 3";
    for (const Case& c :
         {Case{L"Z1", L"", L"", L"Haus.dwg zum aktiven Dokument machen?", before, house},
          Case{L"Z1", L"", L"mnuActive", L"Haus.dwg zum aktiven Dokument machen?", before, house},
          Case{L"L2", L"", L"mnuEditOpen", L"Blatt 1 zum aktiven Dokument machen?", before, house},
          Case{L"L5", L"", L"", L"", L"Plan.dwg/Blatt 2 2", L"Plan.dwg/Blatt 2 2"},
          Case{L"Z3", L"", L"", L"", before, before}, Case{L"Z1", L"", L"mnuDrawing", L"", house, house},
          Case{L"A", L"Z1", L"popDrawing", L"", house, house},
          Case{L"D7", L"", L"", L"Plan A3.dwt öffnen?", before, opened},
          Case{L"D7", L"", L"mnuTemplateOpen", L"", opened, opened},
          Case{L"B", L"D7", L"popLoad", L"", opened, opened},
          Case{L"Z3", L"", L"mnuSave", L"Plan.dwg speichern?", before, before},
          Case{L"A", L"Z1", L"popSave", L"Haus.dwg speichern?", before, before}}) {
        for (const MessageAnswer answer : {MessageAnswer::no, MessageAnswer::yes}) {
            restart();
            for (const auto& open : host().documents()) open->setModified();
            click(c.node);
            if (*c.listItem) selectInList({c.listItem});
            if (*c.question) world.messages.answer(answer);
            world.desktop.log.clear();
            world.messages.whileOpen = [this](const ShownBox&) {
                EXPECT_TRUE(world.desktop.log.empty()) << "a question would lie behind AutoCAD";
            };
            if (*c.item) {
                choose(c.item);
            } else {
                tree().events.doubleClick();
            }
            const auto expected = *c.question ? std::vector{question(c.question)} : std::vector<ShownBox>{};
            EXPECT_EQ(world.messages.shown, expected);
            EXPECT_EQ(hostState(), answer == MessageAnswer::yes ? c.yes : c.no);
            EXPECT_TRUE(activeDocumentIsRight());
            const bool saved =
                std::wstring_view(c.question).ends_with(L"speichern?") && answer == MessageAnswer::yes;
            const bool ofHouse = std::wstring_view(c.question).starts_with(L"Haus");
            EXPECT_EQ(document(ofHouse ? L"Haus.dwg" : L"Plan.dwg")->modified(), !saved);
        }
    }
}

TEST_F(DocumentOperations, MoveTheMarksAlsoWhenTheUserStays) {
    click(L"Z1");
    tree().events.doubleClick();
    EXPECT_EQ(hostState(), L"Plan.dwg/Blatt 1 2");
    EXPECT_TRUE(tree().node(L"Z1").bold());
    EXPECT_FALSE(tree().node(L"Z3").bold());
    refresh();
    EXPECT_TRUE(tree().node(L"Z3").bold());

    // Of a drawing closed meanwhile no layout is looked for in another one.
    host().close(document(L"Haus.dwg"));
    document(L"Plan.dwg")->drawing().setCurrentLayout(*document(L"Plan.dwg")->findLayout(L"Schnitt"));
    click(L"L2");
    form().tbToolBar.userClicks(L"Active");
    EXPECT_EQ(hostState(), L"Plan.dwg/Schnitt 1");
}

TEST_F(DocumentOperations, TellWhatIsOpenAndWhatFails) {
    click(L"D7");
    choose(L"mnuTemplateOpen");
    choose(L"mnuTemplateOpen");
    EXPECT_EQ(world.messages.shown,
              std::vector{told(L"Plan A3.dwt ist bereits geladen!", MessageIcon::information)});
    tree().events.doubleClick();
    EXPECT_EQ(world.messages.shown.size(), 1U);

    click(L"D8");
    choose(L"mnuTemplateOpen");
    EXPECT_EQ(world.messages.shown.back(),
              told(L"C:\\Vorlagen\\Rahmen.dwg kann nicht geöffnet werden!\n\nDateifehler"));
    click(L"Z3");
    document(L"Plan.dwg")->setReadOnly();
    world.messages.answer(MessageAnswer::yes);
    choose(L"mnuSave");
    EXPECT_EQ(world.messages.shown.back(),
              told(L"Plan.dwg konnte nicht gespeichert werden!\n\nDateifehler", MessageIcon::critical));
}

TEST_F(DocumentOperations, CloseLeavesTheQuestionToTheHost) {
    click(L"Z1");
    document(L"Haus.dwg")->setModified();
    choose(L"mnuFileClose");
    EXPECT_EQ(hostState(), L"Haus.dwg/Blatt 1 2");
    ASSERT_TRUE(host().dialog());
    host().answerDialog(L"Nein");
    leaveAndReturn();
    EXPECT_EQ(tree().find(L"Z1"), nullptr);
    // Its record outlives it: opened again in this run it gets no node.
    host().openFile(L"C:\\Projekte\\Haus.dwg");
    leaveAndReturn();
    EXPECT_EQ(treeText().find(L"Haus.dwg"), std::wstring::npos);
}

TEST_F(DocumentOperations, NewDrawingsAndInsertedLayoutsAreTheTemplates) {
    click(L"D7");
    choose(L"popInsert");
    host().activeDocument()->commandLine().type(L"*\r");
    EXPECT_EQ(layoutsOf(L"Plan.dwg"), L"Blatt 1,Blatt 2,Schnitt,Rahmen A3");
    document(L"Plan.dwg")->save();
    EXPECT_EQ(layoutsOf(host().disk().load(L"C:\\Projekte\\Plan.dwg")), L"Blatt 1,Blatt 2,Schnitt,Rahmen A3");

    choose(L"mnuTemplate");
    EXPECT_EQ(hostState(), L"Zeichnung1.dwg/Rahmen A3 3");
    EXPECT_TRUE(activeDocumentIsRight());
    click(L"B");
    selectInList({L"D7"});
    form().tbToolBar.userClicks(L"New");
    EXPECT_EQ(hostState(), L"Zeichnung2.dwg/Rahmen A3 4");
}

class TemplateOperations : public Operations {
  protected:
    void begin(const wchar_t* node, const wchar_t* listItem = L"") {
        click(node);
        if (*listItem) selectInList({listItem});
        choose(L"mnuLayoutImport");
    }
};

TEST_F(TemplateOperations, SaveTheLayoutUnderTheTypedName) {
    const std::wstring longName(255, L'n');
    struct Case {
        std::wstring layout;  // as L6 is renamed first
        std::wstring name;
        bool fromList;
    };
    for (const Case& c :
         {Case{L"Schnitt", L"Neu", false}, Case{L"Schnitt A-A, 1. OG", L"Große Übersicht 2", true},
          Case{longName, L"Lang", false}}) {
        restart();
        demo::Drawing& drawing = document(L"Plan.dwg")->drawing();
        ignoringErrors([&] { drawing.renameLayout(*drawing.findLayout(L"Schnitt"), c.layout); });
        const std::wstring source = layoutsOf(drawing).substr(std::wstring(L"Blatt 1,Blatt 2,").size());
        refresh();
        const std::wstring key = tree().node(L"Z3").children().back()->key();
        host().activate(document(L"Haus.dwg"));
        world.settings.set(L"ColOrderD", L"1,0");
        begin(c.fromList ? L"Z3" : key.c_str(), c.fromList ? key.c_str() : L"");
        EXPECT_EQ(tree().editText(), source);
        EXPECT_EQ(tree().selected()->key(), L"D0");
        endTreeEdit(c.name);

        const std::wstring file = L"C:\\Vorlagen\\" + c.name + L".dwt";
        EXPECT_EQ(typed(), std::vector{L"Plan.dwg 0 _layout¶SI¶" + source + (L"¶" + file) + L"¶"});
        EXPECT_EQ(host().filedia(), 1);
        EXPECT_EQ(layoutsOf(host().disk().load(file)), source);
        EXPECT_TRUE(activeDocumentIsRight());

        // The node made from the placeholder is the template's, in this and in later refreshes.
        const std::wstring made = L"D" + std::to_wstring(main->records.LastNumber);
        EXPECT_EQ(tree().selected()->key(), made);
        EXPECT_EQ(tree().selected()->text(), c.name + L".dwt");
        EXPECT_EQ(status(), L"C:\\Vorlagen");
        EXPECT_TRUE(form().item(L"mnuTemplateDelete").enabled());
        EXPECT_EQ(list().find(L"IDateiname")->column(2), c.name + L".dwt");
        EXPECT_EQ(list().columns().front().position, 1);
        world.files.add(file);
        refresh();
        EXPECT_NE(tree().find(made), nullptr);
        EXPECT_EQ(tree().node(L"B").children().size(), 3U);
        world.files.forget(file);
        EXPECT_TRUE(world.messages.shown.empty());
    }
}

TEST_F(TemplateOperations, RefusedNamesLeaveNothing) {
    world.files.add(L"C:\\Vorlagen\\Seit eben.dwt");
    const std::wstring before = treeText();
    for (const auto& [name, message] : std::vector<std::pair<std::wstring, std::wstring>>{
             {L"", L"Bezeichnung der neuen Vorlage eingeben!"},
             {L"plan a3", L"Vorlage bereits vorhanden!"},
             {L"Seit eben", L"Vorlage bereits vorhanden!"},
             {L"Neu\r_ERASE\rALL\r", controlCharacters},
             {L"Er sagt \"ja\"", L"Eingabe enthält ungültige Zeichen!"},
             {L"A*", L"Eingabe enthält ungültige Zeichen!"}}) {
        world.messages.clear();
        begin(L"L4");
        endTreeEdit(name);
        EXPECT_EQ(world.messages.shown, std::vector{told(message)});
        EXPECT_EQ(treeText(), before);
        EXPECT_EQ(host().filedia(), 1);
    }
    // Names that come from a drawing are no safer.
    tree().node(L"L6").setText(L"Schnitt\r_ERASE");
    begin(L"L6");
    endTreeEdit(L"Neu");
    EXPECT_EQ(world.messages.shown.back(), told(controlCharacters));
    EXPECT_TRUE(typed().empty());
}

TEST_F(TemplateOperations, DeleteAsksFirst) {
    const ShownBox asked = question(L"Datei: C:\\Vorlagen\\Plan A3.dwt wirklich löschen?");
    for (const wchar_t* node : {L"D7", L"B"}) {
        restart();
        click(node);
        if (*node == L'B') selectInList({L"D7"});
        choose(L"mnuTemplateDelete");
        EXPECT_NE(tree().find(L"D7"), nullptr);
        world.messages.answer(MessageAnswer::yes);
        form().tbToolBar.userClicks(L"Delete");
        EXPECT_EQ(world.messages.shown, (std::vector{asked, asked}));
        EXPECT_EQ(tree().find(L"D7"), nullptr);
        EXPECT_FALSE(world.files.exists(L"C:\\Vorlagen\\Plan A3.dwt"));
        world.files.add(L"C:\\Vorlagen\\Plan A3.dwt");
        std::wstring name = L"C:\\Vorlagen\\Rahmen.dwg";
        world.files.forget(name);
        world.files.add(name);
    }
}

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
        EXPECT_EQ(hostState(), L"Plan.dwg/" + std::wstring(c.current) + L" 2");
        if (c.copies == 1) {
            EXPECT_EQ(name, c.current);
            EXPECT_EQ(typed(), (std::vector<std::wstring>{L"Plan.dwg 1 _layout¶_copy¶Blatt 1¶" + name + L"¶",
                                                          L"Plan.dwg 1 _layout¶_set¶" + name + L"¶"}));
        }
        document(L"Plan.dwg")->save();
        EXPECT_EQ(layoutsOf(host().disk().load(L"C:\\Projekte\\Plan.dwg")), c.layouts);
        leaveAndReturn();
        EXPECT_EQ(tree().node(L"Z3").children().size(), 3U + static_cast<std::size_t>(c.copies));
    }
    restart();
    std::wstring name = L"Neu\nX";
    EXPECT_FALSE(main->tarvix.CopyLayouts(L"Blatt 1", name, 2));
    EXPECT_EQ(world.messages.shown, std::vector{told(controlCharacters)});
    EXPECT_TRUE(typed().empty());
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

TEST_F(LayoutOperations, CreateInTheChosenOrInTheActiveDrawing) {
    click(L"Z1");
    choose(L"mnuCreate");
    EXPECT_EQ(layoutsOf(L"Plan.dwg"), L"Blatt 1,Blatt 2,Schnitt,Layout4");
    // The macro project was loaded on demand.
    EXPECT_EQ(calls.count(L"LoadDVB"), 1U);
    EXPECT_EQ(calls.count(L"RunMacro"), 3U);
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
          Case{false, L"BLATT 2", L""}, Case{true, L"Blatt 2", L""},
          Case{false, L"schnitt", L"Bezeichnung ist bereits vergeben!"},
          Case{true, L"BLATT 1", L"Bezeichnung ist bereits vergeben!"},
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
        const std::wstring name = c.message.empty() ? c.name : L"Blatt 2";
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
