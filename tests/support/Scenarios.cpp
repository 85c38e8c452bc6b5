#include "support/Scenarios.h"

#include <algorithm>

#include "shell/Commands.h"
#include "support/User.h"

namespace blattwart::test {

namespace {

Action byMenu(const Command& command) {
    std::wstring item(command.item.empty() ? command.pop : command.item);
    if (const std::size_t star = item.find(L'*'); star != std::wstring::npos) item[star] = L'D';
    return menuItem(item);
}

Action byButton(const Command& command) {
    const std::wstring key(command.button);
    return {key, [key](frmMain& form) { form.tbToolBar.userClicks(key); },
            [key](frmMain& form) {
                const auto& buttons = form.tbToolBar.buttons();
                return std::ranges::any_of(buttons,
                                           [&](const auto& each) { return each.key == key && each.enabled; });
            }};
}

Action event(std::wstring name, std::function<void(frmMain&)> run) {
    return {std::move(name), std::move(run), [](frmMain&) { return true; }};
}

void clickNode(frmMain& form, const wchar_t* key) {
    if (TreeNode* node = form.tvTreeView.find(key)) form.tvTreeView.userClicks(*node);
}

void dropSelection(frmMain& form) {
    TreeView& tree = form.tvTreeView;
    const std::wstring key = tree.selected()->key();
    tree.setDropHighlight(&tree.node(key.starts_with(L'D') ? L"A" : L"B"));
    tree.events.keyDropped(key);
    tree.setDropHighlight(nullptr);
}

void dropFiles(frmMain& form) {
    form.tvTreeView.setDropHighlight(&form.tvTreeView.node(L"A"));
    form.tvTreeView.events.filesDropped({L"C:\\Vorlagen\\Plan A3.dwt", L"C:\\Projekte\\Bild.png"});
    form.tvTreeView.setDropHighlight(nullptr);
}

}  // namespace

Action menuItem(const std::wstring& item) {
    return {item, [item](frmMain& form) { form.item(item).click(); },
            [item](frmMain& form) { return form.item(item).enabled(); }};
}

const std::vector<SampleDrawing>& sampleDrawings() {
    static const std::vector<SampleDrawing> all{
        {L"C:\\Vorlagen", L"Plan A3.dwt", {L"Rahmen A3"}},
        {L"C:\\Projekte", L"Haus.dwg", {L"Blatt 1"}},
        {L"C:\\Projekte", L"Plan.dwg", {L"Blatt 1", L"Blatt 2", L"Schnitt"}}};
    return all;
}

const std::vector<Place>& places() {
    static const std::vector<Place> all{{L"A", {L"Z1"}},         {L"Z1", {L"L2"}}, {L"Z3", {L"L5"}},
                                        {L"Z3", {L"L5", L"L6"}}, {L"L2", {}},      {L"L5", {L"IPlotter"}},
                                        {L"B", {L"D7"}},         {L"D7", {}},      {L"A", {}, false}};
    return all;
}

const Place& placeAt(std::wstring_view node) {
    return *std::ranges::find(places(), node, &Place::node);
}

void go(frmMain& form, const Place& place) {
    form.tvTreeView.userClicks(form.tvTreeView.node(place.node));
    selectInList(form, place.items);
}

std::vector<Action> actions() {
    std::vector<Action> all;
    for (const Command& command : commands()) {
        if (!command.run) continue;
        const bool inMenu = !command.item.empty() || !command.pop.empty();
        all.push_back(inMenu ? byMenu(command) : byButton(command));
    }
    all.push_back(menuItem(L"mnuReleaseAutomatic"));
    for (const wchar_t* key : {L"A", L"Z1", L"Z3", L"L5", L"B", L"D7"})
        all.push_back(event(std::wstring(L"click ") + key, [key](frmMain& form) { clickNode(form, key); }));
    all.push_back(event(L"double click, tree", [](frmMain& form) { form.tvTreeView.events.doubleClick(); }));
    all.push_back(event(L"double click, list", [](frmMain& form) { form.lvListView.events.doubleClick(); }));
    all.push_back(event(L"context menu, tree", [](frmMain& form) { form.tvTreeView.events.contextMenu(); }));
    all.push_back(event(L"context menu, list", [](frmMain& form) { form.lvListView.events.contextMenu(); }));
    all.push_back(event(L"selection", [](frmMain& form) { form.lvListView.events.selectionChange(); }));
    all.push_back(event(L"column click", [](frmMain& form) { form.lvListView.events.columnClick(1); }));
    all.push_back(event(L"drop of the selection", dropSelection));
    all.push_back(event(L"drop of files", dropFiles));
    all.push_back(event(L"activation", [](frmMain& form) { form.Form_Activate(); }));
    all.push_back(event(L"resizing", [](frmMain& form) { form.Form_Resize(); }));
    all.push_back(event(L"closing", [](frmMain& form) { form.Form_Unload(); }));
    return all;
}

Action actionNamed(std::wstring_view name) {
    const std::vector<Action> all = actions();
    return *std::ranges::find(all, name, &Action::name);
}

void perform(frmMain& form, const Action& action) {
    action.run(form);
    endEdit(form, L"Neu");
}

}  // namespace blattwart::test
