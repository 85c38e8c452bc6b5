#include "win32/ui/FormDialog.h"

#include <windowsx.h>

#include <algorithm>

#include "win32/base/SystemError.h"
#include "win32/ui/ControlWindow.h"
#include "win32/ui/DialogTemplate.h"
#include "win32/ui/NativeMenu.h"

namespace blattwart {

namespace {

constexpr UINT_PTR stepTimer = 1;

std::wstring windowText(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    const int length = GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(length));
    return text;
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

void FormDialog::show(HWND owner, int templateId, SIZE smallest) {
    const DialogTemplate description(templateId);
    made_ = description.size();
    smallest_ = smallest.cx > 0 ? smallest : made_;
    const INT_PTR result = DialogBoxIndirectParamW(GetModuleHandleW(nullptr), description.get(), owner,
                                                   procedure, reinterpret_cast<LPARAM>(this));
    if (result == -1) throwSystemError();
}

void FormDialog::setFocus(Control& control) {
    // Unlike SetFocus it also selects the text and moves the mark of the default button.
    SendMessageW(window_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(windowOf(control)), TRUE);
}

void FormDialog::close() {
    if (std::exchange(closed_, true)) return;
    gate_.guard().guarded([this] { form_.unload(); });
    gate_.clear();
    EndDialog(window_, 0);
}

void FormDialog::stepLater() {
    SetTimer(window_, stepTimer, USER_TIMER_MINIMUM, nullptr);
}

/// One tick for each step asked for; it comes again as long as something else is under way.
void FormDialog::ticked() {
    gate_.runCommand([this] {
        KillTimer(window_, stepTimer);
        form_.step();
    });
}

void FormDialog::forgetEscape() {
    MSG message;
    const auto next = [&](UINT how) {
        return PeekMessageW(&message, nullptr, WM_KEYDOWN, WM_KEYDOWN, how) &&
               message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE;
    };
    while (next(PM_NOREMOVE)) next(PM_REMOVE);
}

void FormDialog::popUpMenu(MenuItem& menu) {
    const MenuItem* chosen = chooseFromMenu(window_, menu, menuPlace_);
    if (chosen && chosen->click) gate_.post(chosen->click);
}

bool FormDialog::showWork(const std::wstring& text) {
    const Label* label = form_.workLabel();
    if (!label || !begun_) return false;
    work_ = text;
    const HWND window = windowOf(*label);
    setWindowText(window, work_.empty() ? label->text() : work_);
    UpdateWindow(window);
    return true;
}

bool FormDialog::takeInput(const MSG& message) {
    const Button* button = form_.interruptButton();
    if (!button) return false;
    const bool onButton = message.hwnd == windowOf(*button);
    const bool key = message.message == WM_KEYDOWN &&
                     (message.wParam == VK_ESCAPE || (onButton && message.wParam == VK_SPACE));
    const bool click = (message.message == WM_LBUTTONDOWN && onButton) ||
                       (message.message == WM_NCLBUTTONDOWN && message.wParam == HTCLOSE);
    if (key || click) form_.interrupt();
    return key || click;
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

INT_PTR FormDialog::handleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_INITDIALOG:
            try {
                return begin();
            } catch (...) {
                // Half made it might take no command, not even the one that closes it.
                EndDialog(window_, 0);
                throw;
            }
        case WM_COMMAND:
            command(LOWORD(wParam), HIWORD(wParam));
            return TRUE;
        case WM_NOTIFY:
            return notified(*reinterpret_cast<NMHDR*>(lParam));
        case WM_CONTEXTMENU:
            return contextMenu(reinterpret_cast<HWND>(wParam), lParam);
        case WM_HELP:
            gate_.runCommand([this] { form_.showHelp(); });
            return TRUE;
        case WM_TIMER:
            ticked();
            return TRUE;
        case EventGate::message:
            gate_.runPosted();
            return TRUE;
        default:
            return layout_ ? handleFrame(message, wParam, lParam) : FALSE;
    }
}

INT_PTR FormDialog::handleFrame(UINT message, WPARAM wParam, LPARAM lParam) {
    constexpr UINT dpiChanged = 0x02E0;
    switch (message) {
        case WM_SIZE:
            if (wParam != SIZE_MINIMIZED) layout_->place();
            return TRUE;
        case WM_GETMINMAXINFO:
            layout_->limit(*reinterpret_cast<MINMAXINFO*>(lParam));
            return TRUE;
        case dpiChanged:
            setDpi(HIWORD(wParam), *reinterpret_cast<const RECT*>(lParam));
            return TRUE;
        case WM_SETTINGCHANGE:
        case WM_SYSCOLORCHANGE:
            // Controls hear of it from their parent only.
            for (HWND child = GetWindow(window_, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
                SendMessageW(child, message, wParam, lParam);
            return FALSE;
        case WM_DESTROY:
            keys_.reset();
            lists_.clear();
            return FALSE;
        default:
            return FALSE;
    }
}

INT_PTR FormDialog::notified(NMHDR& header) {
    if (ListWindow* list = listOf(header.hwndFrom)) {
        SetWindowLongPtrW(window_, DWLP_MSGRESULT, list->notify(header));
        return TRUE;
    }
    if (header.code != TTN_GETDISPINFOW) return FALSE;
    if (const BoundControl* bound = boundOf(reinterpret_cast<HWND>(header.idFrom)))
        reinterpret_cast<NMTTDISPINFOW&>(header).lpszText = uncopied(controlOf(*bound).toolTip());
    return TRUE;
}

INT_PTR FormDialog::contextMenu(HWND control, LPARAM position) {
    const ListWindow* list = listOf(control);
    if (!list) return FALSE;
    const auto& menu = std::get<ListView*>(boundOf(control)->model)->events.contextMenu;
    if (!menu) return FALSE;
    const POINT screen{GET_X_LPARAM(position), GET_Y_LPARAM(position)};
    menuPlace_ = position == -1 ? list->contextMenuByKey() : screen;
    gate_.post(menu);
    return TRUE;
}

bool FormDialog::takeKey(const MSG& message) {
    if (message.message != WM_KEYDOWN && message.message != WM_SYSKEYDOWN) return false;
    if (!IsChild(window_, message.hwnd) && message.hwnd != window_) return false;
    if (std::ranges::any_of(lists_, [](const auto& list) { return list->editing(); })) return false;
    constexpr LPARAM wasDown = 1 << 30;
    // Held down for what goes on, it does not close the window when that has ended.
    if (message.wParam == VK_ESCAPE && (message.lParam & wasDown) != 0) return true;
    const Shortcut key{.key = static_cast<std::uint16_t>(message.wParam),
                       .control = GetKeyState(VK_CONTROL) < 0,
                       .alt = GetKeyState(VK_MENU) < 0};
    const BoundControl* focused = boundOf(GetFocus());
    if (GetKeyState(VK_SHIFT) < 0 || (key.control && key.alt)) return false;
    std::function<void()> command = form_.commandOf(key, focused ? &controlOf(*focused) : nullptr);
    if (!command) return false;
    if (!gate_.busy()) gate_.post(std::move(command));
    return true;
}

void FormDialog::show(const BoundControl& bound) {
    const HWND window = item(bound.id);
    if (auto* const* field = std::get_if<TextBox*>(&bound.model)) setWindowText(window, (*field)->text());
    if (auto* const* button = std::get_if<Button*>(&bound.model); button && !(*button)->text().empty())
        setWindowText(window, (*button)->text());
    if (auto* const* box = std::get_if<CheckBox*>(&bound.model))
        SendMessageW(window, BM_SETCHECK, (*box)->checked() ? BST_CHECKED : BST_UNCHECKED, 0);
    if (auto* const* label = std::get_if<Label*>(&bound.model); label && work_.empty()) {
        setWindowText(window, (*label)->text());
        NotifyWinEvent(EVENT_OBJECT_NAMECHANGE, window, OBJID_WINDOW, CHILDID_SELF);
    }
    enable(window, controlOf(bound).enabled());
}

void FormDialog::enable(HWND control, bool enabled) {
    if ((IsWindowEnabled(control) != FALSE) == enabled) return;
    Control* first = form_.firstField();
    if (!enabled && GetFocus() == control) {
        // A disabled window would keep the focus, and no key would reach anything any more.
        if (first && first->enabled()) {
            setFocus(*first);
        } else {
            SendMessageW(window_, WM_NEXTDLGCTL, 0, FALSE);
        }
    }
    EnableWindow(control, enabled);
}

void FormDialog::command(int id, int notification) {
    const auto bound = std::ranges::find(controls_, id, &BoundControl::id);
    if (!begun_ || bound == controls_.end()) return;
    if (auto* const* field = std::get_if<TextBox*>(&bound->model)) fieldCommand(**field, id, notification);
    if (notification != BN_CLICKED) return;
    if (auto* const* box = std::get_if<CheckBox*>(&bound->model))
        return gate_.run([box] { (*box)->userClicks(); });
    auto* const* button = std::get_if<Button*>(&bound->model);
    if (!button) return;
    // What starts something looks at the fields itself, and what cancels does not need them.
    leftField_ = nullptr;
    gate_.runCommand([button] { (*button)->userClicks(); });
}

void FormDialog::fieldCommand(TextBox& field, int id, int notification) {
    if (notification == EN_CHANGE) {
        gate_.run([&] { field.setText(windowText(item(id))); });
    } else if (notification == EN_KILLFOCUS && field.events.validate && !gate_.busy()) {
        // Only when the focus has arrived is it known where the user went.
        leftField_ = &field;
        gate_.post([this] { validateLeftField(); });
    }
}

void FormDialog::validateLeftField() {
    TextBox* field = std::exchange(leftField_, nullptr);
    const HWND focus = GetFocus();
    if (!field || !IsChild(window_, focus) || focus == windowOf(*field) || focus == item(IDCANCEL)) return;
    if (field->events.validate()) setFocus(*field);
}

HWND FormDialog::windowOf(const Control& control) const {
    for (const BoundControl& bound : controls_)
        if (&controlOf(bound) == &control) return item(bound.id);
    return nullptr;
}

const BoundControl* FormDialog::boundOf(HWND control) const {
    for (const BoundControl& bound : controls_)
        if (control && item(bound.id) == control) return &bound;
    return nullptr;
}

ListWindow* FormDialog::listOf(HWND control) const {
    for (const auto& list : lists_)
        if (list->handle() == control) return list.get();
    return nullptr;
}

}  // namespace blattwart
