#pragma once

#include <string>

#include "platform/Locale.h"
#include "platform/Registry.h"

namespace blattwart {

/// The machine-wide settings, one registry value a property. All are texts. Reading never fails: a value that
/// is missing, longer than 255 bytes or unreadable is "". Writing never fails either and never makes the key:
/// where it is missing or the user has no right to it, nothing happens.
class CRegistry {
  public:
    CRegistry(Registry& registry, const Locale& locale) : registry_(registry), locale_(locale) {}

    /// The active configuration.
    void TX_AktKonfig(const std::wstring& text) { write(L"AktKonfig", text); }
    std::wstring TX_AktKonfig() { return read(L"AktKonfig"); }
    /// Full path of the definition database; "" for the default.
    void TX_DefDB(const std::wstring& text) { write(L"DefDB", text); }
    std::wstring TX_DefDB() { return read(L"DefDB"); }
    /// Folder of temporary drawings.
    void TX_TempDWGs(const std::wstring& text) { write(L"TempDWGs", text); }
    std::wstring TX_TempDWGs() { return read(L"TempDWGs"); }
    /// Folder of the data.
    void TX_Daten(const std::wstring& text) { write(L"Daten", text); }
    std::wstring TX_Daten() { return read(L"Daten"); }
    std::wstring ColFormat() { return read(L"ColFormat"); }
    void ColFormat(const std::wstring& text) { write(L"ColFormat", text); }
    std::wstring TX_Startanzeige() { return read(L"Startanzeige"); }
    void TX_Startanzeige(const std::wstring& text) { write(L"Startanzeige", text); }
    /// Whether the program ends together with the host: "1" or "0".
    std::wstring TX_LM_Beenden() { return read(L"LM_Beenden"); }
    void TX_LM_Beenden(const std::wstring& text) { write(L"LM_Beenden", text); }

  private:
    std::wstring read(const wchar_t* name);
    void write(const wchar_t* name, const std::wstring& text);

    static std::wstring CutAtNul(const std::wstring& text);
    void ReadValue();
    void WriteValue();

    Registry& registry_;
    const Locale& locale_;
    const std::string keyPath_ = "SOFTWARE\\Ormeda\\Tarvix 2.1";
    std::wstring valueName_;
    std::wstring valueText_;
};

}  // namespace blattwart
