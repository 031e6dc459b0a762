#pragma once

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace corvane::test {

/// The message of the refusal.
template <class Call>
std::string refusalOf(const Call& call)
{
    try {
        call();
    } catch (const std::runtime_error& failure) {
        return failure.what();
    }
    return "(not refused)";
}

} // namespace corvane::test

/// Expects the call to be refused with exactly this sentence. More information can be streamed to it.
#define EXPECT_REFUSED(call, message) EXPECT_EQ(corvane::test::refusalOf([&] { (void)(call); }), message)
