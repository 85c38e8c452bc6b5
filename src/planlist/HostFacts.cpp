#include "planlist/HostFacts.h"

namespace blattwart {

PlanDrawing openDrawing(const host::Document& document) {
    PlanDrawing drawing;
    drawing.document = document;
    const std::wstring full = document.FullName();
    const std::size_t end = full.find_last_of(L"\\/");
    drawing.name = full.empty() ? document.Name() : full.substr(end + 1);
    if (end != std::wstring::npos) drawing.folder = full.substr(0, end);
    return drawing;
}

}  // namespace blattwart
