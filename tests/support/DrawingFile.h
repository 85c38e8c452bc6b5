#pragma once

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string>
#include <vector>

namespace blattwart::test {

using Bytes = std::vector<std::uint8_t>;

inline void put32(Bytes& bytes, std::size_t at, std::uint32_t number) {
    for (std::size_t i = 0; i < 4; ++i) bytes.at(at + i) = static_cast<std::uint8_t>(number >> (8 * i));
}

/// Eight-bit, uncompressed, two rows of five pixels (eight bytes each).
inline Bytes dib() {
    Bytes bytes(40 + 1024 + 16, 7);
    put32(bytes, 0, 40);
    put32(bytes, 4, 5);
    put32(bytes, 8, 2);
    put32(bytes, 12, 8U << 16 | 1);
    put32(bytes, 16, 0);
    put32(bytes, 32, 0);
    return bytes;
}

inline Bytes png() {
    Bytes bytes(60, 0);
    const std::string start = "\x89PNG\r\n\x1A\n";
    std::copy(start.begin(), start.end(), bytes.begin());
    bytes[11] = 13;
    const std::string chunk = "IHDR";
    std::copy(chunk.begin(), chunk.end(), bytes.begin() + 12);
    bytes[18] = 1;  // 256 wide
    bytes[23] = 94;
    return bytes;
}

inline constexpr std::uint32_t section = 0x60;
inline constexpr std::uint32_t firstPart = section + 21;
inline constexpr std::uint32_t pictureAt = firstPart + 2 * 9;

/// A file as the host writes it: head, sentinel, an empty header (code 1), the picture, something behind it.
inline Bytes drawing(std::uint8_t code, const Bytes& picture) {
    Bytes bytes(pictureAt + picture.size() + 100000, 0);
    const std::string release = "AC1015";
    std::copy(release.begin(), release.end(), bytes.begin());
    put32(bytes, 0x0D, section);
    constexpr std::uint8_t sentinel[] = {0x1F, 0x25, 0x6D, 0x07, 0xD4, 0x36, 0x28, 0x28,
                                         0x9D, 0x57, 0xCA, 0x3F, 0x9D, 0x44, 0x10, 0x2B};
    std::copy(std::begin(sentinel), std::end(sentinel), bytes.begin() + section);
    bytes[section + 20] = 2;
    bytes[firstPart] = 1;
    put32(bytes, firstPart + 1, pictureAt);
    bytes[firstPart + 9] = code;
    put32(bytes, firstPart + 10, pictureAt);
    put32(bytes, firstPart + 14, static_cast<std::uint32_t>(picture.size()));
    std::copy(picture.begin(), picture.end(), bytes.begin() + pictureAt);
    return bytes;
}

}  // namespace blattwart::test
