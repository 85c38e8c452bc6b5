#include "autocad/basAutoCAD.h"

#include <algorithm>

namespace blattwart {

namespace {

constexpr const wchar_t* automationName = L"AutoCAD.Application.18";

}  // namespace

bool basAutoCAD::IsAutoCADRunning() {
    return ignoringErrors([&] { platform_.automation.running(automationName); });
}

void basAutoCAD::ConnectAutoCAD() {
    gAcadDoc = {};
    gAcadApp = {};
    ignoringErrors([&] { gAcadApp = host::Application(platform_.automation.running(automationName)); });
    try {
        if (gAcadApp) gAcadDoc = gAcadApp.ActiveDocument();
    } catch (const RuntimeError& error) {
        // For a moment the system still hands out a host that has just died.
        if (isGone(error)) gAcadApp = {};
    }
    if (fileDialogsStillOff_ && gAcadDoc) switchFileDialogsOn(gAcadDoc);
}

void basAutoCAD::StartAutoCAD() {
    ObjectPtr application;
    if (!ignoringErrors([&] { application = platform_.automation.running(automationName); })) {
        try {
            application = platform_.automation.create(automationName);
        } catch (const RuntimeError& error) {
            platform_.messages.say(error.description());
            return;
        }
    }
    gAcadApp = host::Application(std::move(application));
    gAcadDoc = {};
    LoadTypes();
    ignoringErrors([&] { gAcadApp.putVisible(true); });
    ignoringErrors([&] { gAcadDoc = gAcadApp.ActiveDocument(); });
    RefreshTree();
}

std::wstring basAutoCAD::GetActiveDrawingName() {
    std::wstring name;
    if (gAcadDoc) ignoringErrors([&] { name = gAcadDoc.fullName(); });
    return name;
}

std::wstring basAutoCAD::templateFolder() {
    if (!gAcadApp) return {};
    ignoringErrors([&] { templateFolder_ = gAcadApp.templateFolder(); });
    return templateFolder_;
}

void basAutoCAD::BringWindowToFront(WindowHandle window) {
    platform_.desktop.setForeground(window);
}

void basAutoCAD::BringAutoCADToFront() {
    ignoringErrors([&] { BringWindowToFront(gAcadApp.HWND()); });
}

host::Document basAutoCAD::GetDocumentByKey(std::wstring_view key) {
    std::vector<host::Document> documents;
    ignoringErrors([&] { documents = documentsNamed(records_.DrawingRecords.Item(recordKey(key))->Gesamt); });
    return documents.empty() ? host::Document() : documents.back();
}

std::shared_ptr<OpenDocuments> basAutoCAD::openDocuments() {
    if (seen_) return seen_;
    auto documents = std::make_shared<OpenDocuments>();
    for (host::Document& document : gAcadApp.Documents().all()) documents->emplace_back(std::move(document));
    if (looks_ > 0) seen_ = documents;
    return documents;
}

std::vector<host::Document> basAutoCAD::documentsNamed(const std::wstring& fullName) {
    const std::wstring wanted = platform_.locale.upperCase(fullName);
    std::vector<host::Document> found;
    const std::shared_ptr<OpenDocuments> documents = openDocuments();
    for (OpenDocument& open : *documents) {
        try {
            const std::wstring name = platform_.locale.upperCase(open.Path() + L"\\" + open.Name());
            if (name == wanted) found.push_back(open.document());
        } catch (const RuntimeError& error) {
            if (!isGone(error)) throw;
        }
    }
    return found;
}

std::wstring basAutoCAD::GetActiveLayoutName(const std::wstring& fullName) {
    std::wstring name;
    ignoringErrors([&] {
        for (const host::Document& document : documentsNamed(fullName))
            ignoringErrors([&] { name = document.ActiveLayout().Name(); });
    });
    return name;
}

void basAutoCAD::activate(const host::Document& document) {
    document.Activate();
    gAcadDoc = document;
}

void basAutoCAD::NewDrawingFromTemplate(const std::wstring& templateFile) {
    ignoringErrors([&] { gAcadDoc = gAcadApp.Documents().Add(templateFile); });
    BringAutoCADToFront();
}

void basAutoCAD::NavigateDesignCenter(const std::wstring& target) {
    // The second carriage return answers a prompt with its default; always the German command's name.
    if (gAcadDoc) ignoringErrors([&] { typeCommand(gAcadDoc, {L"ADCNAVIGIEREN", L"", target}); });
    BringAutoCADToFront();
}

bool basAutoCAD::typeCommand(const host::Document& document,
                             std::initializer_list<std::wstring_view> answers) {
    std::wstring text;
    for (const std::wstring_view answer : answers) {
        // A carriage return inside a name would end the answer and make the rest a command of its own.
        if (refusesControlCharacters(answer)) return false;
        text.append(answer).push_back(L'\r');
    }
    bool commandRuns = false;
    ignoringErrors([&] { commandRuns = document.GetVariable(L"CMDACTIVE") != 0; });
    if (commandRuns) {
        platform_.messages.warn(L"In AutoCAD läuft noch ein Befehl. Bitte beenden Sie ihn zuerst!");
        return false;
    }
    document.SendCommand(text);
    return true;
}

bool basAutoCAD::refusesControlCharacters(std::wstring_view name) {
    constexpr auto isControl = [](wchar_t c) { return c < L' ' || (c >= 0x7F && c < 0xA0); };
    if (std::ranges::none_of(name, isControl)) return false;
    platform_.messages.warn(L"Ein Name enthält Steuerzeichen und kann nicht an AutoCAD übergeben werden!");
    return true;
}

void basAutoCAD::switchFileDialogsOn(const host::Document& document) {
    const auto switchOn = [&] { document.SetVariable(L"FILEDIA", 1); };
    bool switched = ignoringErrors(switchOn);
    if (!switched) switched = ignoringErrors(switchOn);
    fileDialogsStillOff_ = !switched;
}

bool basAutoCAD::askToStart() {
    const std::wstring caption = std::wstring(applicationTitle) + L": AutoCAD ist nicht aktiv!";
    return platform_.messages.ask(
        L"Soll AutoCAD gestartet werden? Mit 'Nein' wird der Blattwart geschlossen!", caption);
}

}  // namespace blattwart
