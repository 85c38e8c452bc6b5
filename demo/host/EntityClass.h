#pragma once

#include "demo/dxf/Drawing.h"

namespace demo {

/// How the host calls the class of an object: "AcDbViewport", and the number of its kind of entity (0 for
/// kinds without one).
struct EntityClass {
    std::wstring name;
    std::int32_t type = 0;
};

EntityClass entityClass(const Drawing& drawing, const Object& object);

}  // namespace demo
