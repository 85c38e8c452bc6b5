#pragma once

#include <optional>
#include <string>
#include <unordered_map>

#include "views/NavigatorContext.h"
#include "views/NavigatorTree.h"

namespace blattwart {

/// Brings the tree below "A" in line with the drawings that the host has open and with their layouts. Each
/// has a record, found again by its full name, that keeps its number and thereby its node's key over all
/// refreshes.
class LoadedDrawings {
  public:
    LoadedDrawings(NavigatorTree& tree, const NavigatorContext& context)
        : tree_(tree),
          records_(context.records),
          autoCAD_(context.autoCAD),
          readings_(context.platform.readings),
          locale_(context.platform.locale) {}

    /// Reads everything anew. Does nothing without an active document. When the host fails, the result is
    /// what to tell the user, else "", and the nodes so far are left as they are; so when the user breaks the
    /// reading off.
    std::wstring ReadLoadedDrawings();
    /// Tells of the drawings and layouts that the last reading has met and that have no node, because they
    /// were gone for a while; "" when there are none.
    std::wstring missingNodes() const;
    /// The host is not attached: drops all drawings and layouts, nodes and records.
    void RemoveDrawingNodes();

  private:
    using Index = std::unordered_multimap<std::wstring, CAcadobj*>;

    void readDrawing(OpenDocument& open, const std::wstring& activeName);
    void readLayouts(const host::Document& document, const std::wstring& path, const std::wstring& drawing,
                     std::int32_t drawingNumber, bool drawingIsActive);
    void ResetPresentFlags();
    bool FindDrawingRecord(const std::wstring& path, const std::wstring& name, std::int32_t objectId,
                           std::int32_t& drawingNumber, bool isActive);
    /// The records of one full name that were met: the last one's number, and whether any has a node.
    struct Met {
        std::int32_t number = 0;
        bool hasNode = false;
    };
    std::optional<Met> findRecord(Index& index, const std::wstring& fullName, NodeKind kind, bool isActive);
    bool FindLayoutRecord(const std::wstring& path, const std::wstring& drawing, const host::Layout& layout,
                          const std::wstring& layoutName, bool isActive);
    std::shared_ptr<CAcadobj> addRecord(RecordCollection<CAcadobj>& records, Index& index,
                                        const std::wstring& fullName, const std::wstring& drawing,
                                        std::int32_t objectId);
    void RemoveStaleNodes();

    NavigatorTree& tree_;
    NavigatorRecords& records_;
    basAutoCAD& autoCAD_;
    ReadingWatch& readings_;
    const Locale& locale_;
    // Records by their full name in upper case, made anew for each reading.
    Index drawingsByName_;
    Index layoutsByName_;
    int drawingsWithoutNode_ = 0;
    int layoutsWithoutNode_ = 0;  ///< of drawings that have one
};

}  // namespace blattwart
