#pragma once

#include <cstdint>
#include <vector>

#include "demo/mdb/Bytes.h"

namespace demo::mdb {

inline constexpr std::size_t pageSize = 4096;
/// What one usage map in its short form covers.
inline constexpr std::uint32_t pageLimit = 512;

/// The pages of a file under construction.
class PageFile {
  public:
    /// Adds an empty page and returns its number. Throws RuntimeError when the file would have more than
    /// `pageLimit` pages.
    std::uint32_t allocate();
    Bytes& page(std::uint32_t number) { return pages_.at(number); }
    std::uint32_t pageCount() const { return static_cast<std::uint32_t>(pages_.size()); }
    const std::vector<Bytes>& pages() const { return pages_; }

  private:
    std::vector<Bytes> pages_;
};

/// Where a row lies: in which page and as which row of it.
struct RowPlace {
    std::uint32_t page;
    std::uint32_t row;
};

/// True when one more row fits a data page that holds `rows`.
bool fitsDataPage(const std::vector<Bytes>& rows, const Bytes& row);
/// A data page with these rows; `owner` is the page of the table definition.
Bytes dataPage(std::uint32_t owner, const std::vector<Bytes>& rows);

}  // namespace demo::mdb
