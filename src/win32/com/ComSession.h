#pragma once

#include <map>
#include <memory>
#include <optional>
#include <utility>

#include "platform/Automation.h"
#include "win32/com/BusyHost.h"
#include "win32/com/ComValue.h"
#include "win32/com/RecentObjects.h"

namespace blattwart {

/// What all objects of one application share: how calls to it are made, and the ids of its members.
class ComSession : public ObjectBorder, public std::enable_shared_from_this<ComSession> {
  public:
    /// Without a host the objects live in this process and are never busy.
    explicit ComSession(BusyHost* host) : host_(host) {}

    /// Makes one call, again and again while the host refuses it.
    template <class Call>
    HRESULT call(Call&& call) {
        return host_ ? host_->call(std::forward<Call>(call)) : call();
    }

    /// The id of a member of the object's class, asked for once per class and name. Throws RuntimeError; that
    /// the class has no such member is remembered too.
    DISPID memberId(IDispatch& object, const Member& member);
    /// The same without memory, for objects whose class is not known.
    DISPID lookUp(IDispatch& object, std::wstring_view name);

    /// Takes over an object that the program needs no more. The host's stay for a while, see RecentObjects.
    void letGo(ComPtr<IDispatch> dispatch) {
        if (host_) recent_.keep(std::move(dispatch));
    }

    ComPtr<IDispatch> toDispatch(const ObjectPtr& object) override;
    ObjectPtr fromDispatch(IDispatch* dispatch) override;

  private:
    BusyHost* host_;
    RecentObjects recent_;
    std::map<std::pair<std::wstring_view, std::wstring_view>, std::optional<DISPID>> ids_;
};

}  // namespace blattwart
