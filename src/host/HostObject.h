#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/Automation.h"

namespace blattwart::host {

/// What one attached host has turned out to be; shared by all objects of one session.
struct Session {
    /// Whether objects have ids beyond 32 bits and offer 32-bit ones beside them; unknown before the first
    /// asking.
    std::optional<bool> wideIds;
};

/// A typed face on one of the host's objects; empty when there is none. Every member function is one round
/// trip unless it says otherwise, and throws RuntimeError when the host refuses it or when the face is empty.
class HostObject {
  public:
    HostObject() = default;
    HostObject(ObjectPtr object, std::shared_ptr<Session> session)
        : object_(std::move(object)), session_(std::move(session)) {}

    explicit operator bool() const { return object_ != nullptr; }

  protected:
    /// Throws RuntimeError (object not set) when the face is empty.
    AutomationObject& object() const;
    Session& session() const { return *session_; }

    std::wstring getText(const Member& member) const;
    std::int32_t getNumber(const Member& member) const;
    double getDouble(const Member& member) const;
    template <class Face>
    Face getObject(const Member& member) const {
        return Face(toObject(object().get(member)), session_);
    }
    /// The object as a Face of the same session.
    template <class Face>
    Face face(ObjectPtr object) const {
        return Face(std::move(object), session_);
    }
    template <class Face>
    std::vector<Face> elements() const {
        std::vector<Face> faces;
        for (ObjectPtr& element : object().enumerate()) faces.push_back(face<Face>(std::move(element)));
        return faces;
    }
    /// The object's id in 32 bits: the host's own 32-bit number where ids are wider.
    std::int32_t objectId(const Member& id32, const Member& id) const;

    static ObjectPtr toObject(const Value& value);

    ObjectPtr object_;
    std::shared_ptr<Session> session_;
};

/// Numbers and texts as the host gives them. Throws type mismatch for anything else.
std::wstring textOf(const Value& value);
double numberOf(const Value& value);

}  // namespace blattwart::host
