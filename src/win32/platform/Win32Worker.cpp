#include "win32/platform/Win32Worker.h"

#include <utility>

#include "win32/base/SystemError.h"

namespace blattwart {

namespace {

constexpr UINT workDone = WM_APP;
constexpr DWORD patienceAtEnd = 300;  // milliseconds for the thread's end

struct Job {
    std::function<void()> work;
    std::function<void()> done;
    HWND window;
};

/// The thread does what is queued to it as it comes.
DWORD WINAPI serve(void*) {
    for (;;) SleepEx(INFINITE, TRUE);
}

void CALLBACK carryOut(ULONG_PTR parameter) {
    std::unique_ptr<Job> job(reinterpret_cast<Job*>(parameter));
    try {
        job->work();
    } catch (...) {
        // Who gave the work sees that its result is missing.
    }
    if (PostMessageW(job->window, workDone, 0, reinterpret_cast<LPARAM>(job.get())))
        static_cast<void>(job.release());  // the window's
}

void CALLBACK endThread(ULONG_PTR) {
    ExitThread(0);
}

}  // namespace

Win32Worker::~Win32Worker() {
    if (!window_) return;
    if (thread_) {
        QueueUserAPC(endThread, thread_.get(), 0);
        CancelSynchronousIo(thread_.get());
        WaitForSingleObject(thread_.get(), patienceAtEnd);
    }
    MSG message{};
    while (PeekMessageW(&message, window_, workDone, workDone, PM_REMOVE))
        delete reinterpret_cast<Job*>(message.lParam);
    DestroyWindow(window_);
}

void Win32Worker::begin() {
    if (!window_) {
        window_ = CreateWindowExW(0, WC_STATICW, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                  GetModuleHandleW(nullptr), nullptr);
        if (!window_) throwSystemError();
        SetWindowSubclass(window_, procedure, 1, reinterpret_cast<DWORD_PTR>(this));
    }
    thread_.reset(CreateThread(nullptr, 0, serve, nullptr, 0, nullptr));
    if (!thread_) throwSystemError();
}

void Win32Worker::run(std::function<void()> work, std::function<void()> done) {
    if (!thread_) begin();
    auto job = std::make_unique<Job>(Job{std::move(work), std::move(done), window_});
    if (!QueueUserAPC(carryOut, thread_.get(), reinterpret_cast<ULONG_PTR>(job.get()))) throwSystemError();
    static_cast<void>(job.release());  // the thread's
}

LRESULT CALLBACK Win32Worker::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                        DWORD_PTR worker) {
    if (message != workDone) return DefSubclassProc(window, message, wParam, lParam);
    const std::unique_ptr<Job> job(reinterpret_cast<Job*>(lParam));
    reinterpret_cast<Win32Worker*>(worker)->deliver_(std::move(job->done));
    return 0;
}

}  // namespace blattwart
