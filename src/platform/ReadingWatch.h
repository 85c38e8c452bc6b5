#pragma once

#include <string_view>

namespace blattwart {

/// Watches over work with the host that may take long: after two seconds the user sees that it is going on,
/// and Esc ends it.
class ReadingWatch {
  public:
    virtual ~ReadingWatch() = default;

    /// `what` is said to the user: "AutoCAD wird gelesen".
    virtual void begin(std::wstring_view what) = 0;
    /// To be asked before each step. False once the user has pressed Esc: what was done so far is the result.
    virtual bool goOn() = 0;
    virtual void end() = 0;
};

/// One such work, for the length of a scope.
class LongRead {
  public:
    explicit LongRead(ReadingWatch& watch, std::wstring_view what = L"AutoCAD wird gelesen") : watch_(watch) {
        watch_.begin(what);
    }
    ~LongRead() { watch_.end(); }
    LongRead(const LongRead&) = delete;
    LongRead& operator=(const LongRead&) = delete;

    /// To be asked before each step; once it said no it goes on saying so.
    bool goOn() { return going_ = going_ && watch_.goOn(); }

  private:
    ReadingWatch& watch_;
    bool going_ = true;
};

}  // namespace blattwart
