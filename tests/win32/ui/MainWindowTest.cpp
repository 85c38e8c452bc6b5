#include "win32/ui/MainWindow.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <thread>
#include <vector>

#include "ControlHost.h"
#include "shell/basMain.h"
#include "support/TestPlatform.h"
#include "win32/platform/Win32Desktop.h"
#include "win32/ui/Dpi.h"
#include "win32/ui/Win32FormPresenter.h"

namespace blattwart::test {

namespace {

/// The whole program in its real window, in a world without AutoCAD.
class MainWindowTest : public testing::Test {
  protected:
    void SetUp() override {
        world.settings.values = {{L"MainLeft", L"1500"},
                                 {L"MainTop", L"900"},
                                 {L"MainWidth", L"9000"},
                                 {L"MainHeight", L"6000"},
                                 {L"ViewMode", L"3"}};
        world.messages.answer(MessageAnswer::yes);
        ASSERT_TRUE(program.Main());
        pumpFor(100);
        world.messages.clear();
    }
    ~MainWindowTest() override {
        presenter.destroyWindows();
        pump();
    }

    MainWindow& main() { return *presenter.mainWindow(); }
    frmMain& form() { return *program.fMainForm; }
    HWND window() { return main().window(); }
    HWND tree() { return childOfClass(window(), WC_TREEVIEWW); }
    HWND list() { return childOfClass(window(), WC_LISTVIEWW); }
    HWND toolBar() { return childOfClass(window(), TOOLBARCLASSNAMEW); }
    HWND statusBar() { return childOfClass(window(), STATUSCLASSNAMEW); }

    /// Place of a child window within the frame.
    RECT place(HWND child) {
        RECT rectangle{};
        GetWindowRect(child, &rectangle);
        MapWindowPoints(nullptr, window(), reinterpret_cast<POINT*>(&rectangle), 2);
        return rectangle;
    }
    RECT client() {
        RECT rectangle{};
        GetClientRect(window(), &rectangle);
        return rectangle;
    }
    int pixels(float twips) { return toPixels(twips, windowDpi(window())); }

    /// The command number of a menu item, found in the menu as the user would.
    UINT commandOf(HMENU menu, const std::wstring& caption) {
        for (int i = 0; i < GetMenuItemCount(menu); ++i) {
            std::array<wchar_t, 100> text{};
            GetMenuStringW(menu, static_cast<UINT>(i), text.data(), 100, MF_BYPOSITION);
            if (std::wstring(text.data()).starts_with(caption)) return GetMenuItemID(menu, i);
            const HMENU inner = GetSubMenu(menu, i);
            if (const UINT found = inner ? commandOf(inner, caption) : 0) return found;
        }
        return 0;
    }
    void choose(const std::wstring& caption) {
        SendMessageW(window(), WM_COMMAND, commandOf(GetMenu(window()), caption), 0);
        pump();
    }
    bool translated(WPARAM key) {
        const MSG message{GetFocus(), WM_KEYDOWN, key, 0, 0, {}};
        const bool result = main().translate(message);
        pump();
        return result;
    }

    /// The user presses keys in the pop-up menu that will open: characters or virtual keys.
    static std::thread pressInMenu(UINT message, std::vector<WPARAM> keys) {
        return std::thread([message, keys = std::move(keys)] {
            HWND popup = nullptr;
            for (int i = 0; i < 2000 && !popup; ++i) {
                Sleep(10);
                popup = FindWindowW(L"#32768", nullptr);
            }
            for (const WPARAM key : keys) PostMessageW(popup, message, key, 0);
        });
    }

    NoAutomation automation;
    TestPlatform world{automation};
    Guard guard{{}};
    Win32FormPresenter presenter{guard, world.gate};
    basMain program{world.platform, presenter};
};

TEST_F(MainWindowTest, StandsWhereTheSettingsSayAndLaysItsPanesOut) {
    EXPECT_TRUE(IsWindowVisible(window()));
    const Placement placement = main().placement();
    EXPECT_EQ(placement.width, 9000);
    EXPECT_EQ(placement.height, 6000);
    EXPECT_EQ(GetFocus(), tree());
    const RECT treePlace = place(tree());
    const RECT listPlace = place(list());
    EXPECT_EQ(treePlace.left, 0);
    EXPECT_EQ(listPlace.left - treePlace.right, pixels(40));
    EXPECT_EQ(listPlace.right, client().right) << "nothing is cut off";
    EXPECT_EQ(treePlace.top, listPlace.top);
    EXPECT_EQ(treePlace.bottom, place(statusBar()).top);
    EXPECT_EQ(place(statusBar()).bottom, client().bottom);
    EXPECT_EQ(textOf(window()), L"Blattwart");

    struct Case {
        int x;
        bool taken;
    };
    const int right = static_cast<int>(client().right);
    const int gap = static_cast<int>(treePlace.right);
    for (const Case& c : {Case{0, false}, Case{gap - 4, false}, Case{gap - 1, true}, Case{gap + 1, true},
                          Case{gap + 4, true}, Case{gap + 8, false}, Case{right - 1, false}}) {
        SendMessageW(window(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(c.x, treePlace.top + 20));
        EXPECT_EQ(GetCapture() == window(), c.taken) << c.x;
        ReleaseCapture();
    }
    // The dots at a title's end must not stay when there is room again.
    const HWND title = FindWindowExW(window(), nullptr, WC_STATICW, L"Zeichnungen und Vorlagen:");
    PaintCount titlePaints(title);
    const auto narrow = [title] { SetWindowPos(title, nullptr, 0, 0, 60, 20, SWP_NOMOVE | SWP_NOZORDER); };
    EXPECT_EQ(titlePaints.during(narrow), 1);
}

TEST_F(MainWindowTest, FollowsItsMonitorAndTheUsersFont) {
    const auto font = [this] { return SendMessageW(tree(), WM_GETFONT, 0, 0); };
    const auto placeOfWindow = [this] {
        RECT rectangle{};
        GetWindowRect(window(), &rectangle);
        return rectangle;
    };
    const LRESULT before = font();
    SendMessageW(window(), WM_SETTINGCHANGE, 0, reinterpret_cast<LPARAM>(L"Environment"));
    EXPECT_EQ(font(), before) << "only another font is a reason for making all anew";
    const RECT saved = placeOfWindow();
    const RECT suggested{saved.left, saved.top, saved.left + 800, saved.top + 640};
    const auto changeDpi = [&](int dpi) {
        SendMessageW(window(), 0x02E0, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&suggested));
        pump();
    };
    ShowWindow(window(), SW_HIDE);
    form().lvListView.clear();
    form().lvListView.setMode(ListViewMode::list);
    changeDpi(144);
    EXPECT_EQ(SendMessageW(list(), LVM_GETCOLUMNWIDTH, 0, 0), 2 * 24) << "room for a picture of this size";
    const RECT hidden = placeOfWindow();
    EXPECT_TRUE(EqualRect(&hidden, &saved)) << "or it would grow with each start";
    EXPECT_NE(font(), before);
    ShowWindow(window(), SW_SHOW);
    changeDpi(96);
    const RECT shown = placeOfWindow();
    EXPECT_TRUE(EqualRect(&shown, &suggested));
}

TEST_F(MainWindowTest, ButtonsWithoutRoomGoIntoAMenu) {
    constexpr WPARAM help = FrameControls::firstToolBarCommand + 22;
    constexpr WPARAM chevron = FrameControls::firstToolBarCommand + 27;
    const auto hidden = [this](WPARAM button) {
        return SendMessageW(toolBar(), TB_ISBUTTONHIDDEN, button, 0) != 0;
    };
    EXPECT_FALSE(hidden(help));
    EXPECT_TRUE(hidden(chevron));
    SetWindowPos(window(), nullptr, 0, 0, 350, 400, SWP_NOMOVE | SWP_NOZORDER);
    pump();
    EXPECT_TRUE(hidden(help));
    EXPECT_FALSE(hidden(chevron));
    RECT button{};
    SendMessageW(toolBar(), TB_GETRECT, chevron, reinterpret_cast<LPARAM>(&button));
    EXPECT_LE(button.right, client().right);
    form().tbToolBar.setButtonEnabled(22, true);
    EXPECT_TRUE(hidden(help)) << "another state does not bring it back";
    std::thread user = pressInMenu(WM_KEYDOWN, {VK_UP, VK_RETURN});
    SendMessageW(window(), WM_COMMAND, chevron, reinterpret_cast<LPARAM>(toolBar()));
    pump();
    user.join();
    EXPECT_EQ(world.help.shown.size(), 1u);
    SetWindowPos(window(), nullptr, 0, 0, 600, 400, SWP_NOMOVE | SWP_NOZORDER);
    pump();
    EXPECT_FALSE(hidden(help));
    EXPECT_TRUE(hidden(chevron));
}

TEST_F(MainWindowTest, MenusAndButtonsShowTheViewMode) {
    const auto isChecked = [this](const std::wstring& caption) {
        const HMENU bar = GetMenu(window());
        for (int i = 0; i < GetMenuItemCount(bar); ++i) {
            SendMessageW(window(), WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(GetSubMenu(bar, i)), i);
        }
        return (GetMenuState(bar, commandOf(bar, caption), MF_BYCOMMAND) & MF_CHECKED) != 0;
    };
    EXPECT_TRUE(isChecked(L"&Automatisch"));
    MENUITEMINFOW release{};
    release.cbSize = sizeof release;
    release.fMask = MIIM_FTYPE;
    const HMENU menus = GetMenu(window());
    GetMenuItemInfoW(menus, commandOf(menus, L"&Automatisch"), FALSE, &release);
    EXPECT_TRUE(release.fType & MFT_RADIOCHECK);
    EXPECT_TRUE(isChecked(L"&Details"));
    choose(L"&Liste");
    EXPECT_EQ(SendMessageW(list(), LVM_GETVIEW, 0, 0), LV_VIEW_LIST);
    EXPECT_FALSE(isChecked(L"&Details"));
    EXPECT_TRUE(isChecked(L"&Liste"));
    const WPARAM firstButton = FrameControls::firstToolBarCommand;
    EXPECT_TRUE(SendMessageW(toolBar(), TB_ISBUTTONCHECKED, firstButton + 16, 0));
    SendMessageW(window(), WM_COMMAND, firstButton + 17, reinterpret_cast<LPARAM>(toolBar()));
    EXPECT_EQ(form().lvListView.mode(), ListViewMode::details);
    // Clicking the pressed button leaves it pressed.
    SendMessageW(toolBar(), TB_CHECKBUTTON, firstButton + 17, FALSE);
    SendMessageW(window(), WM_COMMAND, firstButton + 17, reinterpret_cast<LPARAM>(toolBar()));
    EXPECT_TRUE(SendMessageW(toolBar(), TB_ISBUTTONCHECKED, firstButton + 17, 0));
    EXPECT_FALSE(SendMessageW(toolBar(), TB_ISBUTTONENABLED, firstButton + 6, 0));
}

TEST_F(MainWindowTest, KeysReachCommandsAndPanes) {
    EXPECT_TRUE(translated(VK_TAB));
    EXPECT_EQ(GetFocus(), list());
    EXPECT_TRUE(translated(VK_F6));
    EXPECT_EQ(GetFocus(), toolBar());
    EXPECT_FALSE(translated(VK_RIGHT)) << "the buttons' own";
    EXPECT_TRUE(translated(VK_F6));
    EXPECT_EQ(GetFocus(), tree());
    int refreshed = 0;
    form().item(L"mnuViewRefresh").click = [&] { ++refreshed; };
    EXPECT_TRUE(translated(VK_F5));
    EXPECT_EQ(refreshed, 1);
    {
        const Gate::Call call(world.gate);
        EXPECT_TRUE(translated(VK_F5));
    }
    EXPECT_EQ(refreshed, 1) << "not while a call is pending";
    form().tvTreeView.startLabelEdit(L"Name");
    EXPECT_FALSE(translated(VK_F5)) << "not while a label is edited";
    form().tvTreeView.cancelLabelEdit();

    TreeView& nodes = form().tvTreeView;
    TreeNode& drawing = nodes.add(&nodes.node(L"A"), L"Z1", L"Plan.dwg");
    nodes.select(nodes.add(&drawing, L"L2", L"Blatt 1"));
    int deleted = 0;
    form().item(L"mnuFileDelete").setEnabled(true);
    form().item(L"mnuFileDelete").click = [&] { ++deleted; };
    SetFocus(list());
    EXPECT_TRUE(translated(VK_DELETE));
    EXPECT_EQ(deleted, 0) << "the list shows details of a layout that is not meant";
    SetFocus(tree());
    EXPECT_TRUE(translated(VK_DELETE));
    EXPECT_EQ(deleted, 1);
}

TEST_F(MainWindowTest, OnlyComingFromAnotherProgramIsActivation) {
    // Activation brings the commands' states up to date: without AutoCAD it can be started.
    const auto activates = [this](const std::function<void()>& action) {
        form().item(L"mnuStart").setEnabled(false);
        action();
        pumpFor(100);
        return form().item(L"mnuStart").enabled();
    };
    const auto switchTo = [this](HWND other) {
        SetForegroundWindow(other);
        pumpFor(100);
        SetForegroundWindow(window());
    };
    // The watchdog's tick must not make a return of it.
    world.desktop.foregroundWindow = main().handle();
    program.gWasForeground = 1;
    SetForegroundWindow(window());
    pumpFor(100);
    const ControlHost own;
    EXPECT_FALSE(activates([&] { switchTo(own.window()); }));
    // Windows tell threads apart as they do programs.
    std::atomic<HWND> foreign = nullptr;
    std::thread other([&] {
        const ControlHost host;
        foreign = host.window();
        pumpFor(1500);
    });
    while (!foreign) Sleep(10);
    EXPECT_TRUE(activates([&] { switchTo(foreign); }));
    other.join();
}

TEST_F(MainWindowTest, AContextMenuRunsItsCommandWhenItIsClosed) {
    MenuItem menu;
    std::wstring happened;
    menu.add(L"a", L"&Eins").setEnabled(false);
    menu.addSeparator();
    menu.add(L"b", L"&Zwei").click = [&] { happened += L"zwei;"; };
    form().tvTreeView.events.contextMenu = [&] {
        main().popUpMenu(menu);
        happened += L"closed;";
    };
    menu.items().back()->setDefault(true);
    std::thread user = pressInMenu(WM_CHAR, {L'z'});
    SendMessageW(window(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(tree()), -1);
    pumpFor(300);
    user.join();
    EXPECT_EQ(happened, L"closed;zwei;");
}

TEST_F(MainWindowTest, TheWatchdogStepsAside) {
    const auto ticks = [this] {
        program.gWasForeground = 1;
        pumpFor(1200);
        return program.gWasForeground == 0;
    };
    EXPECT_TRUE(ticks());
    EnableWindow(window(), FALSE);
    EXPECT_FALSE(ticks()) << "under a dialog";
    EnableWindow(window(), TRUE);
    SetCapture(tree());
    EXPECT_FALSE(ticks()) << "in a drag";
    ReleaseCapture();
    {
        const Gate::Call call(world.gate);
        EXPECT_FALSE(ticks()) << "in a call";
    }
    EXPECT_TRUE(ticks());
}

TEST_F(MainWindowTest, ARefreshWithoutChangesPaintsNothing) {
    program.views->RefreshTree();
    PaintCount treePaints(tree());
    PaintCount listPaints(list());
    PaintCount barPaints(toolBar());
    PaintCount statusPaints(statusBar());
    const auto all = treePaints.during([&] {
        EXPECT_EQ(listPaints.during([&] {
            EXPECT_EQ(barPaints.during([&] {
                EXPECT_EQ(statusPaints.during([&] { choose(L"&Aktualisieren"); }), 0) << "status bar";
            }),
                      0)
                << "toolbar";
        }),
                  0)
            << "list";
    });
    EXPECT_EQ(all, 0) << "tree";
}

TEST_F(MainWindowTest, ClosingSavesThePlacementUnlessMinimised) {
    SetWindowPos(window(), nullptr, 60, 80, 700, 500, SWP_NOZORDER);
    ShowWindow(window(), SW_MINIMIZE);
    pump();
    SendMessageW(window(), WM_ENDSESSION, TRUE, 0);
    EXPECT_EQ(world.settings.values[L"MainWidth"], L"9000");
    EXPECT_EQ(world.settings.values[L"Col_1_0"], L"5000");
    EXPECT_TRUE(IsWindow(window()));
    main().close();
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) && message.message != WM_QUIT)
        DispatchMessageW(&message);
    EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
    EXPECT_FALSE(window());
}

}  // namespace

}  // namespace blattwart::test
