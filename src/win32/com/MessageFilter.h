#pragma once

#include <windows.h>

#include <objidl.h>
#include <wrl/client.h>

#include "win32/com/HostCaller.h"

namespace blattwart {

/// Registers a message filter for the current thread as long as it lives: input is kept back while a call is
/// under way, refused calls come back at once, to be made again by HostCaller, and a call without an answer
/// is cancelled when the user gives up. The thread must be a single-threaded apartment; throws RuntimeError
/// otherwise.
class MessageFilterRegistration {
  public:
    explicit MessageFilterRegistration(HostCaller& hostCaller);
    MessageFilterRegistration(const MessageFilterRegistration&) = delete;
    MessageFilterRegistration& operator=(const MessageFilterRegistration&) = delete;
    ~MessageFilterRegistration();

  private:
    Microsoft::WRL::ComPtr<IMessageFilter> previous_;
};

/// The filter itself, apart from its registration.
Microsoft::WRL::ComPtr<IMessageFilter> makeMessageFilter(HostCaller& hostCaller);

}  // namespace blattwart
