#pragma once

namespace blattwart {

/// From now on libraries come from the system's folder only, never from the working folder or beside the
/// program.
void hardenLibrarySearch();

}  // namespace blattwart
