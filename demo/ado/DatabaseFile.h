#pragma once

#include <string>
#include <string_view>

namespace demo::ado {

std::string toUtf8(std::wstring_view text);

bool fileExists(const std::wstring& path);

/// Whether the file, which exists, is one that SQLite has written.
bool isSqlite(const std::wstring& path);

/// The path as the driver wants it, in UTF-8. The driver is a Unix library also under Wine, so that it wants
/// a Unix path. Throws RuntimeError where neither is the case, on Windows itself.
std::string driverPath(const std::wstring& path);

}  // namespace demo::ado
