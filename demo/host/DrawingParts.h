#pragma once

#include "demo/host/Members.h"

namespace demo {

/// An object of a drawing's database (layout, block, entity, ...): it is looked up by its handle for each
/// call, so that the user may erase it meanwhile.
class DrawingPart : public HostPart {
  public:
    DrawingPart(HostPtr host, DocumentPtr document, Handle handle)
        : HostPart(std::move(host), std::move(document)), handle_(handle) {}

    Handle handle() const { return handle_; }

  protected:
    /// Throws when the object was erased.
    Object& object() const;
    Drawing& drawing() const { return document().drawing(); }

    virtual std::wstring className() const = 0;
    virtual void erase() = 0;

    blattwart::Value handleValue();
    blattwart::Value objectName();
    blattwart::Value getXData(Arguments arguments);
    blattwart::Value setXData(Arguments arguments);
    blattwart::Value remove(Arguments);
    blattwart::Value objectId();
    blattwart::Value objectId32();

    /// The members that all these classes have, with the same ids in each, and a class's own.
    template <class Self>
    static std::vector<MemberSlot<Self>> withOwnMembers(std::vector<MemberSlot<Self>> own) {
        const std::vector<MemberSlot<Self>> inherited{
            property<Self>(0x400, L"Handle", &Self::handleValue),
            property<Self>(0x401, L"ObjectName", &Self::objectName),
            method<Self>(0x402, L"GetXData", &Self::getXData, 3),
            method<Self>(0x403, L"SetXData", &Self::setXData, 2),
            method<Self>(0x404, L"Delete", &Self::remove),
            property<Self>(0x405, L"ObjectID", &Self::objectId),
            shortId(property<Self>(0x476, L"ObjectID32", &Self::objectId32)),
        };
        own.insert(own.end(), inherited.begin(), inherited.end());
        return own;
    }

  private:
    Handle handle_;
};

/// Ids that a host makes of an object's running number, and back; 0 for ids that no object has.
std::int64_t idOfNumber(std::int32_t number, const HostOptions& options);
std::int32_t numberOfId(std::int64_t id, const HostOptions& options);
/// The 32-bit ids that 64-bit hosts offer beside them.
std::int32_t shortIdOfNumber(std::int32_t number);
std::int32_t numberOfShortId(std::int64_t id);

/// The object of the class that a database object belongs to.
blattwart::ObjectPtr makeDrawingObject(const HostPtr& host, const DocumentPtr& document,
                                       const Object& object);

}  // namespace demo
