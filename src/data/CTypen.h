#pragma once

#include "data/Collection.h"
#include "data/CTyp.h"

namespace blattwart {

/// The types of templates, keyed by the decimal text of their ids.
class CTypen {
  public:
    using Element = Collection<CTyp>::Element;

    Element Add(Element item, const std::wstring& key = {}) { return types_.Add(std::move(item), key); }
    void Clear() { types_.Clear(); }
    /// Replaces the types by the rows. Returns whether every row was read.
    bool ReadFromDatabase(Recordset& rows, const LibraryFolders& folders);
    /// Writes the folders of the types into their rows, from the current row to the last. Rows of unknown
    /// types are passed over. Returns whether writing failed somewhere.
    bool WriteToDatabase(Recordset& rows, MessageBoxes& messages) const;
    /// By key (text) or by position (number, from 1). Throws RuntimeError when there is none.
    Element Item(const std::wstring& key) const { return types_.Item(key); }
    Element Item(std::int32_t position) const { return types_.Item(position); }
    std::int32_t Count() const { return types_.Count(); }
    void Remove(const std::wstring& key) { types_.Remove(key); }
    void Remove(std::int32_t position) { types_.Remove(position); }
    auto begin() const { return types_.begin(); }
    auto end() const { return types_.end(); }
    Element AddTyp(std::int32_t TypenId, const std::wstring& typ, const std::wstring& Verzeichnis,
                   const std::wstring& Info, const std::wstring& key = {});

  private:
    Collection<CTyp> types_;
};

}  // namespace blattwart
