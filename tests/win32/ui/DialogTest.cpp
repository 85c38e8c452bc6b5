#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "ControlHost.h"
#include "dialogs/frmErstellen.h"
#include "res/DialogIds.h"
#include "shell/basMain.h"
#include "support/TestPlatform.h"
#include "win32/platform/Win32MessageBoxes.h"
#include "win32/ui/Dpi.h"
#include "win32/ui/Fonts.h"
#include "win32/ui/Win32FormPresenter.h"

namespace blattwart::test {

namespace {

HWND findDialog(HWND owner) {
    HWND window = nullptr;
    while ((window = FindWindowExW(nullptr, window, L"#32770", nullptr)))
        if (GetWindow(window, GW_OWNER) == owner && IsWindowVisible(window)) return window;
    return nullptr;
}

/// The program's dialogs over its real window, in a world without AutoCAD but with the node of a drawing. The
/// message boxes are real too, and answered with OK.
class DialogTest : public testing::Test {
  protected:
    DialogTest() {
        world.messages.answer(MessageAnswer::yes);
        program.Main();
        TreeView& tree = program.fMainForm->tvTreeView;
        TreeNode& drawing = tree.add(&tree.node(L"A"), L"Z1", L"Plan.dwg", 12);
        tree.select(tree.add(&drawing, L"L2", L"Blatt 1", 8));
        pump();
        world.messages.clear();
        world.messages.whileOpen = [this](const ShownBox& box) {
            realBoxes.show(box.text, box.caption, box.buttons, box.icon);
        };
        current = this;
    }
    ~DialogTest() override {
        current = nullptr;
        presenter.destroyWindows();
        pump();
    }

    /// What the user does in the dialog that `open` opens; it is open as long as this goes on.
    void inDialog(const std::function<void()>& open, std::function<void()> user) {
        user_ = std::move(user);
        const UINT_PTR timer = SetTimer(nullptr, 0, 10, tick);
        open();
        KillTimer(nullptr, timer);
        EXPECT_FALSE(user_) << "no dialog came";
        EXPECT_FALSE(IsWindow(dialog));
        pump();
    }
    void copy(std::function<void()> user) {
        inDialog([this] { program.fMainForm->mnuEditCopy_Click(); }, std::move(user));
    }
    void press(WPARAM key) {
        PostMessageW(GetFocus(), WM_KEYDOWN, key, 0);
        settle();
    }
    /// Dispatches messages as the dialog's own loop does.
    void settle() {
        MSG message{};
        while (IsWindow(dialog) && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (IsDialogMessageW(dialog, &message)) continue;
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    void type(int id, const wchar_t* text) { SetDlgItemTextW(dialog, id, text); }
    void focus(int id) {
        SendMessageW(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(GetDlgItem(dialog, id)), TRUE);
        settle();
    }
    std::vector<std::wstring> boxes() { return world.messages.texts(); }
    int focused() { return GetDlgCtrlID(GetFocus()); }

    NoAutomation automation;
    TestPlatform world{automation};
    Win32MessageBoxes realBoxes;
    Guard guard{{}};
    Win32FormPresenter presenter{guard, world.gate};
    basMain program{world.platform, presenter};
    HWND dialog = nullptr;

  private:
    static void CALLBACK tick(HWND, UINT, UINT_PTR, DWORD) {
        if (current->user_) {
            const HWND open = findDialog(current->presenter.mainWindow()->window());
            if (!open) return;
            current->dialog = open;
            std::exchange(current->user_, nullptr)();
            EndDialog(open, 0);
        } else if (const HWND box = findDialog(current->dialog)) {
            PostMessageW(box, WM_COMMAND, IDOK, 0);
        }
    }

    static inline DialogTest* current = nullptr;
    std::function<void()> user_;
};

TEST_F(DialogTest, BeginsInTheNewNameAndIsWalkedThroughByTab) {
    copy([this] {
        EXPECT_EQ(focused(), IDC_LAYOUT);
        EXPECT_EQ(textOf(GetFocus()), L"Kopie von Blatt 1");
        EXPECT_EQ(SendMessageW(GetFocus(), EM_GETSEL, 0, 0), MAKELONG(0, 17)) << "all is selected";
        EXPECT_EQ(textOf(GetDlgItem(dialog, IDC_QUELLE)), L"Blatt 1");
        for (const int id : {IDC_ANZAHL, IDOK, IDCANCEL, IDC_DOKUMENT, IDC_QUELLE, IDC_LAYOUT}) {
            press(VK_TAB);
            EXPECT_EQ(focused(), id);
        }
        EXPECT_TRUE(SendMessageW(dialog, WM_GETICON, ICON_SMALL, 0));
        type(IDC_ANZAHL, L"");
        EXPECT_FALSE(IsWindowEnabled(GetDlgItem(dialog, IDOK)));
        LOGFONTW shown{};
        LOGFONTW wanted{};
        GetObjectW(reinterpret_cast<HFONT>(SendMessageW(dialog, WM_GETFONT, 0, 0)), sizeof shown, &shown);
        GetObjectW(messageFont(windowDpi(dialog)).get(), sizeof wanted, &wanted);
        EXPECT_STREQ(shown.lfFaceName, wanted.lfFaceName);
        EXPECT_EQ(shown.lfHeight, wanted.lfHeight);
        HELPINFO help{sizeof(HELPINFO), HELPINFO_WINDOW, IDC_LAYOUT, GetFocus(), 0, {}};
        SendMessageW(GetFocus(), WM_HELP, 0, reinterpret_cast<LPARAM>(&help));
    });
    EXPECT_EQ(world.help.shown.size(), 1u);
    EXPECT_TRUE(boxes().empty());
}

TEST_F(DialogTest, AsksAFieldThatIsLeftButNotOnTheWayOut) {
    copy([this] {
        focus(IDC_ANZAHL);
        type(IDC_ANZAHL, L"viele");
        focus(IDCANCEL);
        focus(IDC_ANZAHL);
        EXPECT_TRUE(boxes().empty());
        focus(IDC_QUELLE);
        EXPECT_EQ(boxes(), std::vector<std::wstring>{L"Eingabe ist ungültig!"});
        EXPECT_EQ(focused(), IDC_ANZAHL);
        EXPECT_EQ(SendMessageW(GetFocus(), EM_GETSEL, 0, 0), MAKELONG(0, 5));

        world.messages.clear();
        press(VK_RETURN);
        EXPECT_EQ(boxes().size(), 1u) << "started without leaving the field";
        type(IDC_LAYOUT, L"a/b");
        SetFocus(GetDlgItem(dialog, IDOK));
        SendMessageW(dialog, WM_COMMAND, IDOK, 0);
        settle();
        EXPECT_EQ(boxes().size(), 2u) << "each is told once";
        EXPECT_EQ(focused(), IDC_LAYOUT);

        press(VK_ESCAPE);
        EXPECT_FALSE(IsWindowVisible(dialog));
    });
    EXPECT_EQ(boxes().size(), 2u);
}

TEST_F(DialogTest, EveryTextHasItsRoom) {
    const auto expectRoom = [this] {
        for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
            const std::wstring text = textOf(child);
            const HDC dc = GetDC(child);
            const HGDIOBJ before =
                SelectObject(dc, reinterpret_cast<HFONT>(SendMessageW(child, WM_GETFONT, 0, 0)));
            SIZE size{};
            GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &size);
            SelectObject(dc, before);
            ReleaseDC(child, dc);
            RECT room{};
            GetClientRect(child, &room);
            EXPECT_LE(size.cx, room.right) << testing::PrintToString(text);
            EXPECT_LE(size.cy, room.bottom) << testing::PrintToString(text);
        }
    };
    copy(expectRoom);
    inDialog([this] { program.fMainForm->mnuHelpAbout_Click(); },
             [&] {
                 expectRoom();
                 EXPECT_EQ(textOf(GetDlgItem(dialog, IDC_VERSION)).substr(0, 8), L"Version ");
                 press(VK_RETURN);
                 EXPECT_FALSE(IsWindowVisible(dialog)) << "OK is the default button";
             });
    TreeView& tree = program.fMainForm->tvTreeView;
    tree.select(tree.node(L"Z1"));
    ListView& list = program.fMainForm->lvListView;
    list.clear();
    list.add(L"L2", L"Blatt 1");
    list.add(L"L3", L"Blatt 2");
    list.selectAll();
    inDialog([this] { program.fMainForm->mnuFileRename_Click(); }, expectRoom);
    inDialog(
        [&] {
            frmErstellen form(
                {*program.views, list, program.autoCAD, program.general, program.help, world.platform},
                program.tarvix, program.members, {});
            form.Form_Load();
            presenter.showModal(form);
        },
        [&] {
            expectRoom();
            EXPECT_EQ(textOf(GetFocus()), L"Layout1");
        });
}

}  // namespace

}  // namespace blattwart::test
