#pragma once

#include <exception>
#include <functional>
#include <string>
#include <type_traits>
#include <utility>

namespace blattwart {

/// The border between the system and the program: every callback from the system (window and dialog
/// procedures, timers, drop target) is entered through it, and no exception leaves through it. The message
/// filter alone is not: what it calls must not throw.
class Guard {
  public:
    /// Shows the user a German text about an error that nobody else handled. Must not throw.
    using Report = std::function<void(const std::wstring& text)>;

    explicit Guard(Report report) : report_(std::move(report)) {}
    Guard(const Guard&) = delete;
    Guard& operator=(const Guard&) = delete;

    /// The result of the body, or the fallback when the body fails; then the user is told once.
    template <class Body, class Result>
    Result guarded(Body&& body, Result fallback) noexcept {
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

    Report report_;
    bool reporting_ = false;
    std::wstring lastText_;
    unsigned long long lastShown_ = 0;
};

}  // namespace blattwart
