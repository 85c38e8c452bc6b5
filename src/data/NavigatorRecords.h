#pragma once

#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <utility>

#include "data/CAcadobj.h"
#include "data/Collection.h"
#include "data/CVorlage.h"
#include "data/NodeKey.h"
#include "platform/RuntimeError.h"

namespace blattwart {

/// `Vorhanden` of a record that the last refresh has met.
inline constexpr std::int16_t present = -1;

/// Records looked up by the key of the node or list entry that they stand behind, too.
template <class Record>
class RecordCollection : public Collection<Record> {
  public:
    using Collection<Record>::Item;

    /// Adds a record under its own number.
    void add(std::shared_ptr<Record> record) {
        std::wstring key = std::to_wstring(record->Nummer);
        this->Add(std::move(record), key);
    }
    /// Throws RuntimeError (invalid call) where there is none.
    std::shared_ptr<Record> Item(const NodeKey& key) const { return Item(std::to_wstring(key.number())); }
};

/// The records behind the navigator's nodes and list entries, and their running number.
struct NavigatorRecords {
    RecordCollection<CAcadobj> DrawingRecords;
    RecordCollection<CAcadobj> LayoutRecords;
    RecordCollection<CVorlage> TemplateRecords;
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

}  // namespace blattwart
