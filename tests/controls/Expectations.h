#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "platform/RuntimeError.h"

namespace blattwart {

template <class Statement>
void expectError(std::int32_t number, Statement statement) {
    try {
        statement();
        ADD_FAILURE() << "expected the error " << number;
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number(), number);
        EXPECT_FALSE(error.description().empty());
    }
}

}  // namespace blattwart
