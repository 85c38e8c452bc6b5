#include "win32/com/RecentObjects.h"

namespace blattwart {

namespace {

/// More than the layouts of all drawings that one has open.
constexpr std::size_t mostObjects = 4096;

}  // namespace

void RecentObjects::keep(ComPtr<IDispatch> object) {
    IDispatch* const identity = object.Get();
    if (const auto known = places_.find(identity); known != places_.end()) {
        byAge_.splice(byAge_.begin(), byAge_, known->second);
        return;
    }
    byAge_.push_front(std::move(object));
    places_.emplace(identity, byAge_.begin());
    if (byAge_.size() <= mostObjects) return;
    // Letting go of it is a call, in which other calls may come: first it leaves the list.
    const ComPtr<IDispatch> oldest = std::move(byAge_.back());
    byAge_.pop_back();
    places_.erase(oldest.Get());
}

}  // namespace blattwart
