#include "platform/Automation.h"

#include <algorithm>
#include <array>

namespace blattwart {

namespace {

template <class Numbers>
bool isOneOf(const Numbers& numbers, const RuntimeError& error) {
    return std::ranges::find(numbers, error.number()) != numbers.end();
}

}  // namespace

bool isGone(const RuntimeError& error) {
    constexpr std::array gone{hresult::disconnected,          hresult::objectNotConnected,
                              hresult::serverUnavailable,     hresult::callFailed,
                              hresult::callFailedNotExecuted, hresult::serverDied};
    return isOneOf(gone, error);
}

bool isRefused(const RuntimeError& error) {
    constexpr std::array refused{hresult::callRejected, hresult::retryLater, hresult::cannotCallOut};
    return isOneOf(refused, error);
}

bool isAnswerLost(const RuntimeError& error) {
    // The other errors of a program that is gone come before the call has reached it.
    constexpr std::array lost{hresult::callFailed, hresult::serverDied, hresult::callCanceled};
    return isOneOf(lost, error);
}

bool isNotAnswering(const RuntimeError& error) {
    return isRefused(error) || error.number() == hresult::callCanceled;
}

bool isSilence(const RuntimeError& error) {
    return isGone(error) || isNotAnswering(error);
}

}  // namespace blattwart
