#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/Automation.h"

namespace demo {

/// One call that reached another program, or, as `other`, the system.
struct RecordedCall {
    enum class Kind { running, create, get, put, call, enumerate, other };
    Kind kind = Kind::get;
    /// Literals of the caller for members and enumerations; the program's name for running and create.
    std::wstring className;
    std::wstring name;
    bool ofHost = false;  ///< to the host or one of its objects
    /// Of put and call; objects are left out (empty), so that the record holds none.
    std::vector<blattwart::Value> arguments;
};

/// When a disturbance strikes: instead of the call, or once it was carried out, so that only its answer is
/// lost.
enum class Moment { before, after };

/// Records and disturbs everything that goes through another Automation: each object that it gives out is
/// wrapped, those inside of arguments, results and arrays too. The recorder may be gone before the objects.
class CallRecorder final : public blattwart::Automation {
  public:
    struct State;

    explicit CallRecorder(blattwart::Automation& inner);

    /// All calls since the last `clear`, failed ones included, in order.
    const std::vector<RecordedCall>& calls() const;
    /// Names alone, as "get Layout.Name", "put Document.ActiveLayout", "enumerate", "running NAME".
    std::vector<std::wstring> list() const;
    std::size_t count() const { return calls().size(); }
    /// Calls of members of this name.
    std::size_t count(std::wstring_view name) const;
    /// Forgets the calls; the counting for `failAt` and `goneFrom` begins anew.
    void clear();

    /// The n-th call from the last `clear` (from 1) fails with the error; several calls may.
    void failAt(std::size_t n, blattwart::RuntimeError error, Moment moment = Moment::before);
    /// From the n-th call on the host is gone: its objects fail for ever, it is not running and cannot be
    /// started. Other programs go on.
    void goneFrom(std::size_t n, Moment moment = Moment::before);
    /// From now on the host refuses every call with the error, as one that is busy or hangs.
    void refuse(blattwart::RuntimeError error);
    /// Ends all disturbance. A host that was gone runs again, as another instance.
    void heal();
    /// The host has ended by itself; one that runs from now on is another instance.
    void hostEnded();
    /// Objects of instances that have ended, as far as somebody still holds them.
    std::size_t deadObjects() const;

    /// Notes a call that goes to the system and not through this automation. Returns whether it is to fail.
    bool strikes(std::wstring_view name);

    /// Runs before each call is made, with its number from 1; for what the user does meanwhile.
    void beforeCall(std::function<void(std::size_t)> action);

    blattwart::ObjectPtr running(std::wstring_view name) override;
    blattwart::ObjectPtr create(std::wstring_view name) override;

  private:
    blattwart::ObjectPtr top(RecordedCall::Kind kind, std::wstring_view name);

    blattwart::Automation& inner_;
    std::shared_ptr<State> state_;
};

}  // namespace demo
