#include "views/LayoutNames.h"

#include <algorithm>
#include <span>

#include "autocad/PageSetupHidden.h"

namespace blattwart {

void LayoutNames::warnNotRenamed(const RuntimeError& error) {
    const std::wstring what = isAnswerLost(error) ? L"Ob das Layout umbenannt wurde, ist nicht bekannt!"
                                                  : L"Das Layout kann nicht umbenannt werden!";
    platform_.messages.warn(what + L"\n\n" + error.description());
}

void LayoutNames::DeleteLayouts() {
    const TreeNode* node = tree_.view().selected();
    if (!node) return;
    std::vector<std::wstring> keys;
    std::wstring drawingKey = node->key();
    const NodeKind kind = NodeKey::parse(drawingKey).kind();
    if (kind == NodeKind::drawing) {
        for (const ListItem* item : list_.selectedItems()) keys.push_back(item->key());
        if (!keys.empty() && static_cast<int>(keys.size()) == list_.count()) {
            platform_.messages.warn(L"Das Löschen sämtlicher Layouts einer Zeichnung ist nicht zulässig!");
            return;
        }
    } else if (kind == NodeKind::layout) {
        // A drawing must keep one layout; the command may have been enabled before another one went.
        if (node->parent()->children().size() < 2) return;
        keys.push_back(drawingKey);
        drawingKey = node->parent()->key();
    }
    if (keys.empty()) return;
    const FoundDocuments found = autoCAD_.findByKey(drawingKey);
    const bool open = autoCAD_.foundOrTold(found);
    if (found.outcome == Lookup::noAnswer) return;
    const bool done = !open || autoCAD_.runCommand([&] { deleteLayouts(found.last(), keys); });
    if (done) events_.RefreshTree();
}

void LayoutNames::deleteLayouts(const host::Document& document, const std::vector<std::wstring>& keys) {
    autoCAD_.activate(document);
    events_.ShowNodeStatus();
    const host::Layouts layouts = document.Layouts();
    if (autoCAD_.hostIsEstablished()) {
        for (const std::wstring& key : keys) {
            const auto record = recordOf(key);
            if (tarvix_.DeleteLayout(document, layouts.Item(record->Layout), *record) != MacroRun::ran)
                return;
        }
        return;
    }
    // By their handles they are found again, should the host turn out to have no macro project.
    std::vector<host::Layout> found;
    std::vector<DoomedLayout> doomed;
    for (const std::wstring& key : keys) {
        const std::wstring& name = recordOf(key)->Layout;
        found.push_back(layouts.Item(name));
        doomed.push_back({found.back().Handle(), name});
    }
    std::size_t deleted = 0;
    MacroRun run = MacroRun::ran;
    {
        const PageSetupHidden hidden(autoCAD_, document);
        for (; deleted < keys.size() && run == MacroRun::ran; ++deleted)
            run = tarvix_.DeleteLayout(document, found[deleted], *recordOf(keys[deleted]));
    }
    if (run != MacroRun::withoutProject) return;
    doomed.erase(doomed.begin(), doomed.begin() + static_cast<std::ptrdiff_t>(deleted - 1));
    deleteWithoutTarvix(document, recordOf(keys.front())->Zeichnung, doomed);
}

std::shared_ptr<CAcadobj> LayoutNames::recordOf(const std::wstring& key) const {
    return records_.LayoutRecords.Item(NodeKey::parse(key));
}

void LayoutNames::deleteWithoutTarvix(const host::Document& document, const std::wstring& drawing,
                                      const std::vector<DoomedLayout>& doomed) {
    constexpr std::size_t mostNames = 20;
    std::wstring question = L"Ohne Tarvix aus der Zeichnung '" + drawing + L"' löschen?\n";
    for (const DoomedLayout& each : std::span(doomed).first(std::min(doomed.size(), mostNames)))
        question += L"\n" + each.name;
    if (doomed.size() > mostNames)
        question += L"\nund " + std::to_wstring(doomed.size() - mostNames) + L" weitere";
    if (!platform_.messages.askBeforeLoss(question) || autoCAD_.refusesWhileCommandRuns(document)) return;
    members_.Delete(document, doomed);
}

bool LayoutNames::isTaken(bool fromList, const std::wstring& key, const std::wstring& newName) const {
    const auto isOther = [&](const auto& entry) {
        return entry.key() != key && platform_.locale.equalIgnoringCase(entry.text(), newName);
    };
    if (fromList) {
        for (int row = 0; row < list_.count(); ++row)
            if (isOther(list_.row(row))) return true;
        return false;
    }
    const TreeNode* node = tree_.view().find(key);
    if (!node || !node->parent()) return false;
    return std::ranges::any_of(node->parent()->children(), isOther,
                               [](const auto& child) -> const TreeNode& { return *child; });
}

bool LayoutNames::RenameByLabelEdit(bool fromList, const std::wstring& typed) {
    const std::wstring newName = layoutName(typed);
    const ListItem* item = list_.selected();
    const TreeNode* node = tree_.view().selected();
    if (fromList ? !item : !node) return true;
    const std::wstring key = fromList ? item->key() : node->key();
    if (isTaken(fromList, key, newName)) {
        platform_.messages.warn(L"Bezeichnung ist bereits vergeben!");
        return true;
    }
    if (autoCAD_.refusesControlCharacters(newName)) return true;
    try {
        const auto record = recordOf(key);
        if (record->Layout == newName) return false;
        const FoundDocuments found = autoCAD_.find(record->drawing());
        if (!autoCAD_.foundOrTold(found)) return true;
        rename(found.last().Layouts(), *record, newName);
    } catch (const RuntimeError& error) {
        warnNotRenamed(error);
        return true;
    }
    showName(key, newName);
    return false;
}

// The host comes first: when it refuses the name, the record goes on naming the layout as the host does.
void LayoutNames::rename(const host::Layouts& layouts, CAcadobj& record, const std::wstring& newName) {
    layouts.Item(record.Layout).putName(newName);
    record.Gesamt = record.drawing() + L";" + newName;
    record.Layout = newName;
}

void LayoutNames::showName(const std::wstring& key, const std::wstring& name) {
    if (ListItem* item = list_.find(key)) item->setText(name);
    if (TreeNode* node = tree_.view().find(key)) node->setText(name);
}

void LayoutNames::RenameSelectedLayouts(const std::wstring& baseName, std::int16_t& counter) {
    if (autoCAD_.refusesControlCharacters(baseName)) return;
    try {
        const host::Layouts layouts = autoCAD_.gAcadDoc.Layouts();
        std::set<std::wstring> names = tarvix_.layoutNames(autoCAD_.gAcadDoc);
        LongRead work(platform_.readings, L"Layouts werden umbenannt");
        for (const ListItem* item : list_.selectedItems()) {
            if (!work.goOn()) return;
            const std::wstring key = item->key();
            const auto record = recordOf(key);
            const std::int16_t number = tarvix_.NextFreeLayoutNumber(names, baseName, counter);
            const std::wstring newName = layoutName(baseName, number);
            names.erase(platform_.locale.upperCase(record->Layout));
            rename(layouts, *record, newName);
            showName(key, newName);
        }
    } catch (const RuntimeError& error) {
        warnNotRenamed(error);
    }
}

}  // namespace blattwart
