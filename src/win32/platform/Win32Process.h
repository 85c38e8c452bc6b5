#pragma once

#include "platform/Process.h"
#include "win32/base/Handles.h"

namespace blattwart {

class Win32Process : public Process {
  public:
    bool previousInstance() override;
    void start(const std::wstring& commandLine) override;
    void end() override;

    /// True once `end` was called: the message loop then dispatches nothing more.
    bool ended() const { return ended_; }

  private:
    Handle instanceMark_;
    bool ended_ = false;
};

}  // namespace blattwart
