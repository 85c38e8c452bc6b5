#pragma once

#include <filesystem>
#include <string>
#include <string_view>

/// Texts of drawing files.
namespace demo {

/// Decodes UTF-8 and \U+XXXX. Bytes that are no UTF-8 give the replacement character.
std::wstring decodeText(std::string_view utf8);
/// UTF-8; a surrogate without its partner becomes \U+XXXX.
std::string encodeText(std::wstring_view text);

/// Between UTF-8 and code page 1252, in which drawings before 2007 are written. The five bytes without a
/// meaning stand for the control characters of the same number, so that each file comes back as it was.
/// Characters that the code page does not have are written as \U+XXXX.
std::string fromCodePage(std::string_view bytes);
std::string toCodePage(std::string_view utf8);

/// For comparing names without regard to case (letters of Western Europe, Greek, Russian).
std::wstring folded(std::wstring_view name);
bool sameName(std::wstring_view a, std::wstring_view b);

/// Path of a file as the system's library takes it.
std::filesystem::path toPath(const std::wstring& path);

}  // namespace demo
