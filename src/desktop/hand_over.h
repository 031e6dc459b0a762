#pragma once

namespace corvane {

/// How long to wait for another process to answer, in milliseconds.
inline constexpr int answerPatience = 2000;

/// The result of a request to another process.
enum class HandOver {
    taken,
    unanswered, ///< it runs, but did not answer within answerPatience
    nobody,     ///< no such process runs
};

} // namespace corvane
