#include "bench/conditions.h"

#include <benchmark/benchmark.h>
#include <malloc.h>
#include <sched.h>

#include <climits>
#include <string>

namespace corvane::bench {

void stayOnOneProcessor()
{
    const int processor = sched_getcpu();
    if (processor < 0 || processor >= CPU_SETSIZE)
        return;
    cpu_set_t processors;
    CPU_ZERO(&processors);
    CPU_SET(static_cast<std::size_t>(processor), &processors);
    sched_setaffinity(0, sizeof processors, &processors);
}

void keepFreedMemory()
{
    mallopt(M_TRIM_THRESHOLD, INT_MAX);
    mallopt(M_MMAP_MAX, 0); // mapped blocks are always returned to the system
}

void settleHeap()
{
    constexpr std::size_t large = 4096;
    std::string block(large, ' ');
    benchmark::DoNotOptimize(block.data());
}

} // namespace corvane::bench
