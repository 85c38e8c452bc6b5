#pragma once

#include <vector>

#include "demo/mdb/PageFile.h"

namespace demo::mdb {

/// A usage map of the short form: the bits of these pages are set.
Bytes usageMap(const std::vector<std::uint32_t>& pages);

/// The usage maps of all tables, which are the rows of one data page.
class UsageMaps {
  public:
    explicit UsageMaps(std::uint32_t page) : page_(page) {}

    /// Adds a map of these pages and returns the reference to it. Throws RuntimeError when the page is full.
    std::uint32_t add(const std::vector<std::uint32_t>& pages);
    Bytes page() const { return dataPage(0, maps_); }

  private:
    std::uint32_t page_;
    std::vector<Bytes> maps_;
};

}  // namespace demo::mdb
