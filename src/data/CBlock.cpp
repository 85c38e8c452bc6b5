#include "data/CBlock.h"

namespace blattwart {

void CBlock::ReadFromDatabase(Recordset& row) {
    const auto readNumber = [&row](std::wstring_view column, std::int32_t& property) {
        ignoringErrors([&] { property = row.number(column); });
    };
    const auto readText = [&row](std::wstring_view column, std::wstring& property) {
        ignoringErrors([&] { property = row.text(column); });
    };
    const auto readReal = [&row](std::wstring_view column, double& property) {
        ignoringErrors([&] { property = row.real(column); });
    };
    readNumber(L"blockId", blockId);
    readNumber(L"TypenId", TypenId);
    readNumber(L"VorlagenId", VorlagenId);
    readText(L"block", block);
    readText(L"Bezeichnung", Bezeichnung);
    readReal(L"EinfPunktX", EinfPunktX);
    readReal(L"EinfPunktY", EinfPunktY);
    readReal(L"EinfPunktZ", EinfPunktZ);
    readReal(L"FaktorX", FaktorX);
    readReal(L"FaktorY", FaktorY);
    readReal(L"FaktorZ", FaktorZ);
    readReal(L"Drehung", Drehung);
    readText(L"Layer", Layer);
}

}  // namespace blattwart
