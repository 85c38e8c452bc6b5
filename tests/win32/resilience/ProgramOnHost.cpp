#include "ProgramOnHost.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "demo/host/Disk.h"
#include "demo/host/HostOptions.h"
#include "res/DialogIds.h"
#include "support/User.h"
#include "ui/ControlHost.h"
#include "win32/com/ComError.h"

namespace blattwart::test {

namespace fs = std::filesystem;

namespace {

void write(const SampleDrawing& sample) {
    demo::Drawing drawing = demo::Drawing::createEmpty();
    const std::vector<demo::Layout*> first = drawing.layouts();
    for (const std::wstring& layout : sample.layouts) drawing.addLayout(layout);
    for (demo::Layout* layout : first)
        if (!layout->isModel()) drawing.deleteLayout(*layout);
    drawing.setCurrentLayout(*drawing.findLayout(sample.layouts.front()));
    demo::Disk().save(drawing, sample.file());
}

/// Writes the sample drawings; those that are to be open, each in quotes.
std::wstring writeFiles() {
    std::wstring open;
    for (const SampleDrawing& sample : sampleDrawings()) fs::remove_all(sample.folder);
    for (const SampleDrawing& sample : sampleDrawings()) {
        fs::create_directories(sample.folder);
        write(sample);
        if (!sample.isTemplate()) open += L" \"" + sample.file() + L"\"";
    }
    return open;
}

void registerAdo() {
    HMODULE library = LoadLibraryW(windowsPath(ADO_LIBRARY).c_str());
    const auto enter =
        reinterpret_cast<HRESULT(STDAPICALLTYPE*)()>(GetProcAddress(library, "DllRegisterServer"));
    throwIfFailed(enter());
}

std::wstring wide(const std::string& utf8) {
    std::wstring text(utf8.size(), L'\0');
    text.resize(static_cast<std::size_t>(MultiByteToWideChar(
        CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), text.data(), static_cast<int>(text.size()))));
    return text;
}

std::wstring sortedLines(std::vector<std::wstring> lines) {
    std::ranges::sort(lines);
    std::wstring text;
    for (const std::wstring& line : lines) text += line + L"\n";
    return text;
}

std::wstring marked(const TreeNode& node) {
    return node.text() + (node.bold() ? L"*" : L"");
}

}  // namespace

const std::wstring HostProgram::database = temporaryFile(L"Tarvix.mdb");

HostProgram::HostProgram(std::wstring release)
    : release_(std::move(release)), window_(window + (release_ == L"18" ? std::wstring() : release_)) {
    registerAdo();
    fs::remove(database);
    runProgram(DATABASE_MAKER, L"/still \"" + database + L"\"");
    if (!fs::exists(database)) throw std::runtime_error("the database cannot be made");
    runProgram(CADHOST, L"/release " + release_ + L" /register /silent");
}

void HostProgram::start(Client& client, const std::wstring& options) {
    kill();
    program_.emplace(CADHOST, L"/release " + release_ + L" /silent " + options + writeFiles(),
                     window_.c_str());
    if (!attach(client, demo::programNames(release_).front().c_str()))
        throw std::runtime_error("the host does not come up");
}

int HostProgram::messages() {
    std::map<std::string, int> counters = program_->counters();
    return counters["idLookups"] + counters["calls"] + counters["nexts"];
}

std::wstring HostProgram::drawings() {
    std::wistringstream text(told(L"drawings"));
    std::vector<std::wstring> lines;
    for (std::wstring line; std::getline(text, line);) lines.push_back(line);
    return sortedLines(std::move(lines));
}

std::wstring HostProgram::profile() {
    return told(L"profile");
}

std::wstring HostProgram::told(const std::wstring& command) {
    const std::wstring file = temporaryFile(command + L".txt");
    if (!program_->obey(command + L" " + file)) throw std::runtime_error("the host does not answer");
    std::ifstream stream{fs::path(file)};
    return wide({std::istreambuf_iterator<char>(stream), {}});
}

ProgramOnHost::ProgramOnHost(std::chrono::milliseconds askAfter) : client(askAfter) {
    client.hostCaller.setHandlers(
        {.waitingFor = [this](HostState state, std::int32_t milliseconds) { noteBusy(state, milliseconds); },
         .askGiveUp =
             [this](HostState) {
                 ++asked;
                 return givesUp;
             },
         .takeInput = [this](MSG& message) { return presenter.takeInput(message); }});
    const std::string file(HostProgram::database.begin(), HostProgram::database.end());
    world.registry.storeText(RegistryRoot::localMachine, "SOFTWARE\\Ormeda\\Tarvix 2.1", "DefDB", file);
}

ProgramOnHost::~ProgramOnHost() {
    presenter.destroyWindows();
}

bool ProgramOnHost::start() {
    presenter.destroyWindows();
    main = std::make_unique<basMain>(platform_, presenter);
    const bool goesOn = client.guard.guarded([this] { return main->Main(); }, false);
    if (!goesOn) return false;
    world.desktop.foregroundWindow = form().window().handle();
    pump();
    SetWindowSubclass(
        presenter.mainWindow()->window(),
        [](HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR painted) {
            if (message == WM_PAINT) *reinterpret_cast<bool*>(painted) = true;
            return DefSubclassProc(window, message, wParam, lParam);
        },
        1, reinterpret_cast<DWORD_PTR>(&painted_));
    return true;
}

void ProgramOnHost::noteBusy(HostState state, std::int32_t milliseconds) {
    MainWindow* window = presenter.mainWindow();
    // Before there is a window, the key goes to the thread.
    if (impatient && milliseconds > 0)
        PostMessageW(window ? window->window() : nullptr, WM_KEYDOWN, VK_RETURN, 0);
    if (!window) return;
    window->showWork(statusText(state, milliseconds));
    if (whileBusy) whileBusy(milliseconds);
    busy.push_back({milliseconds, busyPanel(), std::exchange(painted_, false)});
    InvalidateRect(window->window(), nullptr, FALSE);
}

std::wstring ProgramOnHost::busyPanel() {
    const HWND bar = childOfClass(presenter.mainWindow()->window(), STATUSCLASSNAMEW);
    if (SendMessageW(bar, SB_GETPARTS, 0, 0) < 2) return {};
    std::array<wchar_t, 200> text{};
    SendMessageW(bar, SB_GETTEXTW, 1, reinterpret_cast<LPARAM>(text.data()));
    return text.data();
}

std::int64_t ProgramOnHost::act(const std::function<void()>& action) {
    const ULONGLONG begun = GetTickCount64();
    client.guard.guarded(action);
    return static_cast<std::int64_t>(GetTickCount64() - begun);
}

void ProgramOnHost::leaveAndReturn() {
    act([this] { test::leaveAndReturn(world.desktop, form()); });
}

TreeNode* ProgramOnHost::node(const std::wstring& path) {
    TreeNode* found = nullptr;
    tree().forEach([&](TreeNode& each) {
        std::wstring name = each.text();
        if (each.parent() && each.parent()->parent()) name = each.parent()->text() + L"/" + name;
        if (each.key() == path || name == path) found = &each;
    });
    return found;
}

std::int64_t ProgramOnHost::perform(const Action& action, std::function<void(frmPlanliste&)> inPlanList) {
    nextInPlanList_ = std::move(inPlanList);
    copyingConfirmed_ = false;
    static ProgramOnHost* current;
    current = this;
    const UINT_PTR timer =
        SetTimer(nullptr, 0, 20, [](HWND, UINT, UINT_PTR, DWORD) { current->workInDialog(); });
    const std::int64_t milliseconds = act([&] { test::perform(form(), action); });
    KillTimer(nullptr, timer);
    return milliseconds;
}

void ProgramOnHost::workInDialog() {
    const auto open = [](const wchar_t* caption) -> HWND {
        const HWND dialog = FindWindowW(L"#32770", caption);
        return dialog && IsWindowVisible(dialog) ? dialog : nullptr;
    };
    if (const HWND copy = open(L"Layout kopieren")) {
        // Whoever is told that AutoCAD does not answer may try again; here he does not.
        PostMessageW(copy, WM_COMMAND, std::exchange(copyingConfirmed_, true) ? IDCANCEL : IDOK, 0);
    } else if (const HWND pdf = open(L"PDF erzeugen")) {
        plotInto(pdf);
    } else if (const HWND rename = open(L"Layouts nach Muster umbenennen")) {
        SetDlgItemTextW(rename, IDC_SUCHEN, L"Blatt");
        SetDlgItemTextW(rename, IDC_ERSETZEN, L"Plan");
        for (const WPARAM button : {IDOK, IDCANCEL}) PostMessageW(rename, WM_COMMAND, button, 0);
    } else if (const HWND list = open(L"Planliste"); list && IsWindowEnabled(list)) {
        if (main->planList.working()) return;
        if (const auto next = std::exchange(nextInPlanList_, nullptr)) {
            next(main->planList);
        } else {
            main->planList.cmdClose.userClicks();
        }
    }
}

void ProgramOnHost::plotInto(HWND pdf) {
    const std::wstring end = textOf(GetDlgItem(pdf, IDCANCEL));
    if (end == L"Schließen") PostMessageW(pdf, WM_COMMAND, IDCANCEL, 0);
    if (end != L"Abbrechen") return;
    SendDlgItemMessageW(pdf, IDC_ANDERE, BM_SETCHECK, BST_CHECKED, 0);
    PostMessageW(pdf, WM_COMMAND, IDC_ANDERE, 0);
    PostMessageW(pdf, WM_COMMAND, IDOK, 0);
}

std::wstring ProgramOnHost::drawings() {
    std::vector<std::wstring> lines;
    for (const auto& drawing : tree().node(L"A").children())
        for (const auto& layout : drawing->children())
            lines.push_back(marked(*drawing) + L"\t" + marked(*layout));
    return sortedLines(std::move(lines));
}

}  // namespace blattwart::test
