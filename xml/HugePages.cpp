#include "HugePages.h"

#include <cstdint>
#include <sys/mman.h>

void adviseHugePages(void *data, std::size_t size) noexcept
{
#ifdef MADV_HUGEPAGE
    constexpr std::uintptr_t kPage = 4096;
    if (size < kHugePageBytes)
        return;
    const auto start = reinterpret_cast<std::uintptr_t>(data);
    const std::uintptr_t begin = (start + kPage - 1) & ~(kPage - 1);
    const std::uintptr_t end = (start + size) & ~(kPage - 1);
    if (end > begin)
        ::madvise(reinterpret_cast<void *>(begin), end - begin, MADV_HUGEPAGE);
#else
    (void)data;
    (void)size;
#endif
}
