#pragma once

#include <span>
#include <vector>

#include "platform/Automation.h"
#include "win32/com/ComValue.h"

namespace blattwart {

/// The arguments of one call in the form that IDispatch takes: last one first, variables by reference.
class ComArguments {
  public:
    ComArguments(std::span<const Argument> arguments, ObjectBorder& objects);
    ComArguments(const ComArguments&) = delete;
    ComArguments& operator=(const ComArguments&) = delete;

    DISPPARAMS& parameters() { return parameters_; }
    /// Stores what the called object put into the variables. To be called after success.
    void assignChanged(ObjectBorder& objects);

  private:
    std::span<const Argument> arguments_;
    std::vector<Variant> contents_;
    std::vector<VARIANT> passed_;
    DISPPARAMS parameters_{};
};

}  // namespace blattwart
