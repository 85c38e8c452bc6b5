#pragma once

#include <windows.h>

#include <ole2.h>

namespace blattwart {

/// The single-threaded apartment that the automation objects live in.
class Apartment {
  public:
    Apartment() : result_(OleInitialize(nullptr)) {}
    ~Apartment() {
        if (SUCCEEDED(result_)) OleUninitialize();
    }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;

  private:
    HRESULT result_;
};

}  // namespace blattwart
