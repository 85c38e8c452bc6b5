#pragma once

#include <map>
#include <memory>
#include <optional>
#include <utility>

#include "platform/Automation.h"
#include "win32/com/ComValue.h"
#include "win32/com/HostCaller.h"
#include "win32/com/RecentObjects.h"

namespace blattwart {

/// What all objects of one application share: how calls to it are made, and what its classes have turned out
/// to be like.
class ServerLink : public ObjectBorder, public std::enable_shared_from_this<ServerLink> {
  public:
    /// Without a caller the objects live in this process and are never busy.
    explicit ServerLink(HostCaller* caller) : caller_(caller) {}

    /// Makes one call, again and again while the host refuses it.
    template <class Call>
    HRESULT call(Call&& call) {
        return caller_ ? caller_->call(std::forward<Call>(call)) : call();
    }

    /// The id of a member of the object's class, asked for once per class and name. Throws RuntimeError; that
    /// the class has no such member is remembered too.
    DISPID memberId(IDispatch& object, const Member& member);
    /// The same of this very object, without memory.
    DISPID lookUp(IDispatch& object, std::wstring_view name);

    /// How the collections of a class hand out their elements.
    enum class Enumerating { unknown, several, single, byItem };
    Enumerating enumerating(std::wstring_view className) const;
    void learn(std::wstring_view className, Enumerating manner);

    /// Takes over an object that the program needs no more. The host's stay for a while, see RecentObjects.
    void letGo(ComPtr<IDispatch> dispatch) {
        if (caller_) recent_.keep(std::move(dispatch));
    }

    ComPtr<IDispatch> toDispatch(const ObjectPtr& object) override;
    ObjectPtr fromDispatch(IDispatch* dispatch) override;

  private:
    HostCaller* caller_;
    RecentObjects recent_;
    std::map<std::pair<std::wstring_view, std::wstring_view>, std::optional<DISPID>> ids_;
    std::map<std::wstring_view, Enumerating> enumerating_;
    bool anySeveral_ = false;
};

}  // namespace blattwart
