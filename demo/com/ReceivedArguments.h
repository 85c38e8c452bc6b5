#pragma once

#include <span>
#include <vector>

#include "demo/com/Exporter.h"

namespace demo {

/// The arguments of a call from outside, first one first. Variables passed by reference are written back when
/// the called object changed them, and left alone otherwise.
class ReceivedArguments {
  public:
    ReceivedArguments(DISPPARAMS& parameters, Exporter& exporter);
    ReceivedArguments(const ReceivedArguments&) = delete;
    ReceivedArguments& operator=(const ReceivedArguments&) = delete;

    std::span<const blattwart::Argument> values() const { return arguments_; }
    void writeBack(Exporter& exporter);

  private:
    VARIANT& received(std::size_t index) { return parameters_.rgvarg[parameters_.cArgs - 1 - index]; }

    DISPPARAMS& parameters_;
    std::vector<blattwart::Value> before_;
    std::vector<blattwart::Value> after_;
    std::vector<blattwart::Argument> arguments_;
};

}  // namespace demo
