#pragma once

#include <string>
#include <unordered_map>

#include "views/NavigatorContext.h"
#include "views/NavigatorTree.h"

namespace blattwart {

/// Brings the tree below "B" in line with the drawing files of the library folder. Records work as those of
/// LoadedDrawings do.
class TemplateLibrary {
  public:
    TemplateLibrary(NavigatorTree& tree, const NavigatorContext& context)
        : tree_(tree), records_(context.records), database_(context.database), platform_(context.platform) {}

    /// Takes the folder from type 1 of the definition database and lists it. When that fails, the result is
    /// what to tell the user, else "", and the nodes so far are left as they are.
    std::wstring ReadTemplateFolder(Reading reading);
    /// False while the folder's drive does not answer: what was read last stays then.
    bool answered() const { return answered_; }
    /// Drops all templates, nodes and records.
    void RemoveTemplateNodes();

  private:
    void ResetTemplateFlags();
    bool FindTemplateRecord(const std::wstring& file, const std::wstring& folder);
    void RemoveStaleTemplates();

    NavigatorTree& tree_;
    NavigatorRecords& records_;
    basDatenbank& database_;
    Platform& platform_;
    std::unordered_multimap<std::wstring, CVorlage*> byName_;
    bool answered_ = true;
};

}  // namespace blattwart
