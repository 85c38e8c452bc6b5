#pragma once

#include <exception>
#include <functional>
#include <string>
#include <type_traits>
#include <utility>

#include "win32/com/BusyHost.h"

namespace blattwart {

/// The border between the system and the program: every callback from the system (window and dialog
/// procedures, timers, drop target, message filter) is entered through it, and no exception leaves through
/// it.
class Guard {
  public:
    /// Shows the user a German text about an error that nobody else handled. Must not throw.
    using Report = std::function<void(const std::wstring& text)>;

    Guard(BusyHost& busyHost, Report report) : busyHost_(busyHost), report_(std::move(report)) {}
    Guard(const Guard&) = delete;
    Guard& operator=(const Guard&) = delete;

    /// The result of the body, or the fallback when the body fails; then the user is told once.
    template <class Body, class Result>
    Result guarded(Body&& body, Result fallback) noexcept {
        const BusyHost::EventScope event(busyHost_);
        try {
            return static_cast<Result>(std::forward<Body>(body)());
        } catch (...) {
            reportFailure(std::current_exception());
            return fallback;
        }
    }

    /// The same for a body without a result.
    template <class Body>
    void guarded(Body&& body) noexcept {
        guarded(
            [&] {
                std::forward<Body>(body)();
                return true;
            },
            false);
    }

  private:
    void reportFailure(const std::exception_ptr& failure) noexcept;
    bool isRepeated(const std::wstring& text) const;

    BusyHost& busyHost_;
    Report report_;
    bool reporting_ = false;
    std::wstring lastText_;
    unsigned long long lastShown_ = 0;
};

}  // namespace blattwart
