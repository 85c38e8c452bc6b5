#include "planlist/HostPlotSettings.h"

#include <algorithm>

#include "planlist/HostFacts.h"

namespace blattwart {

namespace {

using host::PlotSwitch;

/// Of the option with this place in PlotSettings::options.
PlotSwitch switchOf(std::size_t option) {
    return static_cast<PlotSwitch>(static_cast<std::size_t>(PlotSwitch::withStyles) + option);
}

class SettingsWriter {
  public:
    SettingsWriter(const host::Layout& layout, const PlotSettings& wanted, const PlotSettings& present)
        : layout_(layout), wanted_(wanted), present_(present), missing_(differences(wanted, present)) {}

    std::vector<PlotRefusal> write() {
        if (!writeDevice()) return std::move(refusals_);
        put(PlotProperty::paper, wanted_.paper, &host::Layout::putCanonicalMediaName);
        put(PlotProperty::units, wanted_.paperUnits, &host::Layout::putPaperUnits);
        put(PlotProperty::orientation, wanted_.rotation, &host::Layout::putPlotRotation);
        if (lacks(PlotProperty::area)) attempt(PlotProperty::area, [this] { writeArea(); });
        if (lacks(PlotProperty::scale)) attempt(PlotProperty::scale, [this] { writeScale(); });
        if (lacks(PlotProperty::offset)) attempt(PlotProperty::offset, [this] { writeOffset(); });
        put(PlotProperty::style, wanted_.styleSheet, &host::Layout::putStyleSheet);
        if (lacks(PlotProperty::options)) writeOptions();
        return std::move(refusals_);
    }

  private:
    bool lacks(PlotProperty property) const {
        // Another device brings its own paper and rotation.
        const bool ofDevice = property == PlotProperty::paper || property == PlotProperty::units ||
                              property == PlotProperty::orientation;
        return (deviceChanged_ && ofDevice) || std::ranges::find(missing_, property) != missing_.end();
    }

    template <class Statement>
    bool attempt(PlotProperty property, Statement&& statement) {
        try {
            statement();
            return true;
        } catch (const RuntimeError& error) {
            if (isSilence(error)) throw;
            refusals_.push_back({property, error.description()});
            return false;
        }
    }

    template <class Fact, class Type>
    void put(PlotProperty property, const std::optional<Fact>& fact,
             void (host::Layout::*member)(Type) const) {
        if (fact && lacks(property)) attempt(property, [&] { (layout_.*member)(*fact); });
    }

    /// Whether the rest may be put.
    bool writeDevice() {
        const bool other = lacks(PlotProperty::device) && wanted_.hasDevice();
        if (!other && !lacks(PlotProperty::paper)) return true;
        // Without a device the host would lose the size of the paper.
        if (present_.hasDevice()) refresh();
        if (!other) return true;
        if (!attempt(PlotProperty::device, [this] { layout_.putConfigName(*wanted_.device); })) return false;
        deviceChanged_ = true;
        if (!present_.hasDevice()) refresh();
        return true;
    }

    /// What comes of it is seen by what is put next.
    void refresh() {
        try {
            layout_.RefreshPlotDeviceInfo();
        } catch (const RuntimeError& error) {
            if (isSilence(error)) throw;
        }
    }

    void writeArea() {
        if (wanted_.window) layout_.SetWindowToPlot(*wanted_.window);
        if (wanted_.area == plotArea::view && wanted_.view) layout_.putViewToPlot(*wanted_.view);
        if (wanted_.area) layout_.putPlotType(*wanted_.area);
    }

    void writeScale() {
        const bool standard = *wanted_.usesStandardScale && wanted_.standardScale.has_value();
        if (!standard && !wanted_.ratio) return;
        layout_.putPlotSwitch(PlotSwitch::useStandardScale, standard);
        if (standard) {
            layout_.putStandardScale(*wanted_.standardScale);
        } else {
            layout_.SetCustomScale(*wanted_.ratio);
        }
    }

    void writeOffset() {
        if (wanted_.centred) layout_.putPlotSwitch(PlotSwitch::centre, *wanted_.centred);
        if (wanted_.centred != true && wanted_.offset) layout_.putPlotOrigin(*wanted_.offset);
    }

    void writeOptions() {
        for (std::size_t i = 0; i < wanted_.options.size(); ++i) {
            const std::optional<bool> on = wanted_.options[i];
            if (on && on != present_.options[i])
                attempt(PlotProperty::options, [&] { layout_.putPlotSwitch(switchOf(i), *on); });
        }
    }

    const host::Layout& layout_;
    const PlotSettings& wanted_;
    const PlotSettings& present_;
    std::vector<PlotProperty> missing_;
    bool deviceChanged_ = false;
    std::vector<PlotRefusal> refusals_;
};

}  // namespace

PlotSettings readPlotSettings(const host::Layout& layout) {
    PlotSettings settings;
    readFact(settings.device, [&] { return layout.ConfigName(); });
    readFact(settings.paper, [&] { return layout.CanonicalMediaName(); });
    readFact(settings.paperUnits, [&] { return layout.PaperUnits(); });
    readFact(settings.rotation, [&] { return layout.PlotRotation(); });
    readFact(settings.area, [&] { return layout.PlotType(); });
    readFact(settings.view, [&] { return layout.ViewToPlot(); });
    if (settings.area == plotArea::window)
        readFact(settings.window, [&] { return layout.GetWindowToPlot(); });
    readFact(settings.usesStandardScale, [&] { return layout.plotSwitch(PlotSwitch::useStandardScale); });
    readFact(settings.standardScale, [&] { return layout.StandardScale(); });
    readFact(settings.ratio, [&] { return layout.GetCustomScale(); });
    readFact(settings.centred, [&] { return layout.plotSwitch(PlotSwitch::centre); });
    readFact(settings.offset, [&] { return layout.PlotOrigin(); });
    readFact(settings.styleSheet, [&] { return layout.StyleSheet(); });
    for (std::size_t i = 0; i < settings.options.size(); ++i)
        readFact(settings.options[i], [&] { return layout.plotSwitch(switchOf(i)); });
    return settings;
}

std::vector<PlotRefusal> writePlotSettings(const host::Layout& layout, const PlotSettings& wanted,
                                           const PlotSettings& present) {
    return SettingsWriter(layout, wanted, present).write();
}

}  // namespace blattwart
