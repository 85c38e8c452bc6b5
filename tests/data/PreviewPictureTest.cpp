#include "data/PreviewPicture.h"

#include <gtest/gtest.h>

#include <functional>

#include "support/DrawingFile.h"
#include "support/FakeFiles.h"

namespace blattwart::test {

namespace {

std::optional<EncodedPicture> read(const Bytes& bytes) {
    FakeFileReader file(bytes);
    return readPreviewPicture(file);
}

struct Change {
    const char* name;
    std::function<void(Bytes&)> make;
};

/// Expects that the picture is there, and that each change alone takes it away.
void expectRefused(const Bytes& sound, const std::vector<Change>& changes) {
    ASSERT_TRUE(read(sound));
    for (const Change& change : changes) {
        Bytes bytes = sound;
        change.make(bytes);
        EXPECT_FALSE(read(bytes)) << change.name;
    }
}

Change number(const char* name, std::size_t at, std::uint32_t value) {
    return {name, [=](Bytes& bytes) { put32(bytes, at, value); }};
}

}  // namespace

TEST(PreviewPicture, IsFoundWithItsSizeAndNoMoreIsReadThanItTakes) {
    for (const bool isPng : {false, true}) {
        const Bytes picture = isPng ? png() : dib();
        FakeFileReader file(drawing(isPng ? 6 : 2, picture));
        const auto found = readPreviewPicture(file);
        ASSERT_TRUE(found);
        EXPECT_EQ(found->kind, isPng ? EncodedPicture::Kind::png : EncodedPicture::Kind::dib);
        EXPECT_EQ(found->bytes, picture);
        EXPECT_EQ(found->pixels, isPng ? 0u : 40u + 1024u);
        EXPECT_EQ(found->width, isPng ? 256 : 5);
        EXPECT_EQ(found->height, isPng ? 94 : 2);
        EXPECT_LE(file.bytesRead, 0x20 + 21 + 16 * 9 + picture.size());
    }
}

TEST(PreviewPicture, IsMissingInWhatIsNoDrawingOrHoldsNone) {
    const Bytes sound = drawing(2, dib());
    expectRefused(sound, {number("other file", 0, 0x04034B50),
                          {"too old a release", [](Bytes& b) { b[4] = '0', b[5] = '9'; }},
                          {"release without a number", [](Bytes& b) { b[5] = 'x'; }},
                          number("no pointer", 0x0D, 0),
                          number("pointer behind the end", 0x0D, 0xFFFFFFF0),
                          {"other sentinel", [](Bytes& b) { b[section + 15] = 0; }},
                          {"too many parts", [](Bytes& b) { b[section + 20] = 17; }},
                          {"no parts", [](Bytes& b) { b[section + 20] = 0; }},
                          {"a metafile", [](Bytes& b) { b[firstPart + 9] = 3; }},
                          number("picture behind the end", firstPart + 10, 0xFFFFFFFF),
                          number("longer than the file", firstPart + 14, 200000),
                          {"cut short", [](Bytes& b) { b.resize(0x1F); }},
                          {"cut within the parts", [](Bytes& b) { b.resize(firstPart + 10); }}});
    Bytes large = drawing(2, dib());
    large.resize((64U << 20) + 1000);
    put32(large, firstPart + 14, (64U << 20) + 1);
    EXPECT_FALSE(read(large)) << "more than 64 MB";
}

TEST(PreviewPicture, IsRefusedWhereItsHeaderPromisesMoreThanThereIs) {
    expectRefused(
        drawing(2, dib()),
        {number("small header", pictureAt, 39), number("huge header", pictureAt, 0x7FFFFFFF),
         number("no width", pictureAt + 4, 0), number("negative width", pictureAt + 4, 0xFFFFFFFB),
         number("wide", pictureAt + 4, 4097), number("no height", pictureAt + 8, 0),
         number("lowest height", pictureAt + 8, 0x80000000), number("high", pictureAt + 8, 3),
         number("high, upside down", pictureAt + 8, static_cast<std::uint32_t>(-3)),
         number("odd depth", pictureAt + 12, 7U << 16 | 1), number("wider than its bytes", pictureAt + 4, 9),
         number("unknown compression", pictureAt + 16, 5), number("runs of another depth", pictureAt + 16, 2),
         number("masks without colours", pictureAt + 16, 3), number("too many colours", pictureAt + 32, 257),
         number("length short of the pixels", firstPart + 14, 40 + 1024 + 15),
         number("length short of the header", firstPart + 14, 39)});
    expectRefused(drawing(6, png()), {{"signature", [](Bytes& b) { b[pictureAt + 1] = 'p'; }},
                                      {"chunk", [](Bytes& b) { b[pictureAt + 12] = 'X'; }},
                                      {"width", [](Bytes& b) { b[pictureAt + 18] = 0; }},
                                      {"height", [](Bytes& b) { b[pictureAt + 20] = 1; }},
                                      number("short", firstPart + 14, 32)});
}

TEST(PreviewPicture, MayBeUpsideDownRunLengthEncodedOrOfFewColours) {
    const auto reads = [](const Change& change) {
        Bytes bytes = drawing(2, dib());
        change.make(bytes);
        return read(bytes);
    };
    EXPECT_TRUE(reads(number("upside down", pictureAt + 8, static_cast<std::uint32_t>(-2))));
    EXPECT_TRUE(reads({"runs", [](Bytes& b) {
                           put32(b, pictureAt + 16, 1);
                           put32(b, pictureAt + 8, 4096);
                       }}));
    EXPECT_FALSE(reads({"runs upside down", [](Bytes& b) {
                            put32(b, pictureAt + 16, 1);
                            put32(b, pictureAt + 8, static_cast<std::uint32_t>(-2));
                        }}));
    const auto few = reads({"few colours", [](Bytes& b) {
                                put32(b, pictureAt + 32, 16);
                                put32(b, firstPart + 14, 40 + 64 + 16);
                            }});
    ASSERT_TRUE(few);
    EXPECT_EQ(few->pixels, 40u + 64u);
    const auto masks = reads({"masks", [](Bytes& b) {
                                  put32(b, pictureAt + 12, 16U << 16 | 1);
                                  put32(b, pictureAt + 16, 3);
                              }});
    ASSERT_TRUE(masks);
    EXPECT_EQ(masks->pixels, 40u + 12u);
}

}  // namespace blattwart::test
