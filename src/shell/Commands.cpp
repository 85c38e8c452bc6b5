#include "shell/Commands.h"

#include <array>

#include "shell/frmMain.h"

namespace blattwart {

namespace {

constexpr Shortcut key(std::uint16_t code) {
    return {code, false};
}

constexpr unsigned allPopups = popupTemplates | popupDrawings | popupLayouts;

// clang-format off
constexpr std::array table{
    Command{.item = L"mnuEnd", .menu = MenuId::file, .caption = L"&Beenden", .run = &frmMain::mnuEnd_Click},

    Command{.item = L"mnuViewToolbar", .menu = MenuId::view, .caption = L"&Symbolleiste",
            .run = &frmMain::mnuViewToolbar_Click},
    Command{.item = L"mnuViewStatusBar", .menu = MenuId::view, .caption = L"S&tatusleiste",
            .run = &frmMain::mnuViewStatusBar_Click},
    Command{.item = L"mnuListViewMode(0)", .menu = MenuId::view, .caption = L"&Große Symbole",
            .run = &frmMain::mnuListViewMode_Click<0>, .button = L"Große Symbole anzeigen",
            .toolTip = L"Große Symbole anzeigen", .pop = L"popListViewMode*(0)", .popups = allPopups,
            .separatorBefore = true},
    Command{.item = L"mnuListViewMode(1)", .menu = MenuId::view, .caption = L"&Kleine Symbole",
            .run = &frmMain::mnuListViewMode_Click<1>, .button = L"Kleine Symbole anzeigen",
            .toolTip = L"Kleine Symbole anzeigen", .pop = L"popListViewMode*(1)", .popups = allPopups},
    Command{.item = L"mnuListViewMode(2)", .menu = MenuId::view, .caption = L"&Liste",
            .run = &frmMain::mnuListViewMode_Click<2>, .button = L"Liste anzeigen",
            .toolTip = L"Liste anzeigen", .pop = L"popListViewMode*(2)", .popups = allPopups},
    Command{.item = L"mnuListViewMode(3)", .menu = MenuId::view, .caption = L"&Details",
            .run = &frmMain::mnuListViewMode_Click<3>, .button = L"Details anzeigen",
            .toolTip = L"Details anzeigen", .pop = L"popListViewMode*(3)", .popups = allPopups},
    Command{.item = L"mnuViewRefresh", .menu = MenuId::view, .caption = L"&Aktualisieren",
            .run = &frmMain::mnuViewRefresh_Click, .shortcut = key(Shortcut::f5), .separatorBefore = true},

    Command{.item = L"mnuStart", .menu = MenuId::autoCAD, .caption = L"AutoCAD &starten",
            .run = &frmMain::mnuStart_Click, .enabling = Enabling::notAttached, .pop = L"popStart",
            .popups = popupDrawings},
    Command{.item = L"mnuAutoEnd", .menu = MenuId::autoCAD, .caption = L"Mit AutoCAD &beenden",
            .run = &frmMain::mnuAutoEnd_Click, .separatorBefore = true},
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

}  // namespace

std::span<const Command> commands() {
    return table;
}

std::span<const std::wstring_view> toolBarKeys() {
    return keys;
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
