#pragma once

/// What keeps two figures of one run comparable.
namespace corvane::bench {

/// Keeps this process, and those that it starts, on the processor that it runs on: on a machine that is shared, one
/// may be half as fast again as another, and processes that take turns would each get their own.
void stayOnOneProcessor();

/// Keeps the memory that this process frees. Otherwise the allocator gives large parts back to the system, at times
/// that depend on what was freed last, and whatever is measured next pays for getting them again.
void keepFreedMemory();

/// Does what freeing put off. The allocator joins small blocks only at the next large allocation; unless that happens
/// before the clock starts, whatever is measured next pays for what was freed before it.
void settleHeap();

} // namespace corvane::bench
