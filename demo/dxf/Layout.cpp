#include "demo/dxf/Layout.h"

#include <algorithm>

#include "demo/dxf/Text.h"

namespace demo {

namespace {

constexpr std::string_view plotSubclass = "AcDbPlotSettings";
constexpr std::string_view layoutSubclass = "AcDbLayout";

bool startsWith(const Block& block, std::wstring_view name) {
    return sameName(std::wstring_view(block.name()).substr(0, name.size()), name);
}

}  // namespace

bool Block::isModelSpace() const {
    return sameName(name(), L"*Model_Space");
}
bool Block::isLayout() const {
    return isModelSpace() || startsWith(*this, L"*Paper_Space");
}
bool Block::isActivePaperSpace() const {
    return sameName(name(), L"*Paper_Space");
}

std::wstring Layout::name() const {
    return object_.text(1, layoutSubclass);
}

std::int32_t Layout::tabOrder() const {
    return static_cast<std::int32_t>(object_.integer(71, 0, layoutSubclass));
}

PlotSettings Layout::plotSettings() const {
    const auto text = [&](std::int16_t code) { return object_.text(code, plotSubclass); };
    const auto whole = [&](std::int16_t code) {
        return static_cast<std::int32_t>(object_.integer(code, 0, plotSubclass));
    };
    PlotSettings settings;
    settings.pageSetup = text(1);
    settings.device = text(2);
    settings.paper = text(4);
    settings.view = text(6);
    settings.styleSheet = text(7);
    settings.paperWidth = object_.number(44, 0, plotSubclass);
    settings.paperHeight = object_.number(45, 0, plotSubclass);
    settings.units = whole(72);
    settings.rotation = whole(73);
    settings.plotType = whole(74);
    return settings;
}

void Layout::setPlotSettings(const PlotSettings& settings) {
    const PlotSettings old = plotSettings();
    const auto text = [&](std::int16_t code, const std::wstring& before, const std::wstring& after) {
        if (before != after) object_.set(textGroup(code, after), plotSubclass);
    };
    const auto number = [&](std::int16_t code, double before, double after) {
        if (before != after) object_.set(numberGroup(code, after), plotSubclass);
    };
    const auto whole = [&](std::int16_t code, std::int32_t before, std::int32_t after) {
        if (before != after) object_.set(integerGroup(code, after), plotSubclass);
    };
    text(1, old.pageSetup, settings.pageSetup);
    text(2, old.device, settings.device);
    text(4, old.paper, settings.paper);
    text(6, old.view, settings.view);
    text(7, old.styleSheet, settings.styleSheet);
    number(44, old.paperWidth, settings.paperWidth);
    number(45, old.paperHeight, settings.paperHeight);
    whole(72, old.units, settings.units);
    whole(73, old.rotation, settings.rotation);
    whole(74, old.plotType, settings.plotType);
}

const Object* Layout::sheetViewport() const {
    const auto found =
        std::ranges::find_if(block_.entities, [](const auto& entity) { return isSheetViewport(*entity); });
    return found == block_.entities.end() ? nullptr : found->get();
}

bool isSheetViewport(const Object& entity) {
    return entity.type() == "VIEWPORT" && entity.integer(69) == 1;
}

}  // namespace demo
