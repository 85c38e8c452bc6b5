#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/Files.h"

namespace blattwart {

/// The small picture that a drawing or template file carries of itself.
struct PreviewPicture {
    enum class Kind { dib, png };

    Kind kind = Kind::dib;
    /// Pixels, 1 to 4096.
    std::int32_t width = 0;
    std::int32_t height = 0;
    /// A DIB from its BITMAPINFOHEADER on, with all pixels that the header promises; of a PNG the whole file,
    /// of which nothing but signature and size has been looked at.
    std::vector<std::uint8_t> bytes;
};

/// The file's picture; none when it is no drawing of release 13 or later, carries no picture (which is
/// normal), or is damaged. Reads no more than the head, the table of contents and the picture itself. Throws
/// RuntimeError when the file cannot be read.
std::optional<PreviewPicture> readPreviewPicture(FileReader& file);

}  // namespace blattwart
