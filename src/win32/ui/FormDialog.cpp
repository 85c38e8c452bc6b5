#include "win32/ui/FormDialog.h"

#include <algorithm>

#include "win32/base/SystemError.h"
#include "win32/ui/ControlWindow.h"
#include "win32/ui/DialogTemplate.h"
#include "win32/ui/Pictures.h"

namespace blattwart {

namespace {

Control& controlOf(const BoundControl& bound) {
    return *std::visit([](auto* model) -> Control* { return model; }, bound.model);
}

std::wstring windowText(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    const int length = GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

/// Moves a window into the middle of its owner, but not off the screen.
void centreOverOwner(HWND window) {
    RECT owner{};
    RECT own{};
    GetWindowRect(GetWindow(window, GW_OWNER), &owner);
    GetWindowRect(window, &own);
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromRect(&owner, MONITOR_DEFAULTTONEAREST), &monitor);
    const auto placed = [](LONG ownerMiddle, LONG size, LONG begin, LONG end) {
        return static_cast<int>(std::max(begin, std::min(ownerMiddle - size / 2, end - size)));
    };
    SetWindowPos(window, nullptr,
                 placed((owner.left + owner.right) / 2, own.right - own.left, monitor.rcWork.left,
                        monitor.rcWork.right),
                 placed((owner.top + owner.bottom) / 2, own.bottom - own.top, monitor.rcWork.top,
                        monitor.rcWork.bottom),
                 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace

FormDialog::FormDialog(Dialog& form, std::vector<BoundControl> controls, Guard& guard, Gate& gate)
    : form_(form), controls_(std::move(controls)), gate_(guard, gate, gate.depth()) {
    form_.setWindow(this);
}

FormDialog::~FormDialog() {
    for (const BoundControl& bound : controls_) controlOf(bound).changed = nullptr;
    form_.setWindow(nullptr);
}

void FormDialog::show(HWND owner, int templateId) {
    const DialogTemplate description(templateId);
    const INT_PTR result = DialogBoxIndirectParamW(GetModuleHandleW(nullptr), description.get(), owner,
                                                   procedure, reinterpret_cast<LPARAM>(this));
    if (result == -1) throwSystemError();
}

void FormDialog::setFocus(TextBox& field) {
    // Unlike SetFocus it also selects the text and moves the mark of the default button.
    SendMessageW(window_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(windowOf(field)), TRUE);
}

void FormDialog::close() {
    gate_.clear();
    EndDialog(window_, 0);
}

INT_PTR CALLBACK FormDialog::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        reinterpret_cast<FormDialog*>(lParam)->window_ = window;
        SetWindowLongPtrW(window, DWLP_USER, lParam);
    }
    auto* self = reinterpret_cast<FormDialog*>(GetWindowLongPtrW(window, DWLP_USER));
    if (!self) return FALSE;
    return self->gate_.guard().guarded([&] { return self->handleMessage(message, wParam, lParam); },
                                       INT_PTR{FALSE});
}

INT_PTR FormDialog::handleMessage(UINT message, WPARAM wParam, LPARAM) {
    switch (message) {
        case WM_INITDIALOG:
            return begin();
        case WM_COMMAND:
            command(LOWORD(wParam), HIWORD(wParam));
            return TRUE;
        case WM_HELP:
            answer([this] { form_.showHelp(); });
            return TRUE;
        case EventGate::message:
            gate_.runPosted();
            return TRUE;
        default:
            return FALSE;
    }
}

INT_PTR FormDialog::begin() {
    gate_.setWindow(window_);
    for (const auto& [kind, size] : {std::pair{ICON_SMALL, SM_CXSMICON}, std::pair{ICON_BIG, SM_CXICON}})
        SendMessageW(window_, WM_SETICON, static_cast<WPARAM>(kind),
                     reinterpret_cast<LPARAM>(programIcon(size)));
    centreOverOwner(window_);
    showModels();
    for (const BoundControl& bound : controls_) controlOf(bound).changed = [this] { showModels(); };
    begun_ = true;
    TextBox* first = form_.firstField();
    if (first) setFocus(*first);
    return first ? FALSE : TRUE;
}

void FormDialog::showModels() {
    for (const BoundControl& bound : controls_) {
        const HWND window = item(bound.id);
        if (auto* const* field = std::get_if<TextBox*>(&bound.model)) setWindowText(window, (*field)->text());
        if (auto* const* label = std::get_if<Label*>(&bound.model)) setWindowText(window, (*label)->text());
        const bool enabled = controlOf(bound).enabled();
        if ((IsWindowEnabled(window) != FALSE) != enabled) EnableWindow(window, enabled);
    }
}

void FormDialog::command(int id, int notification) {
    const auto bound = std::ranges::find(controls_, id, &BoundControl::id);
    if (!begun_ || bound == controls_.end()) return;
    if (auto* const* field = std::get_if<TextBox*>(&bound->model)) fieldCommand(**field, id, notification);
    auto* const* button = std::get_if<Button*>(&bound->model);
    if (!button || notification != BN_CLICKED) return;
    // What starts something looks at the fields itself, and what cancels does not need them.
    leftField_ = nullptr;
    answer([button] { (*button)->userClicks(); });
}

void FormDialog::fieldCommand(TextBox& field, int id, int notification) {
    if (notification == EN_CHANGE) {
        gate_.run([&] { field.setText(windowText(item(id))); });
    } else if (notification == EN_KILLFOCUS && field.events.validate && !gate_.busy()) {
        // Only when the focus has arrived is it known where the user went.
        leftField_ = &field;
        gate_.post([this] { gate_.hold([this] { validateLeftField(); }); });
    }
}

void FormDialog::answer(const std::function<void()>& work) {
    gate_.runCommand([&] { gate_.hold(work); });
}

void FormDialog::validateLeftField() {
    TextBox* field = std::exchange(leftField_, nullptr);
    const HWND focus = GetFocus();
    if (!field || !IsChild(window_, focus) || focus == windowOf(*field) || focus == item(IDCANCEL)) return;
    if (field->events.validate()) setFocus(*field);
}

HWND FormDialog::windowOf(const TextBox& field) const {
    for (const BoundControl& bound : controls_)
        if (&controlOf(bound) == &field) return item(bound.id);
    return nullptr;
}

}  // namespace blattwart
