#pragma once
// The tree the XML reader builds: every node is a dictionary (element names and attribute names
// to nodes), an array (repeated elements of one name) or a string (text and attribute values).
//
// A node is 16 bytes: a kind, a count and a pointer to its bytes, items or entries. A tree
// read by XMLReader lives in one arena that its root owns: names and texts are views into the
// arena's buffers, a dictionary's entries and an array's items are contiguous runs there, so
// reading a document allocates a few large blocks instead of one per node, and dropping the
// tree frees them at once. A tree built through the mutators below (insert, append, ...) owns
// its pieces one by one instead. Both kinds mix: changing a node of a read tree gives that
// node pieces of its own (a deep copy of what it held), and the root frees both kinds.
//
// Rules that follow from the arena: a node inside a read tree is valid as long as the root;
// copying it, or moving it out of the tree, makes a deep copy of its own. Copying, comparing
// and destroying work with explicit worklists instead of recursion, so a tree nested 100,000
// levels deep cannot overflow the stack. Dictionaries keep their entries in insertion order and
// look keys up linearly; removing a key keeps the order of the others.

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

class XMLArena;
class XMLTreeBuilder;
struct XMLDictionaryEntry;

// A string of the tree (a key or a text): a view of bytes the tree owns. Reads as a
// std::string_view, converts to a std::string.
class XMLText
{
public:
    constexpr XMLText() noexcept = default;
    // A view of a NUL-terminated literal (never owned).
    constexpr XMLText(const char *text) noexcept
        : data_(text), size_(static_cast<uint32_t>(std::string_view(text).size()))
    {
    }

    const char *data() const noexcept { return static_cast<const char *>(data_); }
    std::size_t size() const noexcept { return size_; }
    bool empty() const noexcept { return size_ == 0; }
    std::string_view view() const noexcept { return {data(), size_}; }
    operator std::string_view() const noexcept { return view(); }
    operator std::string() const { return std::string(view()); }

    friend bool operator==(const XMLText &a, std::string_view b) noexcept { return a.view() == b; }
    friend std::string operator+(const char *a, const XMLText &b)
    {
        return std::string(a).append(b.view());
    }
    friend std::string operator+(std::string a, const XMLText &b) { return a.append(b.view()); }
    friend std::string operator+(const XMLText &a, const char *b)
    {
        return std::string(a.view()).append(b);
    }
    friend std::string operator+(const XMLText &a, const std::string &b)
    {
        return std::string(a.view()).append(b);
    }

private:
    friend class XMLNode;
    friend class XMLTreeBuilder;
    friend struct XMLNodeAccess;
    constexpr XMLText(const void *data, uint32_t size, uint32_t bits) noexcept
        : data_(data), size_(size), bits_(bits)
    {
    }

    const void *data_ = "";
    uint32_t size_ = 0;
    uint32_t bits_ = 0; // the node's kind and whether it owns data_ (XMLNode)
};

class XMLNode
{
public:
    enum class Kind : unsigned char { Dictionary, Array, String };

    // An empty dictionary.
    XMLNode() noexcept : rep_(nullptr, 0, 0) {}
    // A string node holding text.
    explicit XMLNode(std::string_view text);
    explicit XMLNode(const std::string &text) : XMLNode(std::string_view(text)) {}
    explicit XMLNode(const char *text) : XMLNode(std::string_view(text)) {}
    static XMLNode dictionary() { return XMLNode(); }
    static XMLNode array() noexcept;

    XMLNode(const XMLNode &other);
    XMLNode(XMLNode &&other);
    XMLNode &operator=(const XMLNode &other);
    XMLNode &operator=(XMLNode &&other);
    ~XMLNode();

    Kind kind() const noexcept { return static_cast<Kind>(rep_.bits_ & kKindMask); }
    bool isDictionary() const noexcept { return kind() == Kind::Dictionary; }
    bool isArray() const noexcept { return kind() == Kind::Array; }
    bool isString() const noexcept { return kind() == Kind::String; }

    // Number of entries of a dictionary, items of an array, or bytes of a string.
    std::size_t size() const noexcept { return rep_.size_; }
    bool empty() const noexcept { return size() == 0; }

    // The text of a string node; nullptr for a dictionary or an array.
    const XMLText *stringValue() const noexcept { return isString() ? &rep_ : nullptr; }
    // True when this is a string node holding exactly text.
    bool equalsString(std::string_view text) const noexcept
    {
        return isString() && rep_.view() == text;
    }

    // Dictionary access. On an array or a string, find answers nullptr and the mutators do
    // nothing (they return nullptr or false).
    const XMLNode *find(std::string_view key) const noexcept;
    XMLNode *find(std::string_view key) noexcept;
    // Sets key to value, replacing an existing value; returns the stored value.
    XMLNode *insert(std::string_view key, XMLNode value);
    // Makes room for count entries in a dictionary (nothing on other kinds).
    void reserve(std::size_t count);
    // Removes key and its value; false when it was not there.
    bool remove(std::string_view key);
    std::span<const XMLDictionaryEntry> entries() const noexcept;

    // Array access: the items, or an empty span for a dictionary or a string. append does
    // nothing on a dictionary or a string (it returns nullptr).
    std::span<const XMLNode> items() const noexcept;
    std::span<XMLNode> items() noexcept;
    XMLNode *append(XMLNode value);

    // Deep equality: same kind, equal strings, equal items in order, and the same keys with
    // equal values in any order.
    friend bool operator==(const XMLNode &a, const XMLNode &b);

private:
    friend class XMLTreeBuilder;
    friend struct XMLNodeAccess;

    static constexpr uint32_t kKindMask = 3;
    static constexpr uint32_t kOwned = 4; // rep_.data_ is this node's own allocation

    struct RepTag {
    };
    // The root of a read tree: an owned dictionary of count entries (copied), which frees
    // arena with itself.
    static XMLNode adoptArena(XMLArena *arena, const XMLDictionaryEntry *entries,
                              std::size_t count);
    XMLNode(RepTag, XMLText rep) noexcept : rep_(rep) {}
    bool owned() const noexcept { return (rep_.bits_ & kOwned) != 0; }
    // Gives a container node an allocation of its own with room for count elements; a
    // container that lived in an arena gets deep copies of its children.
    void makeRoom(std::size_t count);
    // Called before a container inside a read tree hands out something that can change it.
    void noteChange() noexcept;
    // A node of the same kind as other: its own copy of a string, an empty container.
    static XMLNode emptyLike(const XMLNode &other);
    // Frees what this node owns, without recursion; leaves an empty dictionary.
    void release() noexcept;

    XMLText rep_;
};

struct XMLDictionaryEntry {
    XMLText key;
    XMLNode value;
};
