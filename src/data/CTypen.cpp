#include "data/CTypen.h"

#include "data/RowReader.h"

namespace blattwart {

bool CTypen::ReadFromDatabase(Recordset& rows, const LibraryFolders& folders) {
    return readRows(
        rows, types_, [&](CTyp& type) { type.ReadFromDatabase(rows, folders); },
        [](const CTyp& type) { return type.TypenId; });
}

bool CTypen::WriteToDatabase(Recordset& rows, MessageBoxes& messages) const {
    bool failed = false;
    const bool wentThrough = ignoringErrors([&] {
        for (; !rows.atEnd(); rows.MoveNext()) {
            Element type;
            if (ignoringErrors([&] { type = Item(std::to_wstring(rows.number(L"TypenId"))); })) {
                failed |= type->WriteToDatabase(rows, messages);
            }
        }
    });
    return failed || !wentThrough;
}

CTypen::Element CTypen::AddTyp(std::int32_t TypenId, const std::wstring& typ, const std::wstring& Verzeichnis,
                               const std::wstring& Info, const std::wstring& key) {
    auto type = std::make_shared<CTyp>();
    type->TypenId = TypenId;
    type->typ = typ;
    type->Verzeichnis = Verzeichnis;
    type->Info = Info;
    return Add(std::move(type), key);
}

}  // namespace blattwart
