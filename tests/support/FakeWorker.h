#pragma once

#include <deque>
#include <utility>

#include "platform/RuntimeError.h"
#include "platform/Worker.h"

namespace blattwart::test {

/// A thread that does nothing until the test lets it.
class FakeWorker : public Worker {
  public:
    bool refuses = false;  ///< as when there is no thread to be had

    void run(std::function<void()> work, std::function<void()> done) override {
        if (refuses) throw RuntimeError(errorNumber::invalidCall, L"Zu wenig Speicher");
        jobs_.emplace_back(std::move(work), std::move(done));
    }
    std::size_t waiting() const { return jobs_.size(); }
    /// Does the work that was given first, and tells that it is done.
    void finishOne() {
        const auto [work, done] = std::move(jobs_.front());
        jobs_.pop_front();
        try {
            work();
        } catch (...) {
        }
        done();
    }

  private:
    std::deque<std::pair<std::function<void()>, std::function<void()>>> jobs_;
};

}  // namespace blattwart::test
