#pragma once
// XMLReader turns an XML document into a tree of dictionaries, arrays and strings (XMLNode),
// driven by expat's start-element, end-element, character-data and error events.
//
// The mapping:
// - Every element becomes a dictionary. Its keys are its attribute names (value: the attribute
//   value; namespace declarations such as xmlns:CxF are attributes like any other), its child
//   elements' names (value: the child's node), and "text" for the element's text when it also
//   has attributes or children.
// - Names stay exactly as written, prefix included: expat runs without namespace processing,
//   so <CxF:Color> is the key "CxF:Color".
// - The result is a root dictionary whose only key is the document element's name (or an empty
//   one, when the document element was itself an empty leaf and was removed).
// - A repeated child name becomes an array, created when the second element of that name
//   starts under the same parent; a single occurrence is never an array.
// - A leaf (no attributes, no children) with text collapses to its text string; a leaf without
//   text is removed from its parent, together with the whole value under its name (so an empty
//   <b/> after <b>1</b> removes both).
// - All text goes into one accumulator for the whole parse, not one per element; every chunk
//   that expat delivers is trimmed at both ends before it is appended, so white space at chunk
//   borders (around entity and character references, at line breaks) is lost.
//
// Hostile documents: external entities and an external DTD are never loaded; once the text
// read passes kEntityAmplificationThreshold, the document with its entity expansions may be at
// most kMaxEntityAmplification times the size of the document itself (expat's default is 100
// past 8 MiB); a document may declare at most kMaxEntityDeclarations entities, which bounds
// how deeply entity references can nest inside expat. Nested elements, however deep, use no
// recursion. Beyond that the reader sets no limit of its own unless the caller passes
// XMLReadLimits (the CxF import does): a budget of elements, attributes, depth, text and
// parser memory, checked as the document is read, so that a document over budget stops there.
// Running out of memory while reading is a parse error ("out of memory"), never an exception.

#include "XMLNode.h"

class XMLTreeBuilder;

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// What a parse may take; a document that exceeds any of these fails with an error naming the
// limit (e.g. "more than 1048576 elements"). The defaults limit nothing.
struct XMLReadLimits {
    std::size_t maxElements = SIZE_MAX;
    std::size_t maxAttributes = SIZE_MAX; // in the whole document
    std::size_t maxAttributesPerElement = SIZE_MAX;
    std::size_t maxDepth = SIZE_MAX;       // elements open at once
    std::size_t maxNames = SIZE_MAX;       // distinct element and attribute names
    std::size_t maxTextBytes = SIZE_MAX;   // text kept after trimming, whole document
    std::size_t maxParserBytes = SIZE_MAX; // memory expat holds at once (its buffers and tables)
};

// A parse error as expat reports it.
struct XMLError {
    std::string message;      // expat's description, e.g. "mismatched tag"
    unsigned long line = 0;   // 1-based line of the error
    unsigned long column = 0; // 1-based column (in bytes) of the error

    // "<message> at line <line>, column <column>", e.g. "mismatched tag at line 1, column 9".
    std::string description() const;
};

class XMLReader
{
public:
    // Largest (input + expanded entity text) / input ratio once expansions pass expat's
    // activation threshold (8 MiB).
    static constexpr float kMaxEntityAmplification = 4.0f;
    static constexpr unsigned long long kEntityAmplificationThreshold = 1ull << 20;
    static constexpr std::size_t kMaxEntityDeclarations = 256;

    // Parses the document bytes (UTF-8, or any encoding expat reads that the XML declaration
    // names) into a root dictionary. Returns std::nullopt when the document is not well formed;
    // then, if error is not null, *error receives expat's message with line and column.
    // Example: "<a><b>1</b><b>2</b></a>" gives {a: {b: [1, 2]}}; "<a><b></a>" gives nullopt
    // and the error "mismatched tag at line 1, column 9".
    static std::optional<XMLNode> dictionaryForXMLData(std::string_view data, XMLError *error,
                                                       const XMLReadLimits &limits = {});

    // As dictionaryForXMLData on the UTF-8 text after joinTrimmedLines (XMLStrings.h): every
    // line is trimmed and the lines are joined with nothing between them, so indentation and
    // line breaks vanish (and a value or attribute continued over a line break is joined
    // without a space). Errors therefore always report line 1.
    // Example: "<a>\n  <b>\n    51.2\n  </b>\n</a>\n" gives {a: {b: 51.2}}.
    static std::optional<XMLNode> dictionaryForXMLString(std::string_view text, XMLError *error,
                                                         const XMLReadLimits &limits = {});

    // As dictionaryForXMLData on the XML resource "<name>.xml" shipped with the program
    // (xmlResourceDirectory() below). A resource that cannot be read gives nullopt and the
    // error "cannot read XML resource <path>" at line 0, column 0.
    static std::optional<XMLNode> dictionaryForPath(std::string_view name, XMLError *error);

    // Where named XML resources live: <directory of the executable>/../share/cxf-compare/xml
    // when that directory exists (an installed program, or one in the build tree's bin/, next
    // to which the build copies data/xml), otherwise the source tree's data/xml.
    static std::string xmlResourceDirectory();

    // A reader for repeated parses; error may be null. Not copyable: expat holds its address.
    explicit XMLReader(XMLError *error, const XMLReadLimits &limits = {});
    ~XMLReader();
    XMLReader(const XMLReader &) = delete;
    XMLReader &operator=(const XMLReader &) = delete;

    // Runs one parse from a fresh stack and accumulator; the root dictionary, or nullopt on a
    // parse error (the partly built tree is dropped).
    std::optional<XMLNode> objectWithData(std::string_view data);

    // The parser events. attributes holds name, value, name, value, ... and ends with null.
    void parserDidStartElement(std::string_view name, const char *const *attributes);
    void parserDidEndElement(std::string_view name);
    void parserFoundCharacters(std::string_view characters);
    void parserParseErrorOccurred(XMLError error);

    // Size of the pieces handed to expat: expat copies what it is given into its own buffer, so
    // feeding pieces keeps that copy small. A token longer than a piece is rescanned from its
    // start with every further piece, so pieces are large enough to keep that cheap.
    static constexpr std::size_t kPieceBytes = std::size_t{1} << 20;

private:
    struct Parse; // the expat parser of a parse in progress
    struct ParseDelete {
        void operator()(Parse *parse) const noexcept;
    };

    // One parse of a document of about documentBytes: begin, then feed every piece of the
    // document in order (the last one marked, even if empty), then end with whether every feed
    // succeeded.
    bool beginParse(std::size_t documentBytes);
    bool feed(std::string_view piece, bool last);
    // Or: fill expat's own buffer of bytes (nullptr when out of memory) and feed what was put
    // there.
    char *pieceBuffer(std::size_t bytes);
    bool feedPieceBuffer(std::size_t bytes, bool last);
    std::optional<XMLNode> endParse(bool ok);

    std::unique_ptr<Parse, ParseDelete> parse_;
    // The tree being built: the path of open elements and the one text accumulator.
    std::unique_ptr<XMLTreeBuilder> builder_;
    XMLReadLimits limits_;
    XMLError *errorPointer_;
};
