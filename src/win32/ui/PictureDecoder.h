#pragma once

#include "platform/EncodedPicture.h"
#include "win32/base/Handles.h"

namespace blattwart {

/// The picture in its own size, 32 bits a pixel; where it is transparent the ground shows. Null when it
/// cannot be decoded.
Bitmap decode(const EncodedPicture& picture, COLORREF ground);

}  // namespace blattwart
