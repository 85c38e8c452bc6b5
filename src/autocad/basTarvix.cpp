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
    return run(name, [] { return true; });
}

bool basTarvix::DeleteLayout(const host::Document& document, const host::Layout& layout,
                             const CAcadobj& record) {
    return run(L"TX_DelLayout", [&] {
        autoCAD_.BringAutoCADToFront();
        autoCAD_.activate(document);
        document.putActiveSpace(host::Space::paper);
        document.putActiveLayout(layout);
        const host::Document active = autoCAD_.gAcadApp.ActiveDocument();
        const std::wstring found = active.fullName() + L";" + active.ActiveLayout().Name();
        if (platform_.locale.equalIgnoringCase(found, record.Gesamt)) return true;
        platform_.messages.warn(L"Das Layout ist nicht mehr das aktive und wurde nicht gelöscht: " +
                                record.Layout);
        return false;
    });
}

bool basTarvix::run(const std::wstring& name, const std::function<bool()>& ready) {
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
    if (!ready()) return false;
    if (runMacro(name)) return true;
    // A routine that may have run must not run twice: it would delete another layout.
    if (!answerLost) {
        ignoringErrors(
            [&] { autoCAD_.gAcadApp.LoadDVB(platform_.files.applicationFolder() + L"\\Tarvix.dvb"); });
        runMacro(L"TX_Starten");
        if (!ready()) return false;
        if (runMacro(name)) return true;
    }
    platform_.messages.warn(L"Bitte rufen Sie Tarvix über das AutoCAD-Menü auf!");
    return false;
}

void basTarvix::CreateLayout(const std::wstring& drawing) {
    if (!drawing.empty()) {
        const FoundDocuments found = autoCAD_.find(drawing);
        if (found.outcome == Lookup::noAnswer) return autoCAD_.tellNoAnswer();
        if (found.outcome == Lookup::notOpen)
            throw RuntimeError(errorNumber::elementNotFound,
                               L"Die Zeichnung ist in AutoCAD nicht mehr geöffnet!");
        for (const host::Document& document : found.documents) autoCAD_.activate(document);
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

bool basTarvix::CopyLayouts(const std::wstring& sourceName, std::wstring& newBaseName, std::int16_t copies) {
    if (autoCAD_.refusesAnswer(sourceName) || autoCAD_.refusesAnswer(newBaseName) ||
        autoCAD_.refusesWhileCommandRuns(autoCAD_.gAcadDoc))
        return false;
    try {
        typeCopies(sourceName, newBaseName, copies);
    } catch (const RuntimeError&) {
        platform_.messages.reportError(L"Kopieren des neuen Layouts fehlgeschlagen!");
    }
    return true;
}

void basTarvix::typeCopies(const std::wstring& sourceName, std::wstring& newBaseName, std::int16_t copies) {
    const host::Document& document = autoCAD_.gAcadDoc;
    std::set<std::wstring> names = layoutNames(document);
    std::wstring first;
    // One copy takes the bare name while it is free, several are numbered from 1. Intended.
    std::int16_t counter = copies == 1 ? 0 : 1;
    for (std::int16_t i = 0; i < copies; ++i) {
        if (i > 0 && autoCAD_.refusesWhileCommandRuns(document)) return;
        const std::wstring name = numbered(newBaseName, NextFreeLayoutNumber(names, newBaseName, counter));
        document.SendCommand(commandText(TypedCommand::copyLayout, {sourceName, name}));
        names.insert(platform_.locale.upperCase(name));
        if (first.empty()) first = name;
    }
    if (copies == 1) newBaseName = first;
    autoCAD_.typeCommand(document, TypedCommand::setLayout, {first});
}

}  // namespace blattwart
