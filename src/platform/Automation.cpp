#include "platform/Automation.h"

#include <algorithm>
#include <array>

namespace blattwart {

bool isGone(const RuntimeError& error) {
    constexpr std::array gone{hresult::disconnected,          hresult::objectNotConnected,
                              hresult::serverUnavailable,     hresult::callFailed,
                              hresult::callFailedNotExecuted, hresult::serverDied};
    return std::ranges::find(gone, error.number()) != gone.end();
}

bool isAnswerLost(const RuntimeError& error) {
    return isGone(error) || error.number() == hresult::callCanceled;
}

}  // namespace blattwart
