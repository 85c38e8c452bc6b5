#include "Operations.h"

#include <array>

namespace blattwart::test {
namespace {

class DocumentOperations : public Operations {
  protected:
    /// A menu item or a button of the toolbar; "" for a double click in the tree.
    void run(const std::wstring& command) {
        if (command.empty()) {
            tree().events.doubleClick();
        } else if (command.starts_with(L"mnu") || command.starts_with(L"pop")) {
            choose(command);
        } else {
            form().tbToolBar.userClicks(command);
        }
    }
};

TEST_F(DocumentOperations, TypeTheirTextExactly) {
    constexpr int commandLineOnly = 0;
    struct Case {
        const wchar_t* node;
        const wchar_t* item;
        Typed typed;
        const wchar_t* international;  // into other hosts than the established one
    };
    const std::array cases{
        Case{L"Z3", L"mnuFileClose", {L"Plan.dwg", L"_Close\r"}, L"_.CLOSE\r"},
        Case{L"Z1", L"mnuFileClose", {L"Haus.dwg", L"_Close\r"}, L"_.CLOSE\r"},
        Case{L"Z1", L"mnuSaveAS", {L"Haus.dwg", L"_saveas\r"}, L"_.SAVEAS\r"},
        Case{L"B",
             L"popDCB",
             {L"Plan.dwg", L"ADCNAVIGIEREN\r\rC:\\Vorlagen\r"},
             L"_.ADCNAVIGATE\rC:\\Vorlagen\r"},
        Case{
            L"B", L"DC", {L"Plan.dwg", L"ADCNAVIGIEREN\r\rC:\\Vorlagen\r"}, L"_.ADCNAVIGATE\rC:\\Vorlagen\r"},
        Case{L"D8",
             L"DC",
             {L"Plan.dwg", L"ADCNAVIGIEREN\r\rC:\\Vorlagen\\Rahmen.dwg\r"},
             L"_.ADCNAVIGATE\rC:\\Vorlagen\\Rahmen.dwg\r"},
        Case{L"B", L"popDCD", {L"Plan.dwg", L"ADCNAVIGIEREN\r\r\r"}, L"_.ADCNAVIGATE\r\r"},
        Case{L"D7",
             L"popDCD",
             {L"Plan.dwg", L"ADCNAVIGIEREN\r\rC:\\VORLAG~1\\PLANA3~1.DWT\r"},
             L"_.ADCNAVIGATE\rC:\\VORLAG~1\\PLANA3~1.DWT\r"},
        Case{L"D7",
             L"popInsert",
             {L"Plan.dwg", L"layout\rvorlage\rC:\\Vorlagen\\Plan A3.dwt\r", commandLineOnly},
             L"_.-LAYOUT\r_Template\rC:\\Vorlagen\\Plan A3.dwt\r"}};
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
            run(c.item);
            EXPECT_EQ(world.desktop.log, std::vector<std::wstring>{L"setForeground 68108"});
            EXPECT_EQ(host().filedia(), 1);
            if (commandRuns) {
                EXPECT_TRUE(typed().empty());
                EXPECT_EQ(
                    world.messages.shown,
                    std::vector{told(L"In AutoCAD läuft noch ein Befehl. Bitte beenden Sie ihn zuerst!")});
            } else {
                EXPECT_EQ(typed(), std::vector{c.typed});
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
                run(c.item);
                Typed expected = c.typed;
                if (release != L"18") expected.text = c.international;
                EXPECT_EQ(typed(), std::vector{expected});
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
        const wchar_t* command;  // a menu item or a button; "": a double click
        const wchar_t* question;
        const wchar_t* no;
        const wchar_t* yes;
        bool shownThere = false;  // AutoCAD comes to the front, whatever the answer
    };
    constexpr const wchar_t* before = L"Plan.dwg/Blatt 1 of 2";
    constexpr const wchar_t* house = L"Haus.dwg/Blatt 1 of 2";
    constexpr const wchar_t* sheet = L"Plan.dwg/Blatt 2 of 2";
    constexpr const wchar_t* opened = L"Plan A3.dwt/Rahmen A3 of 3";
    for (const Case& c :
         {Case{L"Z1", L"", L"", L"Haus.dwg zum aktiven Dokument machen?", before, house},
          Case{L"Z1", L"", L"mnuActive", L"Haus.dwg zum aktiven Dokument machen?", before, house, true},
          Case{L"L2", L"", L"mnuEditOpen", L"Blatt 1 zum aktiven Dokument machen?", before, house},
          Case{L"L5", L"", L"", L"", sheet, sheet}, Case{L"L5", L"", L"Active", L"", sheet, sheet, true},
          Case{L"Z3", L"", L"", L"", before, before},
          Case{L"Z1", L"", L"mnuDrawing", L"", house, house, true},
          Case{L"A", L"Z1", L"popDrawing", L"", house, house, true},
          Case{L"A", L"", L"mnuShow", L"", before, before, true},
          Case{L"D7", L"", L"", L"Plan A3.dwt öffnen?", before, opened},
          Case{L"D7", L"", L"mnuTemplateOpen", L"", opened, opened},
          Case{L"D7", L"", L"Open", L"", opened, opened}, Case{L"B", L"D7", L"popLoad", L"", opened, opened},
          Case{L"Z3", L"", L"mnuSave", L"Plan.dwg speichern?", before, before},
          Case{L"A", L"Z1", L"popSave", L"Haus.dwg speichern?", before, before}}) {
        for (const MessageAnswer answer : {MessageAnswer::no, MessageAnswer::yes}) {
            SCOPED_TRACE(testing::PrintToString(c.node) + " " + testing::PrintToString(c.command));
            restart();
            for (const auto& open : host().documents()) open->setModified();
            click(c.node);
            if (*c.listItem) selectInList({c.listItem});
            if (*c.question) world.messages.answer(answer);
            world.desktop.log.clear();
            world.messages.whileOpen = [this](const ShownBox&) {
                EXPECT_TRUE(world.desktop.log.empty()) << "a question would lie behind AutoCAD";
            };
            run(c.command);
            const bool done = !*c.question || answer == MessageAnswer::yes;
            const auto expected = *c.question ? std::vector{question(c.question)} : std::vector<ShownBox>{};
            EXPECT_EQ(world.messages.shown, expected);
            EXPECT_EQ(hostState(), done ? c.yes : c.no);
            EXPECT_EQ(world.desktop.log.size(), c.shownThere ? 1U : 0U);
            EXPECT_TRUE(activeDocumentIsRight());
            if (*c.node != L'B' && *c.node != L'D') {
                EXPECT_EQ(status(), main->autoCAD.GetActiveDrawingName());
            }
            const bool saved = done && std::wstring_view(c.question).ends_with(L"speichern?");
            const bool ofHouse = std::wstring_view(c.question).starts_with(L"Haus");
            EXPECT_EQ(document(ofHouse ? L"Haus.dwg" : L"Plan.dwg")->modified(), !saved);
        }
    }
}

TEST_F(DocumentOperations, MoveTheMarksAlsoWhenTheUserStays) {
    click(L"Z1");
    tree().events.doubleClick();
    EXPECT_EQ(hostState(), L"Plan.dwg/Blatt 1 of 2");
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
    EXPECT_EQ(hostState(), L"Plan.dwg/Blatt 2 of 2");
    host().activate(document(L"Haus.dwg"));
    click(L"D7");
    choose(L"popInsert");
    EXPECT_EQ(typed(), (std::vector{Typed{L"Haus.dwg", L"layout\rvorlage\rC:\\Vorlagen\\Plan A3.dwt\r", 0}}));
    document(L"Haus.dwg")->commandLine().type(L"\x1b");

    // Of a drawing closed meanwhile no layout is looked for in another one.
    host().close(document(L"Haus.dwg"));
    document(L"Plan.dwg")->drawing().setCurrentLayout(*document(L"Plan.dwg")->findLayout(L"Schnitt"));
    click(L"L2");
    form().tbToolBar.userClicks(L"Active");
    EXPECT_EQ(hostState(), L"Plan.dwg/Schnitt of 1");
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
    // A layout that is gone is passed over.
    click(L"Z3");
    choose(L"mnuDrawing");
    document(L"Plan.dwg")->drawing().deleteLayout(*document(L"Plan.dwg")->findLayout(L"Schnitt"));
    click(L"L6");
    form().tbToolBar.userClicks(L"Active");
    EXPECT_TRUE(tree().node(L"L6").bold());
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
    // A host that refuses a call has done nothing, and nothing is shown as done.
    for (const wchar_t* refused : {L"Activate", L"ActiveLayout"}) {
        const bool ofDrawing = refused == std::wstring_view(L"Activate");
        restart();
        click(ofDrawing ? L"Z1" : L"L5");
        const std::wstring before = treeText();
        world.messages.answer(MessageAnswer::yes);
        loseAnswerOf(L"Document", refused, hresult::callRejected);
        choose(ofDrawing ? L"mnuDrawing" : L"mnuActive");
        EXPECT_EQ(world.messages.shown.back(),
                  told(L"AutoCAD antwortet nicht. Bitte versuchen Sie es noch einmal."));
        EXPECT_EQ(treeText(), before);
    }
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
        // Nor do drawings go with the tree, or does each file dropped on it tell the same.
        world.messages.clear();
        choose(L"mnuViewRebuild");
        EXPECT_EQ(tree().node(L"A").children().size(), 2U);
        world.messages.clear();
        tree().setDropHighlight(&tree().node(L"A"));
        tree().events.filesDropped({L"C:\\Eins.dwg", L"C:\\Zwei.dwg"});
        EXPECT_EQ(std::ranges::count_if(world.messages.shown,
                                        [](const ShownBox& box) { return box.text.starts_with(L"C:\\"); }),
                  1);
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
    EXPECT_EQ(hostState(), L"Haus.dwg/Blatt 1 of 2");
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
    world.desktop.hidden = 68108;
    host().setVisible(false);
    choose(L"mnuTemplate");
    EXPECT_TRUE(host().visible());
    EXPECT_EQ(world.desktop.log, std::vector<std::wstring>{L"setForeground 68108"});
    EXPECT_EQ(hostState(), L"Zeichnung1.dwg/Rahmen A3 of 3");
    EXPECT_TRUE(activeDocumentIsRight());
    click(L"B");
    selectInList({L"D7"});
    form().tbToolBar.userClicks(L"New");
    EXPECT_EQ(hostState(), L"Zeichnung2.dwg/Rahmen A3 of 4");
}

}  // namespace
}  // namespace blattwart::test
