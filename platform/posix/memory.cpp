#include "platform/memory.h"

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace tarveth::platform {

void ReturnFreeMemory() {
#ifdef __GLIBC__
    malloc_trim(0);
#endif
}

} // namespace tarveth::platform
