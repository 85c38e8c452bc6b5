#pragma once

#include <string_view>

#include "platform/Automation.h"

namespace demo {

/// What the stand-in does wrong on purpose.
struct AdoFaults {
    /// No provider is installed: every Open of a connection and every Create of a catalog fails.
    bool providerMissing = false;
    /// Close of a connection fails, and the connection stays open.
    bool refusesToClose = false;
};

/// A new "ADODB.Connection", "ADODB.Recordset" or "ADOX.Catalog" (read without regard to case), a
/// `DispatchObject`. Databases are reached through ODBC: catalogs make SQLite files whatever they are called;
/// connections open these, and genuine Jet files for reading. What is written to a recordset stays in memory.
/// Throws RuntimeError 0x800401F3 for any other name.
blattwart::ObjectPtr makeAdo(std::wstring_view name, const AdoFaults& faults = {});

}  // namespace demo
