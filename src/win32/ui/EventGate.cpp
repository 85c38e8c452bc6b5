#include "win32/ui/EventGate.h"

namespace blattwart {

void EventGate::run(const std::function<void()>& work) {
    guard_.guarded(work);
    if (afterEvent) afterEvent();
    if (!posted_.empty()) wake();
}

void EventGate::runCommand(const std::function<void()>& work) {
    if (!busy()) handle(work);
}

void EventGate::hold(const std::function<void()>& work) {
    const Gate::Event event(gate_);
    work();
}

void EventGate::post(std::function<void()> work) {
    posted_.push_back(std::move(work));
    wake();
}

void EventGate::runPosted() {
    if (busy() || posted_.empty()) return;
    const std::function<void()> work = std::move(posted_.front());
    posted_.pop_front();
    handle(work);
}

void EventGate::handle(const std::function<void()>& work) {
    if (holds_) {
        run([&] { hold(work); });
    } else {
        run(work);
    }
}

void EventGate::wake() const {
    PostMessageW(window_, message, 0, 0);
}

}  // namespace blattwart
