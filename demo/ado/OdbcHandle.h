#pragma once

#include <cstdint>

namespace demo::ado {

/// Owns an ODBC handle.
class OdbcHandle {
  public:
    enum class Kind : std::int16_t { environment = 1, connection = 2, statement = 3 };

    /// `parent` is the handle to allocate from, null for an environment. Throws RuntimeError.
    OdbcHandle(Kind kind, void* parent);
    ~OdbcHandle();
    OdbcHandle(const OdbcHandle&) = delete;
    OdbcHandle& operator=(const OdbcHandle&) = delete;

    void* get() const { return handle_; }

  private:
    Kind kind_;
    void* handle_ = nullptr;
};

}  // namespace demo::ado
