#pragma once

#include <string>

#include "platform/Automation.h"

namespace blattwart {

/// Makes a definition database with the types that an office starts with and no blocks. `file` is one that
/// does not exist, in a folder that does; `catalog` is a new "ADOX.Catalog". Throws RuntimeError with the
/// provider's own text and, when the file is there meanwhile, the number `databaseExists`. The catalog holds
/// the unfinished file then, which is left to the caller.
void writeNewDatabase(AutomationObject& catalog, const std::wstring& file);

/// What the provider answers when the file to be made exists.
inline constexpr std::int32_t databaseExists = static_cast<std::int32_t>(0x80040E17);

}  // namespace blattwart
