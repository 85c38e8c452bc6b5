#include "autocad/basAutoCAD.h"

#include <algorithm>

namespace blattwart {

bool basAutoCAD::IsAutoCADRunning() {
    return std::ranges::any_of(candidates(), [this](const HostName& name) {
        try {
            platform_.automation.running(name.programName);
            return true;
        } catch (const RuntimeError& error) {
            // Who refuses or hangs is there.
            return isNotAnswering(error);
        }
    });
}

void basAutoCAD::ConnectAutoCAD() {
    try {
        if (!attachRunning(candidates())) return detach();
    } catch (const RuntimeError&) {
        return;
    }
    if (owesVisibility_) show();
    takeActiveDocument();
    if (gAcadDoc) borrowed.giveBackForgotten(gAcadApp, gAcadDoc);
}

void basAutoCAD::StartAutoCAD() {
    const std::vector<HostName> names = candidates();
    try {
        if (!attachRunning(names) && !launch(names)) return;
    } catch (const RuntimeError&) {
        return tellNoAnswer();
    }
    welcomeStarted();
}

void basAutoCAD::ChooseRelease(const std::optional<InstalledRelease>& choice) {
    const std::optional<Release> release = choice ? std::optional(choice->release) : std::nullopt;
    bool started = false;
    if (choice) {
        const std::vector<HostName> names = hosts.names(release);
        try {
            if (!attachRunning(names)) {
                if (!platform_.messages.ask(choice->shortName() + L" starten?") || !launch(names)) return;
                started = true;
            }
        } catch (const RuntimeError&) {
            return tellNoAnswer();
        }
    }
    if (!hosts.choose(release)) events_.showHint(L"Die Einstellung kann nicht gespeichert werden.");
    if (started) return welcomeStarted();
    ConnectAutoCAD();
    events_.RefreshTree();
}

void basAutoCAD::welcomeStarted() {
    LoadTypes();
    show();
    takeActiveDocument();
    events_.RefreshTree();
}

void basAutoCAD::show() {
    owesVisibility_ = !ignoringErrors([&] { gAcadApp.putVisible(true); });
}

std::vector<HostName> basAutoCAD::candidates() {
    std::vector<HostName> names = hosts.names();
    const auto attached = std::ranges::find(names, programName_, &HostName::programName);
    if (gAcadApp && !hosts.chosen() && attached != names.end() && attached != names.begin())
        std::rotate(names.begin() + 1, attached, attached + 1);
    return names;
}

bool basAutoCAD::attachRunning(const std::vector<HostName>& names) {
    return std::ranges::any_of(names, [this](const HostName& name) {
        ObjectPtr application;
        try {
            application = platform_.automation.running(name.programName);
        } catch (const RuntimeError& error) {
            if (isNotAnswering(error)) throw;
            return false;
        }
        return attach(name, std::move(application));
    });
}

bool basAutoCAD::launch(const std::vector<HostName>& names) {
    const auto startable =
        std::ranges::find_if(names, [this](const HostName& name) { return hosts.canStart(name); });
    // Where none is installed, the system's own words tell it.
    const HostName& name = startable == names.end() ? names.front() : *startable;
    try {
        const ObjectPtr application = platform_.automation.create(name.programName);
        if (attach(name, application)) return true;
        // Nobody else would show it.
        ignoringErrors([&] { host::Application(application).putVisible(true); });
        platform_.messages.warn(L"Es ist ein anderes AutoCAD gestartet als das gesuchte!");
    } catch (const RuntimeError& failure) {
        // It may come up all the same, hidden as it is started.
        owesVisibility_ = isNotAnswering(failure);
        platform_.messages.say(failure.description());
    }
    return false;
}

bool basAutoCAD::attach(const HostName& name, ObjectPtr application) {
    const bool attached = gAcadApp.is(application);
    const host::Application found = attached ? gAcadApp : host::Application(std::move(application));
    std::optional<Release> release = attached ? release_ : std::nullopt;
    const bool anyIsMeant = name.programName == HostChoice::establishedName && name.releases.empty();
    if (!anyIsMeant && !release) {
        try {
            release = Release::parse(found.Version());
        } catch (const RuntimeError& error) {
            if (isNotAnswering(error)) throw;
        }
    }
    if (!anyIsMeant && (!release || !name.means(*release))) return false;
    programName_ = name.programName;
    if (attached) {
        release_ = release;
    } else {
        take(found, release);
    }
    return true;
}

void basAutoCAD::take(const host::Application& application, const std::optional<Release>& release) {
    const bool established = !release || release->family == HostChoice::establishedFamily;
    std::wstring name = established ? establishedHost : release->text();
    if (!hostName_.empty() && name != hostName_) {
        templateFolder_.clear();
        events_.hostChanged();
    }
    hostName_ = std::move(name);
    borrowed.setHost(hostName_);
    gAcadDoc = {};
    gAcadApp = application;
    release_ = release;
}

void basAutoCAD::detach() {
    gAcadDoc = {};
    gAcadApp = {};
}

void basAutoCAD::takeActiveDocument() {
    try {
        fetchActiveDocument();
    } catch (const RuntimeError& error) {
        // What a host that does not answer has told before is the best that is known.
        if (isNotAnswering(error)) return;
        gAcadDoc = {};
        // For a moment the system still hands out a host that has just died.
        if (isGone(error)) gAcadApp = {};
    }
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
    ignoringErrors([&] {
        const WindowHandle window = gAcadApp.HWND();
        if (!platform_.desktop.isVisible(window)) show();
        BringWindowToFront(window);
    });
}

std::shared_ptr<OpenDocuments> basAutoCAD::openDocuments() {
    if (seen_) return seen_;
    auto documents = std::make_shared<OpenDocuments>();
    for (host::Document& document : gAcadApp.Documents().all()) documents->emplace_back(std::move(document));
    if (looks_ > 0) seen_ = documents;
    return documents;
}

FoundDocuments basAutoCAD::find(const std::wstring& fullName) {
    FoundDocuments found;
    if (!gAcadApp) return found;
    const std::wstring wanted = platform_.locale.upperCase(fullName);
    bool allSeen = true;
    const auto look = [&allSeen](auto&& statement) {
        try {
            statement();
        } catch (const RuntimeError& error) {
            allSeen = allSeen && isGone(error);
        }
    };
    look([&] {
        const std::shared_ptr<OpenDocuments> documents = openDocuments();
        for (OpenDocument& open : *documents) {
            look([&] {
                if (platform_.locale.upperCase(open.Path() + L"\\" + open.Name()) == wanted)
                    found.documents.push_back(open.document());
            });
        }
    });
    if (!allSeen) found.outcome = Lookup::noAnswer;
    if (!found.documents.empty()) found.outcome = Lookup::found;
    return found;
}

FoundDocuments basAutoCAD::findByKey(std::wstring_view key) {
    std::wstring fullName;
    if (!ignoringErrors([&] { fullName = records_.DrawingRecords.Item(NodeKey::parse(key))->Gesamt; }))
        return {};
    return find(fullName);
}

bool basAutoCAD::foundOrTold(const FoundDocuments& found) {
    if (found.outcome == Lookup::noAnswer) tellNoAnswer();
    if (found.outcome == Lookup::notOpen)
        events_.showHint(L"Die Zeichnung ist in AutoCAD nicht mehr geöffnet.");
    return found.outcome == Lookup::found;
}

void basAutoCAD::tellNoAnswer() {
    platform_.messages.warn(L"AutoCAD antwortet nicht. Bitte versuchen Sie es noch einmal.");
}

bool basAutoCAD::runCommand(const std::function<void()>& statements) {
    try {
        statements();
        return true;
    } catch (const RuntimeError& error) {
        if (isNotAnswering(error)) tellNoAnswer();
        return false;
    }
}

const host::Document& basAutoCAD::fetchActiveDocument() {
    gAcadDoc = gAcadApp.ActiveDocument();
    return gAcadDoc;
}

std::wstring basAutoCAD::GetActiveLayoutName(const std::wstring& fullName) {
    std::wstring name;
    for (const host::Document& document : find(fullName).documents)
        ignoringErrors([&] { name = document.ActiveLayout().Name(); });
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
    // The host may end the target at a blank and take the rest for commands.
    const bool hasBlank = target.find(L' ') != std::wstring::npos;
    const std::wstring typed = hasBlank ? platform_.files.shortPath(target) : target;
    if (hasBlank && typed.empty()) {
        events_.showHint(L"DesignCenter: Der Pfad enthält Leerzeichen und hat keinen Kurznamen.");
    } else if (gAcadDoc) {
        ignoringErrors([&] { typeCommand(gAcadDoc, TypedCommand::navigateDesignCenter, {typed}); });
    }
    BringAutoCADToFront();
}

bool basAutoCAD::typeCommand(const host::Document& document, TypedCommand command,
                             std::initializer_list<std::wstring_view> answers) {
    if (std::ranges::any_of(answers, [this](std::wstring_view answer) { return refusesAnswer(answer); }) ||
        refusesWhileCommandRuns(document))
        return false;
    document.SendCommand(textOf(command, answers));
    return true;
}

std::wstring basAutoCAD::textOf(TypedCommand command,
                                std::initializer_list<std::wstring_view> answers) const {
    return commandText(command, hostIsEstablished() ? Wording::established : Wording::international, answers);
}

bool basAutoCAD::refusesAnswer(std::wstring_view answer) {
    // A carriage return inside a name would end the answer and make the rest a command of its own.
    if (refusesControlCharacters(answer)) return true;
    const std::size_t first = answer.find_first_not_of(L' ');
    if (first == std::wstring_view::npos ||
        std::wstring_view(L"(!'").find(answer[first]) == std::wstring_view::npos)
        return false;
    platform_.messages.warn(L"AutoCAD würde den Namen als Ausdruck ausführen: " + std::wstring(answer));
    return true;
}

bool basAutoCAD::refusesWhileCommandRuns(const host::Document& document) {
    bool commandRuns = false;
    ignoringErrors([&] { commandRuns = document.GetVariable(L"CMDACTIVE") != 0; });
    if (commandRuns)
        platform_.messages.warn(L"In AutoCAD läuft noch ein Befehl. Bitte beenden Sie ihn zuerst!");
    return commandRuns;
}

bool basAutoCAD::refusesControlCharacters(std::wstring_view name) {
    constexpr auto isControl = [](wchar_t c) { return c < L' ' || (c >= 0x7F && c < 0xA0); };
    if (std::ranges::none_of(name, isControl)) return false;
    platform_.messages.warn(L"Ein Name enthält Steuerzeichen und kann nicht an AutoCAD übergeben werden!");
    return true;
}

bool basAutoCAD::askToStart() {
    const std::wstring caption = std::wstring(applicationTitle) + L": AutoCAD ist nicht aktiv!";
    return platform_.messages.ask(
        L"Soll AutoCAD gestartet werden? Mit 'Nein' wird der Blattwart geschlossen!", caption);
}

}  // namespace blattwart
