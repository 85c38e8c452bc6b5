#pragma once

#ifdef _WIN32
#include <windows.h>
#endif

// Plain names then mean the narrow calls, which take UTF-8 under unixODBC and under Wine alike.
#define SQL_NOUNICODEMAP
#include <sql.h>
#include <sqlext.h>

#include "demo/ado/AdoErrors.h"

namespace demo::ado {

/// Throws RuntimeError with this error when an ODBC call failed.
inline void check(SQLRETURN result, AdoError error = AdoError::unspecified) {
    if (!SQL_SUCCEEDED(result)) fail(error);
}

}  // namespace demo::ado
