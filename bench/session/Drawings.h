#pragma once

#include <string>
#include <vector>

#include "demo/dxf/Drawing.h"
#include "demo/host/Host.h"

namespace blattwart::bench {

inline constexpr int drawingCounts[] = {1, 10, 50};
inline constexpr int layoutsEach = 20;
/// The host takes no more layouts in a drawing.
inline constexpr int mostLayouts = 255;

inline constexpr const wchar_t* projectFolder = L"C:\\Projekte";

/// "Plan 0.dwg" for 0.
std::wstring drawingName(int number);

/// Opens drawings of so many paper layouts each in the host; the last one is active.
void addDrawings(demo::Host& host, int drawings, int layouts);
/// The same as options for the start of the host's program.
std::wstring drawingsAsCommands(int drawings, int layouts);

/// A drawing whose layout "Blatt" holds 2,000 objects, among them 17 managed viewports and three marked
/// blocks.
demo::Drawing crowdedDrawing();

}  // namespace blattwart::bench
