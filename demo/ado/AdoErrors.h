#pragma once

#include <cstdint>
#include <string>

namespace demo::ado {

/// HRESULTs of the real objects.
enum class AdoError : std::uint32_t {
    unspecified = 0x80004005,
    memberNotFound = 0x80020003,
    typeMismatch = 0x80020005,
    unknownClass = 0x800401F3,
    badStatement = 0x80040E14,
    databaseExists = 0x80040E17,
    tableNotFound = 0x80040E37,
    invalidArgument = 0x800A0BB9,
    noCurrentRow = 0x800A0BCD,
    illegalOperation = 0x800A0C93,
    notUpdatable = 0x800A0CB3,
    itemNotFound = 0x800A0CC1,
    objectClosed = 0x800A0E78,
    objectOpen = 0x800A0E79,
    providerNotFound = 0x800A0E7A,
    invalidConnection = 0x800A0E7D
};

/// Throws RuntimeError with the German text that belongs to the error.
[[noreturn]] void fail(AdoError error);
/// Throws RuntimeError with a text of its own.
[[noreturn]] void fail(AdoError error, std::wstring description);

}  // namespace demo::ado
