#pragma once

#include <optional>

namespace blattwart {

/// Which events may come in: one at a time, and none while a call to another program is under way. What a
/// message box, a dialog or a waiting call lets through meanwhile asks here first.
class Gate {
  public:
    Gate() = default;
    Gate(const Gate&) = delete;
    Gate& operator=(const Gate&) = delete;

    /// The handling of one event.
    class Event {
      public:
        explicit Event(Gate& gate) : gate_(gate) {
            if (gate_.depth_ == 0) gate_.gaveUpAt_.reset();
            ++gate_.depth_;
        }
        Event(const Event&) = delete;
        Event& operator=(const Event&) = delete;
        ~Event() {
            if (gate_.gaveUpAt_ && *gate_.gaveUpAt_ >= gate_.depth_) gate_.gaveUpAt_.reset();
            --gate_.depth_;
        }

      private:
        Gate& gate_;
    };

    /// A call to another program, until its answer has come.
    class Call {
      public:
        explicit Call(Gate& gate) : gate_(gate) { gate_.callPending_ = true; }
        Call(const Call&) = delete;
        Call& operator=(const Call&) = delete;
        ~Call() { gate_.callPending_ = false; }

      private:
        Gate& gate_;
    };

    /// A call that may take as long as it likes: the user is not asked whether to wait on.
    class Patience {
      public:
        explicit Patience(Gate& gate) : gate_(gate) { gate_.patient_ = true; }
        Patience(const Patience&) = delete;
        Patience& operator=(const Patience&) = delete;
        ~Patience() { gate_.patient_ = false; }

      private:
        Gate& gate_;
    };
    bool patient() const { return patient_; }
    /// The user wants an end: a call that goes on for long after that is not waited for without asking.
    void endPatience() { patient_ = false; }

    /// How many events are being handled, one inside the other.
    int depth() const { return depth_; }
    bool callPending() const { return callPending_; }
    /// Whether the windows that were opened at depth `outer` have to let their events wait.
    bool busy(int outer = 0) const { return depth_ > outer || callPending_; }

    /// The user will not wait for the other program. That holds until the event in which he said so is done;
    /// outside of any, until the next one begins.
    void giveUp() { gaveUpAt_ = depth_; }
    bool gaveUp() const { return gaveUpAt_.has_value(); }

  private:
    int depth_ = 0;
    bool callPending_ = false;
    bool patient_ = false;
    std::optional<int> gaveUpAt_;
};

}  // namespace blattwart
