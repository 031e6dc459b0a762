#pragma once

namespace corvane {

/// Checks, for at most answerPatience (hand_over.h), whether the session bus answers. If it does not, this process and
/// its children will not use it, because the toolkit would wait for it forever. Call this before the toolkit is
/// initialised.
void avoidSilentSessionBus();

} // namespace corvane
