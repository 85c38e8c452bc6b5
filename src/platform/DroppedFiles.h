#pragma once

#include <span>
#include <string>
#include <vector>

#include "platform/Locale.h"

namespace blattwart {

/// The files in the system's list of dropped files (clipboard format CF_HDROP), which any program may have
/// made: a header, then paths that end with a NUL each, an empty one ending the list. A list that is cut off
/// gives the files up to there, a damaged one none.
std::vector<std::wstring> droppedFiles(std::span<const char> list, const Locale& locale);

/// A dropped text (clipboard format CF_TEXT): up to its NUL, or to the end where it has none.
std::wstring droppedText(std::span<const char> text, const Locale& locale);

}  // namespace blattwart
