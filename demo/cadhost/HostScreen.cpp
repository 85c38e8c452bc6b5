#include "demo/cadhost/HostScreen.h"

#include <commdlg.h>

#include <algorithm>
#include <array>
#include <optional>

namespace demo {

namespace {

std::wstring describe(const OpenDocument& document, bool active) {
    std::wstring line = active ? L"▶ " : L"    ";
    line += document.titled() ? document.fullName() : document.name();
    line += L":  ";
    for (const Layout* layout : document.layoutsByName()) line += document.layoutName(*layout) + L"   ";
    return line;
}

std::wstring contentOf(const Host& host) {
    std::wstring text;
    for (const DocumentPtr& document : host.documents()) {
        text += describe(*document, document == host.activeDocument()) + L"\n";
    }
    return text.empty() ? L"Keine Zeichnung geöffnet." : text;
}

std::optional<std::wstring> askForFile(HWND owner, const Dialog& dialog) {
    std::array<wchar_t, 1024> file{};
    dialog.proposal.copy(file.data(), file.size() - 1);
    OPENFILENAMEW request{};
    request.lStructSize = sizeof(request);
    request.hwndOwner = owner;
    request.lpstrTitle = dialog.text.c_str();
    request.lpstrFilter = L"Zeichnungen\0*.dwg;*.dxf;*.dwt\0Alle Dateien\0*.*\0";
    request.lpstrFile = file.data();
    request.nMaxFile = static_cast<DWORD>(file.size());
    request.Flags = OFN_NOCHANGEDIR | OFN_EXPLORER;
    const BOOL chosen =
        dialog.kind == DialogKind::saveFile ? GetSaveFileNameW(&request) : GetOpenFileNameW(&request);
    return chosen ? std::optional<std::wstring>(file.data()) : std::nullopt;
}

std::optional<std::wstring> ask(HWND owner, const Dialog& dialog) {
    if (dialog.kind == DialogKind::openFile || dialog.kind == DialogKind::saveFile) {
        return askForFile(owner, dialog);
    }
    const bool choice = dialog.kind == DialogKind::saveChanges;
    const std::wstring text = choice ? dialog.text : dialog.text + L"\n\n" + dialog.proposal;
    const UINT buttons = choice ? MB_YESNOCANCEL | MB_ICONQUESTION : MB_OKCANCEL;
    switch (MessageBoxW(owner, text.c_str(), L"AutoCAD", buttons)) {
        case IDYES:
            return L"Ja";
        case IDNO:
            return L"Nein";
        case IDOK:
            return dialog.proposal;
        default:
            return std::nullopt;
    }
}

}  // namespace

void HostScreen::attach(HWND window) {
    window_ = window;
    host_.setWindow(static_cast<std::int64_t>(reinterpret_cast<LONG_PTR>(window)));
}

void HostScreen::update() {
    updateTitle();
    updateVisibility();
}

void HostScreen::updateContent() {
    if (std::wstring content = contentOf(host_); content != content_) {
        content_ = std::move(content);
        InvalidateRect(window_, nullptr, TRUE);
    }
}

void HostScreen::updateTitle() {
    const DocumentPtr active = host_.activeDocument();
    const std::wstring title = active ? L"AutoCAD - [" + active->name() + L"]" : L"AutoCAD";
    std::array<wchar_t, 300> shown{};
    GetWindowTextW(window_, shown.data(), static_cast<int>(shown.size()));
    if (title != shown.data()) SetWindowTextW(window_, title.c_str());
}

void HostScreen::updateVisibility() {
    if (host_.visible() == shown_) return;
    shown_ = host_.visible();
    ShowWindow(window_, shown_ ? SW_SHOWNORMAL : SW_HIDE);
}

void HostScreen::paint(HDC canvas, const RECT& area) const {
    RECT place = area;
    InflateRect(&place, -8, -8);
    SetBkMode(canvas, TRANSPARENT);
    HGDIOBJ before = SelectObject(canvas, GetStockObject(DEFAULT_GUI_FONT));
    DrawTextW(canvas, content_.c_str(), -1, &place, DT_LEFT | DT_NOPREFIX | DT_EXPANDTABS);
    SelectObject(canvas, before);
}

void HostScreen::showDialog() {
    if (silent_ || showingDialog_ || !host_.dialog()) return;
    showingDialog_ = true;
    const Dialog dialog = *host_.dialog();
    const std::optional<std::wstring> answer = ask(window_, dialog);
    showingDialog_ = false;
    if (!host_.dialog()) return;
    if (answer) {
        host_.answerDialog(*answer);
    } else {
        host_.cancelDialog();
    }
}

}  // namespace demo
