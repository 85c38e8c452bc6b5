#include "data/CBloecke.h"

#include "data/RowReader.h"

namespace blattwart {

CBloecke::Element CBloecke::AddBlock(const std::wstring& Bezeichnung, double FaktorX, double FaktorY,
                                     double FaktorZ, double Drehung, std::int32_t blockId, std::int32_t objId,
                                     std::int32_t VorlagenId, std::int32_t TypenId, const std::wstring& block,
                                     double EinfPunktX, double EinfPunktY, double EinfPunktZ,
                                     const std::wstring& /*unused*/, const std::wstring& key) {
    auto item = std::make_shared<CBlock>();
    item->Bezeichnung = Bezeichnung;
    item->FaktorX = FaktorX;
    item->FaktorY = FaktorY;
    item->FaktorZ = FaktorZ;
    item->Drehung = Drehung;
    item->blockId = blockId;
    item->objId = objId;
    item->VorlagenId = VorlagenId;
    item->TypenId = TypenId;
    item->block = block;
    item->EinfPunktX = EinfPunktX;
    item->EinfPunktY = EinfPunktY;
    item->EinfPunktZ = EinfPunktZ;
    return Add(std::move(item), key);
}

bool CBloecke::readBlocks(Recordset& rows, Collection<CBlock>& blocks) {
    return readRows(
        rows, blocks, [&rows](CBlock& block) { block.ReadFromDatabase(rows); },
        [](const CBlock& block) { return block.blockId; });
}

}  // namespace blattwart
