#pragma once

#include <windows.h>

#include <oaidl.h>

#include "platform/RuntimeError.h"

namespace blattwart {

/// Throws the failure with the system's text; calls refused and answers lost have words of their own.
[[noreturn]] void throwFailure(HRESULT result);
/// Throws the failure of a COM function with the system's text; passes over success.
void throwIfFailed(HRESULT result);

/// What a called object tells about its failure; frees it.
class ExceptionInfo {
  public:
    ExceptionInfo() = default;
    ExceptionInfo(const ExceptionInfo&) = delete;
    ExceptionInfo& operator=(const ExceptionInfo&) = delete;
    ~ExceptionInfo() { clear(); }

    /// Emptied, for a call that fills it.
    EXCEPINFO* put() {
        clear();
        return &info_;
    }
    /// The failed call as exception: the object's own code and text where it gives them.
    RuntimeError toError(HRESULT result);

  private:
    void clear();

    EXCEPINFO info_{};
};

}  // namespace blattwart
