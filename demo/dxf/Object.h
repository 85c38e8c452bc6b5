#pragma once

#include <memory>

#include "demo/dxf/Group.h"

namespace demo {

/// An entity, layout, block or table record of a drawing: its DXF type, what names it, its groups and its
/// extended data. An entity that consists of several records in the file (a polyline with vertices, a block
/// reference with attributes) is one object with parts.
class Object {
  public:
    /// Takes the groups that follow the group 0. References to other objects and lists of them are left out:
    /// the drawing keeps none but those to the owner.
    Object(std::string type, const Groups& record);

    /// DXF type: "VIEWPORT", "INSERT", "LAYOUT", "BLOCK_RECORD", ...
    const std::string& type() const { return type_; }
    /// 0 until the object belongs to a drawing.
    Handle handle() const { return handle_; }
    /// Handle of the block or entity that owns an entity or its part; 0 when the file does not say.
    Handle owner() const { return owner_; }
    /// Layer of an entity (group 8).
    std::wstring layer() const { return text(8); }

    const Groups& groups() const { return groups_; }
    const std::vector<Object>& parts() const { return parts_; }

    /// Values of single groups; "", 0 or the fallback when the object does not have the group.
    std::wstring text(std::int16_t code) const;
    double number(std::int16_t code, double fallback = 0) const;
    std::int64_t integer(std::int16_t code, std::int64_t fallback = 0) const;
    /// The point whose x is group `code`, y `code` + 10, z `code` + 20.
    Point point(std::int16_t code) const;

    /// Replaces the first group of this code, or adds it at the end.
    void set(Group group);

    /// Extended data of one application (name without regard to case), or of all when "". The first element
    /// of each application's data is its name under 1001. Empty when there is none.
    XData xdata(std::wstring_view application = {}) const;

  private:
    friend class Drawing;
    friend class DrawingReader;

    /// Replaces the data of one application; `data` starts with its 1001, which alone removes the data.
    void replaceXData(const XData& data);

    std::string type_;
    Handle handle_ = 0;
    Handle owner_ = 0;
    Groups groups_;
    XData xdata_;
    std::vector<Object> parts_;
};

}  // namespace demo
