#include <windows.h>

#include <algorithm>

#include "demo/cadhost/HostControl.h"
#include "demo/cadhost/HostScreen.h"
#include "demo/cadhost/Options.h"
#include "demo/com/ServerWindow.h"
#include "platform/RuntimeError.h"

/// The demonstration host as a program of its own, driven by clients as the host is.
namespace {

using namespace demo;

/// The classes of a release, the most particular first. Those of the established family are its real ones.
std::vector<ServerClass> hostClasses(const std::wstring& release) {
    constexpr CLSID established{0x6D7AE628, 0xFF41, 0x4CD3, {0x91, 0xDD, 0x34, 0x82, 0x5B, 0xB1, 0xA2, 0x51}};
    const std::vector<std::wstring> names = programNames(release);
    if (release == L"18") return {{established, names.front()}};
    std::vector<ServerClass> classes;
    for (const std::wstring& name : names) {
        // A class of its own for each number: family, and release behind the last point.
        const std::wstring number = name.substr(name.find_first_of(L"0123456789"));
        const auto family = static_cast<WORD>(std::stoi(number));
        const std::size_t point = number.find(L'.');
        const auto minor =
            static_cast<WORD>(point == std::wstring::npos ? 0 : 1 + std::stoi(number.substr(point + 1)));
        classes.push_back(
            {{0x5D0C3A71, family, minor, {0xA2, 0x4E, 0x10, 0x7B, 0x33, 0x9C, 0x5E, 0x02}}, name});
    }
    return classes;
}

/// What the release is called, and the key under which it is entered.
struct Product {
    std::wstring key;
    std::wstring name;
};
Product productOf(const HostOptions& host) {
    const std::wstring release = host.version.substr(0, host.version.find_first_not_of(L"0123456789."));
    const bool german = host.language == Language::german;
    return {L"SOFTWARE\\Autodesk\\AutoCAD\\R" + release + L"\\ACAD-0001:" + (german ? L"407" : L"409"),
            L"AutoCAD " + release + (german ? L" – Deutsch" : L" – English")};
}

void enter(const Options& options, const std::wstring& command) {
    for (const ServerClass& each : hostClasses(options.host.release)) registerProgram(each, command);
    const Product product = productOf(options.host);
    RegSetKeyValueW(HKEY_LOCAL_MACHINE, product.key.c_str(), L"ProductName", REG_SZ, product.name.c_str(),
                    static_cast<DWORD>((product.name.size() + 1) * sizeof(wchar_t)));
}

/// The way in which clients make COM start this program: with the options that it was registered with.
std::wstring startCommand(std::vector<std::wstring> words) {
    std::erase(words, L"/register");
    words.insert(words.begin(), {moduleFile(), L"/Automation"});
    return joined(words);
}

void openAtStart(HostControl& control, const HostPtr& host, const Options& options) {
    for (const std::wstring& drawing : options.drawings) host->openFile(drawing);
    for (const std::wstring& command : options.commands) {
        if (!control.obey(command)) {
            throw blattwart::RuntimeError(blattwart::errorNumber::invalidCall, L"Unverständlich: " + command);
        }
    }
    // The real host comes up with an empty drawing, but not for a client.
    if (!options.automation && !options.host.startTab && host->documents().empty()) host->newDocument();
}

/// Of several hosts each has a window class of its own.
std::wstring windowSuffix(const HostOptions& host) {
    return host.release == L"18" ? L"" : host.release;
}

void serve(const Options& options) {
    const Apartment apartment;
    const HostPtr host = makeHost(options.host);
    Server server(hostClasses(options.host.release), L"AutoCAD");
    HostControl control(*host, server);
    HostScreen screen(*host, options.silent);
    ServerWindow window((L"CadHostWindow" + windowSuffix(options.host)).c_str(),
                        [&](const std::wstring& command) { return control.obey(command); },
                        [&](HDC canvas, const RECT& area) { screen.paint(canvas, area); });
    screen.attach(window.handle());
    server.setAfterCall([&] { screen.update(); });

    if (!options.automation) host->setVisible(true);
    screen.update();
    Sleep(options.startupTime);
    openAtStart(control, host, options);
    screen.update();

    const blattwart::ObjectPtr application = host->application();
    if (options.automation) server.offer(application);
    server.publish(application);
    window.run([&] {
        if (host->ended()) PostQuitMessage(0);
        screen.update();
        screen.updateContent();
        host->finishPlots();
        screen.showDialog();
    });
    host->quit();
}

bool awaitHost(const Options& options) {
    constexpr DWORD halfMinute = 30000;
    const Apartment apartment;
    return awaitRunning(hostClasses(options.host.release).front(), halfMinute);
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    try {
        const std::vector<std::wstring> words = commandLineWords();
        const Options options = readOptions(words);
        switch (options.task) {
            case Task::enter:
                enter(options, startCommand(words));
                break;
            case Task::wait:
                return awaitHost(options) ? 0 : 1;
            case Task::run:
                serve(options);
                break;
        }
        return 0;
    } catch (const blattwart::RuntimeError& error) {
        MessageBoxW(nullptr, error.description().c_str(), L"AutoCAD", MB_OK | MB_ICONERROR);
        return 1;
    }
}
