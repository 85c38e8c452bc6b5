#pragma once

#include <string>

namespace demo {

/// A PDF file of one page with a frame round the sheet and texts in its middle; its title, which programs
/// show, is `title`. Sizes in millimetres. Characters beyond code page 1252 stand in the title only.
std::string pdfPage(double width, double height, const std::wstring& title, const std::wstring& secondLine);

}  // namespace demo
