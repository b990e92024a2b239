#include "XMLNode.h"

#include <functional>
#include <unordered_map>
#include <utility>

struct XMLNode::KeyIndex {
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view key) const noexcept
        {
            return std::hash<std::string_view>{}(key);
        }
    };
    std::unordered_map<std::string, std::size_t, Hash, std::equal_to<>> positions;
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
    if (dictionary->index) {
        const auto &positions = dictionary->index->positions;
        const auto found = positions.find(key);
        return found == positions.end() ? -1 : static_cast<std::ptrdiff_t>(found->second);
    }
    const auto &entries = dictionary->entries;
    for (std::size_t i = 0; i < entries.size(); ++i)
        if (entries[i].key == key)
            return static_cast<std::ptrdiff_t>(i);
    return -1;
}

const XMLNode *XMLNode::find(std::string_view key) const noexcept
{
    const std::ptrdiff_t i = position(key);
    return i < 0 ? nullptr : &std::get<Dictionary>(value_).entries[static_cast<std::size_t>(i)].value;
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
    if (dictionary->index)
        dictionary->index->positions.emplace(entries.back().key, entries.size() - 1);
    else if (entries.size() > kIndexedDictionarySize)
        rebuildIndex();
    return &entries.back().value;
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
    auto &positions = dictionary.index->positions;
    positions.erase(positions.find(entries[i].key));
    if (i + 1 != entries.size()) {
        entries[i] = std::move(entries.back());
        positions.find(entries[i].key)->second = i;
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
    auto &positions = dictionary.index->positions;
    positions.reserve(dictionary.entries.size());
    for (std::size_t i = 0; i < dictionary.entries.size(); ++i)
        positions.emplace(dictionary.entries[i].key, i);
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
