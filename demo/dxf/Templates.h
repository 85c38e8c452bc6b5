#pragma once

#include <string>

#include "demo/dxf/Group.h"

/// What new objects consist of.
namespace demo {

/// A file with the layouts "Model" and "Layout1" and nothing else.
std::string emptyDrawingText();
/// Groups of a new paper layout behind handle and owner: an A4 sheet without a plot device.
Groups newLayoutGroups();
/// Groups of the viewport that stands for a sheet of this size, behind handle and owner.
Groups sheetViewportGroups(double width, double height);

}  // namespace demo
