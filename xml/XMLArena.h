#pragma once
// The arena of a tree read by XMLReader: chunks taken from the heap, carved up in order, all
// freed together with the tree (XMLNode.h). Nothing in it is freed on its own. Chunks of a
// large tree are whole huge pages (HugePages.h), so that filling them costs a few page faults
// instead of one every 4 KiB.

#include "HugePages.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <new>
#include <string_view>
#include <vector>

class XMLArena
{
public:
    XMLArena() = default;
    XMLArena(const XMLArena &) = delete;
    XMLArena &operator=(const XMLArena &) = delete;
    ~XMLArena()
    {
        for (const Chunk &chunk : chunks_) {
            if (chunk.huge)
                ::operator delete (chunk.bytes, std::align_val_t{kHugePageBytes});
            else
                ::operator delete(chunk.bytes);
        }
    }

    // bytes of storage aligned to align (a power of two, at most alignof(std::max_align_t)).
    void *allocate(std::size_t bytes, std::size_t align)
    {
        std::size_t at = (used_ + align - 1) & ~(align - 1);
        if (at + bytes > size_) {
            grow(bytes);
            at = 0;
        }
        used_ = at + bytes;
        return chunk_ + at;
    }

    // A copy of text (not NUL-terminated); an empty text takes no room.
    const char *copy(std::string_view text)
    {
        if (text.empty())
            return "";
        char *bytes = static_cast<char *>(allocate(text.size(), 1));
        std::memcpy(bytes, text.data(), text.size());
        return bytes;
    }

    // Bytes taken from the heap so far.
    std::size_t reservedBytes() const noexcept { return reserved_; }

private:
    // Chunks grow from 16 KiB to 8 MiB so that small documents stay small; from 2 MiB on they
    // are whole huge pages. A larger request gets a chunk of its own size.
    void grow(std::size_t bytes)
    {
        std::size_t size = std::max(bytes, nextChunk_);
        const bool huge = size >= kHugePageBytes;
        if (huge)
            size = (size + kHugePageBytes - 1) & ~(kHugePageBytes - 1);
        chunks_.reserve(chunks_.size() + 1);
        chunk_ = static_cast<char *>(huge ? ::operator new (size, std::align_val_t{kHugePageBytes})
                                          : ::operator new(size));
        if (huge)
            adviseHugePages(chunk_, size);
        chunks_.push_back({chunk_, huge});
        size_ = size;
        used_ = 0;
        reserved_ += size;
        nextChunk_ = std::min<std::size_t>(nextChunk_ * 2, std::size_t{8} << 20);
    }

    struct Chunk {
        void *bytes;
        bool huge; // aligned to kHugePageBytes
    };
    std::vector<Chunk> chunks_;
    char *chunk_ = nullptr;
    std::size_t size_ = 0;
    std::size_t used_ = 0;
    std::size_t reserved_ = 0;
    std::size_t nextChunk_ = std::size_t{16} << 10;
};
