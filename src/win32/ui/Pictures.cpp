#include "win32/ui/Pictures.h"

#include <array>
#include <cstdint>
#include <vector>

#include "res/IconIds.h"

namespace blattwart {

namespace {

/// Number of the largest strip that is not larger than the DPI asks for.
int scaleOf(int dpi) {
    constexpr std::array limits{120, 144, 192};
    int scale = 0;
    for (const int limit : limits) scale += dpi >= limit ? 1 : 0;
    return scale;
}

ImageList loadStrip(int id) {
    const Bitmap strip(static_cast<HBITMAP>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(id),
                                                       IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION)));
    BITMAP description{};
    if (!strip || !GetObjectW(strip.get(), sizeof description, &description)) return {};
    const int size = description.bmHeight;
    ImageList list(ImageList_Create(size, size, ILC_COLOR32, description.bmWidth / size + 1, 0));
    // All transparent, for what has no picture.
    const std::vector<std::uint32_t> nothing(static_cast<std::size_t>(size) * static_cast<std::size_t>(size));
    const Bitmap empty(CreateBitmap(size, size, 1, 32, nothing.data()));
    ImageList_Add(list.get(), empty.get(), nullptr);
    ImageList_Add(list.get(), strip.get(), nullptr);
    return list;
}

}  // namespace

Pictures loadPictures(int dpi) {
    const int scale = scaleOf(dpi);
    return {loadStrip(IDB_TREE + scale), loadStrip(IDB_TOOLBAR + scale), loadStrip(IDB_LIST_SMALL + scale),
            loadStrip(IDB_LIST_LARGE + scale)};
}

HICON programIcon(int sizeMetric) {
    const int size = GetSystemMetrics(sizeMetric);
    return static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDI_BLATTWART),
                                         IMAGE_ICON, size, size, LR_SHARED));
}

}  // namespace blattwart
