#include "data/PreviewPicture.h"

#include <algorithm>
#include <array>
#include <span>

namespace blattwart {

namespace {

using Bytes = std::span<const std::uint8_t>;

// The head of the file: the release ("AC1015"), and where the preview section begins.
constexpr std::size_t headSize = 0x20;
constexpr std::size_t sectionPointer = 0x0D;
constexpr std::array<std::uint8_t, 4> releaseFamily{'A', 'C', '1', '0'};
constexpr int oldestRelease = 12;

// The section: sentinel, its length, a count, and for each part a code, start and length.
constexpr std::array<std::uint8_t, 16> sentinel{0x1F, 0x25, 0x6D, 0x07, 0xD4, 0x36, 0x28, 0x28,
                                                0x9D, 0x57, 0xCA, 0x3F, 0x9D, 0x44, 0x10, 0x2B};
constexpr std::size_t partCount = sentinel.size() + 4;
constexpr std::size_t firstPart = partCount + 1;
constexpr std::size_t partSize = 9;
constexpr std::size_t mostParts = 16;
constexpr std::uint8_t dibCode = 2;
constexpr std::uint8_t pngCode = 6;

constexpr std::uint32_t largestPicture = 64U << 20;
constexpr std::int64_t longestSide = 4096;

// The header of a DIB.
constexpr std::size_t dibHeaderSize = 40;
constexpr std::uint32_t largestDibHeader = 124;
constexpr std::uint32_t uncompressed = 0;
constexpr std::uint32_t runLength8 = 1;
constexpr std::uint32_t runLength4 = 2;
constexpr std::uint32_t bitFields = 3;
constexpr std::uint64_t bitFieldMasks = 12;  // bytes behind a plain header

constexpr std::array<std::uint8_t, 16> pngStart{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n',
                                                0,    0,   0,   13,  'I',  'H',  'D',  'R'};
constexpr std::size_t pngWidth = 16;
constexpr std::size_t pngHeight = 20;
constexpr std::size_t smallestPng = 33;

std::uint32_t number32(Bytes bytes, std::size_t at) {
    return bytes[at] | static_cast<std::uint32_t>(bytes[at + 1]) << 8 |
           static_cast<std::uint32_t>(bytes[at + 2]) << 16 | static_cast<std::uint32_t>(bytes[at + 3]) << 24;
}

std::uint32_t number16(Bytes bytes, std::size_t at) {
    return bytes[at] | static_cast<std::uint32_t>(bytes[at + 1]) << 8;
}

std::uint32_t bigEndian32(Bytes bytes, std::size_t at) {
    return static_cast<std::uint32_t>(bytes[at]) << 24 | static_cast<std::uint32_t>(bytes[at + 1]) << 16 |
           static_cast<std::uint32_t>(bytes[at + 2]) << 8 | bytes[at + 3];
}

bool isDigit(std::uint8_t byte) {
    return byte >= '0' && byte <= '9';
}

bool hasKnownRelease(Bytes head) {
    if (!std::ranges::equal(head.first(releaseFamily.size()), releaseFamily)) return false;
    const std::uint8_t tens = head[4];
    const std::uint8_t ones = head[5];
    return isDigit(tens) && isDigit(ones) && (tens - '0') * 10 + (ones - '0') >= oldestRelease;
}

/// What stands before the pixels of a DIB, in bytes; none when its header contradicts itself.
std::optional<std::uint64_t> pixelStart(Bytes dib, std::uint32_t bits, std::uint32_t compression) {
    const std::uint32_t headerSize = number32(dib, 0);
    if (headerSize < dibHeaderSize || headerSize > largestDibHeader) return {};
    const std::uint32_t indexed = bits <= 8 ? 1U << bits : 0;
    const std::uint32_t used = number32(dib, 32);
    if (used > 256 || (indexed != 0 && used > indexed)) return {};
    const std::uint64_t colours = used != 0 ? used : indexed;
    const std::uint64_t masks = compression == bitFields && headerSize == dibHeaderSize ? bitFieldMasks : 0;
    return headerSize + masks + colours * 4;
}

bool isDepth(std::uint32_t bits) {
    constexpr std::array<std::uint32_t, 6> depths{1, 4, 8, 16, 24, 32};
    return std::ranges::find(depths, bits) != depths.end();
}

bool fits(std::uint32_t bits, std::uint32_t compression, bool topDown) {
    switch (compression) {
        case uncompressed:
            return true;
        case runLength8:
            return bits == 8 && !topDown;
        case runLength4:
            return bits == 4 && !topDown;
        case bitFields:
            return bits == 16 || bits == 32;
        default:
            return false;
    }
}

bool isSide(std::int64_t length) {
    return length >= 1 && length <= longestSide;
}

/// Sets the size of a sound DIB; false when it is none.
bool measureDib(EncodedPicture& picture) {
    const Bytes dib(picture.bytes);
    if (dib.size() < dibHeaderSize) return false;
    const auto width = static_cast<std::int32_t>(number32(dib, 4));
    const std::int64_t signedHeight = static_cast<std::int32_t>(number32(dib, 8));
    const std::int64_t height = signedHeight < 0 ? -signedHeight : signedHeight;
    const std::uint32_t bits = number16(dib, 14);
    const std::uint32_t compression = number32(dib, 16);
    if (!isSide(width) || !isSide(height) || !isDepth(bits) || !fits(bits, compression, signedHeight < 0))
        return false;
    const auto start = pixelStart(dib, bits, compression);
    if (!start) return false;
    const std::uint64_t stride = (static_cast<std::uint64_t>(width) * bits + 31) / 32 * 4;
    const bool runs = compression == runLength8 || compression == runLength4;
    const std::uint64_t pixels = runs ? 1 : stride * static_cast<std::uint64_t>(height);
    if (*start + pixels > dib.size()) return false;
    picture.pixels = static_cast<std::size_t>(*start);
    picture.width = width;
    picture.height = static_cast<std::int32_t>(height);
    return true;
}

bool measurePng(EncodedPicture& picture) {
    const Bytes png(picture.bytes);
    if (png.size() < smallestPng || !std::ranges::equal(png.first(pngStart.size()), pngStart)) return false;
    const std::int64_t width = bigEndian32(png, pngWidth);
    const std::int64_t height = bigEndian32(png, pngHeight);
    if (!isSide(width) || !isSide(height)) return false;
    picture.width = static_cast<std::int32_t>(width);
    picture.height = static_cast<std::int32_t>(height);
    return true;
}

std::optional<EncodedPicture> readPart(FileReader& file, std::uint8_t code, std::uint32_t start,
                                       std::uint32_t length) {
    if (code != dibCode && code != pngCode) return {};
    if (length > largestPicture || std::uint64_t{start} + length > file.size()) return {};
    EncodedPicture picture;
    picture.kind = code == pngCode ? EncodedPicture::Kind::png : EncodedPicture::Kind::dib;
    picture.bytes = file.read(start, length);
    const bool sound = code == pngCode ? measurePng(picture) : measureDib(picture);
    if (!sound) return {};
    return picture;
}

}  // namespace

std::optional<EncodedPicture> readPreviewPicture(FileReader& file) {
    const std::vector<std::uint8_t> head = file.read(0, headSize);
    if (head.size() < headSize || !hasKnownRelease(head)) return {};
    const std::uint32_t pointer = number32(head, sectionPointer);
    if (pointer == 0) return {};
    const std::vector<std::uint8_t> section = file.read(pointer, firstPart + mostParts * partSize);
    if (section.size() < firstPart || !std::ranges::equal(Bytes(section).first(sentinel.size()), sentinel))
        return {};
    const std::size_t parts = section[partCount];
    if (parts > mostParts || section.size() < firstPart + parts * partSize) return {};
    for (std::size_t i = 0; i < parts; ++i) {
        const std::size_t at = firstPart + i * partSize;
        auto picture = readPart(file, section[at], number32(section, at + 1), number32(section, at + 5));
        if (picture) return picture;
    }
    return {};
}

}  // namespace blattwart
