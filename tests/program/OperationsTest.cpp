#include "Operations.h"

#include <algorithm>
#include <array>

namespace blattwart::test {
namespace {

constexpr const wchar_t* controlCharacters =
    L"Ein Name enthält Steuerzeichen und kann nicht an AutoCAD übergeben werden!";

const std::wstring asExpression = L"AutoCAD würde den Namen als Ausdruck ausführen: ";

using DocumentOperations = Operations;

TEST_F(DocumentOperations, TypeTheirTextExactly) {
    struct Case {
        const wchar_t* node;
        const wchar_t* item;
        const wchar_t* typed;
        const wchar_t* international;  // into other hosts than the established one
    };
    const std::array cases{
        Case{L"Z3", L"mnuFileClose", L"Plan.dwg 1 _Close¶", L"Plan.dwg 1 _.CLOSE¶"},
        Case{L"Z1", L"mnuFileClose", L"Haus.dwg 1 _Close¶", L"Haus.dwg 1 _.CLOSE¶"},
        Case{L"Z1", L"mnuSaveAS", L"Haus.dwg 1 _saveas¶", L"Haus.dwg 1 _.SAVEAS¶"},
        Case{L"B", L"popDCB", L"Plan.dwg 1 ADCNAVIGIEREN¶¶C:\\Vorlagen¶",
             L"Plan.dwg 1 _.ADCNAVIGATE¶C:\\Vorlagen¶"},
        Case{L"B", L"popDCD", L"Plan.dwg 1 ADCNAVIGIEREN¶¶¶", L"Plan.dwg 1 _.ADCNAVIGATE¶¶"},
        Case{L"D7", L"popDCD", L"Plan.dwg 1 ADCNAVIGIEREN¶¶C:\\VORLAG~1\\PLANA3~1.DWT¶",
             L"Plan.dwg 1 _.ADCNAVIGATE¶C:\\VORLAG~1\\PLANA3~1.DWT¶"},
        Case{L"D7", L"popInsert", L"Plan.dwg 0 layout¶vorlage¶C:\\Vorlagen\\Plan A3.dwt¶",
             L"Plan.dwg 0 _.-LAYOUT¶_Template¶C:\\Vorlagen\\Plan A3.dwt¶"}};
    for (const Case& c : cases) {
        // The DesignCenter's path would be run word by word.
        world.files.shortPaths = {{L"C:\\Vorlagen\\Plan A3.dwt", L"C:\\VORLAG~1\\PLANA3~1.DWT"}};
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
    // The established host is not asked for its language, every other one has the international words.
    for (const wchar_t* hostRelease : {L"18", L"24.3"}) {
        for (const demo::Language language : {demo::Language::german, demo::Language::english}) {
            demo::HostOptions options = demo::ofRelease(hostRelease);
            options.language = language;
            useHost(options);
            for (const Case& c : cases) {
                restart();
                click(c.node);
                choose(c.item);
                const bool established = release == L"18";
                EXPECT_EQ(typed(), std::vector<std::wstring>{established ? c.typed : c.international});
                EXPECT_EQ(calls.count(L"LocaleId"), 0U);
            }
        }
    }
    // Without a short form nothing is typed.
    restart();
    world.files.shortPaths.clear();
    click(L"D7");
    world.desktop.log.clear();
    choose(L"popDCD");
    EXPECT_TRUE(typed().empty());
    EXPECT_EQ(world.desktop.log, std::vector<std::wstring>{L"setForeground 68108"});
    EXPECT_EQ(hint(), L"DesignCenter: Der Pfad enthält Leerzeichen und hat keinen Kurznamen.");
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
    click(L"A");
    selectInList({L"Z1"});
    choose(L"popDrawing");
    EXPECT_TRUE(list().find(L"Z1")->bold());
    EXPECT_FALSE(list().find(L"Z3")->bold());

    // The drawing that AutoCAD has active now counts, not the one of the last look.
    host().activate(document(L"Haus.dwg"));
    click(L"L5");
    form().tbToolBar.userClicks(L"Active");
    EXPECT_EQ(hostState(), L"Plan.dwg/Blatt 2 2");
    host().activate(document(L"Haus.dwg"));
    click(L"D7");
    choose(L"popInsert");
    EXPECT_EQ(typed(), std::vector<std::wstring>{L"Haus.dwg 0 layout¶vorlage¶C:\\Vorlagen\\Plan A3.dwt¶"});
    document(L"Haus.dwg")->commandLine().type(L"\x1b");

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
    // Whether it was done is not known when the answer is lost.
    host().close(host().findDocument(L"C:\\Vorlagen\\Plan A3.dwt"));
    leaveAndReturn();
    loseAnswerOf(L"Documents", L"Open");
    click(L"D7");
    choose(L"mnuTemplateOpen");
    EXPECT_EQ(world.messages.shown.back(),
              told(L"Ob C:\\Vorlagen\\Plan A3.dwt geöffnet wurde, ist nicht bekannt!\n\nFehler"));
    click(L"Z1");
    loseAnswerOf(L"Document", L"Save");
    world.messages.answer(MessageAnswer::yes);
    choose(L"mnuSave");
    EXPECT_EQ(world.messages.shown.back(),
              told(L"Ob Haus.dwg gespeichert wurde, ist nicht bekannt!\n\nFehler", MessageIcon::critical));
    // A host that refuses a call has done nothing.
    loseAnswerOf(L"Document", L"Activate", hresult::callRejected);
    choose(L"mnuDrawing");
    EXPECT_EQ(world.messages.shown.back(),
              told(L"AutoCAD antwortet nicht. Bitte versuchen Sie es noch einmal."));
}

TEST_F(DocumentOperations, AHostThatDoesNotAnswerIsToldOnceAndNothingElseHappens) {
    struct Case {
        const wchar_t* node;
        const wchar_t* listItem;
        const wchar_t* item;
    };
    for (const Case& c :
         {Case{L"Z1", L"", L"mnuActive"}, Case{L"L2", L"", L"mnuEditOpen"}, Case{L"Z1", L"", L"mnuDrawing"},
          Case{L"Z1", L"", L"mnuSave"}, Case{L"Z1", L"", L"mnuSaveAS"}, Case{L"Z1", L"", L"mnuFileClose"},
          Case{L"L5", L"", L"mnuFileDelete"}, Case{L"L5", L"", L"mnuFileRename"},
          Case{L"L5", L"", L"mnuEditCopy"}}) {
        restart();
        click(c.node);
        const std::wstring before = treeText();
        world.messages.answer(MessageAnswer::yes);
        presenter.inKopieren = [this](frmKopieren& dialog) {
            dialog.cmdStart.userClicks();
            EXPECT_FALSE(presenter.dialog.closed) << "he may try again";
        };
        calls.clear();
        calls.refuse(RuntimeError(hresult::callRejected, L"Abgelehnt"));
        choose(c.item);
        if (tree().editedNode()) endTreeEdit(L"Neu");
        std::vector<ShownBox> boxes = world.messages.shown;
        std::erase_if(boxes, [](const ShownBox& box) { return box.buttons == MessageButtons::yesNo; });
        EXPECT_EQ(boxes, std::vector{told(L"AutoCAD antwortet nicht. Bitte versuchen Sie es noch einmal.")})
            << testing::PrintToString(c.item);
        EXPECT_EQ(calls.count(L"Recordset"), 0U);
        EXPECT_EQ(treeText(), before);
        EXPECT_EQ(main->records.DrawingRecords.Count(), 2);
    }
}

TEST_F(DocumentOperations, ADocumentThatCannotBeNamedDoesNotHideTheOthers) {
    click(L"Z3");
    for (const std::size_t unreadable : {3U, 4U}) {
        calls.clear();
        calls.failAt(unreadable, RuntimeError(hresult::unknownName, L"Fehler"));
        const FoundDocuments found = main->autoCAD.find(L"C:\\Projekte\\Plan.dwg");
        // The first is another one, the second the one looked for.
        EXPECT_EQ(found.outcome, unreadable == 3 ? Lookup::found : Lookup::noAnswer);
    }
    // Who has gone for good has nothing open.
    host().close(document(L"Haus.dwg"));
    EXPECT_EQ(main->autoCAD.find(L"C:\\Projekte\\Haus.dwg").outcome, Lookup::notOpen);
    click(L"Z1");
    choose(L"mnuSave");
    EXPECT_EQ(hint(), L"Die Zeichnung ist in AutoCAD nicht mehr geöffnet.");
    leaveAndReturn();
    EXPECT_EQ(hint(), L"");
    demo.end();
    EXPECT_EQ(main->autoCAD.find(L"C:\\Projekte\\Plan.dwg").outcome, Lookup::notOpen);
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

    world.desktop.log.clear();
    choose(L"mnuTemplate");
    EXPECT_EQ(world.desktop.log, std::vector<std::wstring>{L"setForeground 68108"});
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
        leaveAndReturn();
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
        EXPECT_TRUE(tree().node(L"Z3").bold() && tree().node(L"L4").bold());
        EXPECT_FALSE(tree().node(L"Z1").bold() || tree().node(L"L2").bold());

        // The node made from the placeholder is the template's, in this and in later refreshes.
        const std::wstring made = L"D" + std::to_wstring(main->records.LastNumber);
        EXPECT_EQ(tree().selected()->key(), made);
        EXPECT_FALSE(tree().node(L"Z1").bold());
        EXPECT_TRUE(tree().node(L"Z3").bold());
        EXPECT_TRUE(tree().node(L"L4").bold());
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
    // Each gets a number of its own, also before the folder is read again.
    for (const wchar_t* name : {L"Eins", L"Zwei"}) {
        begin(L"L4");
        endTreeEdit(name);
    }
    EXPECT_EQ(tree().node(L"B").children().size(), 5U);
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
    tree().node(L"L6").setText(L"(quit)");
    begin(L"L6");
    endTreeEdit(L"Neu");
    EXPECT_EQ(world.messages.shown.back(), told(asExpression + L"(quit)"));
    world.messages.clear();
    // Without a folder the file would go to the drive's root.
    main->records.TemplateFolder.clear();
    begin(L"L4");
    endTreeEdit(L"Neu");
    EXPECT_EQ(hint(), L"Es ist kein Vorlagenordner bekannt: Es wurde keine Vorlage angelegt.");
    EXPECT_EQ(tree().find(L"D0"), nullptr);
    begin(L"Z3");
    EXPECT_EQ(hint(), L"Bitte zuerst in der Liste ein Layout auswählen.");
    EXPECT_TRUE(world.messages.shown.empty());
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
        EXPECT_EQ(hint(), L"");
        world.files.fails = [](std::wstring_view call) { return call == L"Files.remove"; };
        world.messages.answer(MessageAnswer::yes);
        choose(L"mnuTemplateDelete");
        EXPECT_EQ(hint(), L"Die Datei kann nicht gelöscht werden: Zugriff verweigert");
        world.files.fails = [](std::wstring_view) { return false; };
        world.messages.answer(MessageAnswer::yes);
        form().tbToolBar.userClicks(L"Delete");
        EXPECT_EQ(world.messages.shown, (std::vector{asked, asked, asked}));
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
    EXPECT_EQ(hostState(), L"Bad;1.dwg/Wand 3");
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
