#include "win32/ui/EventGate.h"

namespace blattwart {

void EventGate::run(const std::function<void()>& work) {
    ++depth_;
    guard_.guarded(work);
    --depth_;
    if (afterEvent) afterEvent();
    if (depth_ == 0 && !posted_.empty()) wake();
}

void EventGate::runCommand(const std::function<void()>& work) {
    if (!busy()) run(work);
}

void EventGate::post(std::function<void()> work) {
    posted_.push_back(std::move(work));
    if (!busy()) wake();
}

void EventGate::runPosted() {
    if (busy() || posted_.empty()) return;
    const std::function<void()> work = std::move(posted_.front());
    posted_.pop_front();
    run(work);
}

void EventGate::wake() const {
    PostMessageW(window_, message, 0, 0);
}

}  // namespace blattwart
