#pragma once

/// Conditions that keep the figures of one run comparable.
namespace corvane::bench {

/// Pins this process and its children to the current processor. On a shared machine one processor may be half as fast
/// again as another, and processes that take turns would each get their own.
void stayOnOneProcessor();

/// Keeps freed memory in this process. Otherwise the allocator sometimes returns large parts to the system, depending
/// on what was freed last, and the next measurement includes the time to get them back.
void keepFreedMemory();

/// Does the work that freeing postponed. The allocator joins small blocks only at the next large allocation; unless
/// that happens before the clock starts, the next measurement includes it.
void settleHeap();

} // namespace corvane::bench
