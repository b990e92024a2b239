#pragma once
// Builds the tree of XMLReader (the mapping is described in XMLReader.h) from the parser's
// events, straight into one arena: nothing is allocated per node.
//
// While an element is open, its keys (attributes and child names, in the order they first
// appear) are slots on a stack shared by all open elements, and the values under each key
// (an attribute value, finished children) a linked list on a second stack. When the element
// ends, its dictionary is laid out in the arena at once: one run of entries, and for a key
// with several values one run of items. Element and attribute names are interned, so each
// distinct name is stored once and keys compare by identity while building.

#include "XMLArena.h"
#include "XMLNode.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

class XMLTreeBuilder
{
public:
    // documentBytes, the size of the document (0 when unknown), sizes the arena's first chunk.
    explicit XMLTreeBuilder(std::size_t documentBytes = 0);

    // The parser's events. attributes holds name, value, name, value, ... and ends with null.
    // Each may throw std::bad_alloc.
    void startElement(std::string_view name, const char *const *attributes);
    void endElement();
    void characters(std::string_view chunk);

    // The root dictionary, which takes the arena with it; the builder is spent afterwards.
    XMLNode finish();

    std::size_t depth() const noexcept { return frames_.size() - 1; }
    std::size_t elements() const noexcept { return elements_; }
    std::size_t attributes() const noexcept { return attributes_; }
    std::size_t textBytes() const noexcept { return textBytes_; }
    std::size_t names() const noexcept { return names_.size() - 1; } // "text" is not counted

private:
    struct Name {
        XMLText text;
        uint32_t id;
    };
    struct Slot {
        XMLText key;
        uint32_t nameId;
        uint32_t count; // values under the key
        uint32_t head, tail;
        bool live; // false once the key was removed
    };
    struct Value {
        XMLText rep;
        uint32_t next;
    };
    struct Frame {
        uint32_t slotBase, valueBase;
        uint32_t parentSlot;
        uint32_t serial;
        bool indexed; // its slots are in slotIndex_
    };

    struct NameKey {
        uint64_t head, middle, tail;
        std::size_t size;
    };
    static NameKey keyOf(std::string_view name) noexcept;
    static std::size_t hashOf(const NameKey &key) noexcept;
    Name intern(std::string_view name);
    // The live slot of the top frame under name, or kNone.
    uint32_t findSlot(uint32_t nameId) const;
    uint32_t addSlot(const Name &name);
    void pushValue(uint32_t slot, XMLText rep);
    XMLText layOut(const Frame &frame, std::size_t keys);
    static uint64_t indexKey(uint32_t serial, uint32_t nameId) noexcept
    {
        return (static_cast<uint64_t>(serial) << 32) | nameId;
    }

    static constexpr uint32_t kNone = ~uint32_t{0};
    // Frames with more keys than this find them through slotIndex_ instead of a scan.
    static constexpr std::size_t kScannedKeys = 16;

    std::unique_ptr<XMLArena> arena_;
    std::vector<Frame> frames_;
    std::vector<Slot> slots_;
    std::vector<Value> values_;
    std::string text_; // one accumulator for the whole parse
    // Interned names: open addressing over ids + 1 (0 is empty).
    std::vector<Name> names_;
    std::vector<NameKey> nameKeys_; // by id
    std::vector<uint32_t> nameTable_;
    std::unordered_map<uint64_t, uint32_t> slotIndex_;
    Name textName_;
    uint32_t serial_ = 0;
    std::size_t elements_ = 0;
    std::size_t attributes_ = 0;
    std::size_t textBytes_ = 0;
};
