#pragma once

#include <utility>

namespace blattwart {

/// Sets a flag for the length of a scope.
class ScopedFlag {
  public:
    explicit ScopedFlag(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
    ~ScopedFlag() { flag_ = before_; }
    ScopedFlag(const ScopedFlag&) = delete;
    ScopedFlag& operator=(const ScopedFlag&) = delete;

  private:
    bool& flag_;
    bool before_;
};

}  // namespace blattwart
