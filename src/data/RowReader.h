#pragma once

#include "data/Collection.h"
#include "data/Recordset.h"

namespace blattwart {

/// Empties the collection and fills it with one element a row, under the key of its id. A row that cannot be
/// read, or whose id another row has, is left out and does not cost the others; where the record set itself
/// gives up, the rows read so far stay. Returns whether every row was read.
template <class T, class ReadElement, class KeyOf>
bool readRows(Recordset& rows, Collection<T>& collection, ReadElement readElement, KeyOf keyOf) {
    collection.Clear();
    bool complete = true;
    const bool wentThrough = ignoringErrors([&] {
        if (!rows.atEnd()) rows.MoveFirst();
        while (!rows.atEnd()) {
            complete &= ignoringErrors([&] {
                auto element = std::make_shared<T>();
                readElement(*element);
                collection.Add(element, std::to_wstring(keyOf(*element)));
            });
            rows.MoveNext();
        }
    });
    return wentThrough && complete;
}

}  // namespace blattwart
