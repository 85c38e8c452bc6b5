#pragma once

#include <functional>

namespace blattwart {

/// One thread beside the program's own, for what may take long: an answer that never comes delays nothing
/// but the work after it.
class Worker {
  public:
    virtual ~Worker() = default;

    /// Runs `work` on the thread, after what was given before, and then `done` as an event of its own on the
    /// program's thread; neither at all when the program ends before. `work` must touch nothing that is not
    /// its own or made for several threads; what it throws is lost. Throws RuntimeError when there is no
    /// thread to be had.
    virtual void run(std::function<void()> work, std::function<void()> done) = 0;
};

}  // namespace blattwart
