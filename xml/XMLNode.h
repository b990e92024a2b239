#pragma once
// The tree the XML reader builds: every node is a dictionary (element names and attribute names
// to nodes), an array (repeated elements of one name) or a string (text and attribute values).
//
// A node owns its children. Copying, comparing and destroying a node work with explicit
// worklists instead of recursion, so a tree nested 100,000 levels deep cannot overflow the
// stack. Dictionaries keep their entries in insertion order and look keys up linearly while
// they are small; past kIndexedDictionarySize entries they keep a hash index, and removing a key
// then moves the last entry into the freed place (order is not part of a dictionary's meaning).

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

struct XMLDictionaryEntry;

class XMLNode
{
public:
    enum class Kind : unsigned char { Dictionary, Array, String };
    // Dictionaries with more entries than this keep a hash index of their keys.
    static constexpr std::size_t kIndexedDictionarySize = 16;

    // An empty dictionary.
    XMLNode();
    // A string node holding text.
    explicit XMLNode(std::string text);
    explicit XMLNode(std::string_view text) : XMLNode(std::string(text)) {}
    explicit XMLNode(const char *text) : XMLNode(std::string(text)) {}
    static XMLNode dictionary() { return XMLNode(); }
    static XMLNode array();

    XMLNode(const XMLNode &other);
    XMLNode(XMLNode &&other) noexcept;
    XMLNode &operator=(const XMLNode &other);
    XMLNode &operator=(XMLNode &&other) noexcept;
    ~XMLNode();

    Kind kind() const noexcept { return static_cast<Kind>(value_.index()); }
    bool isDictionary() const noexcept { return kind() == Kind::Dictionary; }
    bool isArray() const noexcept { return kind() == Kind::Array; }
    bool isString() const noexcept { return kind() == Kind::String; }

    // Number of entries of a dictionary, items of an array, or bytes of a string.
    std::size_t size() const noexcept;
    bool empty() const noexcept { return size() == 0; }

    // The text of a string node; nullptr for a dictionary or an array.
    const std::string *stringValue() const noexcept;
    // True when this is a string node holding exactly text.
    bool equalsString(std::string_view text) const noexcept;

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
    struct KeyIndex;
    struct KeyIndexDelete {
        void operator()(KeyIndex *index) const noexcept;
    };
    struct Dictionary {
        std::vector<XMLDictionaryEntry> entries;
        std::unique_ptr<KeyIndex, KeyIndexDelete> index; // only past kIndexedDictionarySize
    };
    using Array = std::vector<XMLNode>;

    // A node of the same kind as other, without children or text.
    static XMLNode emptyLike(const XMLNode &other);
    // Moves every child node into pending (dictionary keys stay), leaving this node childless.
    void moveChildrenInto(std::vector<XMLNode> &pending);
    bool hasGrandchildren() const noexcept;
    std::ptrdiff_t position(std::string_view key) const noexcept;
    void rebuildIndex();

    // Order matches Kind.
    std::variant<Dictionary, Array, std::string> value_;
};

struct XMLDictionaryEntry {
    std::string key;
    XMLNode value;
};
