#pragma once

#include <limits>

#include "platform/ReadingWatch.h"

namespace blattwart::test {

/// The user presses Esc once, after so many steps of each reading.
class FakeReadingWatch : public ReadingWatch {
  public:
    int escAfter = std::numeric_limits<int>::max();
    int begun = 0;
    int ended = 0;

    void begin(std::wstring_view) override {
        ++begun;
        steps_ = 0;
    }
    bool goOn() override { return steps_++ != escAfter; }
    void end() override { ++ended; }

  private:
    int steps_ = 0;
};

}  // namespace blattwart::test
