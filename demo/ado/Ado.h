#pragma once

#include <string_view>

#include "platform/Automation.h"

namespace demo {

/// What the stand-in does wrong on purpose.
struct AdoFaults {
    /// No provider is installed: every Open of a connection fails.
    bool providerMissing = false;
    /// Close of a connection fails, and the connection stays open.
    bool refusesToClose = false;
};

/// A new "ADODB.Connection" or "ADODB.Recordset" (read without regard to case), a `DispatchObject`.
/// Connections read Jet databases through ODBC; what is written to a recordset stays in memory, as the driver
/// cannot write files. Throws RuntimeError 0x800401F3 for any other name.
blattwart::ObjectPtr makeAdo(std::wstring_view name, const AdoFaults& faults = {});

}  // namespace demo
