#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "data/Recordset.h"
#include "platform/MessageBoxes.h"

namespace blattwart {

/// Where types without a folder of their own have their templates.
struct LibraryFolders {
    std::wstring application;                 ///< the program's folder, without a backslash at its end
    std::function<std::wstring()> templates;  ///< the host's template folder; "" without a host
};

/// One type of templates.
struct CTyp {
    std::wstring StTempVerz;   ///< not from the database
    std::wstring Verzeichnis;  ///< folder of the type's templates
    std::wstring Info;         ///< free description
    std::wstring typ;          ///< name, also of the folder below the library root
    std::int32_t TypenId = 0;  ///< 1 for the type whose default folder is the host's template folder

    /// Takes the values of the current row. Throws RuntimeError when the id is no number; unreadable texts
    /// are "".
    void ReadFromDatabase(Recordset& row, const LibraryFolders& folders);
    /// Writes the folder into the current row. Returns whether that failed; the user has been told then.
    bool WriteToDatabase(Recordset& row, MessageBoxes& messages) const;
};

}  // namespace blattwart
