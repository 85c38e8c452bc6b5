#include <algorithm>
#include <array>
#include <tuple>

#include "demo/dxf/Text.h"
#include "demo/host/LayoutObject.h"
#include "demo/host/PlotDevices.h"

/// The plot settings of a layout as clients read and put them.
namespace demo {

using blattwart::DoubleArray;
using blattwart::ObjectPtr;
using blattwart::Value;

namespace {

constexpr std::int32_t lastStandardScale = 32;
constexpr std::int32_t firstPlainScale = 16;
/// Paper and drawing of the standard scales from 16 on.
constexpr std::array<std::pair<double, double>, 17> plainScales{{{1, 1},
                                                                 {1, 2},
                                                                 {1, 4},
                                                                 {1, 5},
                                                                 {1, 8},
                                                                 {1, 10},
                                                                 {1, 16},
                                                                 {1, 20},
                                                                 {1, 30},
                                                                 {1, 40},
                                                                 {1, 50},
                                                                 {1, 100},
                                                                 {2, 1},
                                                                 {4, 1},
                                                                 {8, 1},
                                                                 {10, 1},
                                                                 {100, 1}}};

}  // namespace

std::vector<MemberSlot<LayoutObject>> LayoutObject::plotMembers() {
    using Self = LayoutObject;
    using Settings = PlotSettings;
    return {
        property(0x03, L"ConfigName", &Self::configName, &Self::putConfigName),
        property(0x04, L"CanonicalMediaName", &Self::fact<&Settings::paper>, &Self::putCanonicalMediaName),
        property(0x06, L"PaperUnits", &Self::fact<&Settings::units>, &Self::putChoice<&Settings::units, 2>),
        property(0x08, L"PlotType", &Self::fact<&Settings::plotType>,
                 &Self::putChoice<&Settings::plotType, 5>),
        property(0x0B, L"PlotOrigin", &Self::plotOrigin, &Self::putPlotOrigin),
        property(0x0D, L"PlotRotation", &Self::fact<&Settings::rotation>,
                 &Self::putChoice<&Settings::rotation, 3>),
        property(0x0E, L"StyleSheet", &Self::fact<&Settings::styleSheet>, &Self::putStyleSheet),
        property(0x0F, L"StandardScale", &Self::fact<&Settings::standardScale>, &Self::putStandardScale),
        property(0x10, L"ViewToPlot", &Self::fact<&Settings::view>, &Self::putText<&Settings::view>),
        method(0x13, L"GetPaperSize", &Self::paperSize, 2),
        method(0x14, L"GetCustomScale", &Self::customScale, 2),
        method(0x15, L"SetCustomScale", &Self::setCustomScale, 2),
        method(0x16, L"GetWindowToPlot", &Self::windowToPlot, 2),
        method(0x17, L"SetWindowToPlot", &Self::setWindowToPlot, 2),
        method(0x19, L"GetLocaleMediaName", &Self::localeMediaName, 1),
        method(0x1A, L"RefreshPlotDeviceInfo", &Self::refreshPlotDeviceInfo),
        method(0x1B, L"CopyFrom", &Self::copyFrom, 1),
        property(0x30, L"PlotViewportBorders", &Self::flag<plotFlag::viewportBorders>,
                 &Self::putFlag<plotFlag::viewportBorders>),
        property(0x31, L"ShowPlotStyles", &Self::flag<plotFlag::showStyles>,
                 &Self::putFlag<plotFlag::showStyles>),
        property(0x32, L"CenterPlot", &Self::flag<plotFlag::centred>, &Self::putFlag<plotFlag::centred>),
        property(0x33, L"PlotHidden", &Self::flag<plotFlag::hidden>, &Self::putFlag<plotFlag::hidden>),
        property(0x34, L"UseStandardScale", &Self::flag<plotFlag::standardScale>,
                 &Self::putFlag<plotFlag::standardScale>),
        property(0x35, L"PlotWithPlotStyles", &Self::flag<plotFlag::withStyles>,
                 &Self::putFlag<plotFlag::withStyles>),
        property(0x36, L"ScaleLineweights", &Self::flag<plotFlag::scaleLineweights>,
                 &Self::putFlag<plotFlag::scaleLineweights>),
        property(0x37, L"PlotWithLineweights", &Self::flag<plotFlag::lineweights>,
                 &Self::putFlag<plotFlag::lineweights>),
        property(0x38, L"PlotViewportsFirst", &Self::flag<plotFlag::viewportsFirst>,
                 &Self::putFlag<plotFlag::viewportsFirst>),
    };
}

void LayoutObject::changePlotSettings(const std::function<void(PlotSettings&)>& change) {
    PlotSettings settings = layout().plotSettings();
    change(settings);
    layout().setPlotSettings(settings);
    document().setModified();
}

template <auto Field>
Value LayoutObject::fact() {
    return layout().plotSettings().*Field;
}

template <auto Field>
void LayoutObject::putText(const Value& value) {
    changePlotSettings([&](PlotSettings& settings) { settings.*Field = textOf(value); });
}

template <auto Field, std::int32_t highest>
void LayoutObject::putChoice(const Value& value) {
    const std::int64_t number = numberOf(value);
    if (number < 0 || number > highest) throw failure(hostError::invalidInput);
    changePlotSettings([&](PlotSettings& settings) { settings.*Field = static_cast<std::int32_t>(number); });
}

template <std::int32_t bit>
Value LayoutObject::flag() {
    return (layout().plotSettings().flags & bit) != 0;
}

template <std::int32_t bit>
void LayoutObject::putFlag(const Value& value) {
    changePlotSettings([&](PlotSettings& settings) {
        settings.flags = boolOf(value) ? settings.flags | bit : settings.flags & ~bit;
    });
}

Value LayoutObject::configName() {
    const std::wstring device = layout().plotSettings().device;
    return isNoDevice(device) ? std::wstring(L"None") : device;
}

/// The paper and its position are another device's matter: they fall back to its first ones.
void LayoutObject::putConfigName(const Value& value) {
    const std::wstring device = textOf(value);
    if (!isInstalled(options(), device)) throw failure(hostError::invalidInput);
    changePlotSettings([&](PlotSettings& settings) {
        if (sameName(settings.device, device)) return;
        settings.device = device;
        settings.paper = L"ISO_A4_(210.00_x_297.00_MM)";
        settings.paperWidth = 210;
        settings.paperHeight = 297;
        settings.rotation = 0;
    });
}

/// Papers are known whose names tell their sizes.
void LayoutObject::putCanonicalMediaName(const Value& value) {
    const auto size = sizeOfPaper(textOf(value));
    if (!size || isNoDevice(layout().plotSettings().device)) throw failure(hostError::invalidInput);
    changePlotSettings([&](PlotSettings& settings) {
        settings.paper = textOf(value);
        std::tie(settings.paperWidth, settings.paperHeight) = *size;
    });
}

Value LayoutObject::localeMediaName(Arguments arguments) {
    std::wstring name = textOf(arguments[0].value());
    const std::wstring device = layout().plotSettings().device;
    const bool answers = isNoDevice(device) || isInstalled(options(), device);
    if (!answers || name.empty()) throw failure(hostError::invalidInput);
    std::ranges::replace(name, L'_', L' ');
    return name;
}

void LayoutObject::answerNumbers(Arguments arguments, double first, double second) const {
    for (const auto& argument : arguments) {
        if (!argument.byReference() || !argument.value().is<double>()) throw failure(hostError::typeMismatch);
    }
    arguments[0].assign(first);
    arguments[1].assign(second);
}

Value LayoutObject::paperSize(Arguments arguments) {
    const PlotSettings settings = layout().plotSettings();
    answerNumbers(arguments, settings.paperWidth, settings.paperHeight);
    return {};
}

/// The scale in effect goes with it, as in the drawing's file.
void LayoutObject::putStandardScale(const Value& value) {
    const std::int64_t number = numberOf(value);
    if (number < 0 || number > lastStandardScale) throw failure(hostError::invalidInput);
    changePlotSettings([&](PlotSettings& settings) {
        settings.standardScale = static_cast<std::int32_t>(number);
        if (number >= firstPlainScale)
            std::tie(settings.scalePaper, settings.scaleDrawing) =
                plainScales[static_cast<std::size_t>(number - firstPlainScale)];
    });
}

Value LayoutObject::customScale(Arguments arguments) {
    const PlotSettings settings = layout().plotSettings();
    const bool known = settings.scalePaper > 0 && settings.scaleDrawing > 0;
    answerNumbers(arguments, known ? settings.scalePaper : 1, known ? settings.scaleDrawing : 1);
    return {};
}

Value LayoutObject::setCustomScale(Arguments arguments) {
    const double paper = doubleOf(arguments[0].value());
    const double drawing = doubleOf(arguments[1].value());
    if (paper <= 0 || drawing <= 0) throw failure(hostError::invalidInput);
    changePlotSettings([&](PlotSettings& settings) {
        settings.scalePaper = paper;
        settings.scaleDrawing = drawing;
        settings.flags &= ~plotFlag::standardScale;
    });
    return {};
}

/// All drawings here take their plot styles by colour.
void LayoutObject::putStyleSheet(const Value& value) {
    const std::wstring style = textOf(value);
    if (!style.empty() && !style.ends_with(L".ctb")) throw failure(hostError::invalidInput);
    changePlotSettings([&](PlotSettings& settings) { settings.styleSheet = style; });
}

DoubleArray LayoutObject::pairOf(const Value& value) const {
    const auto* numbers = value.as<DoubleArray>();
    if (!numbers || numbers->size() != 2) throw failure(hostError::typeMismatch);
    return *numbers;
}

Value LayoutObject::plotOrigin() {
    const PlotSettings settings = layout().plotSettings();
    return DoubleArray{settings.offsetX, settings.offsetY};
}

void LayoutObject::putPlotOrigin(const Value& value) {
    const DoubleArray numbers = pairOf(value);
    changePlotSettings([&](PlotSettings& settings) {
        settings.offsetX = numbers[0];
        settings.offsetY = numbers[1];
        settings.flags &= ~plotFlag::centred;
    });
}

Value LayoutObject::windowToPlot(Arguments arguments) {
    const PlotSettings settings = layout().plotSettings();
    for (const auto& argument : arguments)
        if (!argument.byReference()) throw failure(hostError::typeMismatch);
    arguments[0].assign(DoubleArray{settings.windowLeft, settings.windowBottom});
    arguments[1].assign(DoubleArray{settings.windowRight, settings.windowTop});
    return {};
}

Value LayoutObject::setWindowToPlot(Arguments arguments) {
    const DoubleArray lower = pairOf(arguments[0].value());
    const DoubleArray upper = pairOf(arguments[1].value());
    changePlotSettings([&](PlotSettings& settings) {
        settings.windowLeft = lower[0];
        settings.windowBottom = lower[1];
        settings.windowRight = upper[0];
        settings.windowTop = upper[1];
    });
    return {};
}

Value LayoutObject::refreshPlotDeviceInfo(Arguments) {
    if (isNoDevice(layout().plotSettings().device)) {
        // Without a device the real host loses the size of the paper here, too.
        changePlotSettings([](PlotSettings& settings) { settings.paperWidth = settings.paperHeight = 0; });
    }
    return {};
}

/// Everything but the tab, and mostly the name. The other layout may belong to another drawing.
Value LayoutObject::copyFrom(Arguments arguments) {
    const auto* object = arguments[0].value().as<ObjectPtr>();
    const auto source = object ? std::dynamic_pointer_cast<LayoutObject>(*object) : nullptr;
    if (!source) throw failure(hostError::typeMismatch);
    source->checkReachable();
    if (source->layout().isModel() != layout().isModel()) throw failure(hostError::invalidInput);
    changePlotSettings([&](PlotSettings& settings) { settings = source->layout().plotSettings(); });
    if (options().copyTakesName) putName(textOf(source->name()) + L" (2)");
    return {};
}

}  // namespace demo
