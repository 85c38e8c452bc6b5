#include <gtest/gtest.h>

#include <algorithm>

#include "ControlHost.h"
#include "controls/ListView.h"
#include "support/GermanLocale.h"
#include "win32/com/Apartment.h"
#include "win32/ui/ListWindow.h"
#include "win32/ui/MemoryContext.h"
#include "win32/ui/PictureDecoder.h"
#include "win32/ui/PictureWindow.h"

namespace blattwart::test {

namespace {

using Bytes = std::vector<std::uint8_t>;
constexpr COLORREF red = RGB(255, 0, 0);
constexpr COLORREF blue = RGB(0, 0, 255);
constexpr COLORREF ground = RGB(10, 200, 30);

/// A DIB of these pixels, 2 wide and 1 high unless told otherwise.
EncodedPicture dib(WORD bits, DWORD compression, const Bytes& tablesAndPixels, std::size_t tables) {
    BITMAPINFOHEADER header{};
    header.biSize = sizeof header;
    header.biWidth = 2;
    header.biHeight = 1;
    header.biPlanes = 1;
    header.biBitCount = bits;
    header.biCompression = compression;
    header.biClrUsed = bits == 8 ? static_cast<DWORD>(tables / 4) : 0;
    header.biSizeImage = 0xFFFFFFFF;
    EncodedPicture picture{EncodedPicture::Kind::dib, 2, 1, Bytes(sizeof header + tablesAndPixels.size()),
                           sizeof header + tables};
    memcpy(picture.bytes.data(), &header, sizeof header);
    std::ranges::copy(tablesAndPixels, picture.bytes.begin() + sizeof header);
    return picture;
}

/// A red pixel and one that shows the ground.
EncodedPicture png() {
    return {EncodedPicture::Kind::png,
            2,
            1,
            {0x89, 0x50, 0x4E, 0x47, 0x0D, 0x0A, 0x1A, 0x0A, 0x00, 0x00, 0x00, 0x0D, 0x49, 0x48, 0x44,
             0x52, 0x00, 0x00, 0x00, 0x02, 0x00, 0x00, 0x00, 0x01, 0x08, 0x06, 0x00, 0x00, 0x00, 0xF4,
             0x22, 0x7F, 0x8A, 0x00, 0x00, 0x00, 0x0F, 0x49, 0x44, 0x41, 0x54, 0x78, 0xDA, 0x63, 0xF8,
             0xCF, 0xC0, 0x00, 0x44, 0x0C, 0x0C, 0x00, 0x0C, 0xFC, 0x01, 0xFF, 0xE5, 0x86, 0xA8, 0xD2,
             0x00, 0x00, 0x00, 0x00, 0x49, 0x45, 0x4E, 0x44, 0xAE, 0x42, 0x60, 0x82},
            0};
}

COLORREF colourAt(HBITMAP bitmap, int x) {
    return GetPixel(MemoryContext(bitmap).get(), x, 0);
}

COLORREF colourAt(HWND window, int x, int y) {
    const HDC context = GetDC(window);
    const COLORREF colour = GetPixel(context, x, y);
    ReleaseDC(window, context);
    return colour;
}

}  // namespace

TEST(PictureDecoder, ReadsWhatDrawingsHold) {
    const Apartment apartment;
    struct Case {
        const char* name;
        EncodedPicture picture;
        COLORREF second;
    };
    const Bytes palette{0, 0, 255, 0, 255, 0, 0, 0};
    const auto withPalette = [&](Bytes pixels) {
        pixels.insert(pixels.begin(), palette.begin(), palette.end());
        return pixels;
    };
    for (const Case& c :
         {Case{"true colour", dib(24, BI_RGB, {0, 0, 255, 255, 0, 0, 0, 0}, 0), blue},
          Case{"indexed", dib(8, BI_RGB, withPalette({0, 1, 0, 0}), 8), blue},
          Case{"runs", dib(8, BI_RLE8, withPalette({1, 0, 1, 1, 0, 1}), 8), blue},
          Case{"a run that leaves a pixel out", dib(8, BI_RLE8, withPalette({1, 0, 0, 1}), 8), ground},
          Case{"masks",
               dib(16, BI_BITFIELDS, {0, 0xF8, 0, 0, 0xE0, 7, 0, 0, 0x1F, 0, 0, 0, 0, 0xF8, 0x1F, 0}, 12),
               blue},
          Case{"PNG", png(), ground}}) {
        const Bitmap bitmap = decode(c.picture, ground);
        ASSERT_TRUE(bitmap) << c.name;
        EXPECT_EQ(colourAt(bitmap.get(), 0), red) << c.name;
        EXPECT_EQ(colourAt(bitmap.get(), 1), c.second) << c.name;
    }
    EncodedPicture broken = png();
    broken.bytes[45] ^= 0xFF;
    EXPECT_FALSE(decode(broken, ground));
}

class PreviewTest : public testing::Test {
  protected:
    PreviewTest() {
        model.addColumn(L"Beschreibung", 1000);
        model.add(L"1", L"Dateiname");
        model.add(L"2", L"Ordner");
        model.setMode(ListViewMode::details);
        host.notify = [this](NMHDR& header) { return list.notify(header); };
        resize(400, 300);
        ShowWindow(host.window(), SW_SHOW);
        pump();
    }

    void resize(int width, int height) {
        SetWindowPos(list.handle(), nullptr, 0, 0, width, height, SWP_NOZORDER | SWP_NOMOVE);
        show();
    }
    void show(int dpi = 96) {
        picture.show(list.roomBelowRows(), dpi);
        pump();
    }
    void show(const EncodedPicture& encoded) {
        box.show(std::make_shared<const EncodedPicture>(encoded), L"Vorschau von Büro.dwt");
        show();
    }
    HWND window() { return childOfClass(list.handle(), WC_STATICW); }
    RECT place() {
        RECT rectangle{};
        GetWindowRect(window(), &rectangle);
        MapWindowPoints(nullptr, list.handle(), reinterpret_cast<POINT*>(&rectangle), 2);
        return rectangle;
    }

    Apartment apartment;
    ControlHost host;
    GermanLocale locale;
    ListView model{locale};
    ListWindow list{host.window(), model, host.gate()};
    PictureBox box;
    PictureWindow picture{list.handle(), box, host.gate().guard()};
};

TEST_F(PreviewTest, StandsBelowTheRowsAsLargeAsThereIsRoom) {
    EXPECT_FALSE(IsWindowVisible(window()));
    show(dib(24, BI_RGB, {0, 0, 255, 255, 0, 0, 0, 0}, 0));
    ASSERT_TRUE(IsWindowVisible(window()));
    EXPECT_EQ(textOf(window()), L"Vorschau von Büro.dwt");
    RECT row{};
    ListView_GetItemRect(list.handle(), 1, &row, LVIR_BOUNDS);
    RECT client{};
    GetClientRect(list.handle(), &client);
    EXPECT_EQ(place().top, row.bottom + 8);
    EXPECT_EQ(place().left, 8);
    EXPECT_EQ(place().right, client.right - 8);
    EXPECT_EQ(place().right - place().left, 2 * (place().bottom - place().top));
    // Two pixels so far apart are shaded into each other.
    const COLORREF left = colourAt(window(), 5, 5);
    const COLORREF right = colourAt(window(), static_cast<int>(place().right) - 20, 5);
    EXPECT_TRUE(GetRValue(left) > 200 && GetBValue(left) < 50) << left;
    EXPECT_TRUE(GetRValue(right) < 50 && GetBValue(right) > 200) << right;
    EXPECT_EQ(SendMessageW(window(), WM_NCHITTEST, 0, 0), HTTRANSPARENT) << "the mouse is the list's";

    resize(400, 160);
    GetClientRect(list.handle(), &client);
    EXPECT_EQ(place().bottom, client.bottom - 8);
    EXPECT_EQ(place().right - place().left, 2 * (place().bottom - place().top));
    show(192);
    EXPECT_EQ(place().left, 16);
    resize(400, 60);
    EXPECT_FALSE(IsWindowVisible(window())) << "no room";
    resize(400, 300);
    EXPECT_TRUE(IsWindowVisible(window()));
    box.show(nullptr, {});
    show();
    EXPECT_FALSE(IsWindowVisible(window()));
}

TEST_F(PreviewTest, StandsOnTheWindowsColourAlsoWhenThatChanges) {
    const INT element = COLOR_WINDOW;
    const COLORREF before = GetSysColor(element);
    show(png());
    ASSERT_TRUE(IsWindowVisible(window()));
    const auto colourOfGround = [&] {
        RedrawWindow(window(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
        return colourAt(window(), static_cast<int>(place().right) - 20, 5);
    };
    EXPECT_EQ(colourOfGround(), before);
    const COLORREF other = RGB(0, 0, 64);
    SetSysColors(1, &element, &other);
    EXPECT_EQ(colourOfGround(), other);
    SetSysColors(1, &element, &before);
    EncodedPicture broken = png();
    broken.bytes.resize(40);
    show(broken);
    EXPECT_FALSE(IsWindowVisible(window()));
}

}  // namespace blattwart::test
