#include "demo/mdb/FileHeader.h"

#include <array>
#include <numeric>
#include <string_view>
#include <utility>

#include "demo/mdb/PageFile.h"

namespace demo::mdb {

namespace {

constexpr std::size_t hiddenStart = 0x18;
constexpr std::size_t hiddenSize = 128;

void setLetters(Bytes& page, std::size_t offset, std::string_view letters) {
    for (const char letter : letters) page.set8(offset++, static_cast<std::uint8_t>(letter));
}

/// The RC4 stream with the file format's constant key, over the bytes in place.
void hide(std::span<std::uint8_t> bytes) {
    constexpr std::array<std::uint8_t, 4> key = {0xC7, 0xDA, 0x39, 0x6B};
    std::array<std::uint8_t, 256> box{};
    std::iota(box.begin(), box.end(), std::uint8_t{0});
    std::uint8_t j = 0;
    for (std::size_t i = 0; i < box.size(); ++i) {
        j = static_cast<std::uint8_t>(j + box[i] + key[i % key.size()]);
        std::swap(box[i], box[j]);
    }
    std::uint8_t i = 0;
    j = 0;
    for (auto& byte : bytes) {
        ++i;
        j = static_cast<std::uint8_t>(j + box[i]);
        std::swap(box[i], box[j]);
        byte ^= box[static_cast<std::uint8_t>(box[i] + box[j])];
    }
}

}  // namespace

Bytes headerPage() {
    constexpr std::uint32_t creationDay = 45292;  // 2024-01-01
    Bytes page(pageSize);
    page.set32(0, 0x100);
    setLetters(page, 4, "Standard Jet DB");
    page.set32(0x14, 1);
    page.set32(0x18, 0x100);
    page.set32(0x1C, 0x101);
    page.set32(0x20, 2);
    page.set16(0x3C, 1252);
    for (std::size_t i = 0; i < 10; ++i) page.set32(0x42 + 4 * i, creationDay);
    page.set16(0x6E, 0x409);
    Bytes date;
    date.addDouble(creationDay);
    page.set(0x72, date);
    hide(page.view(hiddenStart, hiddenSize));
    page.set32(0x98, 0x654);
    setLetters(page, 0x9C, "4.0");
    for (std::size_t i = 0; i < 256; ++i) page.set8(0xE00 + 2 * i + 1, 1);
    return page;
}

}  // namespace demo::mdb
