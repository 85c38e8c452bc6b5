#include "demo/ado/OdbcHandle.h"

#include "demo/ado/Odbc.h"

namespace demo::ado {

OdbcHandle::OdbcHandle(Kind kind, void* parent) : kind_(kind) {
    check(SQLAllocHandle(static_cast<SQLSMALLINT>(kind), parent, &handle_));
    if (kind != Kind::environment) return;
    const auto version = reinterpret_cast<SQLPOINTER>(static_cast<std::uintptr_t>(SQL_OV_ODBC3));
    SQLSetEnvAttr(handle_, SQL_ATTR_ODBC_VERSION, version, 0);
}

OdbcHandle::~OdbcHandle() {
    SQLFreeHandle(static_cast<SQLSMALLINT>(kind_), handle_);
}

}  // namespace demo::ado
