#pragma once

namespace corvane {

/// Asks the session bus for an answer, for at most two seconds. From one that gives none this process and those that it
/// starts keep away: the toolkit would wait for it without an end. To be called before the toolkit is there.
void avoidSilentSessionBus();

} // namespace corvane
