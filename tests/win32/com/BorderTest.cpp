#include <gtest/gtest.h>

#include <set>
#include <stdexcept>

#include "Client.h"
#include "support/ErrorOf.h"

namespace blattwart {
namespace {

using test::errorOf;

class NoObjects : public ObjectBorder {
  public:
    ComPtr<IDispatch> toDispatch(const ObjectPtr&) override { return {}; }
    ObjectPtr fromDispatch(IDispatch*) override { return {}; }
};

Value converted(VARTYPE type, std::int64_t content) {
    NoObjects objects;
    VARIANT variant;
    VariantInit(&variant);
    V_VT(&variant) = type;
    V_I8(&variant) = content;
    return fromVariant(variant, objects);
}

TEST(VariantBorder, ForeignTypesTakeTheNextWiderOne) {
    EXPECT_EQ(converted(VT_I1, -1 & 0xFF), Value(std::int16_t{-1}));
    EXPECT_EQ(converted(VT_UI2, 65535), Value(std::int32_t{65535}));
    EXPECT_EQ(converted(VT_UI4, 4000000000), Value(std::int64_t{4000000000}));
    EXPECT_EQ(converted(VT_INT, 7), Value(std::int32_t{7}));
    EXPECT_EQ(errorOf([] { converted(VT_ERROR, DISP_E_PARAMNOTFOUND); }), errorNumber::typeMismatch);
    EXPECT_EQ(errorOf([] { converted(VT_ARRAY | VT_I2, 0); }), errorNumber::typeMismatch);
}

TEST(VariantBorder, ReadsThroughReferences) {
    NoObjects objects;
    Variant inner = toVariant(Value(L"innen"), objects);
    VARIANT reference;
    V_VT(&reference) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(&reference) = &inner.get();
    EXPECT_EQ(fromVariant(reference, objects), Value(L"innen"));
}

TEST(VariantBorder, ArraysOfOtherTypesComeElementByElement) {
    NoObjects objects;
    Variant numbers;
    V_VT(&numbers.get()) = VT_ARRAY | VT_I4;
    V_ARRAY(&numbers.get()) = SafeArrayCreateVector(VT_I4, 1, 2);
    for (LONG i = 1; i <= 2; ++i) {
        LONG number = i * 10;
        SafeArrayPutElement(V_ARRAY(&numbers.get()), &i, &number);
    }
    EXPECT_EQ(fromVariant(numbers.get(), objects), Value(ValueArray{std::int32_t{10}, std::int32_t{20}}));
    SAFEARRAYBOUND bounds[2] = {{2, 0}, {2, 0}};
    Variant matrix;
    V_VT(&matrix.get()) = VT_ARRAY | VT_R8;
    V_ARRAY(&matrix.get()) = SafeArrayCreate(VT_R8, 2, bounds);
    EXPECT_EQ(errorOf([&] { fromVariant(matrix.get(), objects); }), errorNumber::typeMismatch);
}

TEST(GuardBorder, ErrorsStayInsideAndAreToldOnce) {
    std::vector<std::wstring> reports;
    Guard* inner = nullptr;
    Guard guard([&](const std::wstring& text) {
        reports.push_back(text);
        // The message box lets events through, and these fail as well.
        inner->guarded([] { throw RuntimeError(5, L"innen"); });
    });
    inner = &guard;
    EXPECT_EQ(guard.guarded([] { return 7; }, 0), 7);
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(guard.guarded([]() -> int { throw RuntimeError(5, L"Fehlschlag"); }, -1), -1);
    }
    guard.guarded([] { throw std::runtime_error("größer"); });
    EXPECT_EQ(reports, (std::vector<std::wstring>{L"Fehlschlag", L"Unerwarteter Fehler: größer"}));
}

void post(UINT message) {
    PostThreadMessageW(GetCurrentThreadId(), message, 0, 0);
}
bool inputIsLeft() {
    MSG message;
    return PeekMessageW(&message, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_NOREMOVE) != FALSE;
}

TEST(HostCaller, AsksAnImpatientUserWhetherToWaitOn) {
    Gate gate;
    HostCaller caller(gate);
    std::vector<HostState> asked;
    caller.setHandlers({.askGiveUp = [&](HostState state) {
        asked.push_back(state);
        return asked.size() == 2;
    }});
    const ComPtr<IMessageFilter> filter = makeMessageFilter(caller);
    const auto waitsAt = [&](DWORD milliseconds) {
        const auto withoutWindows = reinterpret_cast<HTASK>(ULONG_PTR{GetCurrentThreadId()});
        return filter->MessagePending(withoutWindows, milliseconds, PENDINGTYPE_TOPLEVEL) ==
               PENDINGMSG_WAITDEFPROCESS;
    };
    {
        const Gate::Event event(gate);
        caller.call([&] {
            post(WM_MOUSEMOVE);
            EXPECT_TRUE(waitsAt(30000));
            EXPECT_EQ(asked.size(), 0U) << "who does something else meanwhile is not disturbed";
            post(WM_KEYDOWN);
            EXPECT_TRUE(waitsAt(400));
            EXPECT_TRUE(inputIsLeft()) << "typed ahead";
            EXPECT_TRUE(waitsAt(9000));
            EXPECT_FALSE(inputIsLeft());
            EXPECT_TRUE(waitsAt(10000));
            EXPECT_EQ(asked, std::vector{HostState::works});
            EXPECT_TRUE(waitsAt(30000));
            post(WM_LBUTTONDOWN);
            EXPECT_TRUE(waitsAt(19000));
            EXPECT_EQ(asked.size(), 1U);
            EXPECT_FALSE(caller.goOnWaiting(std::chrono::milliseconds(20100), HostState::hangs));
            return RPC_E_CALL_CANCELED;
        });
        EXPECT_EQ(asked.back(), HostState::hangs);
        EXPECT_EQ(caller.call([] { return S_OK; }), RPC_E_CALL_REJECTED) << "the rest of the event";
    }
    EXPECT_EQ(caller.call([] { return S_OK; }), S_OK);
}

TEST(HostCaller, CountsTheWaitingOverAllAttempts) {
    Gate gate;
    HostCaller caller(gate);
    std::int32_t last = 0;
    caller.setHandlers({.waitingFor = [&](HostState state, std::int32_t milliseconds) {
        EXPECT_EQ(state, HostState::refuses);
        EXPECT_TRUE(milliseconds >= last || milliseconds == 0) << milliseconds << " after " << last;
        last = milliseconds;
    }});
    int attempts = 0;
    caller.call([&] {
        if (attempts > 0) caller.goOnWaiting(std::chrono::milliseconds(10), HostState::works);
        return ++attempts < 4 ? RPC_E_CALL_REJECTED : S_OK;
    });
    EXPECT_EQ(last, 0);
}

TEST(HostCaller, HasItsOwnWordsForEachState) {
    std::set<std::wstring> texts;
    for (const HostState state : {HostState::refuses, HostState::works, HostState::hangs}) {
        EXPECT_EQ(statusText(state, 999), L"");
        texts.insert({statusText(state, 1000), giveUpQuestion(state)});
    }
    EXPECT_EQ(texts.size(), 6U);
    EXPECT_TRUE(texts.contains(L"AutoCAD ist beschäftigt"));
}

TEST(HostCaller, InputIsForWindowsThatWorkMeanwhileAndMayEndTheProgram) {
    Gate gate;
    HostCaller caller(gate);
    UINT taken = 0;
    caller.setHandlers({.takeInput = [&](const MSG& message) {
        taken = message.message;
        caller.endProgram();
        return true;
    }});
    EXPECT_THROW(caller.call([] {
        post(WM_KEYDOWN);
        return RPC_E_CALL_REJECTED;
    }),
                 ProgramEnded);
    EXPECT_EQ(taken, UINT{WM_KEYDOWN});
    int made = 0;
    EXPECT_THROW(caller.call([&] { return ++made, S_OK; }), ProgramEnded);
    EXPECT_EQ(made, 0);
    EXPECT_FALSE(gate.callPending());
}

/// Counts what arrives at a window while a call is being refused.
struct Arrived {
    int painted = 0;
    int typed = 0;
    int posted = 0;
};

LRESULT CALLBACK countArrivals(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* arrived = reinterpret_cast<Arrived*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (arrived && message == WM_PAINT) ++arrived->painted;
    if (arrived && (message == WM_KEYDOWN || message == WM_LBUTTONDOWN)) ++arrived->typed;
    if (arrived && (message == WM_APP || message == WM_TIMER)) ++arrived->posted;
    return DefWindowProcW(window, message, wParam, lParam);
}

TEST(HostCaller, WindowsPaintButTakeNoInputWhileTheHostIsBusy) {
    WNDCLASSW description{};
    description.lpfnWndProc = countArrivals;
    description.lpszClassName = L"Arrivals";
    RegisterClassW(&description);
    HWND window = CreateWindowW(L"Arrivals", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 200, 200, nullptr,
                                nullptr, nullptr, nullptr);
    Arrived arrived;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&arrived));
    SetTimer(window, 1, 10, nullptr);
    Gate gate;
    HostCaller hostCaller(gate);
    int attempts = 0;
    hostCaller.call([&] {
        if (attempts == 0) {
            InvalidateRect(window, nullptr, TRUE);
            PostMessageW(window, WM_KEYDOWN, VK_DELETE, 0);
            PostMessageW(window, WM_LBUTTONDOWN, 0, 0);
            PostMessageW(window, WM_APP, 0, 0);
        }
        if (attempts == 2) PostQuitMessage(3);
        return ++attempts < 4 ? RPC_E_CALL_REJECTED : S_OK;
    });
    EXPECT_EQ(attempts, 4);
    EXPECT_GT(arrived.painted, 0);
    EXPECT_EQ(arrived.posted, 0);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0)) DispatchMessageW(&message);
    EXPECT_EQ(message.wParam, WPARAM{3});
    EXPECT_EQ(arrived.typed, 0);
    EXPECT_GT(arrived.posted, 0);
    DestroyWindow(window);
}

}  // namespace
}  // namespace blattwart
