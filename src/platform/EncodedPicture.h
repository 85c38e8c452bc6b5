#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace blattwart {

/// A picture as a file holds it.
struct EncodedPicture {
    enum class Kind { dib, png };

    Kind kind = Kind::dib;
    /// Pixels, 1 to 4096.
    std::int32_t width = 0;
    std::int32_t height = 0;
    /// A DIB from its BITMAPINFOHEADER on, with all pixels that the header promises; of a PNG the whole file,
    /// of which nothing but signature and size has been looked at.
    std::vector<std::uint8_t> bytes;
    /// Of a DIB: where its pixels begin, behind masks and colours.
    std::size_t pixels = 0;
};

}  // namespace blattwart
