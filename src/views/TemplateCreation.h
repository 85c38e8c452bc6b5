#pragma once

#include <string>

#include "controls/ListView.h"
#include "views/NavigatorContext.h"
#include "views/NavigatorTree.h"

namespace blattwart {

/// Saves a layout as a new template of the library, named in place in the tree, and deletes templates.
class TemplateCreation {
  public:
    TemplateCreation(NavigatorTree& tree, ListView& list, const NavigatorContext& context)
        : tree_(tree),
          list_(list),
          autoCAD_(context.autoCAD),
          general_(context.general),
          records_(context.records),
          platform_(context.platform),
          events_(context.events) {}

    /// True while the placeholder "D0" stands in the tree.
    bool newTemplatePending() const { return pending_; }
    /// Adds the placeholder under the library, with the source layout's name proposed, and opens it for
    /// editing.
    void BeginNewTemplate();
    /// The user has typed the template's name. Refuses an empty or taken one; otherwise has AutoCAD save the
    /// layout. The placeholder becomes the template's node or goes.
    void CreateTemplateFromLayout(const std::wstring& newName);
    /// Takes a pending placeholder away; while it is selected, its source is selected instead.
    void CancelNewTemplate();
    /// Asks and deletes the selected template's file.
    void DeleteTemplate();

  private:
    bool isAcceptable(const std::wstring& newName);
    bool saveLayoutAs(const std::wstring& file);
    /// Moves the bold marks to a drawing that was activated just now.
    void markActive(const std::wstring& drawingKey, const host::Document& document);

    NavigatorTree& tree_;
    ListView& list_;
    basAutoCAD& autoCAD_;
    basAllgemein& general_;
    NavigatorRecords& records_;
    Platform& platform_;
    NavigatorEvents& events_;
    std::wstring sourceKey_;
    std::wstring sourceLayout_;
    bool pending_ = false;
};

}  // namespace blattwart
