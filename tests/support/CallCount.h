#pragma once

namespace blattwart::test {

/// Counts the calls that a fake receives and lets one of them fail.
struct CallCount {
    int made = 0;
    int failAt = 0;  ///< the call that fails, counted from 1; 0 for none

    /// True when the call now made is to fail.
    bool fails() { return ++made == failAt; }
};

}  // namespace blattwart::test
