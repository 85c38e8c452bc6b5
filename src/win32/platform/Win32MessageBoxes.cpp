#include "win32/platform/Win32MessageBoxes.h"

#include <windows.h>

#include "win32/platform/OwnWindow.h"

namespace blattwart {

namespace {

static_assert(static_cast<UINT>(MessageButtons::yesNo) == MB_YESNO);
static_assert(static_cast<UINT>(MessageButtons::yesNoDefaultNo) == (MB_YESNO | MB_DEFBUTTON2));
static_assert(static_cast<UINT>(MessageButtons::yesNoCancel) == MB_YESNOCANCEL);
static_assert(static_cast<int>(MessageAnswer::cancel) == IDCANCEL);
static_assert(static_cast<UINT>(MessageIcon::critical) == MB_ICONHAND);
static_assert(static_cast<UINT>(MessageIcon::question) == MB_ICONQUESTION);
static_assert(static_cast<UINT>(MessageIcon::exclamation) == MB_ICONEXCLAMATION);
static_assert(static_cast<UINT>(MessageIcon::information) == MB_ICONASTERISK);
static_assert(static_cast<int>(MessageAnswer::no) == IDNO && static_cast<int>(MessageAnswer::yes) == IDYES);

}  // namespace

MessageAnswer Win32MessageBoxes::show(const std::wstring& text, const std::wstring& caption,
                                      MessageButtons buttons, MessageIcon icon) {
    // AutoCAD may have come to the front in between: a question behind it would never be answered.
    const UINT style = static_cast<UINT>(buttons) | static_cast<UINT>(icon) | MB_SETFOREGROUND;
    return static_cast<MessageAnswer>(MessageBoxW(ownWindow(), text.c_str(), caption.c_str(), style));
}

}  // namespace blattwart
