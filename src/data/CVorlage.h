#pragma once

#include <cstdint>
#include <string>

namespace blattwart {

/// What the navigator knows about one template file.
struct CVorlage {
    std::int32_t Nummer = 0;
    std::int16_t Vorhanden = 0;  ///< `present` when met in the last refresh
    std::wstring Datei;          ///< file name
    std::wstring Gesamt;         ///< folder, backslash, file name
};

}  // namespace blattwart
