#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <string>

#include "platform/ReadingWatch.h"

namespace blattwart {

/// Looks for Esc among the keys that wait for this thread's windows, without handling any message.
class Win32ReadingWatch : public ReadingWatch {
  public:
    /// `showWork` shows the user a text about what is going on, "" when it is over. It must not throw.
    explicit Win32ReadingWatch(std::function<void(const std::wstring&)> showWork)
        : showWork_(std::move(showWork)) {}

    void begin(std::wstring_view what) override;
    bool goOn() override;
    void end() override;

    /// To be told of input that a waiting call throws away: Esc ends the reading all the same.
    void noteInput(const MSG& message);

  private:
    std::function<void(const std::wstring&)> showWork_;
    std::wstring text_;
    std::uint64_t begunAt_ = 0;
    HCURSOR cursorBefore_ = nullptr;
    bool shown_ = false;
    bool escaped_ = false;
};

}  // namespace blattwart
