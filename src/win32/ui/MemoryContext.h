#pragma once

#include <windows.h>

namespace blattwart {

/// A device context that draws on a bitmap, or from it.
class MemoryContext {
  public:
    explicit MemoryContext(HBITMAP bitmap)
        : context_(CreateCompatibleDC(nullptr)), before_(SelectObject(context_, bitmap)) {}
    ~MemoryContext() {
        SelectObject(context_, before_);
        DeleteDC(context_);
    }
    MemoryContext(const MemoryContext&) = delete;
    MemoryContext& operator=(const MemoryContext&) = delete;

    HDC get() const { return context_; }

  private:
    HDC context_;
    HGDIOBJ before_;
};

}  // namespace blattwart
