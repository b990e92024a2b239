#include "HugePages.h"

#include <cstdint>
#include <mutex>
#include <new>
#include <utility>
#include <vector>

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

namespace {

constexpr std::align_val_t kHugeAlignment{kHugePageBytes};

// Under AddressSanitizer every block goes back to the allocator, which then catches a use of
// a tree's memory after the tree has gone.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool kKeepBlocks = false;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
constexpr bool kKeepBlocks = false;
#else
constexpr bool kKeepBlocks = true;
#endif
#else
constexpr bool kKeepBlocks = true;
#endif

// Blocks given back, for later. Never destroyed, so that a block given back during the
// program's exit still finds it.
struct KeptBlocks {
    std::mutex mutex;
    std::vector<std::pair<void *, std::size_t>> blocks;
    std::size_t bytes = 0;
};

KeptBlocks &keptBlocks()
{
    static KeptBlocks *kept = new KeptBlocks;
    return *kept;
}

// The smallest kept block of at least size bytes, taken out, or nullptr.
void *takeKept(std::size_t &size)
{
    KeptBlocks &kept = keptBlocks();
    const std::lock_guard lock(kept.mutex);
    auto best = kept.blocks.end();
    for (auto it = kept.blocks.begin(); it != kept.blocks.end(); ++it)
        if (it->second >= size && (best == kept.blocks.end() || it->second < best->second))
            best = it;
    if (best == kept.blocks.end())
        return nullptr;
    void *block = best->first;
    size = best->second;
    kept.bytes -= size;
    kept.blocks.erase(best);
    return block;
}

} // namespace

void *takeHugeBlock(std::size_t &size)
{
    if (size > SIZE_MAX - kHugePageBytes)
        throw std::bad_alloc();
    size = (size + kHugePageBytes - 1) & ~(kHugePageBytes - 1);
    if (void *block = takeKept(size))
        return block;
    void *block = ::operator new(size, kHugeAlignment);
    adviseHugePages(block, size);
    return block;
}

void giveBackHugeBlock(void *block, std::size_t size) noexcept
{
    if (!block)
        return;
    KeptBlocks &kept = keptBlocks();
    if (kKeepBlocks) {
        const std::lock_guard lock(kept.mutex);
        if (kept.bytes + size <= kKeptHugeBlockBytes) {
            try {
                kept.blocks.emplace_back(block, size);
                kept.bytes += size;
                return;
            } catch (const std::bad_alloc &) {
            }
        }
    }
    ::operator delete(block, kHugeAlignment);
}
