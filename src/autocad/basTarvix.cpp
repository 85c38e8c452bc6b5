#include "autocad/basTarvix.h"

namespace blattwart {

namespace {

constexpr std::int16_t searchEnd = 2500;

}  // namespace

std::wstring layoutName(const std::wstring& baseName, std::int16_t number) {
    const std::wstring name = number == 0 ? baseName : baseName + std::to_wstring(number);
    const std::size_t first = name.find_first_not_of(L' ');
    if (first == std::wstring::npos) return {};
    return name.substr(first, name.find_last_not_of(L' ') - first + 1);
}

MacroRun basTarvix::RunHostMacro(const std::wstring& name) {
    autoCAD_.BringAutoCADToFront();
    return run(name, [] { return true; });
}

MacroRun basTarvix::DeleteLayout(const host::Document& document, const host::Layout& layout,
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

MacroRun basTarvix::run(const std::wstring& name, const std::function<bool()>& ready) {
    bool answerLost = false;
    bool answered = true;
    const auto works = [&](const auto& call) {
        try {
            call();
            return true;
        } catch (const RuntimeError& error) {
            answerLost = isAnswerLost(error);
            answered = answered && !isNotAnswering(error) && !isGone(error);
            return false;
        }
    };
    const auto runMacro = [&](const std::wstring& macro) {
        return works([&] { autoCAD_.gAcadApp.RunMacro(L"Programm." + macro); });
    };
    if (!ready()) return MacroRun::failed;
    if (runMacro(name)) return MacroRun::ran;
    bool projectThere = false;
    // A routine that may have run must not run twice: it would delete another layout.
    if (!answerLost) {
        projectThere =
            works([&] { autoCAD_.gAcadApp.LoadDVB(platform_.files.applicationFolder() + L"\\Tarvix.dvb"); });
        projectThere = runMacro(L"TX_Starten") || projectThere;
        if (!ready()) return MacroRun::failed;
        if (runMacro(name)) return MacroRun::ran;
    }
    platform_.messages.warn(L"Bitte rufen Sie Tarvix über das AutoCAD-Menü auf!");
    const bool without = answered && !projectThere && !autoCAD_.hostIsEstablished();
    return without ? MacroRun::withoutProject : MacroRun::failed;
}

host::Document basTarvix::CreateLayout(const std::wstring& drawing) {
    host::Document chosen;
    if (!drawing.empty()) {
        const FoundDocuments found = autoCAD_.find(drawing);
        if (found.outcome == Lookup::noAnswer) {
            autoCAD_.tellNoAnswer();
            return {};
        }
        if (found.outcome == Lookup::notOpen)
            throw RuntimeError(errorNumber::elementNotFound,
                               L"Die Zeichnung ist in AutoCAD nicht mehr geöffnet!");
        for (const host::Document& document : found.documents) autoCAD_.activate(document);
        chosen = found.last();
    }
    const MacroRun macro = RunHostMacro(L"TX_Layout");
    if (macro == MacroRun::withoutProject && createsWithoutProject()) {
        return chosen ? chosen : autoCAD_.fetchActiveDocument();
    }
    autoCAD_.BringAutoCADToFront();
    return {};
}

bool basTarvix::createsWithoutProject() {
    const std::wstring& host = autoCAD_.hostName();
    if (createsWithoutProject_.contains(host)) return true;
    if (!platform_.messages.ask(L"Soll das Layout ohne Tarvix erstellt werden?")) return false;
    createsWithoutProject_.insert(host);
    return true;
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
        const std::wstring name = layoutName(base, candidate);
        if (!name.empty() && !names.contains(name)) return candidate;
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
        ignoringErrors([this] { autoCAD_.fetchActiveDocument(); });
    }
    return true;
}

void basTarvix::typeCopies(const std::wstring& sourceName, std::wstring& newBaseName, std::int16_t copies) {
    const host::Document& document = autoCAD_.gAcadDoc;
    const std::set<std::wstring> names = layoutNames(document);
    LongRead work(platform_.readings, L"Layouts werden kopiert");
    std::wstring first;
    // One copy takes the bare name while it is free, several are numbered from 1. Intended.
    std::int16_t counter = copies == 1 ? 0 : 1;
    for (std::int16_t i = 0; i < copies; ++i) {
        if (i > 0 && autoCAD_.refusesWhileCommandRuns(document)) return;
        if (i > 0 && !work.goOn()) break;
        const std::wstring name = layoutName(newBaseName, NextFreeLayoutNumber(names, newBaseName, counter));
        document.SendCommand(autoCAD_.textOf(TypedCommand::copyLayout, {sourceName, name}));
        if (first.empty()) first = name;
    }
    if (copies == 1) newBaseName = first;
    autoCAD_.typeCommand(document, TypedCommand::setLayout, {first});
}

}  // namespace blattwart
