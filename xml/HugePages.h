#pragma once
// Large buffers that are filled at once (a document's bytes, the tree's arena, expat's input
// buffer) are asked to be backed by huge pages: touching tens of megabytes of fresh memory
// page by page costs more than reading them. Only advice; nothing changes where the system
// ignores it.
//
// Such buffers are blocks of whole huge pages, and when one is given back it is kept for the
// next (up to kKeptHugeBlockBytes in all, shared by all threads): a document read again, or
// the next of its size, is read and built in memory that is already in place.

#include <cstddef>

// The size of a huge page, and the alignment that lets a whole block use them.
inline constexpr std::size_t kHugePageBytes = std::size_t{2} << 20;

// Most bytes of blocks kept for later use: room for the largest real project's text (30 MiB),
// tree (38 MiB) and expat's buffer.
inline constexpr std::size_t kKeptHugeBlockBytes = std::size_t{96} << 20;

// Advises huge pages for the whole pages inside [data, data + size) when size is at least
// kHugePageBytes; does nothing otherwise.
void adviseHugePages(void *data, std::size_t size) noexcept;

// A block of at least size bytes in whole huge pages, aligned to them; size receives its
// length (a kept block may be larger than asked for). Throws std::bad_alloc.
void *takeHugeBlock(std::size_t &size);

// Gives back a block from takeHugeBlock with its length: kept for later, or freed.
void giveBackHugeBlock(void *block, std::size_t size) noexcept;
