#include "demo/host/Variables.h"

#include <algorithm>
#include <array>

#include "demo/dxf/Text.h"
#include "demo/host/Host.h"
#include "demo/host/HostError.h"

namespace demo {

using blattwart::Value;

namespace {

[[noreturn]] void fail(const Host& host) {
    throw hostError::make(hostError::variableError, host.options().language);
}

std::int16_t shortOf(const Host& host, const Value& value, std::int16_t highest) {
    const auto* number = value.as<std::int16_t>();
    if (!number || *number < 0 || *number > highest) fail(host);
    return *number;
}

std::int16_t shortFlag(bool flag) {
    return static_cast<std::int16_t>(flag ? 1 : 0);
}

void setFiledia(Host& host, OpenDocument&, const Value& value) {
    host.setFiledia(shortOf(host, value, 1));
}

void setBackgroundPlot(Host& host, OpenDocument&, const Value& value) {
    host.options().profile->backgroundPlot = shortOf(host, value, 3);
}

void setTilemode(Host& host, OpenDocument& document, const Value& value) {
    Drawing& drawing = document.drawing();
    Layout* layout = shortOf(host, value, 1) == 1 ? &drawing.modelLayout() : drawing.activePaperLayout();
    if (!layout) fail(host);
    document.show(*layout);
}

void setCurrentTab(Host& host, OpenDocument& document, const Value& value) {
    const auto* name = value.as<std::wstring>();
    Layout* layout = name ? document.findLayout(*name) : nullptr;
    if (!layout) fail(host);
    document.show(*layout);
}

struct Variable {
    const wchar_t* name;
    Value (*get)(Host&, OpenDocument&);
    void (*set)(Host&, OpenDocument&, const Value&);
};

constexpr std::array variables{
    Variable{L"BACKGROUNDPLOT",
             [](Host& h, OpenDocument&) { return Value(h.options().profile->backgroundPlot); },
             setBackgroundPlot},
    Variable{L"CMDACTIVE", [](Host&, OpenDocument& d) { return Value(d.commandLine().activity()); }, nullptr},
    Variable{L"CMDNAMES", [](Host&, OpenDocument& d) { return Value(d.commandLine().commandName()); },
             nullptr},
    Variable{L"CTAB", [](Host&, OpenDocument& d) { return Value(d.layoutName(d.drawing().currentLayout())); },
             setCurrentTab},
    Variable{L"DBMOD", [](Host&, OpenDocument& d) { return Value(d.changes()); }, nullptr},
    Variable{L"FILEDIA", [](Host& h, OpenDocument&) { return Value(h.filedia()); }, setFiledia},
    Variable{L"TILEMODE",
             [](Host&, OpenDocument& d) { return Value(shortFlag(d.drawing().currentLayout().isModel())); },
             setTilemode},
};

const Variable& find(const Host& host, const std::wstring& name) {
    const auto found =
        std::ranges::find_if(variables, [&](const Variable& each) { return sameName(each.name, name); });
    if (found == variables.end()) fail(host);
    return *found;
}

}  // namespace

Value getVariable(Host& host, OpenDocument& document, const std::wstring& name) {
    return find(host, name).get(host, document);
}

void setVariable(Host& host, OpenDocument& document, const std::wstring& name, const Value& value) {
    const Variable& variable = find(host, name);
    if (!variable.set) fail(host);
    variable.set(host, document, value);
}

}  // namespace demo
