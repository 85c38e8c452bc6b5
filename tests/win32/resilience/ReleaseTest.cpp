#include <gtest/gtest.h>

#include "ProgramOnHost.h"
#include "support/User.h"

namespace blattwart::test {
namespace {

/// The established host and a newer one, both entered, each running when a test starts it.
class ReleaseTest : public testing::Test {
  protected:
    static constexpr const wchar_t* newerName = L"AutoCAD.Application.24.3";

    void startNewer(const std::wstring& options = {}) {
        newer.start(program.client, options + L" /do \"close Haus.dwg\"");
    }
    void choose(const wchar_t* item) { program.perform(menuItem(item)); }
    /// The system needs a moment until it no longer hands out a host that has died.
    void awaitForgotten(const wchar_t* name) {
        for (int i = 0; i < 200 && ignoringErrors([&] { program.client.automation.running(name); }); ++i)
            Sleep(10);
    }
    /// The user deletes two layouts of Plan.dwg, with this answer to what he is asked.
    void deleteTwo() {
        program.act([&] {
            program.tree().userClicks(*program.node(L"Plan.dwg"));
            selectRows(program.list(), [](const ListItem& row) { return row.text() != L"Blatt 2"; });
        });
        program.world.messages.clear();
        program.world.messages.answer(MessageAnswer::ok);
        program.world.messages.answer(MessageAnswer::yes);
        choose(L"mnuFileDelete");
    }

    HostProgram established;
    HostProgram newer{L"24.3"};
    ProgramOnHost program{std::chrono::seconds(10)};
};

TEST_F(ReleaseTest, AreAttachedAsTheyRunAndAsTheUserChooses) {
    const std::wstring both =
        L"Haus.dwg\tBlatt 1\nPlan.dwg*\tBlatt 1*\nPlan.dwg*\tBlatt 2\nPlan.dwg*\tSchnitt\n";
    const std::wstring plan = both.substr(both.find(L'\n') + 1);
    startNewer();
    established.start(program.client);
    ASSERT_TRUE(program.start());
    EXPECT_EQ(program.drawings(), both);
    program.leaveAndReturn();
    EXPECT_EQ(newer.messages(), 0) << "one that is not attached is left alone";

    EXPECT_EQ(program.form().item(L"mnuRelease(24.3)").caption(), L"AutoCAD 24.3 – Deutsch");
    choose(L"mnuRelease(24.3)");
    EXPECT_EQ(program.drawings(), plan);
    const int messages = established.messages();
    program.leaveAndReturn();
    EXPECT_EQ(program.drawings(), plan);
    EXPECT_EQ(established.messages(), messages);
    choose(L"mnuReleaseAutomatic");
    EXPECT_EQ(program.drawings(), both);

    // The newer one alone.
    established.kill();
    awaitForgotten(HostProgram::name);
    program.leaveAndReturn();
    EXPECT_EQ(program.drawings(), plan);
    const int before = newer.messages();
    EXPECT_TRUE(program.main->autoCAD.IsAutoCADRunning());
    EXPECT_EQ(newer.messages(), before);
    EXPECT_EQ(program.world.messages.texts(), std::vector<std::wstring>{});

    // What the user has chosen is started, also where another one runs.
    choose(L"mnuRelease(24.3)");
    newer.kill();
    awaitForgotten(newerName);
    established.start(program.client);
    program.world.messages.answer(MessageAnswer::yes);
    program.leaveAndReturn();
    EXPECT_EQ(program.world.messages.questions().size(), 1U);
    // It comes up with its start tab, and the tree keeps what it showed.
    EXPECT_EQ(program.form().sbStatusBar.panelText(1), L"Keine aktive AutoCAD-Zeichnung !");
    EXPECT_EQ(program.drawings(), plan);
    const HWND window = FindWindowW(L"CadHostWindow24.3", nullptr);
    EXPECT_TRUE(IsWindowVisible(window));
    PostMessageW(window, WM_CLOSE, 0, 0);
}

TEST_F(ReleaseTest, WithoutTarvixTheProgramOutlivesItsHost) {
    // Dying at the question, not at all, or at one of the messages.
    for (const int message : {-1, 0, 12, 30, 45, 60}) {
        SCOPED_TRACE(message);
        startNewer(L"/novba");
        ASSERT_TRUE(program.start());
        if (message > 0) {
            ASSERT_TRUE(newer->obey(L"die " + std::to_wstring(message)));
        }
        program.world.messages.whileOpen = [&](const ShownBox& box) {
            if (message < 0 && box.buttons == MessageButtons::yesNoDefaultNo) newer.kill();
        };
        deleteTwo();
        if (message == 0) {
            EXPECT_EQ(program.drawings(), L"Plan.dwg*\tBlatt 2*\n");
            EXPECT_EQ(newer.drawings(), program.drawings());
            EXPECT_EQ(program.world.messages.shown.size(), 2U);
        }
        newer.kill();
        awaitForgotten(newerName);
        program.calls.hostEnded();
        startNewer(L"/novba");
        program.world.messages.clear();
        program.leaveAndReturn();
        EXPECT_EQ(program.world.messages.texts(), std::vector<std::wstring>{});
        EXPECT_EQ(program.calls.deadObjects(), 0U);
        EXPECT_NE(program.node(L"Plan.dwg"), nullptr);
    }
}

}  // namespace
}  // namespace blattwart::test
