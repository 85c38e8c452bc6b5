#include <gtest/gtest.h>

#include "Operations.h"

namespace blattwart::test {
namespace {

/// When the host dies, seen from one call.
enum class Death { beforeCall, duringCall, beforeAnswer };

class DyingHostTest : public testing::Test {
  protected:
    DyingHostTest() { makeUnstartable(); }

    /// What the class is started with is missing, so that only the user starts the host.
    static void makeUnstartable() {
        CLSID id{};
        CLSIDFromProgID(HostProgram::name, &id);
        wchar_t text[40];
        StringFromGUID2(id, text, 40);
        const std::wstring key = L"SOFTWARE\\Classes\\CLSID\\" + std::wstring(text) + L"\\LocalServer32";
        const wchar_t missing[] = L"C:\\fehlt.exe";
        RegSetKeyValueW(HKEY_LOCAL_MACHINE, key.c_str(), nullptr, REG_SZ, missing, sizeof missing);
    }

    /// What an operation costs that is not disturbed.
    struct Course {
        std::vector<std::size_t> calls;  ///< to the host: their numbers among all calls
        int messages = 0;                ///< on the wire
        std::int64_t milliseconds = 0;
    };
    Course undisturbed(const Operation& operation) {
        begin(operation);
        const int before = host.messages();
        Course course;
        course.milliseconds = perform(program, operation);
        course.messages = host.messages() - before;
        const auto& calls = program.calls.calls();
        for (std::size_t i = 0; i < calls.size(); ++i)
            if (calls[i].ofHost) course.calls.push_back(i + 1);
        return course;
    }

    void begin(const Operation& operation) {
        host.start(program.client);
        ASSERT_TRUE(program.start());
        prepare(program, operation);
    }

    /// Lets the host die at one of the operation's calls; the samples are spread over all of them.
    void letDie(Death death, const Course& course, std::size_t sample) {
        const auto place = [sample](std::size_t count) { return sample * (count - 1) / (samplesEach - 1); };
        if (death == Death::beforeCall) {
            const std::size_t number = course.calls[place(course.calls.size())];
            program.calls.beforeCall([this, number](std::size_t n) {
                if (n == number) host.kill();
            });
            return;
        }
        const std::size_t message = 1 + place(static_cast<std::size_t>(course.messages));
        ASSERT_TRUE(
            host->obey(L"die " + std::to_wstring(message) + (death == Death::duringCall ? L"" : L" done")));
    }

    /// The user comes back while no host runs: asked once, he tries to start it, which fails.
    void returnWithoutHost() {
        FakeMessages& messages = program.world.messages;
        messages.clear();
        messages.answer(MessageAnswer::yes);
        program.leaveAndReturn();
        for (int i = 0; i < 3; ++i) program.act([this] { program.form().ctlTimer_Timer(); });
        EXPECT_EQ(program.world.messages.questions().size(), 1U);
        EXPECT_EQ(program.calls.deadObjects(), 0U);
        EXPECT_EQ(program.tree().node(L"A").text(), L"AutoCAD nicht aktiv!");
        EXPECT_TRUE(program.tree().node(L"A").children().empty());
    }

    /// The system needs a moment until it no longer hands out the dead host.
    void awaitForgotten() {
        for (int i = 0; i < 200; ++i) {
            if (!ignoringErrors([this] { program.client.automation.running(HostProgram::name); })) return;
            Sleep(10);
        }
        ADD_FAILURE() << "the dead host is still handed out";
    }

    /// The host has died. The user starts it again, before or after he comes back to the program.
    void recover(bool hostFirst) {
        EXPECT_FALSE(FindWindowW(HostProgram::window, nullptr)) << "the host should have died";
        awaitForgotten();
        program.calls.beforeCall({});
        program.calls.hostEnded();
        for (const ShownBox& box : program.world.messages.shown)
            EXPECT_EQ(box.text.find(L"Soll AutoCAD gestartet werden?"), std::wstring::npos);
        // A layout that has left the tree comes back with a new session only.
        if (!hostFirst || !program.node(L"Plan.dwg/Blatt 2")) returnWithoutHost();
        host.start(program.client);
        program.world.messages.clear();
        program.leaveAndReturn();
        EXPECT_EQ(program.world.messages.texts(), std::vector<std::wstring>{});
        EXPECT_EQ(program.calls.deadObjects(), 0U);
        EXPECT_EQ(program.drawings(), host.drawings());
    }

    static constexpr std::size_t samplesEach = 4;
    static constexpr std::int64_t hang = 4000;  // milliseconds
    HostProgram host;
    ProgramOnHost program{std::chrono::seconds(10)};
};

class DyingDuringOperations : public DyingHostTest, public testing::WithParamInterface<std::size_t> {};
INSTANTIATE_TEST_SUITE_P(Part, DyingDuringOperations, testing::Range(std::size_t{0}, operationParts));

TEST_P(DyingDuringOperations, TheProgramOutlivesItsHostAtWhateverCallItDies) {
    std::size_t count = GetParam();
    for (const Operation& operation : operations(GetParam())) {
        const Course course = undisturbed(operation);
        for (std::size_t sample = 0; sample < samplesEach; ++sample) {
            const auto death = static_cast<Death>(count % 3);
            SCOPED_TRACE(testing::PrintToString(operation) + ", sample " + std::to_string(sample) +
                         ", death " + std::to_string(count % 3));
            begin(operation);
            letDie(death, course, sample);
            EXPECT_LT(perform(program, operation), course.milliseconds + hang);
            recover(count % 2 == 0);
            ++count;
        }
    }
}

TEST_F(DyingHostTest, TheProgramStandsAlsoWhenItsHostDiesWhileItStarts) {
    for (const int message : {1, 2, 8, 20}) {
        SCOPED_TRACE(message);
        host.start(program.client);
        ASSERT_TRUE(host->obey(L"die " + std::to_wstring(message)));
        ASSERT_TRUE(program.start());
        recover(true);
    }
}

}  // namespace
}  // namespace blattwart::test
