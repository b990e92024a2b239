#include "XMLNode.h"

#include "XMLArena.h"

#include <algorithm>
#include <atomic>
#include <cstring>
#include <limits>
#include <new>
#include <stdexcept>
#include <utility>
#include <vector>

namespace {

// Set once any node inside a read tree has been handed out for change (or changed): from then
// on, dropping a read tree walks its arena nodes too, to find pieces owned one by one below
// them. Until then (the usual case: read trees are only read) it frees the arena at once.
std::atomic<bool> gReadTreeChanged{false};

// The header in front of the entries or items that a container node owns. arena is set on the
// root of a read tree, whose entries are its own but whose nodes below live in the arena.
struct Block {
    std::size_t capacity;
    XMLArena *arena;
};
static_assert(sizeof(Block) % alignof(XMLDictionaryEntry) == 0);

Block *blockOf(const void *elements)
{
    return const_cast<Block *>(static_cast<const Block *>(elements) - 1);
}

void *allocateBlock(std::size_t capacity, std::size_t elementSize, XMLArena *arena)
{
    if (capacity > std::numeric_limits<uint32_t>::max())
        throw std::length_error("XMLNode: too many children");
    auto *block = static_cast<Block *>(::operator new(sizeof(Block) + capacity * elementSize));
    block->capacity = capacity;
    block->arena = arena;
    return block + 1;
}

} // namespace

// Private access for the helpers below.
struct XMLNodeAccess {
    static XMLText &rep(XMLNode &node) noexcept { return node.rep_; }
    static const XMLText &rep(const XMLNode &node) noexcept { return node.rep_; }
    static XMLNode make(XMLText rep) noexcept { return XMLNode(XMLNode::RepTag{}, rep); }
    static constexpr uint32_t kOwned = XMLNode::kOwned;
    static constexpr uint32_t kKindMask = XMLNode::kKindMask;

    static bool owned(const XMLText &rep) noexcept { return (rep.bits_ & kOwned) != 0; }
    static bool container(const XMLText &rep) noexcept
    {
        return static_cast<XMLNode::Kind>(rep.bits_ & kKindMask) != XMLNode::Kind::String;
    }
    static XMLText emptyDictionary() noexcept { return XMLText(nullptr, 0, 0); }
    static XMLText withData(const XMLText &rep, const void *data, uint32_t bits) noexcept
    {
        return XMLText(data, rep.size_, bits);
    }

    // A text of its own holding bytes (an empty one needs no allocation).
    static XMLText ownText(std::string_view bytes, uint32_t kind)
    {
        if (bytes.size() > std::numeric_limits<uint32_t>::max())
            throw std::length_error("XMLNode: text too long");
        if (bytes.empty())
            return XMLText("", 0, kind);
        char *data = static_cast<char *>(::operator new(bytes.size()));
        std::memcpy(data, bytes.data(), bytes.size());
        return XMLText(data, static_cast<uint32_t>(bytes.size()), kind | kOwned);
    }
    static void freeText(const XMLText &text) noexcept
    {
        if (owned(text))
            ::operator delete(const_cast<void *>(text.data_));
    }

    static XMLDictionaryEntry *entries(const XMLText &rep) noexcept
    {
        return static_cast<XMLDictionaryEntry *>(const_cast<void *>(rep.data_));
    }
    static XMLNode *items(const XMLText &rep) noexcept
    {
        return static_cast<XMLNode *>(const_cast<void *>(rep.data_));
    }
    static void setSize(XMLText &rep, std::size_t size) noexcept
    {
        rep.size_ = static_cast<uint32_t>(size);
    }

    // Frees what rep owns, and below it, with a worklist. Nodes in an arena own nothing and
    // are only looked into when a read tree may have been changed.
    static void release(XMLText rep) noexcept
    {
        const bool walkArena = gReadTreeChanged.load(std::memory_order_relaxed);
        std::vector<XMLText> pending;
        std::vector<XMLArena *> arenas;
        releaseOne(rep, walkArena, &pending, arenas);
        while (!pending.empty()) {
            const XMLText next = pending.back();
            pending.pop_back();
            releaseOne(next, walkArena, &pending, arenas);
        }
        for (XMLArena *arena : arenas)
            delete arena;
    }

    static void releaseOne(const XMLText &rep, bool walkArena, std::vector<XMLText> *pending,
                           std::vector<XMLArena *> &arenas) noexcept
    {
        if (!container(rep)) {
            freeText(rep);
            return;
        }
        const auto visit = [&](const XMLText &child) {
            if (!(owned(child) || (walkArena && container(child) && child.size_ > 0)))
                return;
            try {
                pending->push_back(child);
            } catch (...) {
                releaseOne(child, walkArena, pending, arenas); // out of memory: recursion
            }
        };
        if (static_cast<XMLNode::Kind>(rep.bits_ & kKindMask) == XMLNode::Kind::Dictionary) {
            XMLDictionaryEntry *e = entries(rep);
            for (std::size_t i = 0; i < rep.size_; ++i) {
                freeText(e[i].key);
                visit(e[i].value.rep_);
            }
        } else {
            XMLNode *it = items(rep);
            for (std::size_t i = 0; i < rep.size_; ++i)
                visit(it[i].rep_);
        }
        if (owned(rep) && rep.data_) {
            Block *block = blockOf(rep.data_);
            if (block->arena) {
                try {
                    arenas.push_back(block->arena);
                } catch (...) {
                    // Out of memory: the arena stays (its nodes may still be pending).
                }
            }
            ::operator delete(block);
        }
    }
};

using A = XMLNodeAccess;

XMLNode::XMLNode(std::string_view text)
    : rep_(A::ownText(text, static_cast<uint32_t>(Kind::String)))
{
}

XMLNode XMLNode::adoptArena(XMLArena *arena, const XMLDictionaryEntry *entries, std::size_t count)
{
    void *data = allocateBlock(count, sizeof(XMLDictionaryEntry), arena);
    for (std::size_t i = 0; i < count; ++i)
        new (&static_cast<XMLDictionaryEntry *>(data)[i])
            XMLDictionaryEntry{entries[i].key, A::make(A::rep(entries[i].value))};
    return XMLNode(RepTag{}, XMLText(data, static_cast<uint32_t>(count),
                                     static_cast<uint32_t>(Kind::Dictionary) | kOwned));
}

XMLNode XMLNode::array() noexcept
{
    return XMLNode(RepTag{}, XMLText(nullptr, 0, static_cast<uint32_t>(Kind::Array)));
}

XMLNode::~XMLNode()
{
    release();
}

void XMLNode::release() noexcept
{
    const XMLText rep = rep_;
    rep_ = A::emptyDictionary();
    if ((rep.bits_ & kOwned) ||
        (gReadTreeChanged.load(std::memory_order_relaxed) && A::container(rep) && rep.size_ > 0))
        A::release(rep);
}

XMLNode XMLNode::emptyLike(const XMLNode &other)
{
    if (other.isString())
        return XMLNode(RepTag{}, A::ownText(other.rep_.view(), other.rep_.bits_ & kKindMask));
    return XMLNode(RepTag{}, XMLText(nullptr, 0, other.rep_.bits_ & kKindMask));
}

// Copies level by level: each step gives a copied container its children (strings filled in,
// containers still empty) and queues those containers for a later step.
XMLNode::XMLNode(const XMLNode &other) : XMLNode(emptyLike(other))
{
    std::vector<std::pair<const XMLNode *, XMLNode *>> work{{&other, this}};
    while (!work.empty()) {
        const auto [from, to] = work.back();
        work.pop_back();
        if (from->isString() || from->empty())
            continue;
        to->makeRoom(from->size());
        if (from->isArray()) {
            XMLNode *copies = A::items(to->rep_);
            const auto sources = from->items();
            for (std::size_t i = 0; i < sources.size(); ++i) {
                new (&copies[i]) XMLNode(emptyLike(sources[i]));
                A::setSize(to->rep_, i + 1);
                work.emplace_back(&sources[i], &copies[i]);
            }
        } else {
            XMLDictionaryEntry *copies = A::entries(to->rep_);
            const auto sources = from->entries();
            for (std::size_t i = 0; i < sources.size(); ++i) {
                const XMLText key = A::ownText(sources[i].key.view(), 0);
                try {
                    new (&copies[i]) XMLDictionaryEntry{key, emptyLike(sources[i].value)};
                } catch (...) {
                    A::freeText(key);
                    throw;
                }
                A::setSize(to->rep_, i + 1);
                work.emplace_back(&sources[i].value, &copies[i].value);
            }
        }
    }
}

// A node that owns what it holds (or holds nothing) gives it away; a node in a read tree is
// copied, as its arena stays with the tree.
XMLNode::XMLNode(XMLNode &&other) : rep_(A::emptyDictionary())
{
    if (other.owned() || other.rep_.size_ == 0) {
        rep_ = other.rep_;
        other.rep_ = A::emptyDictionary();
    } else {
        XMLNode copy(std::as_const(other));
        std::swap(rep_, copy.rep_);
    }
}

XMLNode &XMLNode::operator=(XMLNode &&other)
{
    if (this != &other) {
        XMLNode taken(std::move(other));
        release();
        std::swap(rep_, taken.rep_);
    }
    return *this;
}

XMLNode &XMLNode::operator=(const XMLNode &other)
{
    if (this != &other)
        *this = XMLNode(other);
    return *this;
}

void XMLNode::noteChange() noexcept
{
    if (rep_.size_ > 0 && (!owned() || blockOf(rep_.data_)->arena))
        gReadTreeChanged.store(true, std::memory_order_relaxed);
}

void XMLNode::makeRoom(std::size_t count)
{
    const bool dictionary = isDictionary();
    const std::size_t elementSize = dictionary ? sizeof(XMLDictionaryEntry) : sizeof(XMLNode);
    if (owned() && rep_.data_ && count <= blockOf(rep_.data_)->capacity)
        return;
    const std::size_t capacity = std::max<std::size_t>({count, 2 * size(), 4});
    if (owned() && rep_.data_) {
        // Move the nodes over as they are (they stay owned by this node).
        Block *old = blockOf(rep_.data_);
        void *data = allocateBlock(capacity, elementSize, old->arena);
        for (std::size_t i = 0; i < size(); ++i) {
            if (dictionary) {
                const XMLDictionaryEntry &from = A::entries(rep_)[i];
                new (&static_cast<XMLDictionaryEntry *>(data)[i])
                    XMLDictionaryEntry{from.key, A::make(A::rep(from.value))};
            } else {
                new (&static_cast<XMLNode *>(data)[i]) XMLNode(A::make(A::rep(A::items(rep_)[i])));
            }
        }
        ::operator delete(old);
        rep_ = A::withData(rep_, data, rep_.bits_);
        return;
    }
    // A container of a read tree (or an empty one): its own deep copies of the children.
    noteChange();
    void *data = allocateBlock(capacity, elementSize, nullptr);
    XMLNode copy(RepTag{}, XMLText(data, 0, (rep_.bits_ & kKindMask) | kOwned));
    if (dictionary) {
        for (const XMLDictionaryEntry &entry : entries()) {
            const XMLText key = A::ownText(entry.key.view(), 0);
            try {
                new (&A::entries(copy.rep_)[copy.size()]) XMLDictionaryEntry{key, entry.value};
            } catch (...) {
                A::freeText(key);
                throw;
            }
            A::setSize(copy.rep_, copy.size() + 1);
        }
    } else {
        for (const XMLNode &item : items()) {
            new (&A::items(copy.rep_)[copy.size()]) XMLNode(item);
            A::setSize(copy.rep_, copy.size() + 1);
        }
    }
    std::swap(rep_, copy.rep_); // the arena nodes left behind own nothing
}

const XMLNode *XMLNode::find(std::string_view key) const noexcept
{
    if (!isDictionary())
        return nullptr;
    const XMLDictionaryEntry *e = A::entries(rep_);
    for (std::size_t i = 0; i < rep_.size_; ++i)
        if (e[i].key.view() == key)
            return &e[i].value;
    return nullptr;
}

XMLNode *XMLNode::find(std::string_view key) noexcept
{
    XMLNode *found = const_cast<XMLNode *>(std::as_const(*this).find(key));
    if (found)
        noteChange();
    return found;
}

XMLNode *XMLNode::insert(std::string_view key, XMLNode value)
{
    if (!isDictionary())
        return nullptr;
    if (XMLNode *existing = find(key)) {
        *existing = std::move(value);
        return existing;
    }
    const XMLText ownKey = A::ownText(key, 0);
    try {
        makeRoom(size() + 1);
    } catch (...) {
        A::freeText(ownKey);
        throw;
    }
    XMLDictionaryEntry *slot = &A::entries(rep_)[size()];
    new (slot) XMLDictionaryEntry{ownKey, std::move(value)};
    A::setSize(rep_, size() + 1);
    return &slot->value;
}

void XMLNode::reserve(std::size_t count)
{
    if (isDictionary() && count > size())
        makeRoom(count);
}

bool XMLNode::remove(std::string_view key)
{
    if (!isDictionary())
        return false;
    XMLDictionaryEntry *e = A::entries(rep_);
    std::size_t i = 0;
    while (i < size() && e[i].key.view() != key)
        ++i;
    if (i == size())
        return false;
    const XMLText oldKey = e[i].key;
    e[i].value.release();
    A::freeText(oldKey);
    for (std::size_t j = i + 1; j < size(); ++j) {
        e[j - 1].key = e[j].key;
        A::rep(e[j - 1].value) = A::rep(e[j].value);
    }
    A::setSize(rep_, size() - 1);
    return true;
}

std::span<const XMLDictionaryEntry> XMLNode::entries() const noexcept
{
    if (!isDictionary() || rep_.size_ == 0)
        return {};
    return {A::entries(rep_), rep_.size_};
}

std::span<const XMLNode> XMLNode::items() const noexcept
{
    if (!isArray() || rep_.size_ == 0)
        return {};
    return {A::items(rep_), rep_.size_};
}

std::span<XMLNode> XMLNode::items() noexcept
{
    if (!isArray() || rep_.size_ == 0)
        return {};
    noteChange();
    return {A::items(rep_), rep_.size_};
}

XMLNode *XMLNode::append(XMLNode value)
{
    if (!isArray())
        return nullptr;
    makeRoom(size() + 1);
    XMLNode *slot = &A::items(rep_)[size()];
    new (slot) XMLNode(std::move(value));
    A::setSize(rep_, size() + 1);
    return slot;
}

bool operator==(const XMLNode &a, const XMLNode &b)
{
    std::vector<std::pair<const XMLNode *, const XMLNode *>> work{{&a, &b}};
    while (!work.empty()) {
        const auto [x, y] = work.back();
        work.pop_back();
        if (x->kind() != y->kind() || x->size() != y->size())
            return false;
        switch (x->kind()) {
        case XMLNode::Kind::String:
            if (x->stringValue()->view() != y->stringValue()->view())
                return false;
            break;
        case XMLNode::Kind::Array:
            for (std::size_t i = 0; i < x->size(); ++i)
                work.emplace_back(&x->items()[i], &y->items()[i]);
            break;
        case XMLNode::Kind::Dictionary:
            for (const XMLDictionaryEntry &entry : x->entries()) {
                const XMLNode *other = y->find(entry.key.view());
                if (!other)
                    return false;
                work.emplace_back(&entry.value, other);
            }
            break;
        }
    }
    return true;
}
