#pragma once

#include <exception>
#include <utility>

namespace blattwart {

/// Enters a callback from the system: no exception may leave it through the system's own frames. Returns what the
/// action returns, or the fallback when it threw.
template <class Action, class Result>
Result guarded(Action&& action, Result fallback) {
    try {
        return std::forward<Action>(action)();
    } catch (const std::exception&) {
        return fallback;
    }
}

}  // namespace blattwart
