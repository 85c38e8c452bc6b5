#include "demo/dxf/Layout.h"

#include <algorithm>

#include "demo/dxf/Text.h"

namespace demo {

namespace {

/// Each plot setting with the code of its group.
template <class Settings, class Visitor>
void visitFields(Settings& settings, Visitor visit) {
    visit(1, settings.pageSetup);
    visit(2, settings.device);
    visit(4, settings.paper);
    visit(6, settings.view);
    visit(7, settings.styleSheet);
    visit(44, settings.paperWidth);
    visit(45, settings.paperHeight);
    visit(46, settings.offsetX);
    visit(47, settings.offsetY);
    visit(48, settings.windowLeft);
    visit(49, settings.windowBottom);
    visit(140, settings.windowRight);
    visit(141, settings.windowTop);
    visit(142, settings.scalePaper);
    visit(143, settings.scaleDrawing);
    visit(70, settings.flags);
    visit(72, settings.units);
    visit(73, settings.rotation);
    visit(74, settings.plotType);
    visit(75, settings.standardScale);
}

struct FieldReader {
    const Object& object;

    void operator()(std::int16_t code, std::wstring& field) const { field = object.text(code); }
    void operator()(std::int16_t code, double& field) const { field = object.number(code); }
    void operator()(std::int16_t code, std::int32_t& field) const {
        field = static_cast<std::int32_t>(object.integer(code));
    }
};

struct FieldWriter {
    Object& object;

    void operator()(std::int16_t code, const std::wstring& field) const {
        object.set(textGroup(code, field));
    }
    void operator()(std::int16_t code, double field) const { object.set(numberGroup(code, field)); }
    void operator()(std::int16_t code, std::int32_t field) const { object.set(integerGroup(code, field)); }
};

}  // namespace

bool Block::isModelSpace() const {
    return sameName(name, L"*Model_Space");
}

bool Block::isLayout() const {
    constexpr std::wstring_view paper = L"*Paper_Space";
    return isModelSpace() || sameName(std::wstring_view(name).substr(0, paper.size()), paper);
}

Layout::Layout(Object object, Groups sheet, std::wstring name, Block& block)
    : Object(std::move(object)), sheet_(std::move(sheet)), name_(std::move(name)), block_(block) {
    block.layout = this;
}

Layout::Layout(const Layout& source, Block& block)
    : Layout(static_cast<const Object&>(source), source.sheet_, source.name_, block) {}

PlotSettings Layout::plotSettings() const {
    PlotSettings settings;
    visitFields(settings, FieldReader{*this});
    return settings;
}

void Layout::setPlotSettings(const PlotSettings& settings) {
    visitFields(settings, FieldWriter{*this});
}

const Object* Layout::sheetViewport() const {
    const auto found = std::ranges::find_if(block_.entities, [](const auto& entity) {
        return entity->type() == "VIEWPORT" && entity->integer(69) == 1;
    });
    return found == block_.entities.end() ? nullptr : found->get();
}

}  // namespace demo
