#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "platform/Automation.h"

namespace demo {

enum class Access { get, put, method };

/// An object that a stand-in offers: to native tests directly as automation object, to other processes
/// through COM. Members are reached by ids that differ from class to class, as in the real object models.
class DispatchObject : public blattwart::AutomationObject {
  public:
    using AutomationObject::call;
    using AutomationObject::enumerate;

    /// Id of a member, its name read without regard to case; none when the class has no such member.
    virtual std::optional<std::int32_t> memberId(std::wstring_view name) const = 0;
    /// Reads, writes or calls a member. A put has one argument. Throws RuntimeError with the HRESULT and the
    /// text that the caller is to see.
    virtual blattwart::Value invoke(std::int32_t id, Access access,
                                    std::span<const blattwart::Argument> arguments) = 0;
    /// What an enumeration gives. Throws member not found when there is none.
    virtual std::vector<blattwart::ObjectPtr> allElements() = 0;

    blattwart::Value get(const blattwart::Member& member) final;
    void put(const blattwart::Member& member, const blattwart::Value& value) final;
    blattwart::Value call(const blattwart::Member& member,
                          std::span<const blattwart::Argument> arguments) final;
    std::vector<blattwart::ObjectPtr> enumerate(std::wstring_view, const GoOn& goOn) final;

  private:
    std::int32_t idOf(const blattwart::Member& member) const;
};

}  // namespace demo
