#pragma once

#include <string>
#include <string_view>

namespace blattwart {

/// The settings of the current account, section "Settings" under the program's title. All values are text.
class Settings {
  public:
    virtual ~Settings() = default;

    virtual std::wstring get(std::wstring_view key, std::wstring_view defaultText) const = 0;
    /// Throws RuntimeError when the setting cannot be stored.
    virtual void set(std::wstring_view key, std::wstring_view text) = 0;
    /// Where the user finds the setting, for messages.
    virtual std::wstring location(std::wstring_view key) const = 0;
};

}  // namespace blattwart
