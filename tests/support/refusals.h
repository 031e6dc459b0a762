#pragma once

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace corvane::test {

template <class Call>
testing::AssertionResult isRefused(const Call& call, const std::string& message)
{
    try {
        call();
    } catch (const std::runtime_error& failure) {
        if (failure.what() == message)
            return testing::AssertionSuccess();
        return testing::AssertionFailure() << "refused with: " << failure.what() << "\n      instead of: " << message;
    }
    return testing::AssertionFailure() << "not refused; expected: " << message;
}

} // namespace corvane::test

/// Expects the call to be refused with exactly this sentence. More information can be streamed to it.
#define EXPECT_REFUSED(call, message) EXPECT_TRUE(corvane::test::isRefused([&] { (void)(call); }, message))
