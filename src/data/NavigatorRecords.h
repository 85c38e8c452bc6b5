#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

#include "data/CAcadobj.h"
#include "data/Collection.h"
#include "data/CVorlage.h"
#include "platform/Conversions.h"
#include "platform/RuntimeError.h"

namespace blattwart {

/// `Vorhanden` of a record that the last refresh has met.
inline constexpr std::int16_t present = -1;

/// The records behind the navigator's nodes and list entries, and their running number.
struct NavigatorRecords {
    Collection<CAcadobj> DrawingRecords;
    Collection<CAcadobj> LayoutRecords;
    Collection<CVorlage> TemplateRecords;
    std::int32_t LastNumber = 0;
    /// The library folder as read at the last scan, without a backslash at its end.
    std::wstring TemplateFolder;

    /// Counts one drawing, layout or template. Throws overflow at the end of the numbers.
    void countNext() {
        if (LastNumber == std::numeric_limits<std::int32_t>::max())
            throw RuntimeError(errorNumber::overflow, L"Überlauf");
        ++LastNumber;
    }
};

/// The collection key in a node's or list entry's key: what follows the kind letter, read as a number.
inline std::wstring recordKey(std::wstring_view nodeKey) {
    const std::wstring_view digits = nodeKey.empty() ? nodeKey : nodeKey.substr(1);
    return std::to_wstring(toInt32(numericPrefix(digits)));
}

}  // namespace blattwart
