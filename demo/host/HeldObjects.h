#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <tuple>
#include <typeindex>

#include "demo/object/DispatchObject.h"

namespace demo {

/// The objects that somebody holds. As long as that is so, the same thing is given out as the same object.
class HeldObjects {
  public:
    /// The object of the class for a thing: of a document, null for the host's own, and in it by its handle,
    /// 0 for what there is once. `make` makes it when nobody holds it.
    template <class Part, class Make>
    std::shared_ptr<Part> get(const void* document, std::uint64_t handle, Make make) {
        std::weak_ptr<DispatchObject>& known = objects_[{typeid(Part), document, handle}];
        if (auto held = known.lock()) return std::static_pointer_cast<Part>(held);
        std::shared_ptr<Part> made = make();
        known = made;
        return made;
    }

  private:
    using Key = std::tuple<std::type_index, const void*, std::uint64_t>;

    std::map<Key, std::weak_ptr<DispatchObject>> objects_;
};

}  // namespace demo
