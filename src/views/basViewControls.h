#pragma once

#include <string>

#include "views/ListColumns.h"
#include "views/ListContents.h"
#include "views/LoadedDrawings.h"
#include "views/NavigatorTree.h"
#include "views/TemplateLibrary.h"
#include "views/TemplatePictures.h"

namespace blattwart {

/// The navigator as a whole: keeps the tree in line with host and library, and the list with the selected
/// node.
class basViewControls {
  public:
    basViewControls(TreeView& tree, ListView& list, Label& listTitle, PictureBox& picture,
                    const NavigatorContext& context);

    NavigatorTree tree;
    ListColumns columns;

    /// Brings tree, status line, list and command states in line with the host and the library folder.
    void RefreshTree();
    /// Forgets all drawings, layouts and templates, so that also what has lost its node gets one, and reads
    /// everything anew. Numbers are not used again; the selection stays where there is a node for it.
    void RebuildTree();
    /// Another host is attached: nothing of the last one is shown or known any more.
    void dropHost();
    /// Gives the list the columns for the selected node, if it has others.
    void SelectListColumns();
    /// Fills the list for the selected node.
    void FillListForNode();
    /// The two list-filling steps as one event: the host is read once. With a template its picture too.
    void showSelectedNode();

  private:
    /// Reads host and library into the tree. What failed is told.
    void readTree(Reading reading);
    /// Whether the drawings can be read anew; of a host that does not answer none is removed.
    bool answers() const;
    /// Returns false, and all stays as it was, when the database's drive does not answer.
    bool readDatabase();
    void showAround(bool fillList);
    /// Kind and full name, in upper case, of what stands behind the node; the same over a rebuilding.
    std::wstring nameOf(const TreeNode& node) const;
    void SetListColumns(ListKind kind);
    void fill(ListKind kind);
    /// The file of the selected template; "" when the selected node is none.
    std::wstring selectedTemplate() const;

    ListView& list_;
    basAutoCAD& autoCAD_;
    basDatenbank& database_;
    LoadedDrawings drawings_;
    TemplateLibrary templates_;
    ListContents contents_;
    TemplatePictures pictures_;
    NavigatorRecords& records_;
    Platform& platform_;
    NavigatorEvents& events_;
    // Key of the node that the columns' set-up has just filled the list for; FillListForNode need not repeat
    // it.
    std::wstring freshlyFilled_;
};

}  // namespace blattwart
