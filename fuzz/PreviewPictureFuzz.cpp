// The preview pictures of drawings: files of other programs, of which no length is to be trusted.
#include "data/PreviewPicture.h"
#include "Input.h"
#include "support/FakeFiles.h"

using namespace blattwart;
using fuzz::require;

void fuzz::fuzzPreviewPicture(const std::uint8_t* data, std::size_t size) {
    test::FakeFileReader file({data, data + size});
    const auto picture = readPreviewPicture(file);
    require(file.bytesRead <= 0x20 + 21 + 16 * 9 + 16 * size, "only head, contents and pictures are read");
    if (!picture) return;
    require(picture->width >= 1 && picture->width <= 4096, "the width is in its range");
    require(picture->height >= 1 && picture->height <= 4096, "the height is in its range");
    require(!picture->bytes.empty() && picture->bytes.size() <= size, "the picture is a part of the file");
}
