#include "demo/mdb/KeyIndex.h"

#include <algorithm>

#include "platform/RuntimeError.h"

namespace demo::mdb {

namespace {

constexpr std::uint32_t leafKind = 4;
constexpr std::uint32_t nodeKind = 3;
constexpr std::size_t maskStart = 27;
constexpr std::size_t entriesStart = 480;
constexpr std::size_t entriesRoom = pageSize - entriesStart;

using Entries = std::vector<Bytes>;

struct Neighbours {
    std::uint32_t previous = 0;
    std::uint32_t next = 0;
    /// On a node: the last child, which has no entry.
    std::uint32_t tail = 0;
};

Bytes leafEntry(const KeyEntry& entry) {
    constexpr std::uint32_t valueFollows = 0x7F;
    constexpr std::uint32_t signBit = 0x80000000;
    Bytes bytes;
    bytes.add8(valueFollows);
    bytes.add32BigEndian(static_cast<std::uint32_t>(entry.key) ^ signBit);
    bytes.add24BigEndian(entry.place.page);
    bytes.add8(entry.place.row);
    return bytes;
}

void fillPage(Bytes& page, std::uint32_t kind, std::uint32_t owner, const Neighbours& neighbours,
              const Entries& entries) {
    page.set8(0, kind);
    page.set8(1, 1);
    page.set32(4, owner);
    page.set32(12, neighbours.previous);
    page.set32(16, neighbours.next);
    page.set32(20, neighbours.tail);
    std::size_t end = 0;
    for (const auto& entry : entries) {
        page.set(entriesStart + end, entry);
        end += entry.size();
        page.setBit(maskStart, end);
    }
    page.set16(2, static_cast<std::uint32_t>(entriesRoom - end));
}

Entries sortedEntries(const std::vector<KeyEntry>& keys) {
    auto sorted = keys;
    std::ranges::sort(sorted, {}, &KeyEntry::key);
    if (std::ranges::adjacent_find(sorted, {}, &KeyEntry::key) != sorted.end())
        throw blattwart::RuntimeError(blattwart::errorNumber::duplicateKey,
                                      L"Der Primärschlüssel ist nicht eindeutig.");
    Entries entries;
    for (const auto& key : sorted) entries.push_back(leafEntry(key));
    return entries;
}

std::vector<Entries> splitIntoLeaves(const Entries& entries) {
    std::vector<Entries> leaves(1);
    std::size_t room = entriesRoom;
    for (const auto& entry : entries) {
        if (entry.size() > room) {
            leaves.emplace_back();
            room = entriesRoom;
        }
        leaves.back().push_back(entry);
        room -= entry.size();
    }
    return leaves;
}

void addRoot(PageFile& file, std::uint32_t owner, const std::vector<Entries>& leaves, IndexPages& pages) {
    Entries entries;
    for (std::size_t i = 0; i + 1 < leaves.size(); ++i) {
        auto entry = leaves[i].back();
        entry.add32BigEndian(pages[i]);
        entries.push_back(entry);
    }
    Neighbours neighbours;
    neighbours.tail = pages.back();
    const auto root = file.allocate();
    fillPage(file.page(root), nodeKind, owner, neighbours, entries);
    pages.push_back(root);
}

}  // namespace

IndexPages writeKeyIndex(PageFile& file, std::uint32_t owner, const std::vector<KeyEntry>& entries) {
    const auto leaves = splitIntoLeaves(sortedEntries(entries));
    IndexPages pages;
    for (std::size_t i = 0; i < leaves.size(); ++i) pages.push_back(file.allocate());
    for (std::size_t i = 0; i < leaves.size(); ++i) {
        Neighbours neighbours;
        if (i > 0) neighbours.previous = pages[i - 1];
        if (i + 1 < leaves.size()) neighbours.next = pages[i + 1];
        fillPage(file.page(pages[i]), leafKind, owner, neighbours, leaves[i]);
    }
    if (leaves.size() > 1) addRoot(file, owner, leaves, pages);
    return pages;
}

}  // namespace demo::mdb
