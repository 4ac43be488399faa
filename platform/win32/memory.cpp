#include "platform/memory.h"

#include <malloc.h>

namespace tarveth::platform {

void ReturnFreeMemory() {
    _heapmin();
}

} // namespace tarveth::platform
