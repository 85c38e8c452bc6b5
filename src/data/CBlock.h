#pragma once

#include <cstdint>
#include <string>

#include "data/Recordset.h"

namespace blattwart {

/// One placement of a block that belongs to a template.
struct CBlock {
    double EinfPunktZ = 0;  ///< insertion point
    double EinfPunktY = 0;
    double EinfPunktX = 0;
    std::wstring block;  ///< name of the block
    std::int32_t TypenId = 0;
    std::int32_t VorlagenId = 0;
    std::int32_t objId = 0;  ///< of a drawing object; not from the database
    std::int32_t blockId = 0;
    double Drehung = 0;  ///< rotation
    double FaktorZ = 0;  ///< scale factors
    double FaktorY = 0;
    double FaktorX = 0;
    std::wstring Bezeichnung;  ///< label shown to the user

    /// Takes the values of the current row. A cell without a usable value leaves its property as it was.
    void ReadFromDatabase(Recordset& row);

    std::wstring Layer;
};

}  // namespace blattwart
