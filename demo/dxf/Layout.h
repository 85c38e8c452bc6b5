#pragma once

#include "demo/dxf/Object.h"

namespace demo {

class Layout;

/// A block definition: what a block reference shows, or the content of a layout.
struct Block {
    std::unique_ptr<Object> begin;  ///< the BLOCK record
    std::unique_ptr<Object> end;    ///< the ENDBLK record
    Object* record = nullptr;       ///< its entry in the table of blocks; null when the file has none
    Layout* layout = nullptr;       ///< the layout whose content this is; null for other blocks
    Objects entities;               ///< in drawing order

    std::wstring name() const { return begin->text(2); }
    Handle handle() const { return record ? record->handle() : 0; }
    bool isModelSpace() const;
    /// Any layout's block, model space included.
    bool isLayout() const;
    /// Block of the active (last active) paper layout.
    bool isActivePaperSpace() const;
};

/// Plot settings of a layout as the file holds them.
struct PlotSettings {
    std::wstring pageSetup;
    std::wstring device;        ///< "none_device" or "" when there is none
    std::wstring paper;         ///< canonical media name
    std::wstring view;          ///< name of the view to plot
    std::wstring styleSheet;    ///< "" when there is none
    double paperWidth = 0;      ///< millimetres, not turned by the rotation
    double paperHeight = 0;     ///< millimetres
    std::int32_t units = 0;     ///< 0 inches, 1 millimetres, 2 pixels
    std::int32_t rotation = 0;  ///< 0 to 3: quarter turns anticlockwise
    std::int32_t plotType = 0;  ///< 0 display, 1 extents, 2 limits, 3 view, 4 window, 5 layout

    friend bool operator==(const PlotSettings&, const PlotSettings&) = default;
};

/// One layout of a drawing. Lives as long as the drawing has the layout; keep its handle and look it up
/// again.
class Layout {
  public:
    Layout(Object& object, Block& block) : object_(object), block_(block) { block.layout = this; }
    Layout(const Layout&) = delete;
    Layout& operator=(const Layout&) = delete;

    Handle handle() const { return object_.handle(); }
    /// "Model" for model space (or what the file calls it).
    std::wstring name() const;
    /// 0 for model space, the others count from 1.
    std::int32_t tabOrder() const;
    bool isModel() const { return block_.isModelSpace(); }
    Handle blockRecord() const { return block_.handle(); }

    PlotSettings plotSettings() const;
    /// Writes the groups whose values differ.
    void setPlotSettings(const PlotSettings& settings);

    const Block& block() const { return block_; }
    Block& block() { return block_; }
    /// All entities in drawing order, the sheet viewport included.
    const Objects& entities() const { return block_.entities; }
    /// The viewport that stands for the sheet of paper; null until the layout was current once.
    const Object* sheetViewport() const;

    Object& object() { return object_; }
    const Object& object() const { return object_; }

  private:
    Object& object_;
    Block& block_;
};

/// True for the viewport that stands for the sheet and is no viewport of the user's.
bool isSheetViewport(const Object& entity);

}  // namespace demo
