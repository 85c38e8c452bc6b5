#include "demo/mdb/UsageMaps.h"

#include "platform/RuntimeError.h"

namespace demo::mdb {

Bytes usageMap(const std::vector<std::uint32_t>& pages) {
    constexpr std::size_t header = 5;
    Bytes map(header + pageLimit / 8);
    for (const auto page : pages) map.setBit(header, page);
    return map;
}

std::uint32_t UsageMaps::add(const std::vector<std::uint32_t>& pages) {
    auto map = usageMap(pages);
    if (!fitsDataPage(maps_, map))
        throw blattwart::RuntimeError(blattwart::errorNumber::overflow,
                                      L"Die Datenbank hat zu viele Tabellen.");
    maps_.push_back(std::move(map));
    return static_cast<std::uint32_t>(maps_.size() - 1) | page_ << 8;
}

}  // namespace demo::mdb
