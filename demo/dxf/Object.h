#pragma once

#include <functional>
#include <memory>

#include "demo/dxf/Group.h"

namespace demo {

class Object;
using Objects = std::vector<std::unique_ptr<Object>>;

/// An entity, table record or other object of a drawing: its DXF type and its groups. An entity that consists
/// of several records in the file (a polyline with vertices, a block reference with attributes) is one object
/// with parts.
///
/// Groups are found outside of the {...} lists of group 102 and before the extended data. Where a code occurs
/// in several subclasses, `subclass` says in which one to look ("AcDbLayout"); "" takes the first of all.
class Object {
  public:
    /// `groups` are those that follow the group 0.
    Object(std::string type, Groups groups);

    /// DXF type: "VIEWPORT", "INSERT", "LAYOUT", ...
    const std::string& type() const { return type_; }
    /// 0 when the object has none.
    Handle handle() const { return handle_; }
    /// Handle of the block record, dictionary or table that owns the object; 0 when the file does not say.
    Handle owner() const;
    /// Layer of an entity (group 8).
    std::wstring layer() const { return text(8); }

    const Groups& groups() const { return groups_; }
    const Objects& parts() const { return parts_; }

    const Group* find(std::int16_t code, std::string_view subclass = {}) const;
    /// Values of single groups; "", 0 or the fallback when the object does not have the group.
    std::wstring text(std::int16_t code, std::string_view subclass = {}) const;
    double number(std::int16_t code, double fallback = 0, std::string_view subclass = {}) const;
    std::int64_t integer(std::int16_t code, std::int64_t fallback = 0, std::string_view subclass = {}) const;
    Handle reference(std::int16_t code, std::string_view subclass = {}) const;
    /// The point whose x is group `code`, y `code` + 10, z `code` + 20.
    Point point(std::int16_t code, std::string_view subclass = {}) const;

    /// Replaces the first group of this code, or adds it at the end of the subclass (of the object when
    /// `subclass` is ""). Handle and owner are not set this way.
    void set(Group group, std::string_view subclass = {});

    /// Extended data of one application (name without regard to case), or of all when "". The first element
    /// of each application's data is its name under 1001. Empty when there is none.
    XData xdata(std::wstring_view application = {}) const;

    // What the drawing itself changes; from outside use the operations of Drawing.
    void setHandle(Handle handle);
    void setOwner(Handle owner);
    Groups& mutableGroups() { return groups_; }
    Objects& mutableParts() { return parts_; }
    /// Replaces the data of one application; an empty list removes it. `data` starts with its 1001.
    void replaceXData(std::wstring_view application, const XData& data);

  private:
    std::string type_;
    Groups groups_;
    Objects parts_;
    Handle handle_ = 0;
};

}  // namespace demo
