#pragma once

#include <functional>
#include <optional>

#include "platform/Automation.h"

namespace demo {

/// One call that reached another program.
struct RecordedCall {
    enum class Kind { running, create, get, put, call, enumerate };
    Kind kind = Kind::get;
    /// Literals of the caller for members; the program's name for running and create; empty for enumerate.
    std::wstring className;
    std::wstring name;

    friend bool operator==(const RecordedCall&, const RecordedCall&) = default;
};

/// Records and disturbs everything that goes through another Automation: each object that it gives out is
/// wrapped, those inside of arguments, results and arrays too. The recorder may be gone before the objects.
class CallRecorder final : public blattwart::Automation {
  public:
    struct State;

    explicit CallRecorder(blattwart::Automation& inner);

    /// All calls since the last `clear`, failed ones included, in order.
    const std::vector<RecordedCall>& calls() const;
    /// Names alone, as "get Name", "put ActiveLayout", "call SendCommand", "enumerate".
    std::vector<std::wstring> list() const;
    std::size_t count() const { return calls().size(); }
    /// Calls of members of this name.
    std::size_t count(std::wstring_view name) const;
    /// Forgets the calls; the counting for `failAt` and `goneFrom` begins anew.
    void clear();

    /// The n-th call from the last `clear` (from 1) fails with the error instead of being made.
    void failAt(std::size_t n, blattwart::RuntimeError error);
    /// From the n-th call on the host is gone: its objects fail, it is not running and cannot be started.
    /// Other programs go on.
    void goneFrom(std::size_t n);
    /// Ends all disturbance.
    void heal();

    /// What callPending answers; at first false.
    void setCallPending(bool pending) { callPending_ = pending; }
    /// Runs before each call is made, with its number from 1; for what the user does meanwhile.
    void beforeCall(std::function<void(std::size_t)> action);

    blattwart::ObjectPtr running(std::wstring_view name) override;
    blattwart::ObjectPtr create(std::wstring_view name) override;
    bool callPending() const override { return callPending_; }

  private:
    blattwart::Automation& inner_;
    std::shared_ptr<State> state_;
    bool callPending_ = false;
};

}  // namespace demo
