// The command table made into menus, context menus and toolbar, and its enabling rules.

#include <optional>

#include "shell/Commands.h"
#include "shell/frmMain.h"
#include "shell/Modules.h"

namespace blattwart {

namespace {

constexpr const wchar_t* viewCaption = L"&Ansicht";
constexpr int lastVisibleButton = 22;

MenuItem& subMenu(MenuItem& menu, std::wstring_view caption) {
    for (const auto& entry : menu.items())
        if (entry->caption() == caption) return *entry;
    return menu.add({}, std::wstring(caption));
}

}  // namespace

void frmMain::buildCommands() {
    for (const Command& command : commands()) addToMenuBar(command);
    buildContextMenu(popupTemplateMenu, ContextMenu::templates, L'D');
    buildContextMenu(popupDrawingMenu, ContextMenu::drawings, L'Z');
    buildContextMenu(popupLayoutMenu, ContextMenu::layouts, L'L');
    buildToolBar();
}

void frmMain::addToMenuBar(const Command& command) {
    if (command.menu == MenuId::none) return;
    MenuItem& menu = subMenu(menuBar, menuCaption(command.menu));
    if (command.separatorBefore && !menu.items().empty()) menu.addSeparator();
    addMenuItem(menu, command.item, command);
}

void frmMain::buildContextMenu(MenuItem& menu, ContextMenu which, wchar_t letter) {
    for (const std::wstring_view pop : contextMenu(which)) {
        if (pop.empty()) {
            menu.addSeparator();
            continue;
        }
        std::wstring name(pop);
        const std::size_t star = name.find(L'*');
        if (star != std::wstring::npos) name[star] = letter;
        addMenuItem(star == std::wstring::npos ? menu : subMenu(menu, viewCaption), name, commandOfPop(pop));
    }
}

void frmMain::addMenuItem(MenuItem& menu, std::wstring_view name, const Command& command) {
    MenuItem& entry = menu.add(std::wstring(name), std::wstring(command.caption), command.shortcut);
    entry.click = [this, &command] { run(command); };
    items_[entry.name()] = &entry;
    commandItems_.emplace_back(&command, &entry);
}

void frmMain::buildToolBar() {
    int image = 0;
    int index = 0;
    for (const std::wstring_view key : toolBarKeys()) {
        ToolBarButton button;
        button.key = key;
        ++index;
        if (key.empty()) {
            button.style = ToolBarButton::Style::separator;
        } else {
            const Command& command = commandOfButton(key);
            button.image = ++image;
            button.visible = index <= lastVisibleButton;
            if (key.ends_with(L" anzeigen")) button.style = ToolBarButton::Style::check;
            button.toolTip = command.toolTip;
            if (command.shortcut.key) button.toolTip += L" (" + command.shortcut.text() + L")";
        }
        tbToolBar.add(std::move(button));
    }
    tbToolBar.events.buttonClick = [this](const std::wstring& key) { run(commandOfButton(key)); };
}

MenuItem& frmMain::item(std::wstring_view name) {
    const auto entry = items_.find(name);
    if (entry == items_.end())
        throw RuntimeError(errorNumber::elementNotFound,
                           L"Menüeintrag nicht gefunden: " + std::wstring(name));
    return *entry->second;
}

void frmMain::connect(Modules& modules) {
    modules_ = &modules;
    buildReleases();
}

void frmMain::buildReleases() {
    MenuItem& menu = subMenu(subMenu(menuBar, menuCaption(MenuId::autoCAD)), L"AutoCAD-&Version");
    addRelease(menu, L"mnuReleaseAutomatic", L"&Automatisch", std::nullopt);
    for (const InstalledRelease& each : modules_->autoCAD.hosts.installed()) {
        std::wstring caption;
        for (const wchar_t letter : each.product) caption.append(letter == L'&' ? 2 : 1, letter);
        addRelease(menu, L"mnuRelease(" + each.release.text() + L")", caption, each);
    }
    showChosenRelease();
}

void frmMain::addRelease(MenuItem& menu, const std::wstring& name, const std::wstring& caption,
                         const std::optional<InstalledRelease>& release) {
    MenuItem& entry = menu.add(name, caption);
    entry.setChoice(true);
    entry.click = [this, release] {
        runAsCommand([&] {
            modules_->autoCAD.ChooseRelease(release);
            showChosenRelease();
        });
    };
    items_[name] = &entry;
    releaseItems_.emplace_back(release ? std::optional(release->release) : std::nullopt, &entry);
}

void frmMain::showChosenRelease() {
    const std::optional<Release> chosen = modules_->autoCAD.hosts.chosen();
    for (const auto& [release, entry] : releaseItems_) entry->setChecked(release == chosen);
}

void frmMain::run(const Command& command) {
    runAsCommand([&] {
        if (command.run) {
            (this->*command.run)();
        } else {
            showPlaceholder(command);
        }
    });
}

void frmMain::runAsCommand(const std::function<void()>& work) {
    handle([&] {
        // Like a click elsewhere, a command ends the naming of a template: it is meant for the source.
        modules_->templates.CancelNewTemplate();
        work();
    });
}

void frmMain::showPlaceholder(const Command& command) {
    const std::wstring text = command.item.empty() ? L"Schaltflächencode für '" + std::wstring(command.button)
                                                   : L"Code für '" + std::wstring(command.item) + L"_Click";
    platform_.messages.say(text + L"' hinzufügen.");
}

void frmMain::VisbibleMnuMenu() {
    const unsigned kind = kindBit(selectedKind());
    // Asks the host, so at most once and only where a row depends on it.
    std::optional<bool> modelSpace;
    const auto modelSpaceOnce = [&] {
        if (!modelSpace) modelSpace = modelSpacePossible();
        return *modelSpace;
    };
    for (const auto& [command, entry] : commandItems_)
        entry->setEnabled(isEnabled(*command, kind, modelSpaceOnce));
    const auto keys = toolBarKeys();
    for (std::size_t i = 0; i < keys.size(); ++i) {
        if (keys[i].empty()) continue;
        const bool enabled = isEnabled(commandOfButton(keys[i]), kind, modelSpaceOnce);
        tbToolBar.setButtonEnabled(static_cast<int>(i) + 1, enabled);
    }
}

bool frmMain::isEnabled(const Command& command, unsigned kind, const std::function<bool()>& modelSpace) {
    const bool attached = static_cast<bool>(modules_->autoCAD.gAcadApp);
    const bool ofKind = (command.kinds & kind) != 0;
    const TreeNode* node = tvTreeView.selected();
    switch (command.enabling) {
        case Enabling::always:
            return true;
        case Enabling::attached:
            return attached;
        case Enabling::notAttached:
            return !attached;
        case Enabling::byKind:
            return ofKind;
        case Enabling::deletable:
            return ofKind && (!(kind & (kindZ | kindL)) || drawingHasOtherLayouts(node));
        case Enabling::modelSpace:
            return ofKind && attached && modelSpace();
        case Enabling::notActive:
            return ofKind && !(kind == kindZ && node->bold());
    }
    return false;
}

bool frmMain::drawingHasOtherLayouts(const TreeNode* node) const {
    const TreeNode* drawing = NodeKey::parse(node->key()).kind() == NodeKind::layout ? node->parent() : node;
    return drawing && drawing->children().size() >= 2;
}

}  // namespace blattwart
