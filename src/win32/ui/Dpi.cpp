#include "win32/ui/Dpi.h"

#include <algorithm>
#include <cmath>

#include "win32/base/UserFunction.h"

namespace blattwart {

namespace {

constexpr int twipsPerInch = 1440;
constexpr float coordinateLimit = 32767;

}  // namespace

int systemDpi() {
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return dpi;
}

int windowDpi(HWND window) {
    static const auto dpiForWindow = userFunction<UINT WINAPI(HWND)>("GetDpiForWindow");
    const int dpi = dpiForWindow ? static_cast<int>(dpiForWindow(window)) : 0;
    return dpi > 0 ? dpi : systemDpi();
}

int toPixels(float twips, int dpi) {
    const float pixels = twips * static_cast<float>(dpi) / twipsPerInch;
    if (std::isnan(pixels)) return 0;
    return static_cast<int>(std::lround(std::clamp(pixels, -coordinateLimit, coordinateLimit)));
}

float toTwips(int pixels, int dpi) {
    return static_cast<float>(pixels) * twipsPerInch / static_cast<float>(dpi);
}

}  // namespace blattwart
