#pragma once

#include <gtest/gtest.h>

#include "platform/RuntimeError.h"

namespace blattwart::test {

/// The number of the error that a statement fails with, which has a text; 0 when it passes.
template <class Statement>
std::int32_t errorOf(Statement&& statement) {
    try {
        statement();
    } catch (const RuntimeError& error) {
        EXPECT_NE(error.description(), L"");
        return error.number();
    }
    return 0;
}

}  // namespace blattwart::test
