#include "win32/ui/Fonts.h"

#include "win32/base/UserFunction.h"
#include "win32/ui/Dpi.h"

namespace blattwart {

Font messageFont(int dpi) {
    static const auto parametersForDpi =
        userFunction<BOOL WINAPI(UINT, UINT, PVOID, UINT, UINT)>("SystemParametersInfoForDpi");
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    const bool scaled = parametersForDpi && parametersForDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics,
                                                             &metrics, 0, static_cast<UINT>(dpi));
    if (!scaled) {
        SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
        metrics.lfMessageFont.lfHeight = MulDiv(metrics.lfMessageFont.lfHeight, dpi, systemDpi());
    }
    return Font(CreateFontIndirectW(&metrics.lfMessageFont));
}

Font boldFont(HFONT font) {
    LOGFONTW description{};
    GetObjectW(font, sizeof description, &description);
    description.lfWeight = FW_BOLD;
    return Font(CreateFontIndirectW(&description));
}

int lineHeight(HFONT font) {
    const HDC screen = GetDC(nullptr);
    const HGDIOBJ previous = SelectObject(screen, font);
    TEXTMETRICW metrics{};
    GetTextMetricsW(screen, &metrics);
    SelectObject(screen, previous);
    ReleaseDC(nullptr, screen);
    return metrics.tmHeight;
}

}  // namespace blattwart
