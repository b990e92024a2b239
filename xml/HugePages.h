#pragma once
// Large buffers that are filled at once (a document's bytes, the tree's arena, expat's input
// buffer) are asked to be backed by huge pages: touching tens of megabytes of fresh memory
// page by page costs more than reading them. Only advice; nothing changes where the system
// ignores it.

#include <cstddef>

// The size of a huge page, and the alignment that lets a whole block use them.
inline constexpr std::size_t kHugePageBytes = std::size_t{2} << 20;

// Advises huge pages for the whole pages inside [data, data + size) when size is at least
// kHugePageBytes; does nothing otherwise.
void adviseHugePages(void *data, std::size_t size) noexcept;
