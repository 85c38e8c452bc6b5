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

    /// Takes the folder from type 1 of the definition database and lists it. Shows a message when that fails,
    /// with the nodes so far left as they are.
    void ReadTemplateFolder();

  private:
    void ResetTemplateFlags();
    bool FindTemplateRecord(const std::wstring& file, const std::wstring& folder);
    void RemoveStaleTemplates();

    NavigatorTree& tree_;
    NavigatorRecords& records_;
    basDatenbank& database_;
    Platform& platform_;
    std::unordered_multimap<std::wstring, CVorlage*> byName_;
};

}  // namespace blattwart
