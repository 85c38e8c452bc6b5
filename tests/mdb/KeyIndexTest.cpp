#include "mdb/KeyIndex.h"

#include <gtest/gtest.h>

#include <map>

namespace demo::mdb {
namespace {

std::uint32_t bigEndian(std::span<const std::uint8_t> bytes) {
    std::uint32_t number = 0;
    for (const auto byte : bytes) number = number << 8 | byte;
    return number;
}

std::uint32_t littleEndian32(std::span<const std::uint8_t> page, std::size_t offset) {
    const std::array bytes = {page[offset + 3], page[offset + 2], page[offset + 1], page[offset]};
    return bigEndian(bytes);
}

/// The entries of an index page, cut where its mask says that they end.
std::vector<std::vector<std::uint8_t>> entriesOf(std::span<const std::uint8_t> page) {
    std::vector<std::vector<std::uint8_t>> entries;
    std::size_t start = 0;
    for (std::size_t bit = 0; bit < 453 * 8; ++bit) {
        if ((page[27 + bit / 8] >> (bit % 8) & 1) == 0) continue;
        entries.emplace_back(page.begin() + 480 + start, page.begin() + 480 + bit);
        start = bit;
    }
    return entries;
}

using KeyAndRow = std::pair<const std::int32_t, std::uint32_t>;

void expectEntry(std::span<const std::uint8_t> entry, const KeyAndRow& expected) {
    ASSERT_EQ(entry.size(), 9U);
    EXPECT_EQ(static_cast<std::int32_t>(bigEndian(entry.subspan(1, 4)) ^ 0x80000000U), expected.first);
    EXPECT_EQ(bigEndian(entry.subspan(5, 3)), 70000U);
    EXPECT_EQ(entry[8], expected.second);
}

// The programs that read the file here do not look into the index; the one that does is not at hand.
TEST(KeyIndex, LeadsFromRootOverLeavesToEveryRow) {
    PageFile file;
    std::vector<KeyEntry> keys;
    std::map<std::int32_t, std::uint32_t> rowOf;
    for (std::int32_t i = 0; i < 1000; ++i) {
        keys.push_back({(i * 617) % 1000 - 500, {70000, static_cast<std::uint32_t>(i % 255)}});
        rowOf[keys.back().key] = keys.back().place.row;
    }
    const auto pages = writeKeyIndex(file, 4, keys);
    ASSERT_EQ(pages.size(), 4U);
    const auto root = std::as_const(file.page(pages.back())).view();
    ASSERT_EQ(root[0], 3);

    std::vector<std::uint32_t> leaves;
    for (const auto& entry : entriesOf(root)) leaves.push_back(bigEndian(std::span(entry).subspan(9)));
    leaves.push_back(littleEndian32(root, 20));
    auto expected = rowOf.begin();
    for (std::size_t i = 0; i < leaves.size(); ++i) {
        const auto leaf = std::as_const(file.page(leaves[i])).view();
        EXPECT_EQ(leaf[0], 4);
        EXPECT_EQ(littleEndian32(leaf, 4), 4U);
        EXPECT_EQ(littleEndian32(leaf, 12), i == 0 ? 0 : leaves[i - 1]);
        EXPECT_EQ(littleEndian32(leaf, 16), i + 1 == leaves.size() ? 0 : leaves[i + 1]);
        for (const auto& entry : entriesOf(leaf)) expectEntry(entry, *expected++);
    }
    EXPECT_EQ(expected, rowOf.end());
}

}  // namespace
}  // namespace demo::mdb
