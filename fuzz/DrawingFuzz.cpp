// The demonstration host's drawings: a damaged file is refused or read, and then is written, used and read
// again.
#include <sstream>

#include "demo/dxf/Drawing.h"
#include "Input.h"
#include "platform/RuntimeError.h"

using namespace demo;
using blattwart::ignoringErrors;
using blattwart::fuzz::require;

namespace {

constexpr std::size_t mostLayouts = 10;

Drawing loaded(const std::string& text) {
    std::istringstream stream(text);
    return Drawing::load(stream);
}

std::string saved(const Drawing& drawing) {
    std::ostringstream stream;
    drawing.save(stream);
    return stream.str();
}

void requireSameAgain(const Drawing& drawing) {
    const std::string once = saved(drawing);
    const Drawing again = loaded(once);
    require(saved(again) == once, "a drawing is read as it was written");
    require(again.layouts().size() == drawing.layouts().size(), "no layout is lost");
}

/// A damaged drawing may refuse each step.
void useAll(Drawing& drawing) {
    if (drawing.layouts().size() > mostLayouts) return;
    ignoringErrors([&] { drawing.addLayout(L"Neu"); });
    for (Layout* layout : drawing.layouts()) {
        ignoringErrors([&] { drawing.copyLayout(*layout, drawing.uniqueLayoutName(L"Kopie")); });
        ignoringErrors([&] { drawing.setCurrentLayout(*layout); });
    }
    ignoringErrors([&] { Drawing::createEmpty().importLayouts(drawing); });
    drawing.audit();
    for (Layout* layout : drawing.layouts()) ignoringErrors([&] { drawing.deleteLayout(*layout); });
    for (Layout* layout : drawing.layouts()) ignoringErrors([&] { drawing.templateOf(*layout); });
    saved(drawing);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    ignoringErrors([&] {
        Drawing drawing = loaded(text);
        if (!ignoringErrors([&] { requireSameAgain(drawing); }))
            require(false, "what is written can be read");
        ignoringErrors([&] { useAll(drawing); });
    });
    return 0;
}
