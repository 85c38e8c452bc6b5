#pragma once

#include <windows.h>

#include <objidl.h>
#include <wrl/client.h>

#include <string>

namespace blattwart {

/// Data in one clipboard format, as drag and drop carries it.
Microsoft::WRL::ComPtr<IDataObject> makeDragData(CLIPFORMAT format, std::string bytes);

/// Lets the user drag a text in the ANSI code page; returns when the mouse button is released or Esc is
/// pressed.
void dragText(const std::wstring& text);

}  // namespace blattwart
