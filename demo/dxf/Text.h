#pragma once

#include <string>
#include <string_view>

/// Texts of drawing files.
namespace demo {

/// From UTF-8; damaged texts become a single replacement character.
std::wstring decodeText(std::string_view utf8);
std::string encodeText(std::wstring_view text);

/// UTF-8 from the bytes of a drawing before release 2007: code page 1252, other characters as \U+XXXX.
std::string fromCodePage(std::string_view bytes);

/// For comparing names without regard to case (letters of Western Europe, Greek, Russian).
std::wstring folded(std::wstring_view name);
bool sameName(std::wstring_view a, std::wstring_view b);

}  // namespace demo
