#pragma once

namespace blattwart {

/// Sets a flag for the length of a scope.
class ScopedFlag {
  public:
    explicit ScopedFlag(bool& flag) : flag_(flag), before_(flag) { flag_ = true; }
    ~ScopedFlag() { flag_ = before_; }
    ScopedFlag(const ScopedFlag&) = delete;
    ScopedFlag& operator=(const ScopedFlag&) = delete;

  private:
    bool& flag_;
    bool before_;
};

}  // namespace blattwart
