#include "data/CTyp.h"

#include "platform/Platform.h"

namespace blattwart {

void CTyp::ReadFromDatabase(Recordset& row, const LibraryFolders& folders) {
    TypenId = row.number(L"TypenId");
    typ = row.textOrNothing(L"typ");
    Verzeichnis = row.textOrNothing(L"Verzeichnis");
    if (Verzeichnis.empty() && TypenId == 1) Verzeichnis = folders.templates();
    if (Verzeichnis.empty()) Verzeichnis = folders.application + L"\\Bibliothek\\" + typ;
    Info = row.textOrNothing(L"Info");
}

bool CTyp::WriteToDatabase(Recordset& row, MessageBoxes& messages) const {
    try {
        row.put(L"Verzeichnis", Verzeichnis);
        row.Update();
        return false;
    } catch (const RuntimeError&) {
        messages.warn(L"Speicherung der Verzeichnisse nicht möglich!");
        return true;
    }
}

}  // namespace blattwart
