#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <thread>

#include "platform/RuntimeError.h"
#include "win32/platform/Win32Clipboard.h"
#include "win32/platform/Win32Files.h"
#include "win32/platform/Win32Installations.h"
#include "win32/platform/Win32Registry.h"
#include "win32/platform/Win32Settings.h"

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
    std::ofstream(std::filesystem::path(L"C:\\Mit Blank\\acad.exe")) << "MZ";
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

class Win32FilesTest : public testing::Test {
  protected:
    Win32FilesTest() { std::filesystem::create_directory(folder); }
    ~Win32FilesTest() override { std::filesystem::remove_all(folder); }

    Win32Files files;
    const std::wstring folder = (std::filesystem::temp_directory_path() / L"Blattwart größe").wstring();
};

TEST_F(Win32FilesTest, WritesAFileWholeOrNotAtAll) {
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
}

TEST_F(Win32FilesTest, ListsNormalFilesOnly) {
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
    EXPECT_TRUE(files.silent({L"", folder, folder + L"\\fehlt"}).empty()) << "an answer of every kind is one";
    EXPECT_FALSE(files.applicationFolder().ends_with(L"\\"));
    EXPECT_TRUE(files.exists(files.applicationFolder() + L"\\ui_test.exe"));
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

}  // namespace

}  // namespace blattwart::test
