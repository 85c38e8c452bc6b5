#include "views/LoadedDrawings.h"

#include <optional>

#include "platform/Platform.h"

namespace blattwart {

std::wstring LoadedDrawings::ReadLoadedDrawings() {
    drawingsWithoutNode_ = 0;
    layoutsWithoutNode_ = 0;
    if (!autoCAD_.gAcadDoc) return {};
    try {
        tree_.ClearActiveMarks();
        ResetPresentFlags();
        std::optional<std::wstring> activeName;
        const std::shared_ptr<OpenDocuments> documents = autoCAD_.openDocuments();
        LongRead reading(readings_);
        for (OpenDocument& open : *documents) {
            // Of what was not read any more nobody knows whether it is stale.
            if (!reading.goOn()) return {};
            // The last drawing may have been closed since it was the active one.
            if (!activeName) activeName = autoCAD_.gAcadDoc.Name();
            readDrawing(open, *activeName);
        }
        RemoveStaleNodes();
        return {};
    } catch (const RuntimeError&) {
        return L"Geladene AutoCAD-Zeichnungen können nicht ermittelt werden!";
    }
}

std::wstring LoadedDrawings::missingNodes() const {
    const int all = drawingsWithoutNode_ + layoutsWithoutNode_;
    if (all == 0) return {};
    std::wstring text;
    if (drawingsWithoutNode_ > 0) {
        text = std::to_wstring(drawingsWithoutNode_);
        text += drawingsWithoutNode_ == 1 ? L" geladene Zeichnung" : L" geladene Zeichnungen";
    }
    if (layoutsWithoutNode_ > 0) {
        if (!text.empty()) text += L" und ";
        text += std::to_wstring(layoutsWithoutNode_) + (layoutsWithoutNode_ == 1 ? L" Layout" : L" Layouts");
    }
    return text + (all == 1 ? L" fehlt" : L" fehlen") + L" im Baum: Strg+F5";
}

void LoadedDrawings::readDrawing(OpenDocument& open, const std::wstring& activeName) {
    records_.countNext();
    const std::wstring& name = open.Name();
    const std::wstring& path = open.Path();
    // By name alone: two drawings of one name in different folders are both shown as active. Intended.
    const bool isActive = name == activeName;
    std::int32_t drawingNumber = 0;
    const int withoutNode = drawingsWithoutNode_;
    if (!FindDrawingRecord(path, name, 0, drawingNumber, isActive))
        tree_.AddTreeNode(name, false, isActive, 0);
    const bool hasNode = drawingsWithoutNode_ == withoutNode;
    const int layoutsBefore = layoutsWithoutNode_;
    readLayouts(open.document(), path, name, drawingNumber, isActive);
    // Layouts of a drawing without a node cannot have one.
    if (!hasNode) layoutsWithoutNode_ = layoutsBefore;
}

void LoadedDrawings::readLayouts(const host::Document& document, const std::wstring& path,
                                 const std::wstring& drawing, std::int32_t drawingNumber,
                                 bool drawingIsActive) {
    std::optional<std::wstring> activeLayout;
    for (const host::Layout& layout : document.Layouts().all()) {
        const std::wstring name = layout.Name();
        if (name == L"Model") continue;
        records_.countNext();
        if (drawingIsActive && !activeLayout) activeLayout = document.ActiveLayout().Name();
        const bool isActive = drawingIsActive && name == *activeLayout;
        if (!FindLayoutRecord(path, drawing, layout, name, isActive))
            tree_.AddTreeNode(name, false, isActive, drawingNumber);
    }
}

void LoadedDrawings::ResetPresentFlags() {
    const auto reset = [this](const Collection<CAcadobj>& records, Index& index) {
        index.clear();
        for (const auto& record : records) {
            record->Vorhanden = 0;
            index.emplace(locale_.upperCase(record->Gesamt), record.get());
        }
    };
    reset(records_.DrawingRecords, drawingsByName_);
    reset(records_.LayoutRecords, layoutsByName_);
}

bool LoadedDrawings::FindDrawingRecord(const std::wstring& path, const std::wstring& name,
                                       std::int32_t objectId, std::int32_t& drawingNumber, bool isActive) {
    const std::wstring fullName = path + L"\\" + name;
    if (const auto met = findRecord(drawingsByName_, fullName, NodeKind::drawing, isActive)) {
        drawingNumber = met->number;
        if (!met->hasNode) ++drawingsWithoutNode_;
        return true;
    }
    drawingNumber = addRecord(records_.DrawingRecords, drawingsByName_, fullName, name, objectId)->Nummer;
    return false;
}

bool LoadedDrawings::FindLayoutRecord(const std::wstring& path, const std::wstring& drawing,
                                      const host::Layout& layout, const std::wstring& layoutName,
                                      bool isActive) {
    const std::wstring fullName = path + L"\\" + drawing + L";" + layoutName;
    if (const auto met = findRecord(layoutsByName_, fullName, NodeKind::layout, isActive)) {
        if (!met->hasNode) ++layoutsWithoutNode_;
        return true;
    }
    // Only a new record needs the id.
    addRecord(records_.LayoutRecords, layoutsByName_, fullName, drawing, layout.ObjectID())->Layout =
        layoutName;
    return false;
}

std::optional<LoadedDrawings::Met> LoadedDrawings::findRecord(Index& index, const std::wstring& fullName,
                                                              NodeKind kind, bool isActive) {
    std::optional<Met> met;
    const auto [begin, end] = index.equal_range(locale_.upperCase(fullName));
    for (auto entry = begin; entry != end; ++entry) {
        if (!met) met.emplace();
        entry->second->Vorhanden = present;
        met->number = entry->second->Nummer;
        const NodeKey key(kind, met->number);
        met->hasNode = met->hasNode || tree_.find(key);
        if (isActive) tree_.MarkNodeActive(key);
    }
    return met;
}

std::shared_ptr<CAcadobj> LoadedDrawings::addRecord(RecordCollection<CAcadobj>& records, Index& index,
                                                    const std::wstring& fullName, const std::wstring& drawing,
                                                    std::int32_t objectId) {
    auto record = std::make_shared<CAcadobj>();
    record->Vorhanden = present;
    record->Gesamt = fullName;
    record->Zeichnung = drawing;
    record->Nummer = records_.LastNumber;
    record->AObjId = objectId;
    records.add(record);
    index.emplace(locale_.upperCase(fullName), record.get());
    return record;
}

void LoadedDrawings::RemoveStaleNodes() {
    // The records stay although their nodes go. A drawing opened again in this run is therefore found without
    // getting a node; required so.
    for (const auto& record : records_.DrawingRecords)
        if (!record->Vorhanden) tree_.removeNode(NodeKey(NodeKind::drawing, record->Nummer));
    for (const auto& record : records_.LayoutRecords)
        if (!record->Vorhanden) tree_.removeNode(NodeKey(NodeKind::layout, record->Nummer));
}

void LoadedDrawings::RemoveDrawingNodes() {
    for (const auto& record : records_.DrawingRecords)
        tree_.removeNode(NodeKey(NodeKind::drawing, record->Nummer));
    records_.DrawingRecords.Clear();
    for (const auto& record : records_.LayoutRecords)
        tree_.removeNode(NodeKey(NodeKind::layout, record->Nummer));
    records_.LayoutRecords.Clear();
    drawingsWithoutNode_ = 0;
    layoutsWithoutNode_ = 0;
}

}  // namespace blattwart
