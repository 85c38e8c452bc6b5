#pragma once

#include <functional>
#include <map>

#include "platform/RuntimeError.h"
#include "platform/Settings.h"

namespace blattwart::test {

/// Settings in memory; they can outlive the program under test as the real ones do.
class FakeSettings : public Settings {
  public:
    std::map<std::wstring, std::wstring, std::less<>> values;
    /// Asked before each writing; true denies it.
    std::function<bool(std::wstring_view call)> fails = [](std::wstring_view) { return false; };
    int writes = 0;

    std::wstring get(std::wstring_view key, std::wstring_view defaultText) const override {
        const auto value = values.find(key);
        return value == values.end() ? std::wstring(defaultText) : value->second;
    }
    void set(std::wstring_view key, std::wstring_view text) override {
        ++writes;
        if (fails(L"Settings.set")) throw RuntimeError(errorNumber::invalidCall, L"Zugriff verweigert");
        values.insert_or_assign(std::wstring(key), std::wstring(text));
    }
    std::wstring location(std::wstring_view key) const override {
        return L"HKEY_CURRENT_USER\\Software\\Blattwart\\Settings\\" + std::wstring(key);
    }
};

}  // namespace blattwart::test
