#include "shell/Commands.h"

#include <algorithm>
#include <array>

#include "shell/frmMain.h"

namespace blattwart {

namespace {

using namespace std::string_view_literals;

constexpr Shortcut key(std::uint16_t code) {
    return {code, false};
}
constexpr Shortcut control(wchar_t letter) {
    return {static_cast<std::uint16_t>(letter), true};
}

// clang-format off
// Rows without an operation are placeholders: they name themselves in a message box.
constexpr std::array table{
    Command{.item = L"mnuFileNew", .menu = MenuId::file, .caption = L"&Neu"},
    Command{.item = L"mnuFileOpen", .menu = MenuId::file, .caption = L"Ö&ffnen...", .run = &frmMain::mnuFileOpen_Click,
            .button = L"Öffnen", .toolTip = L"Öffnen"},
    Command{.item = L"mnuTemplate", .menu = MenuId::file, .caption = L"Neue &Zeichnung aus Vorlage",
            .run = &frmMain::mnuTemplate_Click, .enabling = Enabling::byKind, .kinds = kindB | kindD, .button = L"New",
            .toolTip = L"Neue Zeichnung aus Vorlage", .pop = L"popTemplate"},
    Command{.item = L"mnuTemplateOpen", .menu = MenuId::file, .caption = L"&Vorlage öffnen",
            .run = &frmMain::mnuTemplateOpen_Click, .enabling = Enabling::byKind, .kinds = kindB | kindD,
            .pop = L"popLoad"},
    Command{.item = L"mnuFileFind", .menu = MenuId::file, .caption = L"Suc&hen"},
    Command{.item = L"mnuSave", .menu = MenuId::file, .caption = L"&Speichern", .run = &frmMain::mnuSave_Click,
            .enabling = Enabling::byKind, .kinds = kindA | kindZ, .shortcut = control(L'S'), .button = L"Save",
            .toolTip = L"Speichern", .pop = L"popSave", .separatorBefore = true},
    Command{.item = L"mnuSaveAS", .menu = MenuId::file, .caption = L"Speichern un&ter...",
            .run = &frmMain::mnuSaveAS_Click, .enabling = Enabling::byKind, .kinds = kindA | kindZ,
            .pop = L"popSaveAs"},
    Command{.item = L"mnuFileClose", .menu = MenuId::file, .caption = L"S&chließen",
            .run = &frmMain::mnuFileClose_Click, .enabling = Enabling::byKind, .kinds = kindA | kindZ,
            .pop = L"popClose"},
    Command{.item = L"mnuTemplateDelete", .menu = MenuId::file, .caption = L"Vo&rlage löschen...",
            .run = &frmMain::mnuTemplateDelete_Click, .enabling = Enabling::byKind, .kinds = kindB | kindD,
            .shortcut = key(Shortcut::del), .pop = L"popDelVorlage",
            .separatorBefore = true},
    Command{.item = L"mnuFileDelete", .menu = MenuId::file, .caption = L"Layout &löschen",
            .run = &frmMain::mnuFileDelete_Click, .enabling = Enabling::deletable, .kinds = kindZ | kindL,
            .shortcut = key(Shortcut::del), .pop = L"popDel"},
    Command{.item = L"mnuFileRename", .menu = MenuId::file, .caption = L"Layout &umbenennen",
            .run = &frmMain::mnuFileRename_Click, .enabling = Enabling::byKind, .kinds = kindZ | kindL,
            .shortcut = key(Shortcut::f2), .pop = L"popRename"},
    Command{.item = L"mnuFileProperties", .menu = MenuId::file, .caption = L"&Eigenschaften"},
    Command{.item = L"mnuEnd", .menu = MenuId::file, .caption = L"&Beenden", .run = &frmMain::mnuEnd_Click,
            .separatorBefore = true},

    Command{.item = L"mnuEditUndo", .menu = MenuId::edit, .caption = L"&Rückgängig"},
    Command{.item = L"mnuEditCut", .menu = MenuId::edit, .caption = L"&Ausschneiden", .separatorBefore = true},
    Command{.item = L"mnuEditCopy", .menu = MenuId::edit, .caption = L"&Kopieren...",
            .run = &frmMain::mnuEditCopy_Click, .enabling = Enabling::byKind, .kinds = kindZ | kindL,
            .shortcut = control(L'C'), .button = L"Copy", .toolTip = L"Layout kopieren", .pop = L"popCopy"},
    Command{.item = L"mnuEditPaste", .menu = MenuId::edit, .caption = L"&Einfügen"},
    Command{.item = L"mnuEditPasteSpecial", .menu = MenuId::edit, .caption = L"&Inhalte einfügen"},
    Command{.item = L"mnuEditOpen", .menu = MenuId::edit, .caption = L"Auswahl &öffnen oder aktivieren",
            .run = &frmMain::mnuEditOpen_Click, .shortcut = key(Shortcut::enter), .separatorBefore = true},
    Command{.item = L"mnuEditSelectAll", .menu = MenuId::edit, .caption = L"Alles &markieren",
            .run = &frmMain::mnuEditSelectAll_Click, .shortcut = control(L'A')},

    Command{.item = L"mnuViewToolbar", .menu = MenuId::view, .caption = L"&Symbolleiste",
            .run = &frmMain::mnuViewToolbar_Click},
    Command{.item = L"mnuViewStatusBar", .menu = MenuId::view, .caption = L"S&tatusleiste",
            .run = &frmMain::mnuViewStatusBar_Click},
    Command{.item = L"mnuListViewMode(0)", .menu = MenuId::view, .caption = L"&Große Symbole",
            .run = &frmMain::mnuListViewMode_Click<0>, .button = L"Große Symbole anzeigen",
            .toolTip = L"Große Symbole anzeigen", .pop = L"popListViewMode*(0)",
            .separatorBefore = true},
    Command{.item = L"mnuListViewMode(1)", .menu = MenuId::view, .caption = L"&Kleine Symbole",
            .run = &frmMain::mnuListViewMode_Click<1>, .button = L"Kleine Symbole anzeigen",
            .toolTip = L"Kleine Symbole anzeigen", .pop = L"popListViewMode*(1)"},
    Command{.item = L"mnuListViewMode(2)", .menu = MenuId::view, .caption = L"&Liste",
            .run = &frmMain::mnuListViewMode_Click<2>, .button = L"Liste anzeigen",
            .toolTip = L"Liste anzeigen", .pop = L"popListViewMode*(2)"},
    Command{.item = L"mnuListViewMode(3)", .menu = MenuId::view, .caption = L"&Details",
            .run = &frmMain::mnuListViewMode_Click<3>, .button = L"Details anzeigen",
            .toolTip = L"Details anzeigen", .pop = L"popListViewMode*(3)"},
    Command{.item = L"mnuViewRefresh", .menu = MenuId::view, .caption = L"&Aktualisieren",
            .run = &frmMain::mnuViewRefresh_Click, .shortcut = key(Shortcut::f5), .separatorBefore = true},
    Command{.item = L"mnuViewRebuild", .menu = MenuId::view, .caption = L"&Baum neu aufbauen",
            .run = &frmMain::mnuViewRebuild_Click, .shortcut = {Shortcut::f5, true}},
    Command{.item = L"mnuPlanList", .menu = MenuId::view, .caption = L"&Planliste...", .run = &frmMain::mnuPlanList_Click,
            .enabling = Enabling::attached, .shortcut = control(L'L'), .separatorBefore = true},

    Command{.item = L"mnuActive", .menu = MenuId::layout, .caption = L"Ak&tivieren",
            .run = &frmMain::mnuActive_Click, .enabling = Enabling::notActive, .kinds = kindZ | kindL,
            .pop = L"popLayout"},
    Command{.item = L"mnuDrawing", .menu = MenuId::layout, .caption = L"&Zeichnung aktivieren",
            .run = &frmMain::mnuDrawing_Click, .enabling = Enabling::byKind, .kinds = kindA | kindZ,
            .pop = L"popDrawing"},
    Command{.item = L"mnuModel", .menu = MenuId::layout, .caption = L"&Modellbereich",
            .run = &frmMain::mnuModel_Click, .enabling = Enabling::modelSpace, .kinds = kindA | kindZ,
            .button = L"Model", .toolTip = L"Zum Modellbereich wechseln", .pop = L"popModel"},
    Command{.item = L"mnuCreate", .menu = MenuId::layout, .caption = L"Layout &erstellen",
            .run = &frmMain::mnuCreate_Click, .enabling = Enabling::attached, .button = L"Layout",
            .toolTip = L"Layout erstellen", .pop = L"popCreate",
            .separatorBefore = true},
    Command{.item = L"mnuLayoutImport", .menu = MenuId::layout, .caption = L"Layout als &Vorlage in die Bibliothek",
            .run = &frmMain::mnuLayoutImport_Click, .enabling = Enabling::byKind, .kinds = kindZ | kindL,
            .button = L"Template", .toolTip = L"Layout als Vorlage in die Bibliothek", .pop = L"popLayoutImport"},

    Command{.item = L"mnuStart", .menu = MenuId::autoCAD, .caption = L"AutoCAD starte&n",
            .run = &frmMain::mnuStart_Click, .enabling = Enabling::notAttached, .pop = L"popStart"},
    Command{.item = L"mnuShow", .menu = MenuId::autoCAD, .caption = L"AutoCAD anzei&gen",
            .run = &frmMain::mnuShow_Click, .enabling = Enabling::attached, .pop = L"popShow"},
    Command{.item = L"mnuAutoEnd", .menu = MenuId::autoCAD, .caption = L"Mit AutoCAD &beenden",
            .run = &frmMain::mnuAutoEnd_Click, .separatorBefore = true},

    Command{.item = L"mnuWindowNewWindow", .menu = MenuId::window, .caption = L"&Neues Fenster"},
    Command{.item = L"mnuWindowCascade", .menu = MenuId::window, .caption = L"Ü&berlappend", .separatorBefore = true},
    Command{.item = L"mnuWindowTileHorizontal", .menu = MenuId::window, .caption = L"&Untereinander"},
    Command{.item = L"mnuWindowTileVertical", .menu = MenuId::window, .caption = L"N&ebeneinander"},

    Command{.item = L"mnuHelpContents", .menu = MenuId::help, .caption = L"&Inhalt",
            .run = &frmMain::mnuHelpContents_Click, .shortcut = key(Shortcut::f1)},
    Command{.item = L"mnuHelpSearchForHelpOn", .menu = MenuId::help, .caption = L"Hilfe &suchen",
            .run = &frmMain::mnuHelpSearchForHelpOn_Click, .button = L"Hilfe", .toolTip = L"Hilfe suchen"},
    Command{.item = L"mnuHelpAbout", .menu = MenuId::help, .caption = L"Inf&o über Blattwart...",
            .run = &frmMain::mnuHelpAbout_Click, .separatorBefore = true},

    // Offered by context menus only.
    Command{.caption = L"Layout als &Vorlage in die Bibliothek", .run = &frmMain::mnuLayoutImport_Click,
            .enabling = Enabling::byKind, .kinds = kindZ | kindL, .pop = L"popVorlage"},
    Command{.caption = L"Layouts in die Zeichnung &einfügen", .run = &frmMain::popInsert_Click,
            .enabling = Enabling::byKind, .kinds = kindB | kindD, .pop = L"popInsert"},
    Command{.caption = L"&Ordner der Bibliothek öffnen", .run = &frmMain::popOpenVorlage_Click,
            .pop = L"popOpenVorlage"},
    Command{.caption = L"DesignCenter: &Bibliothek", .run = &frmMain::popDCB_Click, .pop = L"popDCB"},
    Command{.caption = L"DesignCenter: Vor&lage", .run = &frmMain::popDCD_Click, .pop = L"popDCD"},

    // Offered by the toolbar only.
    Command{.run = &frmMain::open_Click, .enabling = Enabling::byKind, .kinds = kindB | kindD, .button = L"Open",
            .toolTip = L"Vorlage oder Ordner der Bibliothek öffnen"},
    Command{.run = &frmMain::delete_Click, .enabling = Enabling::deletable, .kinds = kindZ | kindL | kindB | kindD,
            .shortcut = key(Shortcut::del), .button = L"Delete", .toolTip = L"Löschen"},
    Command{.run = &frmMain::active_Click, .enabling = Enabling::byKind, .kinds = kindL, .button = L"Active",
            .toolTip = L"Aktivieren und AutoCAD anzeigen"},
    Command{.run = &frmMain::designCenter_Click, .button = L"DC", .toolTip = L"DesignCenter öffnen"},
    Command{.run = &frmMain::sort_Click<SortOrder::ascending>, .button = L"Ascending",
            .toolTip = L"Aufsteigend sortieren"},
    Command{.run = &frmMain::sort_Click<SortOrder::descending>, .button = L"Descending",
            .toolTip = L"Absteigend sortieren"},
    Command{.button = L"Neu"},
    Command{.button = L"Speichern"},
    Command{.button = L"Suchen"},
};
// clang-format on

constexpr std::array<std::wstring_view, 26> keys{L"New",
                                                 L"Open",
                                                 L"Save",
                                                 L"",
                                                 L"Copy",
                                                 L"Delete",
                                                 L"",
                                                 L"Layout",
                                                 L"Template",
                                                 L"Model",
                                                 L"Active",
                                                 L"DC",
                                                 L"",
                                                 L"Große Symbole anzeigen",
                                                 L"Kleine Symbole anzeigen",
                                                 L"Liste anzeigen",
                                                 L"Details anzeigen",
                                                 L"",
                                                 L"Ascending",
                                                 L"Descending",
                                                 L"",
                                                 L"Hilfe",
                                                 L"Öffnen",
                                                 L"Neu",
                                                 L"Speichern",
                                                 L"Suchen"};

// clang-format off
constexpr std::array templateMenu{
    L"popLoad"sv, L"popTemplate"sv, L"popInsert"sv, L""sv,
    L"popOpenVorlage"sv, L"popDCB"sv, L"popDCD"sv, L""sv,
    L"popListViewMode*(0)"sv, L"popListViewMode*(1)"sv, L"popListViewMode*(2)"sv, L"popListViewMode*(3)"sv, L""sv,
    L"popDelVorlage"sv};
constexpr std::array drawingMenu{
    L"popDrawing"sv, L"popModel"sv, L""sv,
    L"popSave"sv, L"popSaveAs"sv, L"popClose"sv, L""sv,
    L"popCreate"sv, L"popCopy"sv, L"popRename"sv, L"popVorlage"sv, L""sv,
    L"popStart"sv, L"popShow"sv, L""sv,
    L"popListViewMode*(0)"sv, L"popListViewMode*(1)"sv, L"popListViewMode*(2)"sv, L"popListViewMode*(3)"sv, L""sv,
    L"popDel"sv};
constexpr std::array layoutMenu{
    L"popLayout"sv, L""sv,
    L"popCreate"sv, L"popCopy"sv, L"popRename"sv, L"popLayoutImport"sv, L""sv,
    L"popListViewMode*(0)"sv, L"popListViewMode*(1)"sv, L"popListViewMode*(2)"sv, L"popListViewMode*(3)"sv, L""sv,
    L"popDel"sv};
// clang-format on

}  // namespace

std::span<const Command> commands() {
    return table;
}

std::span<const std::wstring_view> toolBarKeys() {
    return keys;
}

std::span<const std::wstring_view> contextMenu(ContextMenu menu) {
    switch (menu) {
        case ContextMenu::templates:
            return templateMenu;
        case ContextMenu::drawings:
            return drawingMenu;
        case ContextMenu::layouts:
            break;
    }
    return layoutMenu;
}

const Command& commandOfPop(std::wstring_view name) {
    // The names come from the lists above, so each of them has its row.
    return *std::ranges::find(table, name, &Command::pop);
}

const Command& commandOfButton(std::wstring_view key) {
    // The keys come from the list above, so each of them has its row.
    return *std::ranges::find(table, key, &Command::button);
}

std::wstring_view menuCaption(MenuId menu) {
    switch (menu) {
        case MenuId::file:
            return L"&Datei";
        case MenuId::edit:
            return L"&Bearbeiten";
        case MenuId::view:
            return L"&Ansicht";
        case MenuId::layout:
            return L"&Layout";
        case MenuId::autoCAD:
            return L"A&utoCAD";
        case MenuId::window:
            return L"&Fenster";
        case MenuId::help:
            return L"&Hilfe";
        case MenuId::none:
            break;
    }
    return {};
}

}  // namespace blattwart
