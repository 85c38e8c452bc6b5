#pragma once

#include <string>

#include "controls/ListView.h"
#include "views/NavigatorContext.h"
#include "views/NavigatorTree.h"

namespace blattwart {

/// The operations on drawings and template files that are selected in the tree or in the list.
class basDateien {
  public:
    basDateien(NavigatorTree& tree, ListView& list, const NavigatorContext& context)
        : tree_(tree),
          list_(list),
          autoCAD_(context.autoCAD),
          records_(context.records),
          platform_(context.platform),
          events_(context.events) {}

    /// Full name of the drawing behind the list's selected item or the tree's selected node. Throws when
    /// there is none.
    std::wstring GetSelectedDrawingFile(bool fromList);
    /// Full file name of the template behind the selection; "" when there is none.
    std::wstring GetSelectedTemplateFile(bool fromList);
    /// Makes the selected drawing the active document or the selected layout the active layout.
    void ActivateSelection(bool isLayout, bool askFirst, bool fromList);
    /// What a double click on the selected node does: a drawing or layout is activated, a template opened,
    /// each after a question. For a drawing without the flag, the layout selected in the list is meant.
    void OpenSelectedNode(bool flag);
    /// Opens the selected template file in AutoCAD, unless it is open already.
    void OpenTemplate(bool askFirst);
    /// Types the close command for the selected drawing; AutoCAD itself asks about unsaved changes.
    void CloseDrawing();
    void SaveDrawing(bool saveAs);
    /// Types the command that inserts layouts of the selected template into the active drawing.
    void InsertLayoutFromTemplate();
    /// Opens a file dropped on the tree, unless it is no drawing or loaded already. False when the host is
    /// gone or does not answer, which the user has been told.
    bool OpenDroppedFile(const std::wstring& file);
    void SwitchToModelSpace();
    /// Takes the bold marks off all list items.
    void ClearListBold();

  private:
    struct Selection {
        NodeKey key;
        std::wstring text;
    };
    /// The list's selected item or the tree's selected node. Throws element not found.
    Selection selection(bool fromList) const;
    /// Makes the document the active one, in AutoCAD and in the status line.
    void makeActive(const host::Document& document);
    /// Found: the drawing is the active one now. Not open: another one stays active, for want of this one or
    /// since the user wants it so.
    Lookup switchDrawing(const std::wstring& drawing, const Selection& chosen, bool isLayout, bool askFirst);
    /// Makes the active drawing's layout of this name the current one; one that is gone is passed over.
    void switchLayout(const std::wstring& layout);
    void markActivated();
    /// False when the host is gone or does not answer.
    bool open(const std::wstring& file);

    NavigatorTree& tree_;
    ListView& list_;
    basAutoCAD& autoCAD_;
    NavigatorRecords& records_;
    Platform& platform_;
    NavigatorEvents& events_;
};

}  // namespace blattwart
