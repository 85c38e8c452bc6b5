#pragma once

#include <unordered_map>
#include <vector>

#include "demo/host/HostError.h"
#include "demo/host/HostPart.h"

/// How the host's classes offer their members: each class has one table that joins name, id and operations.
namespace demo {

using Arguments = std::span<const blattwart::Argument>;

/// One member of a class. A property has `get` and perhaps `put`, a method has `method`.
template <class Self>
struct MemberSlot {
    std::int32_t id = 0;
    std::wstring_view name;
    blattwart::Value (Self::*get)() = nullptr;
    void (Self::*put)(const blattwart::Value&) = nullptr;
    blattwart::Value (Self::*method)(Arguments) = nullptr;
    std::size_t fewest = 0;  ///< arguments of the method
    std::size_t most = 0;
    bool shortId = false;  ///< a 32-bit id or handle beside a wider one
};

template <class Self>
MemberSlot<Self> property(std::int32_t id, std::wstring_view name, blattwart::Value (Self::*get)(),
                          void (Self::*put)(const blattwart::Value&) = nullptr) {
    return {.id = id, .name = name, .get = get, .put = put};
}

template <class Self>
MemberSlot<Self> method(std::int32_t id, std::wstring_view name, blattwart::Value (Self::*method)(Arguments),
                        std::size_t fewest = 0, std::size_t optional = 0) {
    return {.id = id, .name = name, .method = method, .fewest = fewest, .most = fewest + optional};
}

/// A member that 64-bit hosts offer only.
template <class Self>
MemberSlot<Self> shortId(MemberSlot<Self> slot) {
    slot.shortId = true;
    return slot;
}

/// Name as key of a table: ASCII letters in lower case.
std::wstring memberKey(std::wstring_view name);

template <class Self>
class MemberTable {
  public:
    explicit MemberTable(std::vector<MemberSlot<Self>> slots) : slots_(std::move(slots)) {
        for (const auto& slot : slots_) {
            byName_.emplace(memberKey(slot.name), &slot);
            byId_.emplace(slot.id, &slot);
        }
    }

    const MemberSlot<Self>* byName(std::wstring_view name) const {
        const auto found = byName_.find(memberKey(name));
        return found == byName_.end() ? nullptr : found->second;
    }
    const MemberSlot<Self>* byId(std::int32_t id) const {
        const auto found = byId_.find(id);
        return found == byId_.end() ? nullptr : found->second;
    }

  private:
    std::vector<MemberSlot<Self>> slots_;
    std::unordered_map<std::wstring, const MemberSlot<Self>*> byName_;
    std::unordered_map<std::int32_t, const MemberSlot<Self>*> byId_;
};

/// A class of the host. `Self` derives from this and has `static std::vector<MemberSlot<Self>> members()`.
template <class Self, class Base = HostPart>
class HostClass : public Base {
  public:
    using Base::Base;

    std::optional<std::int32_t> memberId(std::wstring_view name) const override {
        const auto* slot = table().byName(name);
        if (!slot || !offers(*slot)) return std::nullopt;
        return slot->id;
    }

    blattwart::Value invoke(std::int32_t id, Access access, Arguments arguments) override {
        this->checkReachable();
        const auto* slot = table().byId(id);
        if (!slot || !offers(*slot)) throw this->failure(hostError::memberNotFound);
        try {
            return perform(*slot, access, arguments);
        } catch (const blattwart::RuntimeError& error) {
            throw hostError::fromDrawing(error);
        }
    }

  private:
    static const MemberTable<Self>& table() {
        static const MemberTable<Self> members(Self::members());
        return members;
    }

    bool offers(const MemberSlot<Self>& slot) const {
        return !slot.shortId || (this->options().wideIds && this->options().shortIds);
    }

    blattwart::Value perform(const MemberSlot<Self>& slot, Access access, Arguments arguments) {
        auto& self = static_cast<Self&>(*this);
        if (access == Access::put) {
            if (!slot.put) throw this->failure(hostError::memberNotFound);
            if (arguments.size() != 1) throw this->failure(hostError::badParameterCount);
            (self.*slot.put)(arguments.front().value());
            return {};
        }
        if (slot.get) {
            if (!arguments.empty()) throw this->failure(hostError::badParameterCount);
            return (self.*slot.get)();
        }
        if (!slot.method || access != Access::method) throw this->failure(hostError::memberNotFound);
        if (arguments.size() < slot.fewest || arguments.size() > slot.most) {
            throw this->failure(hostError::badParameterCount);
        }
        return (self.*slot.method)(arguments);
    }
};

}  // namespace demo
