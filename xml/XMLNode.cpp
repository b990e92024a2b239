#include "XMLNode.h"

#include <cstdint>
#include <functional>
#include <utility>

// Open addressing with linear probing over the positions of the entries. A slot holds the low
// 32 bits of the key's hash (high half) and the entry's position + 1 (low half); 0 is an empty
// slot. The table has a power-of-two size of at least twice the entries, and removal shifts
// later slots back instead of leaving tombstones, so lookups stay short whatever was removed.
struct XMLNode::KeyIndex {
    std::vector<uint64_t> slots;

    static uint32_t hashOf(std::string_view key) noexcept
    {
        return static_cast<uint32_t>(std::hash<std::string_view>{}(key));
    }
    static uint64_t slotFor(uint32_t hash, std::size_t position) noexcept
    {
        return (static_cast<uint64_t>(hash) << 32) | static_cast<uint64_t>(position + 1);
    }
    static uint32_t hashIn(uint64_t slot) noexcept { return static_cast<uint32_t>(slot >> 32); }
    static std::size_t positionIn(uint64_t slot) noexcept
    {
        return static_cast<std::size_t>(slot & 0xffffffffu) - 1;
    }
    std::size_t mask() const noexcept { return slots.size() - 1; }

    // Slot number holding position, whose key hashes to hash.
    std::size_t slotOf(uint32_t hash, std::size_t position) const noexcept
    {
        std::size_t i = hash & mask();
        while (slots[i] != slotFor(hash, position))
            i = (i + 1) & mask();
        return i;
    }

    void place(uint64_t slot) noexcept
    {
        std::size_t i = hashIn(slot) & mask();
        while (slots[i] != 0)
            i = (i + 1) & mask();
        slots[i] = slot;
    }

    // Empties slot hole and moves back every later slot of the run that may fill it.
    void erase(std::size_t hole) noexcept
    {
        for (std::size_t j = (hole + 1) & mask(); slots[j] != 0; j = (j + 1) & mask()) {
            const std::size_t home = hashIn(slots[j]) & mask();
            const bool staysBehind =
                hole <= j ? (hole < home && home <= j) : (hole < home || home <= j);
            if (!staysBehind) {
                slots[hole] = slots[j];
                hole = j;
            }
        }
        slots[hole] = 0;
    }

    // Makes room for count entries, keeping the load at most one half.
    void reserve(std::size_t count)
    {
        std::size_t size = 64;
        while (size < 2 * count)
            size *= 2;
        if (size <= slots.size())
            return;
        std::vector<uint64_t> old(size, 0);
        old.swap(slots);
        for (const uint64_t slot : old)
            if (slot != 0)
                place(slot);
    }
};

void XMLNode::KeyIndexDelete::operator()(KeyIndex *index) const noexcept
{
    delete index;
}

XMLNode::XMLNode() = default;

XMLNode::XMLNode(std::string text) : value_(std::in_place_index<2>, std::move(text)) {}

XMLNode XMLNode::array()
{
    XMLNode node;
    node.value_.emplace<Array>();
    return node;
}

XMLNode::XMLNode(XMLNode &&other) noexcept = default;
XMLNode &XMLNode::operator=(XMLNode &&other) noexcept = default;

// Copies level by level: each step gives a copied node its children, strings filled in and
// containers still empty, and queues those containers for a later step.
XMLNode::XMLNode(const XMLNode &other) : XMLNode(emptyLike(other))
{
    std::vector<std::pair<const XMLNode *, XMLNode *>> work{{&other, this}};
    while (!work.empty()) {
        const auto [from, to] = work.back();
        work.pop_back();
        if (const auto *items = std::get_if<Array>(&from->value_)) {
            auto &copies = std::get<Array>(to->value_);
            copies.reserve(items->size());
            for (const XMLNode &item : *items)
                copies.push_back(emptyLike(item));
            for (std::size_t i = 0; i < items->size(); ++i)
                work.emplace_back(&(*items)[i], &copies[i]);
        } else if (const auto *dictionary = std::get_if<Dictionary>(&from->value_)) {
            auto &copies = std::get<Dictionary>(to->value_).entries;
            copies.reserve(dictionary->entries.size());
            for (const XMLDictionaryEntry &entry : dictionary->entries)
                copies.push_back({entry.key, emptyLike(entry.value)});
            if (dictionary->index)
                to->rebuildIndex();
            for (std::size_t i = 0; i < copies.size(); ++i)
                work.emplace_back(&dictionary->entries[i].value, &copies[i].value);
        }
    }
}

XMLNode &XMLNode::operator=(const XMLNode &other)
{
    if (this != &other)
        *this = XMLNode(other);
    return *this;
}

// Takes the tree apart from the top: the children of every node that has grandchildren are
// moved to a worklist before the node goes, so each node dies with at most leaf children.
XMLNode::~XMLNode()
{
    if (!hasGrandchildren())
        return;
    try {
        std::vector<XMLNode> pending;
        moveChildrenInto(pending);
        while (!pending.empty()) {
            XMLNode node = std::move(pending.back());
            pending.pop_back();
            if (node.hasGrandchildren())
                node.moveChildrenInto(pending);
        }
    } catch (...) {
        // Out of memory for the worklist: what is left goes the recursive way.
    }
}

XMLNode XMLNode::emptyLike(const XMLNode &other)
{
    switch (other.kind()) {
    case Kind::Dictionary:
        return XMLNode();
    case Kind::Array:
        return array();
    case Kind::String:
        return XMLNode(std::get<std::string>(other.value_));
    }
    return XMLNode();
}

void XMLNode::moveChildrenInto(std::vector<XMLNode> &pending)
{
    if (auto *items = std::get_if<Array>(&value_)) {
        for (XMLNode &item : *items)
            pending.push_back(std::move(item));
    } else if (auto *dictionary = std::get_if<Dictionary>(&value_)) {
        for (XMLDictionaryEntry &entry : dictionary->entries)
            pending.push_back(std::move(entry.value));
    }
}

bool XMLNode::hasGrandchildren() const noexcept
{
    const auto hasChildren = [](const XMLNode &node) { return !node.isString() && !node.empty(); };
    if (const auto *items = std::get_if<Array>(&value_)) {
        for (const XMLNode &item : *items)
            if (hasChildren(item))
                return true;
    } else if (const auto *dictionary = std::get_if<Dictionary>(&value_)) {
        for (const XMLDictionaryEntry &entry : dictionary->entries)
            if (hasChildren(entry.value))
                return true;
    }
    return false;
}

std::size_t XMLNode::size() const noexcept
{
    switch (kind()) {
    case Kind::Dictionary:
        return std::get<Dictionary>(value_).entries.size();
    case Kind::Array:
        return std::get<Array>(value_).size();
    case Kind::String:
        return std::get<std::string>(value_).size();
    }
    return 0;
}

const std::string *XMLNode::stringValue() const noexcept
{
    return std::get_if<std::string>(&value_);
}

bool XMLNode::equalsString(std::string_view text) const noexcept
{
    const std::string *value = stringValue();
    return value && *value == text;
}

std::ptrdiff_t XMLNode::position(std::string_view key) const noexcept
{
    const auto *dictionary = std::get_if<Dictionary>(&value_);
    if (!dictionary)
        return -1;
    const auto &entries = dictionary->entries;
    if (const KeyIndex *index = dictionary->index.get()) {
        const uint32_t hash = KeyIndex::hashOf(key);
        for (std::size_t i = hash & index->mask(); index->slots[i] != 0;
             i = (i + 1) & index->mask()) {
            const uint64_t slot = index->slots[i];
            const std::size_t at = KeyIndex::positionIn(slot);
            if (KeyIndex::hashIn(slot) == hash && entries[at].key == key)
                return static_cast<std::ptrdiff_t>(at);
        }
        return -1;
    }
    for (std::size_t i = 0; i < entries.size(); ++i)
        if (entries[i].key == key)
            return static_cast<std::ptrdiff_t>(i);
    return -1;
}

const XMLNode *XMLNode::find(std::string_view key) const noexcept
{
    const std::ptrdiff_t i = position(key);
    return i < 0 ? nullptr
                 : &std::get<Dictionary>(value_).entries[static_cast<std::size_t>(i)].value;
}

XMLNode *XMLNode::find(std::string_view key) noexcept
{
    return const_cast<XMLNode *>(std::as_const(*this).find(key));
}

XMLNode *XMLNode::insert(std::string_view key, XMLNode value)
{
    auto *dictionary = std::get_if<Dictionary>(&value_);
    if (!dictionary)
        return nullptr;
    if (XMLNode *existing = find(key)) {
        *existing = std::move(value);
        return existing;
    }
    auto &entries = dictionary->entries;
    entries.push_back({std::string(key), std::move(value)});
    if (KeyIndex *index = dictionary->index.get()) {
        index->reserve(entries.size());
        index->place(KeyIndex::slotFor(KeyIndex::hashOf(key), entries.size() - 1));
    } else if (entries.size() > kIndexedDictionarySize) {
        rebuildIndex();
    }
    return &entries.back().value;
}

void XMLNode::reserve(std::size_t count)
{
    if (auto *dictionary = std::get_if<Dictionary>(&value_))
        dictionary->entries.reserve(count);
}

bool XMLNode::remove(std::string_view key)
{
    const std::ptrdiff_t found = position(key);
    if (found < 0)
        return false;
    auto &dictionary = std::get<Dictionary>(value_);
    auto &entries = dictionary.entries;
    const auto i = static_cast<std::size_t>(found);
    if (!dictionary.index) {
        entries.erase(entries.begin() + found);
        return true;
    }
    KeyIndex &index = *dictionary.index;
    const std::size_t last = entries.size() - 1;
    index.erase(index.slotOf(KeyIndex::hashOf(entries[i].key), i));
    if (i != last) {
        entries[i] = std::move(entries[last]);
        const uint32_t hash = KeyIndex::hashOf(entries[i].key);
        index.slots[index.slotOf(hash, last)] = KeyIndex::slotFor(hash, i);
    }
    entries.pop_back();
    return true;
}

std::span<const XMLDictionaryEntry> XMLNode::entries() const noexcept
{
    if (const auto *dictionary = std::get_if<Dictionary>(&value_))
        return dictionary->entries;
    return {};
}

std::span<const XMLNode> XMLNode::items() const noexcept
{
    if (const auto *items = std::get_if<Array>(&value_))
        return *items;
    return {};
}

std::span<XMLNode> XMLNode::items() noexcept
{
    if (auto *items = std::get_if<Array>(&value_))
        return *items;
    return {};
}

XMLNode *XMLNode::append(XMLNode value)
{
    auto *items = std::get_if<Array>(&value_);
    if (!items)
        return nullptr;
    items->push_back(std::move(value));
    return &items->back();
}

void XMLNode::rebuildIndex()
{
    auto &dictionary = std::get<Dictionary>(value_);
    dictionary.index.reset(new KeyIndex);
    dictionary.index->reserve(dictionary.entries.size());
    for (std::size_t i = 0; i < dictionary.entries.size(); ++i)
        dictionary.index->place(KeyIndex::slotFor(KeyIndex::hashOf(dictionary.entries[i].key), i));
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
            if (*x->stringValue() != *y->stringValue())
                return false;
            break;
        case XMLNode::Kind::Array:
            for (std::size_t i = 0; i < x->size(); ++i)
                work.emplace_back(&x->items()[i], &y->items()[i]);
            break;
        case XMLNode::Kind::Dictionary:
            for (const XMLDictionaryEntry &entry : x->entries()) {
                const XMLNode *other = y->find(entry.key);
                if (!other)
                    return false;
                work.emplace_back(&entry.value, other);
            }
            break;
        }
    }
    return true;
}
