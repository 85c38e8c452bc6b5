#pragma once

#include <functional>

#include "demo/host/Host.h"
#include "platform/Automation.h"

namespace demo {

/// The automation of a machine on which the demonstration host is installed: it runs or not, can be started
/// or not. Starting gives another instance than before, with one new drawing.
class DemoAutomation final : public blattwart::Automation {
  public:
    using OtherPrograms = std::function<blattwart::ObjectPtr(std::wstring_view name)>;

    /// The host is not running at first. Instances that clients start have the options and the disk.
    explicit DemoAutomation(HostOptions options = {}, Disk disk = {});

    /// Makes objects of other names ("ADODB.Connection"), which are unknown otherwise.
    void setOtherPrograms(OtherPrograms make) { otherPrograms_ = std::move(make); }

    /// The user starts the host: visible, without a document. A running instance is ended.
    Host& start();
    /// The user ends the host; its objects are dead.
    void end();
    /// The running instance; null when there is none.
    const HostPtr& host() const { return host_; }

    /// Creating fails with this text; "" lets it succeed again.
    void setCreateError(std::wstring text) { createError_ = std::move(text); }

    blattwart::ObjectPtr running(std::wstring_view name) override;
    blattwart::ObjectPtr create(std::wstring_view name) override;

  private:
    HostOptions options_;
    Disk disk_;
    HostPtr host_;
    std::wstring createError_;
    OtherPrograms otherPrograms_;
};

}  // namespace demo
