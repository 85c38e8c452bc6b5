#include "demo/host/PlotObject.h"

#include "demo/host/PlotDevices.h"

namespace demo {

using blattwart::Value;

std::vector<MemberSlot<PlotObject>> PlotObject::members() {
    using Self = PlotObject;
    return {
        property(0x02, L"QuietErrorMode", &Self::quietErrorMode, &Self::putQuietErrorMode),
        method(0x06, L"PlotToFile", &Self::plotToFile, 1, 1),
    };
}

Value PlotObject::quietErrorMode() {
    return document().quietPlotErrors;
}

void PlotObject::putQuietErrorMode(const Value& value) {
    document().quietPlotErrors = boolOf(value);
}

/// A device that is not installed is passed over without a word.
Value PlotObject::plotToFile(Arguments arguments) {
    const std::wstring file = textOf(arguments[0].value());
    if (host().activeDocument() != documentPtr()) throw failure(hostError::invalidInput);
    std::wstring device = document().drawing().currentLayout().plotSettings().device;
    if (arguments.size() > 1 && !arguments[1].value().isEmpty()) {
        const std::wstring other = textOf(arguments[1].value());
        if (isInstalled(options(), other)) device = other;
    }
    const bool plotted = host().plot(file, device);
    if (!plotted && !document().quietPlotErrors)
        host().showDialog({DialogKind::message, L"Plotten nicht möglich", L"", [](auto) {}});
    return plotted;
}

}  // namespace demo
