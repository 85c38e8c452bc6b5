#pragma once

#include "controls/ListView.h"
#include "controls/TreeView.h"
#include "views/LayoutDetails.h"

namespace blattwart {

/// Fills the list with the rows of each list kind for the tree's selected node. A host call that fails leaves
/// its value empty and nothing else.
class ListContents {
  public:
    ListContents(TreeView& tree, ListView& list, const NavigatorContext& context);

    void FillDrawingList();
    void FillLayoutList();
    void FillLayoutDetails();
    void FillTemplateList();
    void FillTemplateDetails();

  private:
    void addChildren(const TreeNode& parent, int icon);

    TreeView& tree_;
    ListView& list_;
    basAutoCAD& autoCAD_;
    NavigatorRecords& records_;
    Platform& platform_;
    LayoutDetails details_;
};

}  // namespace blattwart
