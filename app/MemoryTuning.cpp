#include "MemoryTuning.h"

#include <malloc.h>

void keepLargeBuffersInTheHeap()
{
    // Buffers up to the largest document come from the heap, not from mappings of their own...
    mallopt(M_MMAP_THRESHOLD, 64 << 20);
    // ...and up to 128 MiB of freed heap stays with the process.
    mallopt(M_TRIM_THRESHOLD, 128 << 20);
}
