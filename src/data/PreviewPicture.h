#pragma once

#include <optional>

#include "platform/EncodedPicture.h"
#include "platform/Files.h"

namespace blattwart {

/// The small picture that a drawing or template file carries of itself; none when it is no drawing of release
/// 13 or later, carries no picture (which is normal), or is damaged. Reads no more than the head, the table
/// of contents and the picture itself. Throws RuntimeError when the file cannot be read.
std::optional<EncodedPicture> readPreviewPicture(FileReader& file);

}  // namespace blattwart
