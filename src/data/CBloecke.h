#pragma once

#include "data/CBlock.h"
#include "data/Collection.h"

namespace blattwart {

/// Block placements, keyed by the decimal text of their ids.
class CBloecke {
  public:
    using Element = Collection<CBlock>::Element;

    Element Add(Element item, const std::wstring& key = {}) { return blocks_.Add(std::move(item), key); }
    /// The string before the key is not used.
    Element AddBlock(const std::wstring& Bezeichnung, double FaktorX, double FaktorY, double FaktorZ,
                     double Drehung, std::int32_t blockId, std::int32_t objId, std::int32_t VorlagenId,
                     std::int32_t TypenId, const std::wstring& block, double EinfPunktX, double EinfPunktY,
                     double EinfPunktZ, const std::wstring& unused, const std::wstring& key = {});
    void Clear() { blocks_.Clear(); }
    /// Replaces the blocks by the rows.
    void ReadFromDatabase(Recordset& rows) { readBlocks(rows, blocks_); }
    /// By key (text) or by position (number, from 1). Throws RuntimeError when there is none.
    Element Item(const std::wstring& key) const { return blocks_.Item(key); }
    Element Item(std::int32_t position) const { return blocks_.Item(position); }
    std::int32_t Count() const { return blocks_.Count(); }
    void Remove(const std::wstring& key) { blocks_.Remove(key); }
    void Remove(std::int32_t position) { blocks_.Remove(position); }
    auto begin() const { return blocks_.begin(); }
    auto end() const { return blocks_.end(); }

    /// Replaces the collection's blocks by the rows. Returns whether every row was read.
    static bool readBlocks(Recordset& rows, Collection<CBlock>& blocks);

  private:
    Collection<CBlock> blocks_;
};

}  // namespace blattwart
