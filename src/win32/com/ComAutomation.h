#pragma once

#include <memory>

#include "platform/Automation.h"
#include "win32/com/ComObject.h"
#include "win32/com/MessageFilter.h"

namespace blattwart {

/// Automation objects over COM. The thread must be a single-threaded apartment for as long as this and the
/// objects live.
class ComAutomation : public Automation {
  public:
    /// Registers the message filter of the thread. Throws RuntimeError.
    explicit ComAutomation(HostCaller& hostCaller);

    ObjectPtr running(std::wstring_view name) override;
    /// Components that load into this process are never busy; programs are started and may take a while.
    ObjectPtr create(std::wstring_view name) override;

  private:
    ObjectPtr application(const ComPtr<IDispatch>& dispatch);

    HostCaller& hostCaller_;
    MessageFilterRegistration filter_;
    std::shared_ptr<ServerLink> components_;
    std::weak_ptr<ComObject> application_;
};

}  // namespace blattwart
