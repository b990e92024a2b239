#pragma once
// The arena of a tree read by XMLReader: chunks taken from the heap, carved up in order, all
// freed together with the tree (XMLNode.h). Nothing in it is freed on its own.
//
// Chunks of a large tree are whole huge pages (HugePages.h), so that filling them costs a few
// page faults instead of one every 4 KiB, and they are kept for the next tree when this one
// goes.

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
    // The tree of a document of documentBytes (0 when unknown): one of a few megabytes or more
    // starts with a chunk of huge pages, a smaller one with 16 KiB.
    explicit XMLArena(std::size_t documentBytes = 0)
        : nextChunk_(documentBytes >= kHugePageBytes ? kHugePageBytes : kFirstChunk)
    {
    }
    XMLArena(const XMLArena &) = delete;
    XMLArena &operator=(const XMLArena &) = delete;
    ~XMLArena()
    {
        for (const Chunk &chunk : chunks_) {
            if (chunk.huge)
                giveBackHugeBlock(chunk.bytes, chunk.size);
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
    struct Chunk {
        void *bytes;
        std::size_t size;
        bool huge; // whole huge pages, aligned to them
    };

    // Chunks grow from 16 KiB (or 2 MiB) to 8 MiB so that small documents stay small; from
    // 2 MiB on they are whole huge pages. A larger request gets a chunk of its own size.
    void grow(std::size_t bytes)
    {
        std::size_t size = std::max(bytes, nextChunk_);
        const bool huge = size >= kHugePageBytes;
        chunks_.reserve(chunks_.size() + 1);
        void *chunk = huge ? takeHugeBlock(size) : ::operator new(size);
        chunks_.push_back({chunk, size, huge});
        chunk_ = static_cast<char *>(chunk);
        size_ = size;
        used_ = 0;
        reserved_ += size;
        nextChunk_ = std::min<std::size_t>(nextChunk_ * 2, std::size_t{8} << 20);
    }

    std::vector<Chunk> chunks_;
    char *chunk_ = nullptr;
    std::size_t size_ = 0;
    std::size_t used_ = 0;
    std::size_t reserved_ = 0;
    static constexpr std::size_t kFirstChunk = std::size_t{16} << 10;
    std::size_t nextChunk_;
};
