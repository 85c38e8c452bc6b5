#pragma once

#include <array>

#include "host/HostObject.h"

namespace blattwart::host {

/// Extended data of one object: group codes and values of equal number, the application's name first. Both
/// are empty when the object has none.
struct XData {
    ShortArray types;
    ValueArray values;
};

/// An object of a drawing. Members of one kind only are named after that kind.
class Entity : public HostObject {
  public:
    using HostObject::HostObject;

    /// Class name, such as "AcDbViewport".
    std::wstring ObjectName() const;
    XData GetXData(const std::wstring& applicationName) const;
    void SetXData(const XData& data) const;

    /// Of a viewport: paper units for one unit of the model, so 0.02 at 1:50.
    double viewportCustomScale() const;

    /// Of a block reference: the defining block; where the host has no such member, the referenced block's
    /// name.
    std::wstring blockEffectiveName() const;
};

/// The objects of a layout or of a block.
class Block : public HostObject {
  public:
    using HostObject::HostObject;

    /// Once `goOn`, asked between messages, says no, those that came so far.
    std::vector<Entity> entities(const AutomationObject::GoOn& goOn) const {
        return elements<Entity>(L"Block", goOn);
    }
};

}  // namespace blattwart::host
