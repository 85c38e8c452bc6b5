#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

#include "demo/mdb/Table.h"

namespace demo::mdb {

/// The bytes of a Jet 4 database with these tables. Throws RuntimeError when a value does not suit its
/// column, a key is null or occurs twice, or the file would exceed 2 MiB.
std::vector<std::uint8_t> databaseBytes(const std::vector<Table>& tables);

/// Writes the database to a file, replacing what is there. Throws RuntimeError like `databaseBytes`, and with
/// errorNumber::pathNotFound when the file cannot be written.
void writeDatabase(const std::filesystem::path& file, const std::vector<Table>& tables);

}  // namespace demo::mdb
