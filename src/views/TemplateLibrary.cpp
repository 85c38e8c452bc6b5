#include "views/TemplateLibrary.h"

#include "platform/Platform.h"

namespace blattwart {

std::wstring TemplateLibrary::ReadTemplateFolder(Reading reading) {
    answered_ = true;
    try {
        std::wstring folder = database_.types().Item(L"1")->Verzeichnis;
        if (folder.ends_with(L'\\')) folder.pop_back();
        answered_ = platform_.files.silent({folder}).empty();
        if (!answered_) return {};
        if (reading == Reading::anew) RemoveTemplateNodes();
        ResetTemplateFlags();
        records_.TemplateFolder = folder;
        for (const std::wstring& file : platform_.files.list(folder + L"\\*.dw*")) {
            const std::wstring upper = platform_.locale.upperCase(file);
            if (!upper.ends_with(L"DWG") && !upper.ends_with(L"DWT")) continue;
            records_.countNext();
            if (!FindTemplateRecord(file, folder)) tree_.AddTreeNode(file, true, false, 0);
        }
        RemoveStaleTemplates();
        return {};
    } catch (const RuntimeError&) {
        return L"Vorlagen-Ordner kann nicht gelesen werden!";
    }
}

void TemplateLibrary::ResetTemplateFlags() {
    byName_.clear();
    for (const auto& record : records_.TemplateRecords) {
        record->Vorhanden = 0;
        byName_.emplace(platform_.locale.upperCase(record->Gesamt), record.get());
    }
}

bool TemplateLibrary::FindTemplateRecord(const std::wstring& file, const std::wstring& folder) {
    const std::wstring fullName = folder + L"\\" + file;
    const std::wstring upper = platform_.locale.upperCase(fullName);
    const auto [begin, end] = byName_.equal_range(upper);
    for (auto entry = begin; entry != end; ++entry) entry->second->Vorhanden = present;
    if (begin != end) return true;

    auto record = std::make_shared<CVorlage>();
    record->Vorhanden = present;
    record->Nummer = records_.LastNumber;
    record->Datei = file;
    record->Gesamt = fullName;
    records_.TemplateRecords.add(record);
    byName_.emplace(upper, record.get());
    return false;
}

void TemplateLibrary::RemoveStaleTemplates() {
    // The records stay although their nodes go, as with the drawings; required so.
    for (const auto& record : records_.TemplateRecords)
        if (!record->Vorhanden) tree_.removeNode(NodeKey(NodeKind::libraryFile, record->Nummer));
}

void TemplateLibrary::RemoveTemplateNodes() {
    for (const auto& record : records_.TemplateRecords)
        tree_.removeNode(NodeKey(NodeKind::libraryFile, record->Nummer));
    records_.TemplateRecords.Clear();
}

}  // namespace blattwart
