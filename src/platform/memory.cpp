#include "platform/memory.h"

#include <cstdlib>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace corvane {

void giveBackFreeMemory()
{
#ifdef __GLIBC__
    (void)::malloc_trim(0);
#endif
}

} // namespace corvane
