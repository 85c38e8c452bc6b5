#pragma once

#include <functional>
#include <vector>

#include "platform/Automation.h"
#include "support/CallCount.h"

namespace blattwart::test {

/// Automation objects of any make behind a counter: every call through the seam is logged and can be made to
/// fail, also of all objects that come out of calls.
class TracedAutomation : public Automation {
  public:
    using Source = std::function<ObjectPtr(std::wstring_view name)>;

    /// Either source may be empty: there is nothing of the kind then.
    explicit TracedAutomation(Source create, Source running = {});

    CallCount& calls() { return trace_->calls; }
    /// One line a call, such as `Connection.Open("a", 3)`, `Connection.CursorLocation = 3`,
    /// `Fields.Item("typ")`.
    const std::vector<std::wstring>& log() const { return trace_->log; }
    void clearLog() { trace_->log.clear(); }
    /// Objects that came out of `create` and `running` and are still held.
    std::size_t heldObjects() const;

    ObjectPtr running(std::wstring_view name) override { return top(running_, L"running", name); }
    ObjectPtr create(std::wstring_view name) override { return top(create_, L"create", name); }
    bool callPending() const override { return false; }

    struct Trace {
        CallCount calls;
        std::vector<std::wstring> log;

        /// Logs a call. Throws RuntimeError when it is the one to fail.
        void enter(std::wstring line);
    };

  private:
    ObjectPtr top(const Source& source, const wchar_t* operation, std::wstring_view name);

    Source create_;
    Source running_;
    std::shared_ptr<Trace> trace_ = std::make_shared<Trace>();
    std::vector<std::weak_ptr<AutomationObject>> topObjects_;
};

}  // namespace blattwart::test
