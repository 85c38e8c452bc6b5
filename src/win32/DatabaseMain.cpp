#include <windows.h>

#include <shellapi.h>

#include <memory>
#include <vector>

#include "data/basRegistry.h"
#include "data/DatabaseMaker.h"
#include "win32/base/LibrarySearch.h"
#include "win32/com/Apartment.h"
#include "win32/com/ComAutomation.h"
#include "win32/platform/Win32Files.h"
#include "win32/platform/Win32Locale.h"
#include "win32/platform/Win32MessageBoxes.h"
#include "win32/platform/Win32Registry.h"

namespace {

/// The words of the command line behind the program's name.
std::vector<std::wstring> arguments() {
    int count = 0;
    const std::unique_ptr<PWSTR, decltype(&LocalFree)> words(CommandLineToArgvW(GetCommandLineW(), &count),
                                                             LocalFree);
    return words ? std::vector<std::wstring>(words.get() + 1, words.get() + count)
                 : std::vector<std::wstring>();
}

int makeDatabase() {
    using namespace blattwart;
    const Apartment apartment;
    Gate gate;
    HostCaller hostCaller(gate);
    ComAutomation automation(hostCaller);
    Win32Files files;
    Win32Registry registry;
    const Win32Locale locale;
    Win32MessageBoxes messages;
    DatabaseMaker maker(automation, files, messages, basRegistry(registry, locale, files).GetDatabasePath());
    return maker.run(arguments());
}

}  // namespace

/// "Datenbank anlegen", the program beside Blattwart.
int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    blattwart::hardenLibrarySearch();
    // A drive without a medium fails as others do, without a box of Windows' own that holds the program up.
    SetErrorMode(SEM_FAILCRITICALERRORS);
    try {
        return makeDatabase();
    } catch (const blattwart::RuntimeError&) {
        return 1;
    }
}
