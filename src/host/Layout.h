#pragma once

#include <array>
#include <utility>

#include "host/Entity.h"

namespace blattwart::host {

/// Paper size, millimetres, not turned by the plot rotation.
struct PaperSize {
    double width = 0;
    double height = 0;
};

/// Switches of a layout's plotting.
enum class PlotSwitch : std::uint8_t {
    useStandardScale,
    centre,
    withStyles,
    withLineweights,
    scaleLineweights,
    hidden,
    viewportBorders,
    viewportsFirst,
    showStyles,
};

class Layout : public HostObject {
  public:
    using HostObject::HostObject;

    std::wstring Name() const;
    void putName(const std::wstring& name) const;
    /// Hexadecimal text, the same as long as there is the layout.
    std::wstring Handle() const;
    /// Fails for the last paper layout and for that of model space.
    void Delete() const;
    /// The 32-bit id; 0 where the host has only wider ones or gives none. The first asking may cost a second
    /// round trip. Does not throw for what the host does.
    std::int32_t ObjectID() const;
    host::Block Block() const;
    /// Place among the tabs: 0 for model space, the others from 1.
    std::int32_t TabOrder() const;
    void putTabOrder(std::int32_t place) const;
    /// Whether it is the layout of model space.
    bool ModelType() const;

    // Plot settings. What is put shows when the drawing is regenerated.

    /// Takes on what the plot device has become; may take seconds.
    void RefreshPlotDeviceInfo() const;
    /// Takes all plot settings of another layout, which may belong to another drawing.
    void CopyFrom(const Layout& source) const;
    std::wstring ConfigName() const;
    /// Paper and rotation may change with the device. "None" must not be put.
    void putConfigName(const std::wstring& device) const;
    std::wstring CanonicalMediaName() const;
    void putCanonicalMediaName(const std::wstring& paper) const;
    /// 0 inches, 1 millimetres, 2 pixels.
    std::int32_t PaperUnits() const;
    void putPaperUnits(std::int32_t units) const;
    /// The readable name of a paper; fails where the plot device is not there.
    std::wstring GetLocaleMediaName(const std::wstring& canonicalName) const;
    PaperSize GetPaperSize() const;
    /// Quarter turns, 0 to 3.
    std::int32_t PlotRotation() const;
    void putPlotRotation(std::int32_t quarters) const;
    /// 0 display, 1 extents, 2 limits, 3 view, 4 window, 5 layout.
    std::int32_t PlotType() const;
    /// For 3 and 4 view and window are put before.
    void putPlotType(std::int32_t type) const;
    std::wstring ViewToPlot() const;
    void putViewToPlot(const std::wstring& view) const;
    /// Left, bottom, right, top.
    std::array<double, 4> GetWindowToPlot() const;
    void SetWindowToPlot(const std::array<double, 4>& window) const;
    /// The host's code of a scale; 0 fits the paper. Counts with PlotSwitch::useStandardScale.
    std::int32_t StandardScale() const;
    void putStandardScale(std::int32_t scale) const;
    /// Paper to drawing.
    std::pair<double, double> GetCustomScale() const;
    void SetCustomScale(const std::pair<double, double>& ratio) const;
    /// Millimetres from the corner of the margins.
    std::pair<double, double> PlotOrigin() const;
    void putPlotOrigin(const std::pair<double, double>& offset) const;
    /// "" when there is none.
    std::wstring StyleSheet() const;
    void putStyleSheet(const std::wstring& style) const;
    bool plotSwitch(PlotSwitch which) const;
    void putPlotSwitch(PlotSwitch which, bool on) const;

  private:
    friend class Document;
};

class Layouts : public HostObject {
  public:
    using HostObject::HostObject;

    /// Model space included, not in the order of the tabs.
    std::vector<Layout> all() const {
        return elements<Layout>(L"Layouts", [] { return true; });
    }
    /// Model space included.
    std::int32_t Count() const;
    /// A new layout, which does not become the current one. Fails where the name is taken or not allowed.
    Layout Add(const std::wstring& name) const;
    /// By name, without regard to case. Fails when there is none.
    Layout Item(const std::wstring& name) const;
};

}  // namespace blattwart::host
