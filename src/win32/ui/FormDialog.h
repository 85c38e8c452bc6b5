#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <variant>
#include <vector>

#include "controls/Dialog.h"
#include "controls/ListView.h"
#include "win32/base/Handles.h"
#include "win32/ui/DialogKeys.h"
#include "win32/ui/DialogLayout.h"
#include "win32/ui/EventGate.h"
#include "win32/ui/ListWindow.h"

namespace blattwart {

/// A control of a dialog template and the model that it shows. Of a list the template holds a static control,
/// behind its label, in whose place the list is put.
struct BoundControl {
    int id;
    std::variant<TextBox*, Label*, Button*, CheckBox*, ListView*> model;
    Anchors anchors = Anchors::topLeft;
};

inline Control& controlOf(const BoundControl& bound) {
    return *std::visit([](auto* model) -> Control* { return model; }, bound.model);
}

/// The window of a modal form, made from a dialog template. Leaving a field asks the field, except on the way
/// to the cancel button or to another window.
class FormDialog : public DialogWindow {
  public:
    FormDialog(Dialog& form, std::vector<BoundControl> controls, Guard& guard, Gate& gate);
    FormDialog(const FormDialog&) = delete;
    FormDialog& operator=(const FormDialog&) = delete;
    ~FormDialog() override;

    /// Shows the dialog over `owner` until it is closed. One that can be resized gets no smaller than
    /// `smallest`, dialog units, or than its template. Throws RuntimeError when Windows refuses.
    void show(HWND owner, int templateId, SIZE smallest = {});
    HWND window() const { return window_; }
    /// Says what the program waits for or is doing, where the form has a place for it; "" when that is done.
    /// Returns whether it has.
    bool showWork(const std::wstring& text);
    /// Input that comes while a call waits: true where it ends the form's work, which is told to the form.
    bool takeInput(const MSG& message);

    void setFocus(Control& control) override;
    void close() override;
    void stepLater() override;
    void forgetEscape() override;
    void popUpMenu(MenuItem& menu) override;
    DialogPlacement placement() const override;
    void setPlacement(const DialogPlacement& placement) override;

  private:
    static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR handleMessage(UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR handleFrame(UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR begin();
    void makeLists();
    void makeToolTips();
    void setDpi(int dpi, const RECT& suggested);
    INT_PTR notified(NMHDR& header);
    INT_PTR contextMenu(HWND control, LPARAM position);
    void ticked();
    bool takeKey(const MSG& message);
    void command(int id, int notification);
    void fieldCommand(TextBox& field, int id, int notification);
    void validateLeftField();
    void show(const BoundControl& bound);
    void enable(HWND control, bool enabled);
    HWND item(int id) const { return GetDlgItem(window_, id); }
    HWND windowOf(const Control& control) const;
    const BoundControl* boundOf(HWND control) const;
    ListWindow* listOf(HWND control) const;

    Dialog& form_;
    std::vector<BoundControl> controls_;
    EventGate gate_;
    SIZE made_{};  // dialog units, as the next
    SIZE smallest_{};
    HWND window_ = nullptr;
    Font font_;  // of another resolution than the dialog was made with
    Font boldFont_;
    std::vector<std::unique_ptr<ListWindow>> lists_;
    std::optional<DialogLayout> layout_;
    std::optional<DialogKeys> keys_;
    POINT menuPlace_{};
    std::wstring work_;
    bool begun_ = false;
    bool closed_ = false;
    TextBox* leftField_ = nullptr;  // left, and not yet asked
};

}  // namespace blattwart
