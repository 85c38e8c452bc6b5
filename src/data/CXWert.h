#pragma once

#include <cstdint>
#include <string>

namespace blattwart {

/// One value of an object's extended data.
struct CXWert {
    std::wstring Wert;
    std::int16_t typ = 0;
};

}  // namespace blattwart
