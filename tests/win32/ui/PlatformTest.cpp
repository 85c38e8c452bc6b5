#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <filesystem>
#include <fstream>
#include <thread>

#include "ControlHost.h"
#include "win32/platform/Win32Clipboard.h"
#include "win32/platform/Win32Desktop.h"
#include "win32/platform/Win32Files.h"
#include "win32/platform/Win32HelpViewer.h"
#include "win32/platform/Win32Installations.h"
#include "win32/platform/Win32Locale.h"
#include "win32/platform/Win32MessageBoxes.h"
#include "win32/platform/Win32Process.h"
#include "win32/platform/Win32ReadingWatch.h"
#include "win32/platform/Win32Registry.h"
#include "win32/platform/Win32Settings.h"
#include "win32/platform/Win32Worker.h"
#include "win32/ui/Dpi.h"

namespace blattwart::test {

namespace {

constexpr const char* testKey = "Software\\BlattwartTest";

class RegistryTest : public testing::Test {
  protected:
    RegistryTest() {
        HKEY created = nullptr;
        RegCreateKeyA(HKEY_CURRENT_USER, testKey, &created);
        RegCloseKey(created);
    }
    ~RegistryTest() override { RegDeleteKeyA(HKEY_CURRENT_USER, testKey); }

    RegistryKey open(std::uint32_t access) {
        RegistryKey key = 0;
        EXPECT_EQ(registry.openKey(RegistryRoot::currentUser, testKey, access, key), Registry::success);
        return key;
    }
    void store(const std::string& name, std::string_view bytes) {
        const RegistryKey key = open(Registry::setValueAccess);
        EXPECT_EQ(registry.setValue(key, name, Registry::textType, bytes), Registry::success);
        registry.closeKey(key);
    }
    /// Result, size and buffer after reading into 256 blanks.
    std::int32_t read(const std::string& name) {
        const RegistryKey key = open(Registry::queryValueAccess);
        buffer.fill(' ');
        size = 256;
        const std::int32_t result = registry.queryValue(key, name, type, buffer, size);
        registry.closeKey(key);
        return result;
    }

    Win32Registry registry;
    std::array<char, 256> buffer{};
    std::uint32_t size = 0;
    std::uint32_t type = 0;
};

TEST_F(RegistryTest, ReadsAndWritesByteForByte) {
    store("LM_Beenden", std::string_view("1x").substr(0, 1));
    EXPECT_EQ(read("LM_Beenden"), Registry::success);
    EXPECT_EQ(size, 1u) << "no terminating NUL is stored";
    EXPECT_EQ(std::string_view(buffer.data(), 2), std::string_view("1\0", 2));
    store("Pfad", std::string("C:\\Gr\xf6\xdf"
                              "e\0",
                              9));
    EXPECT_EQ(read("Pfad"), Registry::success);
    EXPECT_EQ(std::string_view(buffer.data(), size), std::string_view("C:\\Gr\xf6\xdf"
                                                                      "e\0",
                                                                      9));
    store("Voll", std::string(255, 'x') + '\0');
    EXPECT_EQ(read("Voll"), Registry::success);
    EXPECT_EQ(size, 256u);
    EXPECT_EQ(registry.expanded(L"%SystemRoot%\\Größe %%"), L"C:\\windows\\Größe %%");
}

TEST_F(RegistryTest, FailuresLeaveTheBufferAlone) {
    store("Lang", std::string(300, 'x') + '\0');
    EXPECT_EQ(read("Lang"), ERROR_MORE_DATA);
    EXPECT_EQ(size, 301u);
    EXPECT_EQ(std::count(buffer.begin(), buffer.end(), ' '), 256);
    EXPECT_EQ(read("Fehlt"), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(std::count(buffer.begin(), buffer.end(), ' '), 256);
    RegistryKey key = 7;
    EXPECT_EQ(registry.openKey(RegistryRoot::localMachine, "SOFTWARE\\Fehlt", 1, key), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(key, 0u);
}

TEST(Win32InstallationsTest, LooksIntoBothViewsAndForTheServersFile) {
    const std::wstring text = L"{7B1C0E52-3D0A-4C55-9F0D-5A1E3B2C4D6F}";
    const auto set = [](HKEY root, const std::wstring& path, REGSAM view, const wchar_t* name,
                        const std::wstring& value) {
        HKEY key = nullptr;
        RegCreateKeyExW(root, path.c_str(), 0, nullptr, 0, KEY_WRITE | view, nullptr, &key, nullptr);
        RegSetValueExW(key, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                       static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
        RegCloseKey(key);
    };
    Win32Installations installations;
    const std::wstring all = L"SOFTWARE\\Autodesk\\AutoCAD\\";
    set(HKEY_LOCAL_MACHINE, all + L"R19.0\\ACAD-B001:407", KEY_WOW64_32KEY, L"ProductName", L"AutoCAD 2013");
    set(HKEY_LOCAL_MACHINE, all + L"R24.3\\ACAD-7101:409", KEY_WOW64_64KEY, L"Release", L"24.3.61");
    std::vector<std::wstring> found;
    for (const InstalledProduct& each : installations.products())
        found.push_back(each.release + L" " + each.key + L" " + each.name);
    std::ranges::sort(found);
    EXPECT_EQ(found,
              (std::vector<std::wstring>{L"R19.0 ACAD-B001:407 AutoCAD 2013", L"R24.3 ACAD-7101:409 "}));

    EXPECT_EQ(installations.classOf(L"AutoCAD.Application.24.3"), L"");
    set(HKEY_CLASSES_ROOT, L"AutoCAD.Application.24.3\\CLSID", 0, nullptr, text);
    EXPECT_EQ(installations.classOf(L"AutoCAD.Application.24.3"), text);
    EXPECT_FALSE(installations.hasServer(text));
    std::filesystem::create_directories(L"C:\\Mit Blank\\acad.exe folder");
    std::ofstream(std::filesystem::path(L"C:\\Mit Blank\\acad.exe"));
    for (const auto& [command, exists] : {std::pair(L"\"C:\\Mit Blank\\acad.exe\" /Automation", true),
                                          {L"C:\\Mit Blank\\acad.exe /Automation", true},
                                          {L"C:\\Mit Blank\\acad /Automation", true},
                                          {L"\"C:\\Mit Blank\\fehlt.exe\"", false},
                                          {L"\"C:\\Mit Blank\\acad.exe folder\"", false},
                                          {L"", false}}) {
        set(HKEY_CLASSES_ROOT, L"CLSID\\" + text + L"\\LocalServer32", 0, nullptr, command);
        EXPECT_EQ(installations.hasServer(text), exists) << testing::PrintToString(command);
    }
}

TEST(Win32SettingsTest, KeepsTexts) {
    Win32Settings settings;
    EXPECT_EQ(settings.get(L"TestFehlt", L"Vorgabe"), L"Vorgabe");
    for (const std::wstring& text :
         {std::wstring(), std::wstring(L"-1500,5"), std::wstring(L"Größe €"), std::wstring(3000, L'x')}) {
        settings.set(L"Test", text);
        EXPECT_EQ(settings.get(L"Test", L"Vorgabe"), text);
    }
    EXPECT_NE(settings.location(L"MainLeft").find(L"Software\\Blattwart\\Settings"), std::wstring::npos);
    RegDeleteKeyValueW(HKEY_CURRENT_USER, L"Software\\Blattwart\\Settings", L"Test");
}

TEST(Win32FilesTest, WritesAFileWholeOrNotAtAll) {
    Win32Files files;
    std::array<wchar_t, MAX_PATH> temporary{};
    GetTempPathW(MAX_PATH, temporary.data());
    const std::wstring folder = std::wstring(temporary.data()) + L"Blattwart Pläne";
    CreateDirectoryW(folder.c_str(), nullptr);
    const std::wstring file = folder + L"\\Planliste.csv";
    const auto content = [&] {
        const auto bytes = files.open(file)->read(0, 100);
        return std::string(bytes.begin(), bytes.end());
    };
    files.writeAtomically(file, "alt");
    files.writeAtomically(file, "neu\r\n");
    EXPECT_EQ(content(), "neu\r\n");
    // As a spreadsheet has it open.
    const HANDLE held =
        CreateFileW(file.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_THROW(files.writeAtomically(file, "verloren"), RuntimeError);
    EXPECT_EQ(content(), "neu\r\n");
    CloseHandle(held);
    EXPECT_EQ(files.list(folder + L"\\*.*"), std::vector<std::wstring>{L"Planliste.csv"});
    EXPECT_THROW(files.writeAtomically(folder + L"\\fehlt\\x.csv", ""), RuntimeError);
    files.remove(file);
    RemoveDirectoryW(folder.c_str());
}

TEST(Win32ClipboardTest, HoldsTextAndTable) {
    Win32Clipboard clipboard;
    clipboard.put(L"Größe \U0001F4D0\tΩ\r\n", "<table>ä</table>");
    const auto data = [](UINT format) { return GlobalLock(GetClipboardData(format)); };
    ASSERT_TRUE(OpenClipboard(nullptr));
    EXPECT_STREQ(static_cast<const wchar_t*>(data(CF_UNICODETEXT)), L"Größe \U0001F4D0\tΩ\r\n");
    EXPECT_STREQ(static_cast<const char*>(data(RegisterClipboardFormatW(L"HTML Format"))),
                 "<table>ä</table>");
    CloseClipboard();
    // Another program has it.
    std::thread holder;
    const HANDLE open = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    const HANDLE done = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    holder = std::thread([&] {
        OpenClipboard(GetDesktopWindow());
        SetEvent(open);
        WaitForSingleObject(done, 5000);
        CloseClipboard();
    });
    WaitForSingleObject(open, 5000);
    EXPECT_THROW(clipboard.put(L"x", ""), RuntimeError);
    SetEvent(done);
    holder.join();
    CloseHandle(open);
    CloseHandle(done);
}

TEST(Win32FilesTest, ListsNormalFilesOnly) {
    Win32Files files;
    std::array<wchar_t, MAX_PATH> temporary{};
    GetTempPathW(MAX_PATH, temporary.data());
    const std::wstring folder = std::wstring(temporary.data()) + L"Blattwart größe";
    CreateDirectoryW(folder.c_str(), nullptr);
    const auto make = [&](const wchar_t* name, DWORD attributes) {
        CloseHandle(CreateFileW((folder + L"\\" + name).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                attributes, nullptr));
    };
    make(L"Plan.dwt", FILE_ATTRIBUTE_NORMAL);
    make(L"versteckt.dwt", FILE_ATTRIBUTE_HIDDEN);
    CreateDirectoryW((folder + L"\\Ordner.dwt").c_str(), nullptr);
    EXPECT_EQ(files.list(folder + L"\\*.*"), std::vector<std::wstring>{L"Plan.dwt"});
    EXPECT_TRUE(files.list(folder + L"\\*.dwg").empty());
    EXPECT_THROW(files.list(folder + L"\\fehlt\\*.*"), RuntimeError);
    EXPECT_TRUE(files.exists(folder + L"\\PLAN.DWT"));
    EXPECT_FALSE(files.exists(folder + L"\\Ordner.dwt"));
    const std::wstring shortened = files.shortPath(folder + L"\\Plan.dwt");
    EXPECT_EQ(shortened.find(L' '), std::wstring::npos);
    EXPECT_TRUE(shortened.empty() || files.exists(shortened));
    EXPECT_EQ(files.shortPath(folder + L"\\fehlt.dwt"), L"");
    files.remove(folder + L"\\Plan.dwt");
    EXPECT_FALSE(files.exists(folder + L"\\Plan.dwt"));
    EXPECT_THROW(files.remove(folder + L"\\Plan.dwt"), RuntimeError);
    DeleteFileW((folder + L"\\versteckt.dwt").c_str());
    RemoveDirectoryW((folder + L"\\Ordner.dwt").c_str());
    RemoveDirectoryW(folder.c_str());
    EXPECT_TRUE(files.silent({L"", folder, folder + L"\\fehlt"}).empty()) << "an answer of every kind is one";
    EXPECT_FALSE(files.applicationFolder().ends_with(L"\\"));
    EXPECT_TRUE(files.exists(files.applicationFolder() + L"\\ui_test.exe"));
}

TEST(Win32LocaleTest, ComparesAsAFileListDoes) {
    const Win32Locale locale;
    const std::array<const wchar_t*, 6> ordered{L"",        L"Blatt 2", L"BLATT 10",
                                                L"Öffnung", L"Plan",    L"Zeichnung"};
    for (std::size_t i = 0; i + 1 < ordered.size(); ++i) {
        EXPECT_LT(locale.compareNaturally(ordered.at(i), ordered.at(i + 1)), 0) << ordered.at(i);
        EXPECT_GT(locale.compareNaturally(ordered.at(i + 1), ordered.at(i)), 0) << ordered.at(i);
    }
    EXPECT_EQ(locale.compareNaturally(L"Blatt 2", L"BLATT 2"), 0);
    EXPECT_EQ(locale.upperCase(L"größe.dwt"), L"GRÖßE.DWT");
    EXPECT_EQ(locale.decimalSeparator(), L",");
    EXPECT_EQ(locale.toAnsi(L"Größe €"),
              "Gr\xf6\xdf"
              "e \x80");
    EXPECT_EQ(locale.fromAnsi(locale.toAnsi(L"Größe €")), L"Größe €");
    EXPECT_EQ(locale.fromAnsi(std::string_view("a\0b", 3)).size(), 3u);
}

TEST(DpiTest, ConvertsTwipsAndBack) {
    for (const int dpi : {96, 120, 144, 192}) {
        for (const int pixels : {-1920, -1, 0, 1, 433, 3840}) {
            EXPECT_EQ(toPixels(toTwips(pixels, dpi), dpi), pixels) << dpi;
        }
        EXPECT_EQ(toPixels(1440, dpi), dpi);
    }
    EXPECT_EQ(toPixels(40, 96), 3);
    EXPECT_EQ(toPixels(1e30F, 96), 32767) << "also what no screen has room for";
}

TEST(Win32ProcessTest, KnowsWhetherItRunsAlready) {
    Win32Process first;
    Win32Process second;
    EXPECT_FALSE(first.previousInstance());
    EXPECT_FALSE(first.previousInstance()) << "it is not its own predecessor";
    EXPECT_TRUE(second.previousInstance());
    EXPECT_THROW(first.start(L"C:\\fehlt\\nichts.exe"), RuntimeError);
}

/// A folder with a script in it that writes down with what it was started; the working folder meanwhile.
class StartedScript {
  public:
    StartedScript() {
        std::array<wchar_t, MAX_PATH> path{};
        GetCurrentDirectoryW(MAX_PATH, path.data());
        before_ = path.data();
        GetTempPathW(MAX_PATH, path.data());
        folder_ = std::wstring(path.data()) + L"Start";
        CreateDirectoryW(folder_.c_str(), nullptr);
        std::ofstream(std::filesystem::path(script())) << "@echo %*> "
                                                       << "%~dp0started.txt\r\n";
        SetCurrentDirectoryW(folder_.c_str());
    }
    ~StartedScript() {
        SetCurrentDirectoryW(before_.c_str());
        std::filesystem::remove_all(folder_);
    }

    std::wstring script() const { return folder_ + L"\\probe.bat"; }
    std::wstring folder(const wchar_t* name) const {
        CreateDirectoryW((folder_ + L"\\" + name).c_str(), nullptr);
        return folder_ + L"\\" + name;
    }
    /// Its arguments as it got them; "" when it does not start.
    std::string arguments() const {
        std::string line;
        for (int i = 0; i < 100 && line.empty(); ++i) {
            Sleep(20);
            std::ifstream file(std::filesystem::path(folder_ + L"\\started.txt"));
            std::getline(file, line);
        }
        return line;
    }

  private:
    std::wstring before_;
    std::wstring folder_;
};

TEST(Win32ProcessTest, StartsProgramsOfKnownPlacesWithWholePaths) {
    const StartedScript script;
    Win32Process process;
    EXPECT_THROW(process.start(L"probe.bat"), RuntimeError) << "not from the working folder";
    const std::wstring folder = script.folder(L"Plan, Haus");
    process.start(script.script() + L" " + folder + L"\\");
    EXPECT_EQ(script.arguments(), Win32Locale().toAnsi(L'"' + folder + L'"'));
}

/// Answers a message box from outside, as its user would.
class MessageBoxUser {
  public:
    MessageBoxUser(const wchar_t* caption, WPARAM answer)
        : thread_([this, caption, answer] {
              for (int i = 0; i < 500 && !box_; ++i) {
                  Sleep(10);
                  box_ = FindWindowW(L"#32770", caption);
                  if (box_ && !IsWindowVisible(box_)) box_ = nullptr;
              }
              found_ = Win32Desktop().findWindow(caption);
              text_ = textOf(GetDlgItem(box_, 0xffff));
              owner_ = GetWindow(box_, GW_OWNER);
              PostMessageW(box_, WM_COMMAND, answer, 0);
          }) {}
    ~MessageBoxUser() {
        if (thread_.joinable()) thread_.join();
    }
    void wait() { thread_.join(); }

    WindowHandle found() const { return found_; }
    const std::wstring& text() const { return text_; }
    HWND owner() const { return owner_; }

  private:
    HWND box_ = nullptr;
    HWND owner_ = nullptr;
    WindowHandle found_ = 0;
    std::wstring text_;
    std::thread thread_;
};

TEST(Win32DesktopTest, FindsTheWindowAndNotTheMessageBoxOverIt) {
    Win32Desktop desktop;
    EXPECT_EQ(desktop.findWindow(L"BlattwartProbe"), 0);
    const ControlHost host;
    SetWindowTextW(host.window(), L"BlattwartProbe");
    SetForegroundWindow(host.window());
    pump();
    MessageBoxUser user(L"BlattwartProbe", IDYES);
    Win32MessageBoxes messages;
    EXPECT_EQ(
        messages.show(L"Größe löschen?", L"BlattwartProbe", MessageButtons::yesNo, MessageIcon::question),
        MessageAnswer::yes);
    user.wait();
    EXPECT_EQ(user.found(), windowHandle(host.window()));
    EXPECT_EQ(user.text(), L"Größe löschen?");
    EXPECT_EQ(user.owner(), host.window());
    EXPECT_EQ(desktop.findWindow(L"Blattwartprobe"), 0) << "exactly this caption";
    WNDCLASSW own{};
    own.lpfnWndProc = DefWindowProcW;
    own.lpszClassName = mainWindowClass;
    own.hInstance = GetModuleHandleW(L"kernel32.dll");  // beside the program's own class of this name
    RegisterClassW(&own);
    const HWND ours = CreateWindowW(mainWindowClass, L"BlattwartProbe", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0,
                                    0, 200, 100, nullptr, nullptr, own.hInstance, nullptr);
    SetForegroundWindow(host.window());
    pump();
    EXPECT_EQ(desktop.findWindow(L"BlattwartProbe"), windowHandle(ours)) << "before others, wherever it lies";
    DestroyWindow(ours);
    UnregisterClassW(mainWindowClass, own.hInstance);
    EXPECT_EQ(desktop.findWindow(L"BlattwartProbe"), windowHandle(host.window()));
    ShowWindow(host.window(), SW_MINIMIZE);
    pumpFor(50);
    desktop.showNormal(windowHandle(host.window()));
    desktop.setForeground(windowHandle(host.window()));
    pumpFor(50);
    EXPECT_FALSE(IsIconic(host.window()));
    EXPECT_EQ(desktop.foreground(), windowHandle(host.window()));
    ShowWindow(host.window(), SW_HIDE);
    EXPECT_EQ(desktop.findWindow(L"BlattwartProbe"), 0) << "still hidden";
}

TEST(Win32WorkerTest, WorksBesideTheProgramAndHoldsItsEndUpForNothing) {
    const DWORD own = GetCurrentThreadId();
    std::vector<DWORD> workedOn;
    std::vector<DWORD> doneOn;
    const auto done = [&] { doneOn.push_back(GetCurrentThreadId()); };
    const HANDLE pipe =
        CreateNamedPipeW(L"\\\\.\\pipe\\BlattwartProbe", PIPE_ACCESS_OUTBOUND, 0, 1, 0, 0, 0, nullptr);
    const HANDLE never = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    std::atomic<bool> readingEnded = false;
    const auto readForEver = [&] {
        const HANDLE end =
            CreateFileW(L"\\\\.\\pipe\\BlattwartProbe", GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
        char byte = 0;
        DWORD read = 0;
        ReadFile(end, &byte, 1, &read, nullptr);
        readingEnded = true;
        CloseHandle(end);
    };
    const auto endsAtOnce = [&](const std::function<void()>& lastWork) {
        auto worker = std::make_unique<Win32Worker>([](const std::function<void()>& work) { work(); });
        const auto work = [&] { workedOn.push_back(GetCurrentThreadId()); };
        workedOn.clear();
        doneOn.clear();
        worker->run([] { throw std::bad_alloc(); }, done);
        worker->run(work, done);
        for (int i = 0; i < 100 && doneOn.size() < 2; ++i) pumpFor(10);
        EXPECT_EQ(doneOn, (std::vector<DWORD>{own, own}));
        EXPECT_NE(workedOn, std::vector<DWORD>{own});
        worker->run(lastWork, done);
        pumpFor(50);
        const ULONGLONG before = GetTickCount64();
        worker.reset();
        return GetTickCount64() - before < 1000;
    };
    EXPECT_TRUE(endsAtOnce(readForEver));
    EXPECT_TRUE(readingEnded) << "broken off";
    EXPECT_TRUE(endsAtOnce([never] { WaitForSingleObject(never, INFINITE); })) << "left behind";
    SetEvent(never);
    pumpFor(50);
    EXPECT_EQ(doneOn.size(), 2u) << "nobody waits for it any more";
    CloseHandle(never);
    CloseHandle(pipe);
}

TEST(HelpViewerTest, ShowsTheTopicInAWindowThatIsClosedAtTheEnd) {
    const auto helpWindow = [] { return FindWindowW(L"HH Parent", L"Hilfe zu Blattwart"); };
    Win32HelpViewer viewer;
    viewer.closeAll();
    viewer.displayTopic(0, "Z:" HELP_FILE, "Tarvix_2.htm");
    EXPECT_TRUE(helpWindow());
    viewer.closeAll();
    EXPECT_FALSE(helpWindow());
}

TEST(ReadingWatch, EscEndsAReadingAlsoWhileACallWaits) {
    Win32ReadingWatch watch({});
    const MSG escape{nullptr, WM_KEYDOWN, VK_ESCAPE, 0, 0, {}};
    const MSG other{nullptr, WM_KEYDOWN, VK_RETURN, 0, 0, {}};
    for (const MSG& pressed : {escape, other}) {
        watch.noteInput(escape);
        watch.begin(L"");
        EXPECT_TRUE(watch.goOn()) << "pressed before";
        watch.noteInput(pressed);
        EXPECT_EQ(watch.goOn(), pressed.wParam != VK_ESCAPE);
        watch.end();
    }
}

}  // namespace

}  // namespace blattwart::test
