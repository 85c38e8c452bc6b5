#include "support/Picture.h"

#include <algorithm>
#include <vector>

#include "shell/Commands.h"

namespace blattwart::test {

namespace {

std::wstring look(const TreeNode& node) {
    return node.text() + L"|" + std::to_wstring(node.image()) + (node.bold() ? L"*" : L"") +
           std::to_wstring(static_cast<int>(node.color()));
}

}  // namespace

std::wstring treeText(frmMain& form) {
    std::wstring text;
    form.tvTreeView.forEach([&](const TreeNode& node) {
        for (const TreeNode* above = node.parent(); above; above = above->parent()) text += L"  ";
        text += node.key() + L" " + node.text();
        if (node.bold()) text += L"*";
        if (&node == form.tvTreeView.selected()) text += L"<";
        text += L"\n";
    });
    return text;
}

std::wstring picture(frmMain& form) {
    std::wstring text;
    const auto addSorted = [&](std::vector<std::wstring> lines) {
        std::ranges::sort(lines);
        for (const std::wstring& line : lines) text += L"  " + line + L"\n";
    };
    for (const TreeNode* root : form.tvTreeView.roots()) {
        // A library that was empty at first keeps saying so; required so.
        text += look(*root).substr(root->key() == L"B" ? root->text().size() : 0) + L"\n";
        for (const TreeNode* child : root->children()) {
            text += L" " + look(*child) + L"\n";
            std::vector<std::wstring> layouts;
            for (const TreeNode* layout : child->children()) layouts.push_back(look(*layout));
            addSorted(layouts);
        }
    }
    text += form.lblTitle[1].text() + L"\n";
    std::vector<std::wstring> rows;
    for (int i = 0; i < form.lvListView.count(); ++i) {
        const ListItem& item = form.lvListView.row(i);
        rows.push_back(item.text() + (item.bold() ? L"*" : L""));
        for (int c = 2; c <= static_cast<int>(form.lvListView.columns().size()); ++c)
            rows.back() += L"|" + item.column(c);
    }
    addSorted(rows);
    for (const Command& command : commands())
        if (!command.item.empty() && form.item(command.item).enabled()) text += command.item;
    return text + L"\n" + form.sbStatusBar.panelText(1);
}

}  // namespace blattwart::test
