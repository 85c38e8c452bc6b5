#pragma once

#include <string_view>

#include "platform/Settings.h"

namespace blattwart {

/// Reads a setting that must be a number. Throws type mismatch when it is none; the description tells the
/// user in German which setting is broken and where it is stored.
double numberSetting(const Settings& settings, std::wstring_view key, std::wstring_view defaultText);

}  // namespace blattwart
