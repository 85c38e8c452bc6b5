#include "data/basAllgemein.h"

#include "platform/Conversions.h"

namespace blattwart {

std::wstring basAllgemein::FormatZahl(double number) const {
    std::wstring text = formatTwoDecimals(number, platform_.locale);
    const std::wstring noDecimals = platform_.locale.decimalSeparator() + L"00";
    if (text.ends_with(noDecimals)) text.resize(text.size() - noDecimals.size());
    return text;
}

bool basAllgemein::DateiLoeschen(const std::wstring& file,
                                 const std::function<void(const std::wstring&)>& failure) {
    if (!platform_.messages.ask(L"Datei: " + file + L" wirklich löschen?")) return false;
    try {
        platform_.files.remove(file);
        return true;
    } catch (const RuntimeError& error) {
        failure(error.description());
        return false;
    }
}

bool basAllgemein::CheckInvalidChars(const std::wstring& text) {
    if (text.find_first_of(L"<>/\\\":?*|='´") == std::wstring::npos) return false;
    platform_.messages.warn(L"Eingabe enthält ungültige Zeichen!");
    return true;
}

std::wstring basAllgemein::GetTemplateFolder() const {
    std::wstring folder;
    ignoringErrors([&] { folder = hostTemplateFolder_(); });
    return folder;
}

}  // namespace blattwart
