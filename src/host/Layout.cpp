#include "host/Layout.h"

#include "platform/Conversions.h"

namespace blattwart::host {

namespace {

constexpr std::wstring_view layout = L"Layout";

Member memberOf(PlotSwitch which) {
    constexpr std::array<std::wstring_view, 9> names{
        L"UseStandardScale",    L"CenterPlot",         L"PlotWithPlotStyles",
        L"PlotWithLineweights", L"ScaleLineweights",   L"PlotHidden",
        L"PlotViewportBorders", L"PlotViewportsFirst", L"ShowPlotStyles"};
    return {layout, names[static_cast<std::size_t>(which)]};
}

std::pair<double, double> pairOf(const Value& value) {
    const auto* numbers = value.as<DoubleArray>();
    if (!numbers || numbers->size() < 2) throwTypeMismatch();
    return {(*numbers)[0], (*numbers)[1]};
}

}  // namespace

std::wstring Layout::Name() const {
    return getText({layout, L"Name"});
}

void Layout::putName(const std::wstring& name) const {
    object().put({layout, L"Name"}, name);
}

std::wstring Layout::Handle() const {
    return getText({layout, L"Handle"});
}

void Layout::Delete() const {
    object().call({layout, L"Delete"});
}

std::int32_t Layout::ObjectID() const {
    std::int32_t id = 0;
    ignoringErrors([&] {
        id = toInt32(hostNumber(withIds([this](const Member& member) { return object().get(member); },
                                        {layout, L"ObjectID32"}, {layout, L"ObjectID"})));
    });
    return id;
}

host::Block Layout::Block() const {
    return getObject<host::Block>({layout, L"Block"});
}

std::int32_t Layout::TabOrder() const {
    return getNumber({layout, L"TabOrder"});
}

void Layout::putTabOrder(std::int32_t place) const {
    object().put({layout, L"TabOrder"}, place);
}

bool Layout::ModelType() const {
    return getNumber({layout, L"ModelType"}) != 0;
}

void Layout::RefreshPlotDeviceInfo() const {
    object().call({layout, L"RefreshPlotDeviceInfo"});
}

void Layout::CopyFrom(const Layout& source) const {
    object().call({layout, L"CopyFrom"}, {Value(source.object_)});
}

std::wstring Layout::ConfigName() const {
    return getText({layout, L"ConfigName"});
}

void Layout::putConfigName(const std::wstring& device) const {
    object().put({layout, L"ConfigName"}, device);
}

std::wstring Layout::CanonicalMediaName() const {
    return getText({layout, L"CanonicalMediaName"});
}

void Layout::putCanonicalMediaName(const std::wstring& paper) const {
    object().put({layout, L"CanonicalMediaName"}, paper);
}

std::int32_t Layout::PaperUnits() const {
    return getNumber({layout, L"PaperUnits"});
}

void Layout::putPaperUnits(std::int32_t units) const {
    object().put({layout, L"PaperUnits"}, units);
}

std::wstring Layout::GetLocaleMediaName(const std::wstring& canonicalName) const {
    return hostText(object().call({layout, L"GetLocaleMediaName"}, {Value(canonicalName)}));
}

PaperSize Layout::GetPaperSize() const {
    Value width(0.0);
    Value height(0.0);
    object().call({layout, L"GetPaperSize"}, {Argument(&width), Argument(&height)});
    return {hostNumber(width), hostNumber(height)};
}

std::int32_t Layout::PlotRotation() const {
    return getNumber({layout, L"PlotRotation"});
}

void Layout::putPlotRotation(std::int32_t quarters) const {
    object().put({layout, L"PlotRotation"}, quarters);
}

std::int32_t Layout::PlotType() const {
    return getNumber({layout, L"PlotType"});
}

void Layout::putPlotType(std::int32_t type) const {
    object().put({layout, L"PlotType"}, type);
}

std::wstring Layout::ViewToPlot() const {
    return getText({layout, L"ViewToPlot"});
}

void Layout::putViewToPlot(const std::wstring& view) const {
    object().put({layout, L"ViewToPlot"}, view);
}

std::array<double, 4> Layout::GetWindowToPlot() const {
    Value lower;
    Value upper;
    object().call({layout, L"GetWindowToPlot"}, {Argument(&lower), Argument(&upper)});
    const auto [left, bottom] = pairOf(lower);
    const auto [right, top] = pairOf(upper);
    return {left, bottom, right, top};
}

void Layout::SetWindowToPlot(const std::array<double, 4>& window) const {
    object().call({layout, L"SetWindowToPlot"},
                  {Value(DoubleArray{window[0], window[1]}), Value(DoubleArray{window[2], window[3]})});
}

std::int32_t Layout::StandardScale() const {
    return getNumber({layout, L"StandardScale"});
}

void Layout::putStandardScale(std::int32_t scale) const {
    object().put({layout, L"StandardScale"}, scale);
}

std::pair<double, double> Layout::GetCustomScale() const {
    Value paper(0.0);
    Value drawing(0.0);
    object().call({layout, L"GetCustomScale"}, {Argument(&paper), Argument(&drawing)});
    return {hostNumber(paper), hostNumber(drawing)};
}

void Layout::SetCustomScale(const std::pair<double, double>& ratio) const {
    object().call({layout, L"SetCustomScale"}, {Value(ratio.first), Value(ratio.second)});
}

std::pair<double, double> Layout::PlotOrigin() const {
    return pairOf(object().get({layout, L"PlotOrigin"}));
}

void Layout::putPlotOrigin(const std::pair<double, double>& offset) const {
    object().put({layout, L"PlotOrigin"}, DoubleArray{offset.first, offset.second});
}

void Layout::putStyleSheet(const std::wstring& style) const {
    object().put({layout, L"StyleSheet"}, style);
}

bool Layout::plotSwitch(PlotSwitch which) const {
    return hostNumber(object().get(memberOf(which))) != 0;
}

void Layout::putPlotSwitch(PlotSwitch which, bool on) const {
    object().put(memberOf(which), on);
}

std::wstring Layout::StyleSheet() const {
    return getText({layout, L"StyleSheet"});
}

std::int32_t Layouts::Count() const {
    return getNumber({L"Layouts", L"Count"});
}

Layout Layouts::Add(const std::wstring& name) const {
    return face<Layout>(toObject(object().call({L"Layouts", L"Add"}, {Value(name)})));
}

Layout Layouts::Item(const std::wstring& name) const {
    return face<Layout>(toObject(object().call({L"Layouts", L"Item"}, {Value(name)})));
}

}  // namespace blattwart::host
