#pragma once

#include <functional>

#include "demo/host/Host.h"
#include "platform/Automation.h"

namespace demo {

/// The automation of a machine on which the demonstration host is installed, perhaps in several releases:
/// each runs or not, can be started or not. Starting gives another instance than before, with one new drawing
/// unless it comes up with the start tab.
class DemoAutomation final : public blattwart::Automation {
  public:
    using OtherPrograms = std::function<blattwart::ObjectPtr(std::wstring_view name)>;

    /// The first release. The host is not running at first. Instances that clients start have the options and
    /// the disk.
    explicit DemoAutomation(HostOptions options = {}, Disk disk = {});
    /// Another release beside it, or the same one with other options.
    void install(HostOptions options);

    /// Makes objects of other names ("ADODB.Connection"), which are unknown otherwise.
    void setOtherPrograms(OtherPrograms make) { otherPrograms_ = std::move(make); }

    // "" for the first release.

    /// The user starts the host: visible, without a document. A running instance is ended.
    Host& start(std::wstring_view release = {});
    /// The user ends the host; its objects are dead.
    void end(std::wstring_view release = {});
    /// The running instance; null when there is none.
    const HostPtr& host(std::wstring_view release = {});

    /// Creating fails with this text; "" lets it succeed again.
    void setCreateError(std::wstring text) { createError_ = std::move(text); }

    blattwart::ObjectPtr running(std::wstring_view name) override;
    blattwart::ObjectPtr create(std::wstring_view name) override;

  private:
    struct Installation {
        HostOptions options;
        HostPtr host;
    };

    Installation& installation(std::wstring_view release);
    /// The release that runs under the name, else the first one that has it. Throws when none has.
    Installation& named(std::wstring_view name);

    std::vector<Installation> installations_;
    Disk disk_;
    std::wstring createError_;
    OtherPrograms otherPrograms_;
};

}  // namespace demo
