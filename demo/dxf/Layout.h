#pragma once

#include "demo/dxf/Object.h"

namespace demo {

class Layout;

/// A block definition: what a block reference shows, or the content of a layout. Its groups are those of the
/// record BLOCK without the names.
struct Block : Object {
    Block(Object object, std::wstring called) : Object(std::move(object)), name(std::move(called)) {}

    std::wstring name;
    Layout* layout = nullptr;                       ///< whose content this is; null for other blocks
    std::vector<std::unique_ptr<Object>> entities;  ///< in drawing order

    bool isModelSpace() const;
    /// Any layout's block, model space included.
    bool isLayout() const;
};

/// Bits of PlotSettings::flags.
namespace plotFlag {
inline constexpr std::int32_t viewportBorders = 1;
inline constexpr std::int32_t showStyles = 2;
inline constexpr std::int32_t centred = 4;
inline constexpr std::int32_t hidden = 8;
inline constexpr std::int32_t standardScale = 16;
inline constexpr std::int32_t withStyles = 32;
inline constexpr std::int32_t scaleLineweights = 64;
inline constexpr std::int32_t lineweights = 128;
inline constexpr std::int32_t viewportsFirst = 512;
}  // namespace plotFlag

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
    /// Lower left and upper right corner, for plot type 4.
    double windowLeft = 0;
    double windowBottom = 0;
    double windowRight = 0;
    double windowTop = 0;
    double offsetX = 0;              ///< millimetres from the corner of the margins
    double offsetY = 0;              ///< millimetres
    double scalePaper = 0;           ///< paper units that stand for `scaleDrawing` units of the drawing
    double scaleDrawing = 0;         ///< 0 in files that do not say
    std::int32_t standardScale = 0;  ///< 0 fits the paper, 16 is 1:1
    std::int32_t flags = 0;          ///< see plotFlag

    friend bool operator==(const PlotSettings&, const PlotSettings&) = default;
};

/// One layout of a drawing. Its groups are its plot settings. Lives as long as the drawing has the layout;
/// keep its handle and look it up again.
class Layout : public Object {
  public:
    /// `object` holds the plot settings, `sheet` the groups of the sheet (limits, extents, ...).
    Layout(Object object, Groups sheet, std::wstring name, Block& block);
    /// A copy with a content of its own.
    Layout(const Layout& source, Block& block);
    Layout& operator=(const Layout&) = delete;

    /// "Model" for model space (or what the file calls it).
    const std::wstring& name() const { return name_; }
    /// 0 for model space, the others count from 1.
    std::int32_t tabOrder() const { return tabOrder_; }
    bool isModel() const { return block_.isModelSpace(); }
    Handle blockRecord() const { return block_.handle(); }

    PlotSettings plotSettings() const;
    void setPlotSettings(const PlotSettings& settings);

    const Block& block() const { return block_; }
    Block& block() { return block_; }
    /// All entities in drawing order, the sheet viewport included.
    const std::vector<std::unique_ptr<Object>>& entities() const { return block_.entities; }
    /// The viewport that stands for the sheet of paper; null until the layout was current once.
    const Object* sheetViewport() const;
    /// What the layout's record holds beside the plot settings and what is told here.
    const Groups& sheet() const { return sheet_; }

  private:
    friend class Drawing;

    Groups sheet_;
    std::wstring name_;
    std::int32_t tabOrder_ = 0;
    Block& block_;
};

}  // namespace demo
