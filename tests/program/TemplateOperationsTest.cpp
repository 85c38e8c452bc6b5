#include "Operations.h"

namespace blattwart::test {
namespace {

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
        EXPECT_EQ(typed(),
                  (std::vector{Typed{L"Plan.dwg", L"_layout\rSI\r" + source + (L"\r" + file) + L"\r", 0}}));
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

}  // namespace
}  // namespace blattwart::test
