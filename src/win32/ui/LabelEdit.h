#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <string>

#include "win32/ui/EventGate.h"

namespace blattwart {

/// The text field that a tree or list opens over a label. Only Return takes the text over: leaving the field
/// or Esc ends the edit without, since what is edited here is a drawing and a slip must not change it. The
/// control itself never takes the text; the model does.
class LabelEdit {
  public:
    /// Told the new text, or null when the edit was given up.
    using Report = std::function<void(const std::wstring* text)>;

    LabelEdit(EventGate& gate, Report report) : gate_(gate), report_(std::move(report)) {}

    /// Opens the field by `open`, which sends the control's message and gives the field's window. The text
    /// stands in it, all selected.
    void start(const std::function<HWND()>& open, const std::wstring& text);
    /// Answer to the control's question whether an edit may begin: only the one that `start` asks for.
    bool refuses() const { return !starting_; }
    bool active() const { return active_; }
    /// The control's notification that the edit has ended.
    void ended(const wchar_t* text);
    /// Ends the edit from the program's side by `close`; nothing is reported.
    void cancel(const std::function<void()>& close);

  private:
    static LRESULT CALLBACK fieldProcedure(HWND field, UINT message, WPARAM wParam, LPARAM lParam,
                                           UINT_PTR id, DWORD_PTR edit);

    void postReport(const std::optional<std::wstring>& text);

    EventGate& gate_;
    Report report_;
    int serial_ = 0;
    bool starting_ = false;
    bool active_ = false;
    bool accepted_ = false;
};

}  // namespace blattwart
