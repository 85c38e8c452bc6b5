#include <gtest/gtest.h>

#include "Client.h"
#include "server/TestServer.h"
#include "support/ErrorOf.h"

namespace blattwart {
namespace {

using test::errorOf;

using demo::testServerName;
using demo::testServerWindow;

/// A server in a process of its own and a client attached to it.
class Automation : public testing::Test {
  public:
    Automation(const Automation&) = delete;
    Automation& operator=(const Automation&) = delete;

  protected:
    Automation() {
        runProgram(TEST_SERVER, L"/register");
        server_.emplace(TEST_SERVER, L"", testServerWindow);
        application_ = attach(client_, testServerName);
    }
    /// The next case finds no input that this one has posted.
    ~Automation() override {
        MSG message;
        while (PeekMessageW(&message, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE)) {
        }
    }
    std::int32_t tick() { return *application_->call({L"App", L"Tick"}).as<std::int32_t>(); }
    Value echo(const Value& value) { return application_->call({L"App", L"Echo"}, {value}); }
    ObjectPtr collection(const wchar_t* name, std::int32_t count) {
        return *application_->call({L"App", name}, {Value(count)}).as<ObjectPtr>();
    }
    RuntimeError failure(std::int32_t code, const wchar_t* text) {
        try {
            application_->call({L"App", L"Fail"}, {Value(code), Value(text)});
        } catch (const RuntimeError& error) {
            return error;
        }
        return {0, L"kein Fehler"};
    }
    /// Messages of one kind that the statement sent.
    template <class Statement>
    int sent(const char* kind, Statement statement) {
        const int before = server_->counters()[kind];
        statement();
        return server_->counters()[kind] - before;
    }

    Client client_{std::chrono::milliseconds(300)};
    std::optional<RunningProgram> server_;
    ObjectPtr application_;
};

TEST_F(Automation, ValuesOfEveryTypeArriveAndComeBack) {
    const Value values[] = {Value(),
                            Null{},
                            true,
                            std::uint8_t{200},
                            std::int16_t{-7},
                            std::int32_t{-70000},
                            std::int64_t{0x7FF612345678},
                            1.5F,
                            0.02,
                            Currency{123456},
                            Date{40179.25},
                            L"größe \u20AC \U0001F600",
                            L"",
                            ObjectPtr(),
                            ShortArray{1001, 1070},
                            ShortArray{},
                            DoubleArray{1.0, -2.5, 3e9},
                            ValueArray{L"Tarvix", std::int16_t{3}, DoubleArray{1, 2, 3}, Value()}};
    for (const Value& value : values) {
        EXPECT_EQ(echo(value).storage().index(), value.storage().index());
        EXPECT_EQ(echo(value), value) << value.storage().index();
    }
}

TEST_F(Automation, ObjectsGoBackToTheirServer) {
    const ObjectPtr child = collection(L"Children", 1)->enumerate(L"Children").at(0);
    application_->put({L"App", L"Kept"}, child);
    const Value kept = application_->get({L"App", L"Kept"});
    EXPECT_EQ((*kept.as<ObjectPtr>())->get({L"Child", L"Name"}), Value(L"Kind 0"));
    class Foreign : public AutomationObject {
        Value get(const Member&) override { return {}; }
        void put(const Member&, const Value&) override {}
        Value call(const Member&, std::span<const Argument>) override { return {}; }
        std::vector<ObjectPtr> enumerate(std::wstring_view, const GoOn&) override { return {}; }
    };
    EXPECT_EQ(errorOf([&] { echo(ObjectPtr(std::make_shared<Foreign>())); }), DISP_E_TYPEMISMATCH);
}

TEST_F(Automation, AKnownMemberCostsOneMessage) {
    const auto get = [&] { application_->get({L"App", L"Name"}); };
    EXPECT_EQ(sent("idLookups", get), 1);
    EXPECT_EQ(sent("idLookups", get), 0);
    EXPECT_EQ(sent("calls", get), 1);
    const auto ask = [&] {
        EXPECT_EQ(errorOf([&] { application_->get({L"App", L"Gibtsnicht"}); }), hresult::unknownName);
    };
    EXPECT_EQ(sent("idLookups", ask), 1);
    EXPECT_EQ(sent("idLookups", ask), 0);
    // The same application found again keeps what is known.
    const auto again = [&] { attach(client_, testServerName)->get({L"App", L"Name"}); };
    EXPECT_EQ(sent("idLookups", again), 0);
}

TEST_F(Automation, VariablesComeBackAndUntouchedOnesStay) {
    Value width = 0.0;
    Value types;
    Value untouched = L"unberührt";
    EXPECT_EQ(application_->call({L"App", L"Fill"}, {&width, &types, &untouched}), Value(true));
    EXPECT_EQ(width, Value(420.5));
    EXPECT_EQ(types, Value(ShortArray{1001, 1000}));
    EXPECT_EQ(untouched, Value(L"unberührt"));
}

TEST_F(Automation, ErrorsBringTheServersCodeAndText) {
    const RuntimeError withText = failure(static_cast<std::int32_t>(0x80200014), L"Schlüssel nicht gefunden");
    EXPECT_EQ(withText.number(), static_cast<std::int32_t>(0x80200014));
    EXPECT_EQ(withText.description(), L"Schlüssel nicht gefunden");
    struct Kind {
        std::int32_t number;
        bool gone, refused, lost, notAnswering;
    };
    for (const Kind& k : {Kind{hresult::disconnected, true, false, false, false},
                          Kind{hresult::callFailedNotExecuted, true, false, false, false},
                          Kind{hresult::callFailed, true, false, true, false},
                          Kind{hresult::serverDied, true, false, true, false},
                          Kind{hresult::callCanceled, false, false, true, true},
                          Kind{hresult::cannotCallOut, false, true, false, true},
                          Kind{DISP_E_BADPARAMCOUNT, false, false, false, false},
                          Kind{static_cast<std::int32_t>(0x80200157), false, false, false, false}}) {
        const RuntimeError error = failure(k.number, L"");
        EXPECT_EQ(error.number(), k.number);
        EXPECT_NE(error.description(), L"") << k.number;
        EXPECT_EQ(isGone(error), k.gone) << k.number;
        EXPECT_EQ(isRefused(error), k.refused) << k.number;
        EXPECT_EQ(isAnswerLost(error), k.lost) << k.number;
        EXPECT_EQ(isNotAnswering(error), k.notAnswering) << k.number;
        EXPECT_EQ(error.description().find(L"nicht bekannt, ob") != std::wstring::npos, k.lost) << k.number;
        EXPECT_EQ(error.description().find(L"nicht angenommen") != std::wstring::npos, k.refused) << k.number;
    }
}

TEST_F(Automation, EnumeratesWithFewMessages) {
    for (const std::int32_t count : {0, 3, 600}) {
        const ObjectPtr many = collection(L"Children", count);
        std::vector<ObjectPtr> elements;
        EXPECT_EQ(sent("nexts", [&] { elements = many->enumerate(L"Children"); }), count / 512 + 1);
        ASSERT_EQ(elements.size(), static_cast<std::size_t>(count));
        if (count > 0) {
            EXPECT_EQ(elements.back()->get({L"Child", L"Name"}),
                      Value(L"Kind " + std::to_wstring(count - 1)));
        }
    }
}

TEST_F(Automation, ObjectsAreGivenBackWhenTheApplicationIs) {
    ObjectPtr many = collection(L"Children", 3);
    EXPECT_EQ(sent("objects", [&] { many->enumerate(L"Children"); }), 3);
    EXPECT_EQ(sent("objects", [&] { many->enumerate(L"Children"); }), 0);
    const auto leave = [&] {
        many.reset();
        application_.reset();
    };
    EXPECT_EQ(sent("released", leave), 4);
}

TEST_F(Automation, EnumeratesWhateverTheEnumeratorDoes) {
    struct Case {
        const wchar_t *command, *collection, *className;
        std::int32_t count;
        int nexts;       ///< messages for elements
        int nextsLater;  ///< when the class is known
    };
    // Before an enumerator has shown that it gives several, one that gives a single element is asked once
    // more.
    for (const Case& c : {Case{L"enumerate asked", L"Plain", L"A", 3, 0, 0},
                          Case{L"enumerate single", L"Children", L"B", 1, 2, 2},
                          Case{L"enumerate single", L"Children", L"C", 3, 4, 4},
                          Case{L"enumerate unending", L"Children", L"D", 3, 2, 2},
                          Case{L"enumerate none", L"Children", L"E", 3, 1, 0},
                          Case{L"enumerate endless", L"Children", L"F", 600, 33, 33},
                          Case{L"enumerate asked", L"Children", L"G", 1, 1, 1},
                          Case{L"enumerate single", L"Children", L"C", 3, 4, 4}}) {
        ASSERT_TRUE(server_->obey(c.command));
        const ObjectPtr many = collection(c.collection, c.count);
        for (const int nexts : {c.nexts, c.nextsLater}) {
            std::vector<ObjectPtr> elements;
            EXPECT_EQ(sent("nexts", [&] { elements = many->enumerate(c.className); }), nexts) << c.command;
            ASSERT_EQ(elements.size(), static_cast<std::size_t>(c.count)) << c.command;
            for (std::int32_t i = 0; i < c.count; i += 100)
                EXPECT_EQ(elements[static_cast<std::size_t>(i)]->get({L"Child", L"Name"}),
                          Value(L"Kind " + std::to_wstring(i)));
        }
    }
}

TEST_F(Automation, AnEnumerationCanBeLeft) {
    int asked = 0;
    const auto goOn = [&] { return ++asked < 2; };
    for (const wchar_t* name : {L"Children", L"Plain"}) {
        asked = 0;
        const ObjectPtr many = collection(name, 1500);
        EXPECT_EQ(many->enumerate(name, goOn).size(), name == std::wstring_view(L"Plain") ? 1U : 1024U);
    }
}

TEST_F(Automation, TheSameNameMayHaveAnotherIdInAnotherClassOrObject) {
    EXPECT_EQ(application_->get({L"App", L"Name"}), Value(L"Prüfling"));
    EXPECT_EQ(collection(L"Children", 1)->enumerate(L"Children").at(0)->get({L"Child", L"Name"}),
              Value(L"Kind 0"));
    const Value odd = application_->get({L"App", L"Odd"});
    EXPECT_EQ((*odd.as<ObjectPtr>())->get({L"Child", L"Name"}), Value(L"Sonderling"));
}

TEST_F(Automation, ARefusedCallIsCarriedOutOnce) {
    tick();
    for (const wchar_t* command : {L"refuse calls 3", L"refuse calls 3 later", L"hold 150"}) {
        ASSERT_TRUE(server_->obey(command));
        const int before = tick();
        EXPECT_EQ(tick(), before + 1) << command;
    }
}

TEST_F(Automation, NothingIsCalledInsideAWaitingCall) {
    bool pending = false;
    std::int32_t nested = 0;
    client_.hostCaller.setHandlers({.waitingFor = [&](HostState, std::int32_t milliseconds) {
        if (milliseconds == 0) return;
        pending = client_.gate.callPending();
        nested = errorOf([&] { tick(); });
    }});
    ASSERT_TRUE(server_->obey(L"refuse for 250"));
    EXPECT_FALSE(client_.gate.callPending());
    tick();
    EXPECT_FALSE(client_.gate.callPending());
    EXPECT_TRUE(pending);
    EXPECT_EQ(nested, RPC_E_CANTCALLOUT_INEXTERNALCALL);
}

TEST_F(Automation, AHostAtWorkIsToldApartFromOneThatRefuses) {
    std::vector<std::int32_t> times;
    client_.hostCaller.setHandlers({.waitingFor = [&](HostState state, std::int32_t milliseconds) {
        if (milliseconds == 0) return;
        EXPECT_EQ(state, HostState::works);
        times.push_back(milliseconds);
    }});
    ASSERT_TRUE(server_->obey(L"hold 1200"));
    tick();
    ASSERT_GT(times.size(), 6U) << "several times a second";
    EXPECT_GT(times.back(), 900);
}

TEST_F(Automation, GivingUpHoldsForTheEvent) {
    int asked = 0;
    client_.hostCaller.setHandlers(
        {.waitingFor = [](HostState,
                          std::int32_t) { PostThreadMessageW(GetCurrentThreadId(), WM_KEYDOWN, 0, 0); },
         .askGiveUp = [&](HostState state) { return state == HostState::refuses && ++asked == 2; }});
    ASSERT_TRUE(server_->obey(L"refuse for -1"));
    {
        const Gate::Event event(client_.gate);
        EXPECT_EQ(errorOf([&] { tick(); }), hresult::callRejected);
        EXPECT_EQ(asked, 2);
        // An event inside, such as in a dialog, ends nothing.
        { const Gate::Event inner(client_.gate); }
        EXPECT_EQ(sent("refused", [&] { EXPECT_EQ(errorOf([&] { tick(); }), hresult::callRejected); }), 0);
        EXPECT_EQ(errorOf([&] { client_.automation.running(testServerName); }), hresult::callRejected);
    }
    EXPECT_EQ(asked, 2);
    server_->obey(L"normal");
    EXPECT_GT(tick(), 0);
}

TEST_F(Automation, AVanishedServerIsToldApart) {
    tick();
    ASSERT_TRUE(server_->obey(L"die 1"));
    const auto goneNow = [&] {
        try {
            tick();
        } catch (const RuntimeError& error) {
            return isGone(error);
        }
        return false;
    };
    EXPECT_TRUE(goneNow());
    EXPECT_TRUE(goneNow());
    // The table of running objects forgets a process a moment after its end.
    std::int32_t error = 0;
    for (int i = 0; i < 250 && error == 0; ++i) {
        Sleep(20);
        error = errorOf([&] { client_.automation.running(testServerName); });
    }
    EXPECT_NE(error, 0);

    server_.reset();
    server_.emplace(TEST_SERVER, L"", testServerWindow);
    // The old object is still held: the new server must be asked for its own ids.
    const ObjectPtr fresh = attach(client_, testServerName);
    ASSERT_NE(fresh, nullptr);
    EXPECT_NE(fresh, application_);
    EXPECT_EQ(sent("idLookups", [&] { fresh->get({L"App", L"Name"}); }), 1);
    application_ = fresh;
    server_->kill();
    EXPECT_TRUE(goneNow());
}

}  // namespace
}  // namespace blattwart
