#include "demo/host/EntityClass.h"

#include <algorithm>
#include <array>

#include "demo/dxf/Text.h"

namespace demo {

namespace {

struct Row {
    std::string_view dxfType;
    const wchar_t* name;
    std::int32_t type;
};

constexpr std::array simpleClasses{
    Row{"3DFACE", L"AcDbFace", 1},
    Row{"ARC", L"AcDbArc", 4},
    Row{"ATTDEF", L"AcDbAttributeDefinition", 5},
    Row{"ATTRIB", L"AcDbAttribute", 6},
    Row{"CIRCLE", L"AcDbCircle", 8},
    Row{"ELLIPSE", L"AcDbEllipse", 16},
    Row{"HATCH", L"AcDbHatch", 17},
    Row{"LEADER", L"AcDbLeader", 18},
    Row{"LINE", L"AcDbLine", 19},
    Row{"LWPOLYLINE", L"AcDbPolyline", 24},
    Row{"MTEXT", L"AcDbMText", 21},
    Row{"POINT", L"AcDbPoint", 22},
    Row{"POLYLINE", L"AcDb2dPolyline", 23},
    Row{"SOLID", L"AcDbSolid", 30},
    Row{"SPLINE", L"AcDbSpline", 31},
    Row{"TEXT", L"AcDbText", 32},
    Row{"VIEWPORT", L"AcDbViewport", 35},
};

/// By the lower bits of group 70.
constexpr std::array dimensionClasses{
    Row{"", L"AcDbRotatedDimension", 15},      Row{"", L"AcDbAlignedDimension", 9},
    Row{"", L"AcDb2LineAngularDimension", 10}, Row{"", L"AcDbDiametricDimension", 12},
    Row{"", L"AcDbRadialDimension", 14},       Row{"", L"AcDb3PointAngularDimension", 41},
    Row{"", L"AcDbOrdinateDimension", 13},
};

EntityClass blockReferenceClass(const Drawing& drawing, const Object& object) {
    constexpr std::int64_t externalReference = 4;
    if (object.integer(70, 1) > 1 || object.integer(71, 1) > 1) return {L"AcDbMInsertBlock", 38};
    const Block* block = drawing.findBlock(object.text(2));
    const bool external = block && (block->integer(70) & externalReference) != 0;
    return {L"AcDbBlockReference", external ? 42 : 7};
}

}  // namespace

EntityClass entityClass(const Drawing& drawing, const Object& object) {
    if (object.type() == "INSERT") return blockReferenceClass(drawing, object);
    if (object.type() == "DIMENSION") {
        const auto kind = static_cast<std::size_t>(object.integer(70) & 7);
        const Row& row = dimensionClasses[std::min(kind, dimensionClasses.size() - 1)];
        return {row.name, row.type};
    }
    const auto* row = std::ranges::find(simpleClasses, object.type(), &Row::dxfType);
    if (row != simpleClasses.end()) return {row->name, row->type};
    return {L"AcDb" + decodeText(object.type()), 0};
}

}  // namespace demo
