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

const ServerClass hostClass{{0x6D7AE628, 0xFF41, 0x4CD3, {0x91, 0xDD, 0x34, 0x82, 0x5B, 0xB1, 0xA2, 0x51}},
                            L"AutoCAD.Application.18"};

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
    if (!options.automation && host->documents().empty()) host->newDocument();
}

void serve(const Options& options) {
    const Apartment apartment;
    const HostPtr host = makeHost(options.host);
    Server server(hostClass, L"AutoCAD");
    HostControl control(*host, server);
    HostScreen screen(*host, options.silent);
    ServerWindow window(
        L"CadHostWindow", [&](const std::wstring& command) { return control.obey(command); },
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

bool awaitHost() {
    constexpr DWORD halfMinute = 30000;
    const Apartment apartment;
    return awaitRunning(hostClass, halfMinute);
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    try {
        const std::vector<std::wstring> words = commandLineWords();
        const Options options = readOptions(words);
        switch (options.task) {
            case Task::enter:
                registerProgram(hostClass, startCommand(words));
                break;
            case Task::remove:
                unregister(hostClass);
                break;
            case Task::wait:
                return awaitHost() ? 0 : 1;
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
