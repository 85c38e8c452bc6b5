#include "demo/host/Macros.h"

#include <algorithm>
#include <array>

#include "demo/dxf/Text.h"
#include "demo/host/Host.h"
#include "demo/host/HostError.h"

namespace demo {

namespace {

void newLayout(OpenDocument& document) {
    const Drawing& drawing = document.drawing();
    document.drawing().addLayout(
        drawing.uniqueLayoutName(L"Layout" + std::to_wstring(drawing.layouts().size())));
    document.setModified();
}

void deleteLayout(OpenDocument& document) {
    document.drawing().deleteLayout(document.drawing().currentLayout());
    document.setModified();
}

struct Macro {
    const wchar_t* name;
    void (*run)(OpenDocument&);
};

constexpr std::array macros{
    Macro{L"TX_Starten", [](OpenDocument&) {}},
    Macro{L"TX_Layout", newLayout},
    Macro{L"TX_DelLayout", deleteLayout},
};

}  // namespace

void Macros::requireVba() const {
    if (!host_.options().vbaInstalled) throw hostError::make(hostError::vbaMissing, host_.options().language);
}

void Macros::load(const std::wstring& path) {
    requireVba();
    if (!sameName(fileNameOf(path), L"Tarvix.dvb"))
        throw hostError::make(hostError::fileError, host_.options().language);
    loaded_ = true;
}

void Macros::run(const std::wstring& qualified) {
    requireVba();
    const std::wstring name = qualified.substr(qualified.rfind(L'.') + 1);
    const std::wstring module = qualified.substr(0, qualified.size() - name.size());
    const bool moduleKnown =
        module.empty() || sameName(module, L"Programm.") || sameName(module, L"Tarvix.Programm.");
    const auto macro =
        std::ranges::find_if(macros, [&](const Macro& each) { return sameName(each.name, name); });
    if (!loaded_ || !moduleKnown || macro == macros.end()) {
        throw hostError::make(hostError::macroNotFound, host_.options().language);
    }
    const DocumentPtr document = host_.activeDocument();
    if (document) blattwart::ignoringErrors([&] { macro->run(*document); });
}

}  // namespace demo
