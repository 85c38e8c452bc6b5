#include <gtest/gtest.h>

#include "Client.h"
#include "server/TestServer.h"

namespace blattwart {
namespace {

using demo::testServerName;
using demo::testServerWindow;

/// A server in a process of its own and a client attached to it.
class Automation : public testing::Test {
  protected:
    Automation() {
        runProgram(TEST_SERVER, L"/register");
        server_.emplace(TEST_SERVER, L"", testServerWindow);
        application_ = attach(client_, testServerName);
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
    const ObjectPtr child = collection(L"Children", 1)->enumerate().at(0);
    application_->put({L"App", L"Kept"}, child);
    const Value kept = application_->get({L"App", L"Kept"});
    EXPECT_EQ((*kept.as<ObjectPtr>())->get({L"Child", L"Name"}), Value(L"Kind 0"));
    class Foreign : public AutomationObject {
        Value get(const Member&) override { return {}; }
        void put(const Member&, const Value&) override {}
        Value call(const Member&, std::span<const Argument>) override { return {}; }
        std::vector<ObjectPtr> enumerate() override { return {}; }
    };
    EXPECT_EQ(errorOf([&] { echo(ObjectPtr(std::make_shared<Foreign>())); }), DISP_E_TYPEMISMATCH);
}

TEST_F(Automation, TheSameNameMayHaveAnotherIdInAnotherClass) {
    EXPECT_EQ(application_->get({L"App", L"Name"}), Value(L"Prüfling"));
    const ObjectPtr child = collection(L"Children", 1)->enumerate().at(0);
    EXPECT_EQ(child->get({L"Child", L"Name"}), Value(L"Kind 0"));
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
    const RuntimeError withoutText = failure(static_cast<std::int32_t>(0x80200157), L"");
    EXPECT_EQ(withoutText.number(), static_cast<std::int32_t>(0x80200157));
    EXPECT_FALSE(withoutText.description().empty());
    const RuntimeError plain = failure(DISP_E_BADPARAMCOUNT, L"");
    EXPECT_EQ(plain.number(), DISP_E_BADPARAMCOUNT);
    EXPECT_FALSE(plain.description().empty());
    EXPECT_TRUE(isGone(failure(hresult::disconnected, L"")));
}

TEST_F(Automation, EnumeratesWithFewMessages) {
    for (const std::int32_t count : {0, 3, 600}) {
        const ObjectPtr many = collection(L"Children", count);
        std::vector<ObjectPtr> elements;
        EXPECT_EQ(sent("nexts", [&] { elements = many->enumerate(); }), count / 512 + 1);
        ASSERT_EQ(elements.size(), static_cast<std::size_t>(count));
        if (count > 0) {
            EXPECT_EQ(elements.back()->get({L"Child", L"Name"}),
                      Value(L"Kind " + std::to_wstring(count - 1)));
        }
    }
}

TEST_F(Automation, ObjectsAreGivenBackWhenTheApplicationIs) {
    ObjectPtr many = collection(L"Children", 3);
    EXPECT_EQ(sent("objects", [&] { many->enumerate(); }), 3);
    EXPECT_EQ(sent("objects", [&] { many->enumerate(); }), 0);
    const auto leave = [&] {
        many.reset();
        application_.reset();
    };
    EXPECT_EQ(sent("released", leave), 4);
}

TEST_F(Automation, EnumeratesByItemWithoutAnEnumerator) {
    const std::vector<ObjectPtr> elements = collection(L"Plain", 3)->enumerate();
    ASSERT_EQ(elements.size(), 3U);
    EXPECT_EQ(elements[2]->get({L"Child", L"Name"}), Value(L"Kind 2"));
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
    client_.busyHost.setHandlers({.busyFor = [&](std::int32_t milliseconds) {
        if (milliseconds == 0) return;
        pending = client_.automation.callPending();
        nested = errorOf([&] { tick(); });
    }});
    ASSERT_TRUE(server_->obey(L"refuse for 250"));
    EXPECT_FALSE(client_.automation.callPending());
    tick();
    EXPECT_FALSE(client_.automation.callPending());
    EXPECT_TRUE(pending);
    EXPECT_EQ(nested, RPC_E_CANTCALLOUT_INEXTERNALCALL);
}

TEST_F(Automation, GivingUpHoldsForTheEvent) {
    int asked = 0;
    client_.busyHost.setHandlers({.askGiveUp = [&] { return ++asked == 2; }});
    ASSERT_TRUE(server_->obey(L"refuse for -1"));
    client_.guard.guarded([&] {
        EXPECT_EQ(errorOf([&] { tick(); }), hresult::callRejected);
        EXPECT_EQ(asked, 2);
        // An event inside, such as painting, ends nothing.
        client_.guard.guarded([] {});
        EXPECT_EQ(sent("refused", [&] { EXPECT_EQ(errorOf([&] { tick(); }), hresult::callRejected); }), 0);
        EXPECT_EQ(errorOf([&] { client_.automation.running(testServerName); }), hresult::callRejected);
    });
    EXPECT_EQ(asked, 2);
    server_->obey(L"normal");
    client_.guard.guarded([&] { EXPECT_GT(tick(), 0); });
    EXPECT_TRUE(client_.reports.empty());
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
    EXPECT_NE(errorOf([&] { client_.automation.running(testServerName); }), 0);

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
