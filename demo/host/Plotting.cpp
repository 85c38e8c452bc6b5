#include <algorithm>
#include <thread>

#include "demo/host/Host.h"
#include "demo/host/PdfPage.h"
#include "demo/host/PlotDevices.h"

/// What the host writes when it plots.
namespace demo {

namespace {

std::string pageOf(const OpenDocument& document) {
    const Layout& layout = document.drawing().currentLayout();
    const PlotSettings settings = layout.plotSettings();
    double width = settings.paperWidth;
    double height = settings.paperHeight;
    if (settings.rotation % 2 != 0) std::swap(width, height);
    return pdfPage(width, height, document.name() + L" - " + document.layoutName(layout),
                   settings.styleSheet);
}

}  // namespace

bool Host::plot(const std::wstring& file, const std::wstring& device) {
    std::this_thread::sleep_for(options_.plotTime);
    if (isNoDevice(device) || options_.plots == Plots::notAtAll) return false;
    if (options_.plots == Plots::nothing) return true;
    std::string bytes = pageOf(*activeDocument());
    if (options_.plots == Plots::cutOff) bytes.resize(bytes.size() / 2);
    if (options_.plots == Plots::asOtherKind || !makesPdf(device)) bytes = "%!PS-Adobe-3.0\nshowpage\n";
    if (options_.plots == Plots::late || options_.profile->backgroundPlot % 2 != 0) {
        unfinishedPlots_.emplace_back(file, std::move(bytes));
        return true;
    }
    return writePlot(file, bytes);
}

void Host::finishPlots() {
    for (const auto& [file, bytes] : std::exchange(unfinishedPlots_, {})) writePlot(file, bytes);
}

bool Host::writePlot(const std::wstring& file, const std::string& bytes) const {
    return options_.writePlot ? options_.writePlot(file, bytes) : disk_.writeNew(file, bytes);
}

}  // namespace demo
