#include "win32/ui/PictureDecoder.h"

#include <wincodec.h>
#include <wrl/client.h>

#include <algorithm>
#include <cstring>

#include "win32/ui/MemoryContext.h"

namespace blattwart {

namespace {

using Microsoft::WRL::ComPtr;

constexpr std::size_t dibHeaderSize = sizeof(BITMAPINFOHEADER);
constexpr std::size_t colourMasks = 12;  // bytes, of BI_BITFIELDS

struct Canvas {
    Bitmap bitmap;
    std::uint32_t* pixels = nullptr;  ///< 0xAARRGGBB, the top row first
};

Canvas makeCanvas(const EncodedPicture& picture) {
    BITMAPINFO description{};
    description.bmiHeader.biSize = sizeof description.bmiHeader;
    description.bmiHeader.biWidth = picture.width;
    description.bmiHeader.biHeight = -picture.height;
    description.bmiHeader.biPlanes = 1;
    description.bmiHeader.biBitCount = 32;
    void* pixels = nullptr;
    Bitmap bitmap(CreateDIBSection(nullptr, &description, DIB_RGB_COLORS, &pixels, nullptr, 0));
    return {std::move(bitmap), static_cast<std::uint32_t*>(pixels)};
}

/// Header, masks and colours as Windows understands them all, with lengths that are true; empty when they do
/// not lie where they must.
std::vector<std::uint8_t> dibDescription(const EncodedPicture& picture) {
    BITMAPINFOHEADER header{};
    std::memcpy(&header, picture.bytes.data(), dibHeaderSize);
    const std::size_t masks = header.biCompression == BI_BITFIELDS ? colourMasks : 0;
    const std::size_t colours =
        4 * (header.biBitCount <= 8 && header.biClrUsed == 0 ? std::size_t{1} << header.biBitCount
                                                             : std::size_t{header.biClrUsed});
    if (dibHeaderSize + masks > picture.bytes.size() || colours > picture.pixels) return {};
    header.biSize = dibHeaderSize;
    header.biPlanes = 1;
    header.biSizeImage = static_cast<DWORD>(picture.bytes.size() - picture.pixels);
    std::vector<std::uint8_t> description(dibHeaderSize + masks + colours);
    std::memcpy(description.data(), &header, dibHeaderSize);
    std::copy_n(picture.bytes.data() + dibHeaderSize, masks, description.data() + dibHeaderSize);
    std::copy_n(picture.bytes.data() + picture.pixels - colours, colours,
                description.data() + dibHeaderSize + masks);
    return description;
}

bool drawDib(const EncodedPicture& picture, const Canvas& canvas, COLORREF ground) {
    const std::vector<std::uint8_t> description = dibDescription(picture);
    if (description.empty()) return false;
    const MemoryContext context(canvas.bitmap.get());
    // Runs may leave pixels out.
    SetDCBrushColor(context.get(), ground);
    const RECT all{0, 0, picture.width, picture.height};
    FillRect(context.get(), &all, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
    const int lines =
        StretchDIBits(context.get(), 0, 0, picture.width, picture.height, 0, 0, picture.width, picture.height,
                      picture.bytes.data() + picture.pixels,
                      reinterpret_cast<const BITMAPINFO*>(description.data()), DIB_RGB_COLORS, SRCCOPY);
    return lines != 0 && lines != static_cast<int>(GDI_ERROR);
}

/// The PNG as premultiplied pixels into the canvas.
bool copyPng(const EncodedPicture& picture, const Canvas& canvas) {
    ComPtr<IWICImagingFactory> factory;
    ComPtr<IWICStream> stream;
    ComPtr<IWICBitmapDecoder> decoder;
    ComPtr<IWICBitmapFrameDecode> frame;
    ComPtr<IWICFormatConverter> converter;
    const UINT stride = static_cast<UINT>(picture.width) * 4;
    const auto size = static_cast<DWORD>(picture.bytes.size());
    return SUCCEEDED(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                      IID_PPV_ARGS(&factory))) &&
           SUCCEEDED(factory->CreateStream(&stream)) &&
           SUCCEEDED(stream->InitializeFromMemory(const_cast<BYTE*>(picture.bytes.data()), size)) &&
           SUCCEEDED(factory->CreateDecoder(GUID_ContainerFormatPng, nullptr, &decoder)) &&
           SUCCEEDED(decoder->Initialize(stream.Get(), WICDecodeMetadataCacheOnDemand)) &&
           SUCCEEDED(decoder->GetFrame(0, &frame)) && SUCCEEDED(factory->CreateFormatConverter(&converter)) &&
           SUCCEEDED(converter->Initialize(frame.Get(), GUID_WICPixelFormat32bppPBGRA,
                                           WICBitmapDitherTypeNone, nullptr, 0,
                                           WICBitmapPaletteTypeCustom)) &&
           SUCCEEDED(converter->CopyPixels(nullptr, stride, stride * static_cast<UINT>(picture.height),
                                           reinterpret_cast<BYTE*>(canvas.pixels)));
}

/// A premultiplied pixel over the ground (0x00RRGGBB).
std::uint32_t over(std::uint32_t pixel, std::uint32_t ground) {
    const std::uint32_t seenThrough = 255 - (pixel >> 24);
    std::uint32_t result = 0;
    for (int shift = 0; shift < 24; shift += 8) {
        const std::uint32_t sum =
            (pixel >> shift & 0xFF) + ((ground >> shift & 0xFF) * seenThrough + 127) / 255;
        result |= std::min<std::uint32_t>(sum, 255) << shift;
    }
    return result;
}

bool drawPng(const EncodedPicture& picture, const Canvas& canvas, COLORREF ground) {
    if (!copyPng(picture, canvas)) return false;
    const std::uint32_t below = static_cast<std::uint32_t>(GetRValue(ground)) << 16 |
                                static_cast<std::uint32_t>(GetGValue(ground)) << 8 | GetBValue(ground);
    const std::size_t count =
        static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height);
    std::for_each_n(canvas.pixels, count, [&](std::uint32_t& pixel) { pixel = over(pixel, below); });
    return true;
}

}  // namespace

Bitmap decode(const EncodedPicture& picture, COLORREF ground) {
    Canvas canvas = makeCanvas(picture);
    if (!canvas.bitmap) return {};
    const bool drawn = picture.kind == EncodedPicture::Kind::png ? drawPng(picture, canvas, ground)
                                                                 : drawDib(picture, canvas, ground);
    GdiFlush();
    return drawn ? std::move(canvas.bitmap) : Bitmap{};
}

}  // namespace blattwart
