#pragma once

#include <windows.h>

#include <optional>
#include <variant>
#include <vector>

#include "controls/Dialog.h"
#include "win32/ui/EventGate.h"

namespace blattwart {

/// A control of a dialog template and the model that it shows.
struct BoundControl {
    int id;
    std::variant<TextBox*, Label*, Button*> model;
};

/// The window of a modal form, made from a dialog template. Leaving a field asks the field, except on the way
/// to the cancel button or to another window.
class FormDialog : public DialogWindow {
  public:
    FormDialog(Dialog& form, std::vector<BoundControl> controls, Guard& guard, Gate& gate);
    FormDialog(const FormDialog&) = delete;
    FormDialog& operator=(const FormDialog&) = delete;
    ~FormDialog() override;

    /// Shows the dialog over `owner` until it is closed. Throws RuntimeError when Windows refuses.
    void show(HWND owner, int templateId);

    void setFocus(TextBox& field) override;
    void close() override;

  private:
    static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR handleMessage(UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR begin();
    void command(int id, int notification);
    void fieldCommand(TextBox& field, int id, int notification);
    void answer(const std::function<void()>& work);
    void validateLeftField();
    void showModels();
    HWND item(int id) const { return GetDlgItem(window_, id); }
    HWND windowOf(const TextBox& field) const;

    Dialog& form_;
    std::vector<BoundControl> controls_;
    EventGate gate_;
    HWND window_ = nullptr;
    bool begun_ = false;
    TextBox* leftField_ = nullptr;  // left, and not yet asked
};

}  // namespace blattwart
