#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <random>
#include <string>

#include "demo/com/Exporter.h"

namespace demo {

/// How a server treats what comes in: it can refuse, keep a call for a while, or die, as it is told by
/// commands:
///
/// - `refuse calls N [later]`: the next N calls are refused
/// - `refuse creations N [later]`: the next N creations of the application are refused
/// - `refuse for MS [later]`: for so many milliseconds all calls are refused; -1 for ever
/// - `refuse percent P [later]`: each call is refused with this probability
/// - `modal N MS`: before the N-th call from now that is not refused, a dialog opens for so many
/// milliseconds;
///   -1 for ever
/// - `hold MS`: the next call is kept so long before it is carried out, the others are refused
/// - `die N`: the process ends without a word when the N-th call from now comes in
/// - `die N done`: the same when the call was carried out and not answered yet
/// - `normal`: none of these any more
/// - `report FILE`: writes the counters
///
/// Refusals are of the kind that a passing state gives; with "later" of the kind that a dialog gives.
class Behaviour {
  public:
    /// Obeys a command; false when it is none of these.
    bool obey(const std::wstring& command, const WireCounters& counters);

    /// What to answer to a call before it is carried out. May take its time, or not return at all.
    HRESULT admitCall();
    /// To be told when an admitted call was carried out, before it is answered. May not return.
    void callDone() const;
    HRESULT admitCreation();

  private:
    bool refuse(std::wistream& words);
    void refuseFor(std::int32_t milliseconds);
    bool isRefused();
    void hold();

    std::int32_t refusedCalls_ = 0;
    std::int32_t refusedCreations_ = 0;
    std::int32_t refusedPercent_ = 0;
    ULONGLONG refusedUntil_ = 0;
    HRESULT refusal_ = RPC_E_CALL_REJECTED;
    DWORD holdTime_ = 0;
    std::int32_t callsToDialog_ = 0;
    std::int32_t dialogTime_ = 0;
    std::int32_t callsToLive_ = 0;
    bool dying_ = false;
    bool diesDone_ = false;
    bool holding_ = false;
    std::minstd_rand random_;
};

/// Writes the counters, a name and a number a line, to a file.
void writeReport(const std::wstring& file, const WireCounters& counters);

}  // namespace demo
