#pragma once

#include <list>
#include <unordered_map>

#include "win32/com/ComValue.h"

namespace blattwart {

/// The host's objects that the program let go of last. Most of them come again with the next look at the
/// host: as long as they are held, neither their coming nor letting go of them costs a message.
class RecentObjects {
  public:
    RecentObjects() = default;
    RecentObjects(const RecentObjects&) = delete;
    RecentObjects& operator=(const RecentObjects&) = delete;

    /// Holds the object until enough others came after it.
    void keep(ComPtr<IDispatch> object);

  private:
    using ByAge = std::list<ComPtr<IDispatch>>;

    ByAge byAge_;  // the newest first
    std::unordered_map<IDispatch*, ByAge::iterator> places_;
};

}  // namespace blattwart
