#pragma once

/// Indices into the tree's images.
namespace blattwart::treeIcon {

inline constexpr int drawings = 2;
inline constexpr int library = 3;
inline constexpr int dwtSelected = 4;
inline constexpr int dwgSelected = 5;
inline constexpr int dwt = 6;
inline constexpr int dwg = 7;
inline constexpr int layout = 8;
inline constexpr int layoutSelected = 9;
inline constexpr int notAttached = 10;
inline constexpr int libraryEmpty = 11;
inline constexpr int drawing = 12;
inline constexpr int drawingSelected = 13;

}  // namespace blattwart::treeIcon
