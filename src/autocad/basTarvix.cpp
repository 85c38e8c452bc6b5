#include "autocad/basTarvix.h"

namespace blattwart {

namespace {

constexpr std::int16_t searchEnd = 2500;

std::wstring numbered(const std::wstring& baseName, std::int16_t number) {
    return number == 0 ? baseName : baseName + std::to_wstring(number);
}

}  // namespace

bool basTarvix::RunHostMacro(const std::wstring& name) {
    autoCAD_.BringAutoCADToFront();
    bool answerLost = false;
    const auto runMacro = [&](const std::wstring& macro) {
        try {
            autoCAD_.gAcadApp.RunMacro(L"Programm." + macro);
            return true;
        } catch (const RuntimeError& error) {
            answerLost = isAnswerLost(error);
            return false;
        }
    };
    if (runMacro(name)) return true;
    // A routine that may have run must not run twice: it would delete another layout.
    if (!answerLost) {
        ignoringErrors(
            [&] { autoCAD_.gAcadApp.LoadDVB(platform_.files.applicationFolder() + L"\\Tarvix.dvb"); });
        runMacro(L"TX_Starten");
        if (runMacro(name)) return true;
    }
    platform_.messages.warn(L"Bitte rufen Sie Tarvix über das AutoCAD-Menü auf!");
    return false;
}

void basTarvix::CreateLayout(const std::wstring& drawing) {
    if (!drawing.empty()) {
        const auto documents = autoCAD_.documentsNamed(drawing);
        if (documents.empty())
            throw RuntimeError(errorNumber::elementNotFound,
                               L"Die Zeichnung ist in AutoCAD nicht mehr geöffnet!");
        for (const host::Document& document : documents) autoCAD_.activate(document);
    }
    RunHostMacro(L"TX_Layout");
    autoCAD_.BringAutoCADToFront();
}

std::set<std::wstring> basTarvix::layoutNames(const host::Document& document) {
    std::set<std::wstring> names;
    ignoringErrors([&] {
        for (const host::Layout& layout : document.Layouts().all())
            ignoringErrors([&] { names.insert(platform_.locale.upperCase(layout.Name())); });
    });
    return names;
}

std::int16_t basTarvix::NextFreeLayoutNumber(const std::set<std::wstring>& names,
                                             const std::wstring& baseName, std::int16_t& counter) {
    const std::wstring base = platform_.locale.upperCase(baseName);
    while (counter < searchEnd) {
        const std::int16_t candidate = counter++;
        if (!names.contains(numbered(base, candidate))) return candidate;
    }
    return 0;
}

bool basTarvix::copyLayout(const std::wstring& sourceName, const std::wstring& newName) {
    return autoCAD_.typeCommand(autoCAD_.gAcadDoc, {L"_layout", L"_copy", sourceName, newName});
}

bool basTarvix::CopyLayouts(const std::wstring& sourceName, std::wstring& newBaseName, std::int16_t copies) {
    try {
        std::set<std::wstring> names = layoutNames(autoCAD_.gAcadDoc);
        std::wstring first;
        // One copy takes the bare name while it is free, several are numbered from 1. Intended.
        std::int16_t counter = copies == 1 ? 0 : 1;
        for (std::int16_t i = 0; i < copies; ++i) {
            const std::wstring name =
                numbered(newBaseName, NextFreeLayoutNumber(names, newBaseName, counter));
            if (!copyLayout(sourceName, name)) return false;
            names.insert(platform_.locale.upperCase(name));
            if (first.empty()) first = name;
        }
        if (copies == 1) newBaseName = first;
        return autoCAD_.typeCommand(autoCAD_.gAcadDoc, {L"_layout", L"_set", first});
    } catch (const RuntimeError&) {
        platform_.messages.reportError(L"Kopieren des neuen Layouts fehlgeschlagen!");
        return false;
    }
}

}  // namespace blattwart
