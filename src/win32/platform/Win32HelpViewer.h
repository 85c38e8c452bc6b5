#pragma once

#include <windows.h>

#include "platform/HelpViewer.h"

namespace blattwart {

/// The help viewer of Windows, loaded when it is first needed.
class Win32HelpViewer : public HelpViewer {
  public:
    void displayTopic(WindowHandle owner, const std::string& file, const std::string& topic) override;
    /// Closes the help windows, which have a thread of their own; to be called before the program ends.
    void closeAll() const;

  private:
    using Function = HWND WINAPI(HWND, const char*, UINT, DWORD_PTR);

    void load();

    Function* htmlHelp_ = nullptr;
};

}  // namespace blattwart
