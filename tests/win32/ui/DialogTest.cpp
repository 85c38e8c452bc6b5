#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "ControlHost.h"
#include "dialogs/frmErstellen.h"
#include "planlist/frmPlanEinstellungen.h"
#include "planlist/frmPlanPdf.h"
#include "planlist/frmPlanReihenfolge.h"
#include "planlist/frmPlanUmbenennen.h"
#include "res/DialogIds.h"
#include "shell/basMain.h"
#include "support/TestPlatform.h"
#include "win32/platform/Win32MessageBoxes.h"
#include "win32/ui/Dpi.h"
#include "win32/ui/Fonts.h"
#include "win32/ui/FormDialog.h"
#include "win32/ui/Win32FormPresenter.h"

namespace blattwart::test {

namespace {

constexpr UINT dpiChanged = 0x02E0;

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
        EXPECT_EQ(failures, std::vector<std::wstring>());
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
    void expectRoom() { EXPECT_EQ(textsCutOff(dialog), L""); }
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
    std::vector<std::wstring> failures;
    Guard guard{[this](const std::wstring& text) { failures.push_back(text); }};
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
    copy([this] { expectRoom(); });
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
    inDialog([this] { program.fMainForm->mnuFileRename_Click(); }, [this] { expectRoom(); });
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

TEST_F(DialogTest, OneThatFailsWhileItIsMadeDoesNotStay) {
    struct Failing : Dialog {
        void opened() override {
            window().stepLater();
            throw RuntimeError(errorNumber::invalidCall, L"misslungen");
        }
        void step() override {
            ADD_FAILURE() << "it is open";
            window().close();
        }
        void showHelp() override {}
    } form;
    FormDialog(form, {}, guard, world.gate).show(presenter.mainWindow()->window(), IDD_INFO);
    EXPECT_EQ(std::exchange(failures, {}), std::vector<std::wstring>{L"misslungen"});
}

/// The plan list, in which a row stands though there is no host.
class PlanListWindowTest : public DialogTest {
  protected:
    void inPlanList(const std::function<void()>& user) {
        inDialog([this] { program.fMainForm->mnuPlanList_Click(); },
                 [this, user] {
                     while (form().working()) settleFor(20);
                     form().lvPlan.add(L"P1", L"EG").setColumn(2, L"Haus.dwg");
                     user();
                 });
    }
    void settleFor(DWORD milliseconds) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, milliseconds, QS_ALLINPUT);
        settle();
    }
    frmPlanliste& form() { return program.planList; }
    HWND control(int id) { return GetDlgItem(dialog, id); }
    RECT placeOf(int id) {
        RECT place{};
        GetWindowRect(control(id), &place);
        MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
        return place;
    }
    SIZE client() {
        RECT client{};
        GetClientRect(dialog, &client);
        return {client.right, client.bottom};
    }
    /// List, buttons and status line stand beside each other, all of them within the window.
    void expectPlaced() {
        const RECT list = placeOf(IDC_LISTE);
        const RECT status = placeOf(IDC_ZUSTAND);
        const RECT close = placeOf(IDCANCEL);
        const RECT last = placeOf(IDC_AKTUALISIEREN);
        EXPECT_LT(list.right, last.left);
        EXPECT_LT(list.bottom, status.top);
        EXPECT_LT(status.right, close.left);
        EXPECT_LT(last.bottom, close.top);
        EXPECT_LE(close.right, client().cx);
        EXPECT_LE(close.bottom, client().cy);
        expectRoom();
    }
};

TEST_F(PlanListWindowTest, StandsRightInEverySizeAndResolution) {
    inPlanList([this] {
        expectPlaced();
        const SIZE made = client();
        const RECT list = placeOf(IDC_LISTE);
        SetWindowPos(dialog, nullptr, 0, 0, 10, 10, SWP_NOZORDER | SWP_NOMOVE);
        EXPECT_LT(client().cx, made.cx);
        expectPlaced();
        SetWindowPos(dialog, nullptr, 0, 0, 1200, 900, SWP_NOZORDER | SWP_NOMOVE);
        EXPECT_EQ(placeOf(IDC_LISTE).right - list.right, client().cx - made.cx);
        EXPECT_EQ(placeOf(IDC_LISTE).bottom - list.bottom, client().cy - made.cy);
        expectPlaced();
        const RECT suggested{0, 0, 1250, 950};
        SendMessageW(dialog, dpiChanged, MAKEWPARAM(144, 144), reinterpret_cast<LPARAM>(&suggested));
        const LONG height = placeOf(IDCANCEL).bottom - placeOf(IDCANCEL).top;
        expectPlaced();
        SendMessageW(dialog, dpiChanged, MAKEWPARAM(96, 96), reinterpret_cast<LPARAM>(&suggested));
        EXPECT_NEAR(height, (placeOf(IDCANCEL).bottom - placeOf(IDCANCEL).top) * 1.5, 1);
        pumpFor(200);  // the window manager's answers to the sizes before
        ShowWindow(dialog, SW_SHOWMAXIMIZED);
        pumpFor(200);
        expectPlaced();
        press(VK_ESCAPE);
    });
    EXPECT_EQ(world.settings.values.at(L"PlanMax"), L"1");
    EXPECT_EQ(world.settings.values.at(L"PlanWidth"), L"18750") << "the normal one";
    world.settings.values[L"PlanLeft"] = L"150000";
    inPlanList([this] {
        EXPECT_TRUE(IsZoomed(dialog));
        EXPECT_TRUE(MonitorFromWindow(dialog, MONITOR_DEFAULTTONULL));
        press(VK_ESCAPE);
    });
}

TEST_F(PlanListWindowTest, IsDrivenByKeysAndNamedForScreenReaders) {
    inPlanList([this] {
        EXPECT_EQ(focused(), IDC_LISTE);
        EXPECT_EQ(textOf(GetWindow(control(IDC_LISTE), GW_HWNDPREV)), L"&Layouts:");
        presenter.showWork(L"AutoCAD ist beschäftigt");
        EXPECT_EQ(textOf(control(IDC_ZUSTAND)), L"AutoCAD ist beschäftigt");
        form().lblStatus.setText(L"1 Layout");
        EXPECT_EQ(textOf(control(IDC_ZUSTAND)), L"AutoCAD ist beschäftigt");
        presenter.showWork(L"");
        EXPECT_EQ(textOf(control(IDC_ZUSTAND)), L"1 Layout");

        std::array<BYTE, 256> keys{};
        keys[VK_CONTROL] = 0x80;
        SetKeyboardState(keys.data());
        press(L'F');
        EXPECT_EQ(focused(), IDC_FILTER);
        keys[VK_CONTROL] = 0;
        SetKeyboardState(keys.data());
        type(IDC_FILTER, L"fehlt");
        EXPECT_EQ(form().txtFilter.text(), L"fehlt");
        press(VK_DOWN);
        EXPECT_EQ(focused(), IDC_LISTE);
        press(VK_ESCAPE);
        EXPECT_EQ(textOf(control(IDC_FILTER)), L"");

        form().lvPlan.add(L"P1", L"EG");
        form().cmdKopieren.setEnabled(true);
        focus(IDC_KOPIEREN);
        form().cmdKopieren.setEnabled(false);
        EXPECT_EQ(focused(), IDC_LISTE) << "no key would reach anything any more";
        form().lvPlan.startLabelEdit(form().lvPlan.row(0));
        press(VK_ESCAPE);
        EXPECT_TRUE(IsWindowVisible(dialog)) << "the label's";
        EXPECT_EQ(form().lvPlan.editedItem(), nullptr);
        PostMessageW(GetFocus(), WM_KEYDOWN, VK_ESCAPE, 1 << 30);
        settle();
        EXPECT_TRUE(IsWindowVisible(dialog)) << "held down since before";
        press(VK_ESCAPE);
        EXPECT_FALSE(IsWindowVisible(dialog));
    });
}

TEST_F(PlanListWindowTest, TheDialogForPatternsStandsOverIt) {
    RenamePattern pattern;
    PlanList plan(world.locale);
    frmPlanUmbenennen rename(plan, {}, pattern, program.help, world.platform);
    inDialog([&] { presenter.showModal(rename); },
             [&] {
                 EXPECT_EQ(focused(), IDC_MUSTER);
                 expectRoom();
                 EXPECT_FALSE(IsWindowEnabled(control(IDC_AB)));
                 EXPECT_EQ(IsDlgButtonChecked(dialog, IDC_NEU_BEGINNEN), static_cast<UINT>(BST_CHECKED));
                 type(IDC_MUSTER, L"<Nr>");
                 EXPECT_TRUE(IsWindowEnabled(control(IDC_AB)));
                 SendMessageW(control(IDC_NEU_BEGINNEN), BM_CLICK, 0, 0);
                 EXPECT_FALSE(pattern.restartInEachDrawing);
                 SendMessageW(dialog, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(control(IDC_LISTE)), -1);
                 press(VK_ESCAPE);
             });
    EXPECT_TRUE(rename.names().empty());
}

TEST_F(PlanListWindowTest, ItsOtherDialogsHaveRoomInEverySizeAndResolution) {
    PlanList plan(world.locale);
    PlanDrawing drawing;
    drawing.identity = L"PLAN.DWG";
    drawing.name = drawing.shownName = L"Plan.dwg";
    drawing.complete = true;
    plan.setDrawings({drawing});
    PlanRow row;
    row.name = L"EG";
    plan.setRows(plan.drawings().front(), {row});
    const std::vector<int> rows{plan.drawings().front().rows.front().number};
    PlanReader reader(program.autoCAD, world.platform, plan);
    PlanUndo undo;
    PlanTransfer transfer(reader, plan, undo, world.locale);
    PlanRestore restore(program.autoCAD);
    PdfRun run(reader, plan, restore, world.platform);
    PdfChoice choice{.folder = {}, .pattern = L"<Zeichnung>-<Layout>"};
    frmPlanReihenfolge order(plan, rows, frmPlanReihenfolge::FirstStep::none, program.help, world.platform);
    frmPlanEinstellungen settings(plan, transfer, rows, program.help, world.platform);
    frmPlanPdf pdf(plan, run, rows, choice, program.help, world.platform);
    const auto user = [this] {
        const auto expectWhole = [this] {
            expectRoom();
            EXPECT_LE(placeOf(IDCANCEL).right, client().cx);
            EXPECT_LE(placeOf(IDCANCEL).bottom, client().cy);
            EXPECT_LE(placeOf(IDC_LISTE).bottom, placeOf(IDCANCEL).top);
        };
        expectWhole();
        SetWindowPos(dialog, nullptr, 0, 0, 10, 10, SWP_NOZORDER | SWP_NOMOVE);
        expectWhole();
        const RECT suggested{0, 0, 900, 700};
        SendMessageW(dialog, dpiChanged, MAKEWPARAM(144, 144), reinterpret_cast<LPARAM>(&suggested));
        expectWhole();
        SendMessageW(dialog, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(control(IDC_LISTE)), -1);
        press(VK_ESCAPE);
        EXPECT_FALSE(IsWindowVisible(dialog));
    };
    inDialog([&] { presenter.showModal(order); }, user);
    inDialog([&] { presenter.showModal(settings); }, user);
    inDialog([&] { presenter.showModal(pdf); }, user);
}

}  // namespace

}  // namespace blattwart::test
