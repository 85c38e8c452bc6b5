#pragma once

#include <string>

#include "platform/Automation.h"

namespace blattwart {

/// Makes a definition database with the types that an office starts with and no blocks. `file` is one that
/// does not exist, in a folder that does; `catalog` is a new "ADOX.Catalog". Throws RuntimeError with the
/// provider's own text. The catalog holds the unfinished file then, which is left to the caller.
void writeNewDatabase(AutomationObject& catalog, const std::wstring& file);

}  // namespace blattwart
