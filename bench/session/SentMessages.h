#pragma once

#include <functional>

namespace blattwart::bench {

/// Tells how many messages this process has sent over COM since this was called first: calls, requests for
/// elements and interfaces, releases.
std::function<int()> countSentMessages();

}  // namespace blattwart::bench
