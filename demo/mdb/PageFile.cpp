#include "demo/mdb/PageFile.h"

#include "platform/RuntimeError.h"

namespace demo::mdb {

using blattwart::RuntimeError;

namespace {

constexpr std::size_t pageHead = 14;
constexpr std::size_t maxRows = 255;

}  // namespace

std::uint32_t PageFile::allocate() {
    if (pages_.size() == pageLimit)
        throw RuntimeError(blattwart::errorNumber::overflow, L"Die Datenbank wird zu groß.");
    pages_.emplace_back(pageSize);
    return pageCount() - 1;
}

bool fitsDataPage(const std::vector<Bytes>& rows, const Bytes& row) {
    std::size_t used = pageHead + row.size() + 2;
    for (const auto& other : rows) used += other.size() + 2;
    return used <= pageSize && rows.size() < maxRows;
}

Bytes dataPage(std::uint32_t owner, const std::vector<Bytes>& rows) {
    Bytes page(pageSize);
    page.set8(0, 1);
    page.set8(1, 1);
    page.set32(4, owner);
    page.set16(12, static_cast<std::uint32_t>(rows.size()));
    std::size_t start = pageSize;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        start -= rows[i].size();
        page.set(start, rows[i]);
        page.set16(pageHead + 2 * i, static_cast<std::uint32_t>(start));
    }
    page.set16(2, static_cast<std::uint32_t>(start - pageHead - 2 * rows.size()));
    return page;
}

}  // namespace demo::mdb
