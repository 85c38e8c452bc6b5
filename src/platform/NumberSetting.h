#pragma once

#include <cstdint>
#include <string_view>

#include "platform/Settings.h"

namespace blattwart {

/// Read a setting that must be a number of the type. Throw type mismatch when it is none and overflow when it
/// is beyond the type; the description tells the user in German which setting is broken and where it is
/// stored.
float realSetting(const Settings& settings, std::wstring_view key, std::wstring_view defaultText);
std::int32_t wholeSetting(const Settings& settings, std::wstring_view key, std::wstring_view defaultText);

}  // namespace blattwart
