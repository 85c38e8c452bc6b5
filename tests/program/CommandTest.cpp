#include "Operations.h"

#include <cwctype>
#include <set>

#include "shell/Commands.h"

namespace blattwart::test {
namespace {

class CommandTable : public Operations {
  protected:
    /// Names of the enabled items without "mnu", then the keys of the enabled buttons.
    std::wstring enabled() {
        std::wstring result;
        for (const std::wstring& name :
             split(L"Start,Show,Create,FileClose,Save,SaveAS,Drawing,Model,Active,FileDelete,FileRename,"
                   L"LayoutImport,EditCopy,Template,TemplateOpen,TemplateDelete"))
            if (form().item(L"mnu" + name).enabled()) result += name + L" ";
        result += L"|";
        for (const std::wstring& key : split(L"New,Open,Save,Copy,Delete,Model,Active"))
            if (std::ranges::find(form().tbToolBar.buttons(), key, &ToolBarButton::key)->enabled)
                result += L" " + key;
        return result;
    }

    /// Visits every entry of a menu and of its sub-menus.
    static void visit(const MenuItem& menu, const std::function<void(const MenuItem&)>& visitor) {
        for (const auto& entry : menu.items()) {
            visitor(*entry);
            visit(*entry, visitor);
        }
    }
};

TEST_F(CommandTable, EnablesByNodeKindAndState) {
    struct Case {
        const wchar_t* node;
        const wchar_t* listItem;
        const wchar_t* enabled;
    };
    const auto check = [this](std::initializer_list<Case> cases) {
        for (const Case& c : cases) {
            click(c.node);
            if (*c.listItem) selectInList({c.listItem});
            EXPECT_EQ(enabled(), c.enabled) << testing::PrintToString(std::wstring(c.node));
            EXPECT_EQ(tree().dragAutomatic(), tree().selected()->parent() != nullptr);
            std::set<std::wstring> shortcuts;
            visit(form().menuBar, [&](const MenuItem& item) {
                if (!item.enabled() || !item.shortcut().key) return;
                EXPECT_TRUE(shortcuts.insert(item.shortcut().text()).second)
                    << testing::PrintToString(item.name());
            });
        }
    };
    check(
        {{L"A", L"", L"Show Create FileClose Save SaveAS Drawing | Save"},
         {L"A", L"Z3", L"Show Create FileClose Save SaveAS Drawing Model | Save Model"},
         {L"Z1", L"",
          L"Show Create FileClose Save SaveAS Drawing Model Active FileRename LayoutImport EditCopy | Save "
          L"Copy Model"},
         {L"Z3", L"",
          L"Show Create FileClose Save SaveAS Drawing Model FileDelete FileRename LayoutImport EditCopy | "
          L"Save Copy Delete Model"},
         {L"L2", L"", L"Show Create Active FileRename LayoutImport EditCopy | Copy Active"},
         {L"L5", L"", L"Show Create Active FileDelete FileRename LayoutImport EditCopy | Copy Delete Active"},
         {L"B", L"", L"Show Create Template TemplateOpen TemplateDelete | New Open Delete"},
         {L"D7", L"", L"Show Create Template TemplateOpen TemplateDelete | New Open Delete"}});

    choose(L"mnuModel");
    click(L"Z3");
    choose(L"mnuModel");
    EXPECT_EQ(hostState(), L"Plan.dwg/Model of 2");
    EXPECT_FALSE(form().item(L"mnuModel").enabled());
    EXPECT_FALSE(form().tbToolBar.button(10).enabled);

    demo.end();
    main->autoCAD.ConnectAutoCAD();
    refresh();
    check({{L"A", L"", L"Start FileClose Save SaveAS Drawing | Save"},
           {L"D7", L"", L"Start Template TemplateOpen TemplateDelete | New Open Delete"}});
}

TEST_F(CommandTable, ToolBarHasItsOrderAndMenusTheirKeys) {
    const auto keys = split(
        L"New,Open,Save,,Copy,Delete,,Layout,Template,Model,Active,DC,,Große Symbole anzeigen,Kleine Symbole "
        L"anzeigen,Liste anzeigen,Details anzeigen,,Ascending,Descending,,Hilfe,Öffnen,Neu,Speichern,Suchen");
    const auto& buttons = form().tbToolBar.buttons();
    ASSERT_EQ(buttons.size(), keys.size());
    int image = 0;
    for (std::size_t i = 0; i < keys.size(); ++i) {
        EXPECT_EQ(buttons[i].key, keys[i]);
        EXPECT_EQ(buttons[i].visible, i < 22);
        EXPECT_EQ(buttons[i].image, keys[i].empty() ? ToolBarButton().image : ++image);
        using Style = ToolBarButton::Style;
        EXPECT_EQ(buttons[i].style, keys[i].empty()      ? Style::separator
                                    : i >= 13 && i <= 16 ? Style::check
                                                         : Style::button);
    }
    EXPECT_EQ(buttons[2].toolTip, L"Speichern (Strg+S)");

    const auto items = split(
        L"mnuFileRename,mnuFileDelete,mnuTemplateDelete,mnuViewRefresh,mnuViewRebuild,mnuEditOpen,"
        L"mnuEditSelectAll,"
        L"mnuSave,mnuEditCopy,mnuHelpContents");
    const auto shortcuts = split(L"F2,Entf,Entf,F5,Strg+F5,Eingabe,Strg+A,Strg+S,Strg+C,F1");
    for (std::size_t i = 0; i < items.size(); ++i)
        EXPECT_EQ(form().item(items[i]).shortcut().text(), shortcuts[i]);

    const auto checkAccessKeys = [](const MenuItem& menu) {
        std::set<wchar_t> taken;
        EXPECT_FALSE(menu.items().front()->isSeparator() || menu.items().back()->isSeparator());
        for (const auto& entry : menu.items()) {
            if (entry->isSeparator()) continue;
            const std::size_t mark = entry->caption().find(L'&');
            ASSERT_NE(mark, std::wstring::npos) << testing::PrintToString(entry->caption());
            EXPECT_TRUE(taken.insert(std::towlower(entry->caption()[mark + 1])).second)
                << testing::PrintToString(entry->caption());
        }
    };
    checkAccessKeys(form().menuBar);
    for (const auto& menu : form().menuBar.items()) checkAccessKeys(*menu);
    for (const MenuItem* menu :
         {&form().popupTemplateMenu, &form().popupDrawingMenu, &form().popupLayoutMenu})
        checkAccessKeys(*menu);
}

TEST_F(CommandTable, PlaceholdersShowTheirTextAndChangeNothing) {
    const std::wstring before = treeText();
    for (const std::wstring& name :
         split(L"mnuWindowTileVertical,mnuWindowTileHorizontal,mnuWindowCascade,mnuWindowNewWindow,"
               L"mnuEditPasteSpecial,mnuEditPaste,mnuEditCut,mnuEditUndo,mnuFileProperties,mnuFileNew,"
               L"mnuFileFind")) {
        choose(name);
        EXPECT_EQ(world.messages.shown.back(),
                  told(L"Code für '" + name + L"_Click' hinzufügen.", MessageIcon::none));
    }
    for (const wchar_t* key : {L"Neu", L"Speichern", L"Suchen"}) {
        form().tbToolBar.userClicks(key);
        EXPECT_EQ(world.messages.shown.back(),
                  told(L"Schaltflächencode für '" + std::wstring(key) + L"' hinzufügen.", MessageIcon::none));
    }
    EXPECT_EQ(world.messages.shown.size(), 14U);
    EXPECT_EQ(calls.count(), 0U);
    EXPECT_EQ(treeText(), before);
}

TEST_F(CommandTable, ContextMenusFollowTheNodeKind) {
    struct Case {
        const wchar_t* node;
        const MenuItem& menu;
        bool inList;
        bool doubleClickRuns;
    };
    for (const Case& c :
         {Case{L"A", form().popupDrawingMenu, true, false}, Case{L"Z3", form().popupDrawingMenu, true, true},
          Case{L"L5", form().popupLayoutMenu, false, true}, Case{L"B", form().popupTemplateMenu, true, false},
          Case{L"D7", form().popupTemplateMenu, false, true}}) {
        click(c.node);
        tree().events.contextMenu();
        EXPECT_EQ(presenter.window.poppedUp, &c.menu);
        EXPECT_EQ(c.menu.items().front()->isDefault(), c.doubleClickRuns);
        presenter.window.poppedUp = nullptr;
        list().events.contextMenu();
        EXPECT_EQ(presenter.window.poppedUp, c.inList ? &c.menu : nullptr);
        EXPECT_EQ(c.menu.items().front()->isDefault(), c.doubleClickRuns && !c.inList);
    }
    // What a double click does comes first, deleting last; a comma more is a separator.
    const std::array<std::pair<const MenuItem&, const wchar_t*>, 3> orders{
        {{form().popupDrawingMenu,
          L"popDrawing,popModel,,popSave,popSaveAs,popClose,,popCreate,popCopy,popRename,popVorlage,,"
          L"popStart,"
          L"popShow,,popListViewModeZ(0),popListViewModeZ(1),popListViewModeZ(2),popListViewModeZ(3),,"
          L"popDel,"},
         {form().popupLayoutMenu,
          L"popLayout,,popCreate,popCopy,popRename,popLayoutImport,,popListViewModeL(0),popListViewModeL(1),"
          L"popListViewModeL(2),popListViewModeL(3),,popDel,"},
         {form().popupTemplateMenu,
          L"popLoad,popTemplate,popInsert,,popOpenVorlage,popDCB,popDCD,,popListViewModeD(0),"
          L"popListViewModeD(1),popListViewModeD(2),popListViewModeD(3),,popDelVorlage,"}}};
    for (const auto& [menu, order] : orders) {
        std::wstring names;
        visit(menu, [&](const MenuItem& item) {
            if (item.items().empty()) names += item.name() + L",";
        });
        EXPECT_EQ(names, order);
    }
}

TEST_F(CommandTable, CommandsOfTheWindowItself) {
    click(L"B");
    form().tbToolBar.userClicks(L"Open");
    choose(L"popOpenVorlage");
    EXPECT_EQ(world.process.started,
              (std::vector<std::wstring>{L"explorer.exe C:\\Vorlagen", L"explorer.exe C:\\Vorlagen"}));

    form().tbToolBar.userClicks(L"Descending");
    EXPECT_EQ(list().row(0).key(), L"D8");
    form().tbToolBar.userClicks(L"Ascending");
    EXPECT_EQ(list().row(0).key(), L"D7");
    choose(L"mnuEditSelectAll");
    EXPECT_EQ(list().selectedItems().size(), 2U);

    demo.end();
    demo.start();
    choose(L"mnuViewRefresh");
    EXPECT_TRUE(main->autoCAD.gAcadApp) << "who has started AutoCAD anew sees it by F5";

    // Each list keeps the order that the user has given it.
    form().tbToolBar.userClicks(L"Descending");
    click(L"A");
    EXPECT_EQ(list().row(0).key(), L"Z1");
    click(L"B");
    EXPECT_EQ(list().row(0).key(), L"D8");
}

TEST_F(CommandTable, OpensAnyDrawingByTheFileDialog) {
    host().close(document(L"Haus.dwg"));
    struct Case {
        std::optional<std::wstring> chosen;
        const wchar_t* state;
        std::vector<ShownBox> shown;
    };
    host().addDocument(L"C:\\Projekte", L"Neu.dwg", {L"Blatt 1"})->save();
    host().close(document(L"Neu.dwg"));
    for (const Case& c :
         {Case{std::nullopt, L"Plan.dwg/Blatt 1 of 1", {}},
          Case{L"C:\\Projekte\\Liste.txt", L"Plan.dwg/Blatt 1 of 1", {}},
          Case{L"C:\\Projekte\\Fehlt.dwg",
               L"Plan.dwg/Blatt 1 of 1",
               {told(L"C:\\Projekte\\Fehlt.dwg kann nicht geöffnet werden!\n\nDateifehler")}},
          // Listed once in this run, so it counts as loaded although it is closed.
          Case{L"c:\\projekte\\HAUS.dwg",
               L"Plan.dwg/Blatt 1 of 1",
               {told(L"C:\\Projekte\\Haus.dwg ist bereits geladen!", MessageIcon::information)}},
          Case{L"C:\\Projekte\\Neu.dwg", L"Neu.dwg/Blatt 1 of 2", {}}}) {
        world.messages.clear();
        world.fileDialogs.chosen = c.chosen;
        form().tbToolBar.userClicks(L"Öffnen");
        EXPECT_EQ(world.fileDialogs.shown.back(),
                  (FakeFileDialogs::Shown{L"Öffnen", L"Alle Dateien (*.*)|*.*"}));
        EXPECT_EQ(hostState(), c.state);
        EXPECT_EQ(world.messages.shown, c.shown);
    }
    EXPECT_TRUE(activeDocumentIsRight());
    EXPECT_NE(treeText().find(L"Neu.dwg*"), std::wstring::npos);
}

}  // namespace
}  // namespace blattwart::test
