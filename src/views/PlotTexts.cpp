#include "views/PlotTexts.h"

#include <algorithm>
#include <array>

#include "platform/Conversions.h"

namespace blattwart {

namespace {

template <std::size_t size>
std::wstring textAt(const std::array<const wchar_t*, size>& texts, std::int32_t code) {
    return code >= 0 && code < static_cast<std::int32_t>(size) ? texts[static_cast<std::size_t>(code)] : L"";
}

}  // namespace

std::wstring orientationText(std::int32_t plotRotation) {
    static constexpr std::array<const wchar_t*, 4> texts{
        L"Hochformat", L"Querformat", L"Hochformat (auf dem Kopf)", L"Querformat (auf dem Kopf)"};
    return textAt(texts, plotRotation);
}

std::wstring plotAreaText(std::int32_t plotType) {
    // Extents show as "Layout" too; intended.
    static constexpr std::array<const wchar_t*, 6> texts{L"Anzeige", L"Layout",  L"Grenzen",
                                                         L"Ansicht", L"Fenster", L"Layout"};
    return textAt(texts, plotType);
}

std::wstring plotStyleText(const std::wstring& styleSheet) {
    return styleSheet.empty() ? L"Kein" : styleSheet;
}

std::wstring paperSizeText(const host::PaperSize& size, const Locale& locale) {
    const auto [smaller, larger] = std::minmax(size.width, size.height);
    return formatTwoDecimals(larger, locale) + L" x " + formatTwoDecimals(smaller, locale) + L" mm";
}

std::wstring paperFormat(const host::Layout& layout) {
    std::wstring name;
    ignoringErrors([&] {
        name = layout.CanonicalMediaName();
        const std::wstring readable = layout.GetLocaleMediaName(name);
        if (!readable.empty()) name = readable;
    });
    return name;
}

}  // namespace blattwart
