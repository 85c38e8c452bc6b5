#pragma once

#include <filesystem>
#include <string>

#include "demo/mdb/Table.h"

namespace demo::test {

/// What a command prints to its standard output.
std::string output(const std::string& command);

/// The rows of a table as the independent reader sees them: a line a row, values separated by bars, NULL as
/// such.
std::string exported(const std::filesystem::path& file, const std::string& table);

/// The same for the table that was to be written.
std::string expected(const mdb::Table& table);

}  // namespace demo::test
