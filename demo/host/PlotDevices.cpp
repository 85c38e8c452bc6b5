#include "demo/host/PlotDevices.h"

#include <algorithm>
#include <sstream>

#include "demo/dxf/Text.h"

namespace demo {

bool isNoDevice(const std::wstring& device) {
    return device.empty() || sameName(device, L"none_device") || sameName(device, L"None");
}

bool isInstalled(const HostOptions& options, const std::wstring& device) {
    return std::ranges::any_of(options.plotDevices,
                               [&](const std::wstring& installed) { return sameName(installed, device); });
}

bool makesPdf(const std::wstring& device) {
    return folded(device).find(L"PDF") != std::wstring::npos;
}

std::optional<std::pair<double, double>> sizeOfPaper(const std::wstring& canonicalName) {
    const std::size_t open = canonicalName.find(L'(');
    if (open == std::wstring::npos) return std::nullopt;
    std::wstring inside = canonicalName.substr(open + 1);
    std::ranges::replace(inside, L'_', L' ');
    std::wistringstream words(inside);
    words.imbue(std::locale::classic());
    double width = 0;
    double height = 0;
    std::wstring times;
    std::wstring unit;
    if (!(words >> width >> times >> height >> unit) || times != L"x") return std::nullopt;
    const double factor = unit.starts_with(L"Inch") ? 25.4 : 1;
    return std::pair(width * factor, height * factor);
}

}  // namespace demo
