#pragma once

#include <string>
#include <string_view>

namespace demo {

/// The SQL that gives a new database the rows of the demonstration.
std::wstring_view sampleRows();

/// Makes a definition database as an installation does, through the ADO stand-in, and then runs SQL
/// statements on it, each ended by a semicolon, which may occur nowhere else. The file must not exist. Throws
/// RuntimeError.
void makeDatabase(const std::wstring& file, std::wstring_view statements = sampleRows());

}  // namespace demo
