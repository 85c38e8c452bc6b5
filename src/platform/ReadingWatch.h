#pragma once

namespace blattwart {

/// Watches over readings of the host that may take long: after two seconds the user sees that work is going
/// on, and Esc ends it.
class ReadingWatch {
  public:
    virtual ~ReadingWatch() = default;

    virtual void begin() = 0;
    /// To be asked before each step. False once the user has pressed Esc: what was read so far is the result.
    virtual bool goOn() = 0;
    virtual void end() = 0;
};

/// One such reading, for the length of a scope.
class LongRead {
  public:
    explicit LongRead(ReadingWatch& watch) : watch_(watch) { watch_.begin(); }
    ~LongRead() { watch_.end(); }
    LongRead(const LongRead&) = delete;
    LongRead& operator=(const LongRead&) = delete;

    bool goOn() { return watch_.goOn(); }

  private:
    ReadingWatch& watch_;
};

}  // namespace blattwart
