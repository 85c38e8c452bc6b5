#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "autocad/basTarvix.h"
#include "autocad/LayoutMembers.h"
#include "controls/ListView.h"
#include "views/NavigatorContext.h"
#include "views/NavigatorTree.h"

namespace blattwart {

/// Deletes and renames layouts of open drawings.
class LayoutNames {
  public:
    LayoutNames(NavigatorTree& tree, ListView& list, basTarvix& tarvix, LayoutMembers& members,
                const NavigatorContext& context)
        : tree_(tree),
          list_(list),
          tarvix_(tarvix),
          members_(members),
          autoCAD_(context.autoCAD),
          records_(context.records),
          platform_(context.platform),
          events_(context.events) {}

    /// Deletes the layouts selected in the list, or the one selected in the tree; never all of a drawing.
    void DeleteLayouts();
    /// Gives the edited entry's layout the name that was typed, without blanks at its ends. Returns true when
    /// the name is refused.
    bool RenameByLabelEdit(bool fromList, const std::wstring& typed);
    /// Renames every layout selected in the list to the base name and a free number at or above `counter`.
    void RenameSelectedLayouts(const std::wstring& baseName, std::int16_t& counter);

  private:
    void warnNotRenamed(const RuntimeError& error);
    void deleteLayouts(const host::Document& document, const std::vector<std::wstring>& keys);
    /// The user is asked first; `drawing` is for the question.
    void deleteWithoutTarvix(const host::Document& document, const std::wstring& drawing,
                             const std::vector<DoomedLayout>& doomed);
    std::shared_ptr<CAcadobj> recordOf(const std::wstring& key) const;
    bool isTaken(bool fromList, const std::wstring& key, const std::wstring& newName) const;
    void rename(const host::Layouts& layouts, CAcadobj& record, const std::wstring& newName);
    void showName(const std::wstring& key, const std::wstring& name);

    NavigatorTree& tree_;
    ListView& list_;
    basTarvix& tarvix_;
    LayoutMembers& members_;
    basAutoCAD& autoCAD_;
    NavigatorRecords& records_;
    Platform& platform_;
    NavigatorEvents& events_;
};

}  // namespace blattwart
