#pragma once

/// Indices into the list's images, small and large alike.
namespace blattwart::listIcon {

inline constexpr int drawing = 1;
inline constexpr int layout = 2;
inline constexpr int detail = 3;
inline constexpr int dwt = 4;

}  // namespace blattwart::listIcon
