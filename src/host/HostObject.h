#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/Automation.h"
#include "platform/Conversions.h"

namespace blattwart::host {

/// What one attached host has turned out to be; shared by all of its objects.
struct HostManners {
    /// Whether it offers 32-bit ids beside wider ones; unknown before the first asking.
    std::optional<bool> shortIds;
};

/// A typed face on one of the host's objects; empty when there is none. Every member function is one round
/// trip unless it says otherwise, and throws RuntimeError when the host refuses it or when the face is empty.
class HostObject {
  public:
    HostObject() = default;
    HostObject(ObjectPtr object, std::shared_ptr<HostManners> manners)
        : object_(std::move(object)), manners_(std::move(manners)) {}

    explicit operator bool() const { return object_ != nullptr; }

  protected:
    /// Throws RuntimeError (object not set) when the face is empty.
    AutomationObject& object() const;
    HostManners& manners() const { return *manners_; }

    std::wstring getText(const Member& member) const;
    std::int32_t getNumber(const Member& member) const;
    double getDouble(const Member& member) const;
    template <class Face>
    Face getObject(const Member& member) const {
        return Face(toObject(object().get(member)), manners_);
    }
    /// The object as a Face of the same host.
    template <class Face>
    Face face(ObjectPtr object) const {
        return Face(std::move(object), manners_);
    }
    /// See AutomationObject::enumerate.
    template <class Face>
    std::vector<Face> elements(std::wstring_view className, const AutomationObject::GoOn& goOn) const {
        std::vector<Face> faces;
        for (ObjectPtr& element : object().enumerate(className, goOn))
            faces.push_back(face<Face>(std::move(element)));
        return faces;
    }
    /// What `asking` gives with the host's members for 32-bit ids, which not every host has; else with the
    /// others. A second round trip when asked first.
    template <class Asking>
    Value withIds(const Asking& asking, const Member& shortIds, const Member& ids) const {
        if (manners().shortIds.value_or(true)) {
            try {
                Value answer = asking(shortIds);
                manners().shortIds = true;
                return answer;
            } catch (const RuntimeError& error) {
                if (error.number() != hresult::unknownName || manners().shortIds.has_value()) throw;
                manners().shortIds = false;
            }
        }
        return asking(ids);
    }

    ObjectPtr object_;
    std::shared_ptr<HostManners> manners_;
};

/// Numbers and texts as the host gives them. Throws type mismatch for anything else.
[[noreturn]] void throwTypeMismatch();
std::wstring hostText(const Value& value);
double hostNumber(const Value& value);

}  // namespace blattwart::host
