#include <gtest/gtest.h>

#include <algorithm>

#include "Operations.h"
#include "res/DialogIds.h"

namespace blattwart::test {
namespace {

using namespace std::chrono_literals;

/// What an operation left behind.
struct Outcome {
    std::wstring shown;
    std::wstring hostDrawings;
    std::wstring typed;
    std::vector<std::wstring> boxes;
    std::vector<std::wstring> calls;
    int messages = 0;  ///< carried out by the host
};

class BusyHostTest : public testing::Test {
  protected:
    explicit BusyHostTest(std::chrono::milliseconds askAfter = 200ms) : program(askAfter) {}

    void begin(const Operation& operation) {
        host.start(program.client);
        ASSERT_TRUE(program.start());
        prepare(program, operation);
    }
    Outcome run(const Operation& operation) {
        const int before = host.messages();
        perform(program, operation);
        host->obey(L"normal");
        return {program.shown(),      host.drawings(),         host.typed(), program.world.messages.texts(),
                program.calls.list(), host.messages() - before};
    }
    Outcome undisturbed(const Operation& operation) {
        begin(operation);
        return run(operation);
    }

    /// Everything as without disturbance: also what the host carried out, so that no call was made twice.
    static void expectSame(const Outcome& outcome, const Outcome& expected) {
        EXPECT_EQ(outcome.shown, expected.shown);
        EXPECT_EQ(outcome.hostDrawings, expected.hostDrawings);
        EXPECT_EQ(outcome.typed, expected.typed);
        EXPECT_EQ(outcome.boxes, expected.boxes);
        EXPECT_EQ(outcome.calls, expected.calls);
        EXPECT_EQ(outcome.messages, expected.messages);
    }

    /// The window is told five times a second on the average, paints in between, says so after a second, and
    /// no more when the host answers.
    void expectTold() {
        std::int32_t last = 0;
        std::int32_t waited = 0;
        std::int32_t times = 0;
        for (const BusyMoment& moment : program.busy) {
            EXPECT_EQ(moment.status, moment.milliseconds < 1000 ? L"" : L"AutoCAD ist beschäftigt")
                << moment.milliseconds;
            if (moment.milliseconds > 0 && last > 0) {
                EXPECT_TRUE(moment.painted) << moment.milliseconds;
                waited += moment.milliseconds - last;
                ++times;
            }
            last = moment.milliseconds;
        }
        EXPECT_LE(waited, times * 200);
        EXPECT_EQ(last, 0);
    }
    std::int32_t longestWait() {
        return program.busy.empty()
                   ? 0
                   : std::ranges::max(program.busy, {}, &BusyMoment::milliseconds).milliseconds;
    }

    HostProgram host;
    ProgramOnHost program;
};

class BusyOperations : public BusyHostTest, public testing::WithParamInterface<std::size_t> {};
INSTANTIATE_TEST_SUITE_P(Part, BusyOperations, testing::Range(std::size_t{0}, operationParts));

TEST_P(BusyOperations, AreDoneOnceHoweverOftenTheHostRefuses) {
    for (const Operation& operation : operations(GetParam())) {
        SCOPED_TRACE(testing::PrintToString(operation));
        const Outcome expected = undisturbed(operation);
        begin(operation);
        const std::wstring half = std::to_wstring(expected.messages / 2);
        for (const std::wstring& command : std::initializer_list<std::wstring>{
                 L"refuse percent 30", L"refuse for 300", L"modal " + half + L" 300"})
            ASSERT_TRUE(host->obey(command));
        expectSame(run(operation), expected);
        EXPECT_GE(program.asked, 1);
        expectTold();
    }
}

TEST_P(BusyOperations, AreGivenUpOnceWhenTheHostStaysBusy) {
    program.givesUp = true;
    for (const Operation& operation : operations(GetParam())) {
        for (const wchar_t* command : {L"refuse for -1", L"modal 2 -1"}) {
            SCOPED_TRACE(testing::PrintToString(operation));
            begin(operation);
            ASSERT_TRUE(host->obey(command));
            const Outcome outcome = run(operation);
            // Some operations are done with the first call.
            const int refused = host->counters()["refused"] > 0 ? 1 : 0;
            EXPECT_EQ(program.asked, refused);
            EXPECT_LT(longestWait(), 1000);
            expectTold();

            program.world.messages.clear();
            program.leaveAndReturn();
            EXPECT_EQ(program.world.messages.texts(), std::vector<std::wstring>{});
            EXPECT_EQ(program.drawings(), host.drawings());
            EXPECT_EQ(program.asked, refused) << "that he gave up is forgotten";
            EXPECT_EQ(program.main->autoCAD.gAcadDoc.GetVariable(L"FILEDIA"), 1);
        }
    }
}

TEST_F(BusyHostTest, WhatItDoesNotTakeBackAfterPlottingComesBackLater) {
    begin(plotting());
    const std::wstring before = host.drawings();
    program.givesUp = true;
    program.calls.beforeCall([this](std::size_t number) {
        const demo::RecordedCall& call = program.calls.calls()[number - 1];
        const bool last = program.calls.count(L"PlotToFile") == 4;
        if (last && call.name == L"QuietErrorMode") host->obey(L"refuse for -1");
    });
    run(plotting());
    program.calls.beforeCall({});
    EXPECT_TRUE(program.world.messages.texts().back().starts_with(
        L"AutoCAD hat nicht alle Einstellungen zurückgenommen: "));
    EXPECT_NE(host.profile(), L"2\n0\n");
    program.perform(menuItem(L"mnuPlanList"));
    EXPECT_EQ(host.profile(), L"2\n0\n");
    EXPECT_EQ(host.drawings(), before);
}

/// A plot takes its time.
TEST_F(BusyHostTest, TheUserEndsPlottingInTheMiddleWithoutBeingAsked) {
    begin(plotting());
    host.start(program.client, L"/plottime 1500");
    program.leaveAndReturn();
    prepare(program, plotting());
    program.whileBusy = [](std::int32_t milliseconds) {
        const HWND dialog = FindWindowW(L"#32770", L"PDF erzeugen");
        if (dialog && milliseconds > 600)
            PostMessageW(GetDlgItem(dialog, IDCANCEL), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 3));
    };
    run(plotting());
    EXPECT_EQ(program.calls.count(L"PlotToFile"), 1U);
    EXPECT_EQ(program.asked, 0);
    EXPECT_EQ(host.profile(), L"2\n0\n");
}

/// With the program's own patience.
class PatientTest : public BusyHostTest {
  protected:
    PatientTest() : BusyHostTest(10s) {}

    void expectDoneAfter(const std::wstring& command, std::int32_t milliseconds, int asked) {
        const Outcome expected = undisturbed(refreshing());
        begin(refreshing());
        ASSERT_TRUE(host->obey(command));
        expectSame(run(refreshing()), expected);
        EXPECT_EQ(program.asked, asked);
        expectTold();
        EXPECT_NEAR(longestWait(), milliseconds, 300);
    }
};

TEST_F(PatientTest, ASecondPassesUnnoticed) {
    expectDoneAfter(L"refuse for 1000", 1000, 0);
}

TEST_F(PatientTest, AfterTenSecondsTheUserIsAskedAndWaitsOn) {
    expectDoneAfter(L"refuse for 15000 later", 15000, 1);
}

TEST_F(PatientTest, ADialogOfFiveSecondsInTheMiddleIsWaitedFor) {
    expectDoneAfter(L"modal 10 5000", 5000, 0);
}

/// The program starts the host, which refuses meanwhile.
class BusyStartTest : public BusyHostTest {
  protected:
    ~BusyStartTest() override {
        DWORD process = 0;
        const HWND window = FindWindowW(HostProgram::window, nullptr);
        GetWindowThreadProcessId(window, &process);
        HANDLE handle = OpenProcess(SYNCHRONIZE, FALSE, process);
        PostMessageW(window, WM_CLOSE, 0, 0);
        WaitForSingleObject(handle, 5000);
        CloseHandle(handle);
    }

    void start(const std::wstring& commands) {
        runProgram(CADHOST, L"/register /silent /startup 300 " + commands);
        program.world.messages.answer(MessageAnswer::yes);
        ASSERT_TRUE(program.start());
    }
    static int hosts() {
        int count = 0;
        for (HWND window = nullptr; (window = FindWindowExW(nullptr, window, HostProgram::window, nullptr));)
            ++count;
        return count;
    }
};

TEST_F(BusyStartTest, AHostThatRefusesToBeMadeIsStartedOnce) {
    start(L"/do \"refuse creations 3\" /do \"refuse percent 30\" /do \"add C:\\Pläne|Haus.dwg|EG\"");
    EXPECT_EQ(program.world.messages.questions().size(), 1U) << "whether to start";
    EXPECT_EQ(hosts(), 1);
    EXPECT_TRUE(IsWindowVisible(FindWindowW(HostProgram::window, nullptr)));
    EXPECT_EQ(program.drawings(), L"Haus.dwg*\tEG*\n");
}

TEST_F(BusyStartTest, TheUserGivesUpAHostThatNeverComesUp) {
    program.givesUp = true;
    start(L"/do \"refuse creations 100000 later\"");
    EXPECT_EQ(program.world.messages.questions().size(), 1U) << "whether to start";
    EXPECT_EQ(program.asked, 1);
    EXPECT_EQ(program.tree().node(L"A").text(), L"AutoCAD nicht aktiv!");
    program.world.messages.clear();
    program.leaveAndReturn();
    EXPECT_EQ(program.world.messages.questions().size(), 0U) << "it runs all the same";
    EXPECT_TRUE(IsWindowVisible(FindWindowW(HostProgram::window, nullptr)));
    EXPECT_EQ(program.tree().node(L"A").text(), L"Geladene Zeichnungen");
    EXPECT_EQ(hosts(), 1);
}

}  // namespace
}  // namespace blattwart::test
