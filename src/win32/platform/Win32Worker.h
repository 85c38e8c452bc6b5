#pragma once

#include <windows.h>

#include "platform/Worker.h"
#include "win32/base/Handles.h"

namespace blattwart {

/// The thread begins with the first work. At the end what it waits for is broken off; where even that does
/// not help it is left behind.
class Win32Worker : public Worker {
  public:
    /// `deliver` is handed what is to be done on the thread that the worker was made on, between two messages
    /// of it. Must not throw.
    explicit Win32Worker(std::function<void(std::function<void()> done)> deliver)
        : deliver_(std::move(deliver)) {}
    Win32Worker(const Win32Worker&) = delete;
    Win32Worker& operator=(const Win32Worker&) = delete;
    ~Win32Worker() override;

    void run(std::function<void()> work, std::function<void()> done) override;

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                      DWORD_PTR worker);
    void begin();

    std::function<void(std::function<void()> done)> deliver_;
    Handle thread_;
    HWND window_ = nullptr;  // is told what is done
};

}  // namespace blattwart
