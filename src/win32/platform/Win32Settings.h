#pragma once

#include "platform/Settings.h"

namespace blattwart {

/// The settings in the account's own registry branch.
class Win32Settings : public Settings {
  public:
    std::wstring get(std::wstring_view key, std::wstring_view defaultText) const override;
    void set(std::wstring_view key, std::wstring_view text) override;
    std::wstring location(std::wstring_view key) const override;
};

}  // namespace blattwart
