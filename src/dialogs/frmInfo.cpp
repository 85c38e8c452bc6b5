#include "dialogs/frmInfo.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <climits>
#include <cstring>

#include "dialogs/Version.h"

namespace blattwart {

namespace {

constexpr std::uint32_t fullAccess = 0x2003F;
constexpr std::size_t longestValue = 1024;

std::wstring hexadecimal(std::span<const char> bytes) {
    std::uint32_t number = 0;
    std::memcpy(&number, bytes.data(), sizeof number);
    std::array<char, 8> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number, 16).ptr;
    std::wstring text(digits.data(), end);
    std::ranges::transform(text, text.begin(), [](wchar_t c) { return c >= L'a' ? c - (L'a' - L'A') : c; });
    return L"&h" + text;
}

}  // namespace

frmInfo::frmInfo(basHTMLHelp& help, Platform& platform) : help_(help), platform_(platform) {
    cmdSysInfo.events.click = [this] { StartSysInfo(); };
    cmdOK.events.click = [this] { window().close(); };
}

void frmInfo::Form_Load() {
    const auto digits = [](int number) { return std::to_wstring(number); };
    lblVersion.setText(L"Version " + digits(BLATTWART_VERSION_MAJOR) + L"." +
                       digits(BLATTWART_VERSION_MINOR) + L"." + digits(BLATTWART_VERSION_REVISION));
    lblBuild.setText(L"Programm mit " + digits(sizeof(void*) * CHAR_BIT) + L" Bit");
}

void frmInfo::showHelp() {
    help_.ShowHelpTopic(helpTopic::information);
}

void frmInfo::StartSysInfo() {
    const std::wstring path = toolPath();
    const bool started =
        !path.empty() && ignoringErrors([&] { platform_.process.start(L'"' + path + L'"'); });
    if (!started) platform_.messages.say(L"Systeminformationen sind momentan nicht verfügbar");
}

std::wstring frmInfo::toolPath() {
    constexpr auto root = RegistryRoot::localMachine;
    std::wstring text;
    if (GetKeyValue(root, "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO", "PATH", text)) return text;
    if (GetKeyValue(root, "SOFTWARE\\Microsoft\\Shared Tools Location", "MSINFO", text)) {
        std::wstring path = text + L"\\MSINFO32.EXE";
        if (platform_.files.exists(path)) return path;
    }
    return {};
}

bool frmInfo::GetKeyValue(RegistryRoot root, const std::string& key, const std::string& name,
                          std::wstring& text) {
    Registry& registry = platform_.registry;
    RegistryKey opened = 0;
    if (registry.openKey(root, key, fullAccess, opened) != Registry::success) return false;
    std::array<char, longestValue> buffer{};
    auto size = static_cast<std::uint32_t>(buffer.size());
    std::uint32_t type = 0;
    const std::int32_t result = registry.queryValue(opened, name, type, buffer, size);
    registry.closeKey(opened);
    if (result != Registry::success) return false;
    const std::span value = std::span(buffer).first(size);
    if (type == Registry::textType || type == Registry::expandableTextType) {
        // The terminating NUL may be there or not.
        text = platform_.locale.fromAnsi({value.begin(), std::ranges::find(value, '\0')});
        if (type == Registry::expandableTextType) text = registry.expanded(text);
        return true;
    }
    if (type != Registry::numberType || size != sizeof(std::uint32_t)) return false;
    text = hexadecimal(value);
    return true;
}

}  // namespace blattwart
