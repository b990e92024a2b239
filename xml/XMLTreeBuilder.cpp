#include "XMLTreeBuilder.h"

#include "XMLStrings.h"

#include <cstring>
#include <new>

namespace {

constexpr uint32_t kDictionary = static_cast<uint32_t>(XMLNode::Kind::Dictionary);
constexpr uint32_t kArray = static_cast<uint32_t>(XMLNode::Kind::Array);
constexpr uint32_t kString = static_cast<uint32_t>(XMLNode::Kind::String);

} // namespace

XMLTreeBuilder::XMLTreeBuilder(std::size_t documentBytes)
    : arena_(std::make_unique<XMLArena>(documentBytes))
{
    frames_.push_back({0, 0, kNone, 0, false}); // the root dictionary
    nameTable_.assign(64, 0);
    textName_ = intern("text");
}

// Names are short: three words (the first, middle and last eight bytes, overlapping) and the
// length tell two names of up to 24 bytes apart, and hash them.
XMLTreeBuilder::NameKey XMLTreeBuilder::keyOf(std::string_view name) noexcept
{
    NameKey key{0, 0, 0, name.size()};
    if (name.size() >= 8) {
        std::memcpy(&key.head, name.data(), 8);
        std::memcpy(&key.middle, name.data() + name.size() / 2 - 4, 8);
        std::memcpy(&key.tail, name.data() + name.size() - 8, 8);
    } else {
        for (const char c : name)
            key.head = (key.head << 8) | static_cast<unsigned char>(c);
    }
    return key;
}

std::size_t XMLTreeBuilder::hashOf(const NameKey &key) noexcept
{
    const uint64_t mixed = (key.head * 0x9e3779b97f4a7c15u) ^ (key.middle * 0xff51afd7ed558ccdu) ^
                           (key.tail * 0xc2b2ae3d27d4eb4fu) ^ key.size;
    return static_cast<std::size_t>(mixed ^ (mixed >> 29));
}

XMLTreeBuilder::Name XMLTreeBuilder::intern(std::string_view name)
{
    const NameKey key = keyOf(name);
    const std::size_t mask = nameTable_.size() - 1;
    std::size_t i = hashOf(key) & mask;
    for (; nameTable_[i] != 0; i = (i + 1) & mask) {
        const uint32_t id = nameTable_[i] - 1;
        const NameKey &known = nameKeys_[id];
        if (known.size == key.size && known.head == key.head && known.middle == key.middle &&
            known.tail == key.tail && (key.size <= 24 || names_[id].text.view() == name))
            return names_[id];
    }
    const Name added{XMLText(arena_->copy(name), static_cast<uint32_t>(name.size()), kString),
                     static_cast<uint32_t>(names_.size())};
    nameKeys_.reserve(names_.size() + 1);
    names_.push_back(added);
    nameKeys_.push_back(key);
    nameTable_[i] = added.id + 1;
    if (2 * names_.size() > nameTable_.size()) { // keep the table at most half full
        std::vector<uint32_t> table(2 * nameTable_.size(), 0);
        const std::size_t bigger = table.size() - 1;
        for (const Name &known : names_) {
            std::size_t j = hashOf(nameKeys_[known.id]) & bigger;
            while (table[j] != 0)
                j = (j + 1) & bigger;
            table[j] = known.id + 1;
        }
        nameTable_.swap(table);
    }
    return added;
}

uint32_t XMLTreeBuilder::findSlot(uint32_t nameId) const
{
    const Frame &frame = frames_.back();
    if (frame.indexed) {
        const auto found = slotIndex_.find(indexKey(frame.serial, nameId));
        return found != slotIndex_.end() && slots_[found->second].live ? found->second : kNone;
    }
    for (std::size_t i = frame.slotBase; i < slots_.size(); ++i)
        if (slots_[i].nameId == nameId && slots_[i].live)
            return static_cast<uint32_t>(i);
    return kNone;
}

uint32_t XMLTreeBuilder::addSlot(const Name &name)
{
    Frame &frame = frames_.back();
    const auto slot = static_cast<uint32_t>(slots_.size());
    slots_.push_back({name.text, name.id, 0, kNone, kNone, true});
    if (frame.indexed) {
        slotIndex_[indexKey(frame.serial, name.id)] = slot;
    } else if (slots_.size() - frame.slotBase > kScannedKeys) {
        for (std::size_t i = frame.slotBase; i < slots_.size(); ++i)
            if (slots_[i].live)
                slotIndex_[indexKey(frame.serial, slots_[i].nameId)] = static_cast<uint32_t>(i);
        frame.indexed = true;
    }
    return slot;
}

void XMLTreeBuilder::pushValue(uint32_t slot, XMLText rep)
{
    const auto index = static_cast<uint32_t>(values_.size());
    values_.push_back({rep, kNone});
    Slot &s = slots_[slot];
    if (s.count == 0)
        s.head = index;
    else
        values_[s.tail].next = index;
    s.tail = index;
    ++s.count;
}

void XMLTreeBuilder::startElement(std::string_view name, const char *const *attributes)
{
    const Name element = intern(name);
    uint32_t slot = findSlot(element.id);
    if (slot == kNone)
        slot = addSlot(element);
    frames_.push_back({static_cast<uint32_t>(slots_.size()), static_cast<uint32_t>(values_.size()),
                       slot, ++serial_, false});
    ++elements_;
    for (std::size_t i = 0; attributes && attributes[i]; i += 2) {
        const std::string_view value(attributes[i + 1]);
        const uint32_t attribute = addSlot(intern(attributes[i]));
        pushValue(attribute,
                  XMLText(arena_->copy(value), static_cast<uint32_t>(value.size()), kString));
        ++attributes_;
    }
}

void XMLTreeBuilder::characters(std::string_view chunk)
{
    const std::string_view trimmed = trimWhitespaceAndNewlines(chunk);
    text_ += trimmed;
    textBytes_ += trimmed.size();
}

XMLText XMLTreeBuilder::layOut(const Frame &frame, std::size_t keys)
{
    auto *entries = static_cast<XMLDictionaryEntry *>(
        arena_->allocate(keys * sizeof(XMLDictionaryEntry), alignof(XMLDictionaryEntry)));
    std::size_t k = 0;
    for (std::size_t i = frame.slotBase; i < slots_.size(); ++i) {
        const Slot &slot = slots_[i];
        if (!slot.live || slot.count == 0)
            continue;
        XMLText value = values_[slot.head].rep;
        if (slot.count > 1) {
            auto *items = static_cast<XMLNode *>(
                arena_->allocate(slot.count * sizeof(XMLNode), alignof(XMLNode)));
            uint32_t v = slot.head;
            for (uint32_t n = 0; n < slot.count; ++n, v = values_[v].next)
                new (&items[n]) XMLNode(XMLNode::RepTag{}, values_[v].rep);
            value = XMLText(items, slot.count, kArray);
        }
        new (&entries[k++]) XMLDictionaryEntry{slot.key, XMLNode(XMLNode::RepTag{}, value)};
    }
    return XMLText(entries, static_cast<uint32_t>(k), kDictionary);
}

void XMLTreeBuilder::endElement()
{
    if (frames_.size() < 2)
        return; // unbalanced events; expat does not send them
    std::size_t keys = 0;
    for (std::size_t i = frames_.back().slotBase; i < slots_.size(); ++i)
        keys += slots_[i].live && slots_[i].count > 0;
    XMLText record;
    bool keep = true;
    if (!text_.empty()) {
        const XMLText text(arena_->copy(text_), static_cast<uint32_t>(text_.size()), kString);
        if (keys > 0) {
            // node["text"] = text, replacing whatever was under "text"
            uint32_t slot = findSlot(textName_.id);
            if (slot == kNone) {
                slot = addSlot(textName_);
                ++keys;
            } else {
                slots_[slot].count = 0;
            }
            pushValue(slot, text);
            record = layOut(frames_.back(), keys);
        } else {
            record = text; // a leaf collapses to its text
        }
        text_.clear();
    } else if (keys == 0) {
        keep = false; // an empty leaf: its name goes from the parent, with everything under it
    } else {
        record = layOut(frames_.back(), keys);
    }
    const Frame frame = frames_.back();
    if (frame.indexed)
        for (std::size_t i = frame.slotBase; i < slots_.size(); ++i)
            slotIndex_.erase(indexKey(frame.serial, slots_[i].nameId));
    slots_.resize(frame.slotBase);
    values_.resize(frame.valueBase);
    frames_.pop_back();
    if (keep) {
        pushValue(frame.parentSlot, record);
    } else if (frame.parentSlot + 1 == slots_.size() && !frames_.back().indexed) {
        slots_.pop_back(); // the parent's newest key goes without a trace
    } else {
        slots_[frame.parentSlot].live = false;
    }
}

XMLNode XMLTreeBuilder::finish()
{
    std::size_t keys = 0;
    for (const Slot &slot : slots_)
        keys += slot.live && slot.count > 0;
    if (frames_.size() != 1 || keys == 0)
        return XMLNode();
    const XMLText root = layOut(frames_.front(), keys);
    XMLArena *arena = arena_.get();
    XMLNode tree =
        XMLNode::adoptArena(arena, static_cast<const XMLDictionaryEntry *>(root.data_), root.size_);
    arena_.release(); // the tree owns it now
    return tree;
}
