#pragma once

#include "demo/mdb/Bytes.h"

namespace demo::mdb {

/// The first page of the file: no password, not encrypted, made on a fixed day so that equal contents give
/// equal files.
Bytes headerPage();

}  // namespace demo::mdb
