#include "XMLReader.h"

#include "XMLStrings.h"

#include <expat.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <utility>

namespace {

// The state of one expat parse that the callbacks reach through expat's user data.
struct ExpatContext {
    XMLReader *reader;
    XML_Parser parser;
    std::size_t entityDeclarations = 0;
    std::string stopReason; // set when a handler stopped the parser
};

ExpatContext &contextOf(void *userData)
{
    return *static_cast<ExpatContext *>(userData);
}

void XMLCALL onStartElement(void *userData, const XML_Char *name, const XML_Char **attributes)
{
    contextOf(userData).reader->parserDidStartElement(name, attributes);
}

void XMLCALL onEndElement(void *userData, const XML_Char *name)
{
    contextOf(userData).reader->parserDidEndElement(name);
}

void XMLCALL onCharacters(void *userData, const XML_Char *characters, int length)
{
    contextOf(userData).reader->parserFoundCharacters(
        std::string_view(characters, static_cast<std::size_t>(length)));
}

// Counts entity declarations (general and parameter): a chain of entities that refer to one
// another is expanded by recursion inside expat, so their number is what bounds its depth.
void XMLCALL onEntityDeclaration(void *userData, const XML_Char *, int, const XML_Char *, int,
                                 const XML_Char *, const XML_Char *, const XML_Char *,
                                 const XML_Char *)
{
    ExpatContext &context = contextOf(userData);
    if (++context.entityDeclarations > XMLReader::kMaxEntityDeclarations &&
        context.stopReason.empty()) {
        context.stopReason = "too many entity declarations (more than " +
                             std::to_string(XMLReader::kMaxEntityDeclarations) + ")";
        XML_StopParser(context.parser, XML_FALSE);
    }
}

struct ParserFree {
    void operator()(XML_ParserStruct *parser) const noexcept { XML_ParserFree(parser); }
};

} // namespace

struct XMLReader::Parse {
    std::unique_ptr<XML_ParserStruct, ParserFree> parser;
    ExpatContext context;
};

void XMLReader::ParseDelete::operator()(Parse *parse) const noexcept
{
    delete parse;
}

namespace {

std::filesystem::path executableDirectory()
{
    std::error_code error;
    const auto executable = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? std::filesystem::path() : executable.parent_path();
}

} // namespace

std::string XMLError::description() const
{
    return message + " at line " + std::to_string(line) + ", column " + std::to_string(column);
}

XMLReader::XMLReader(XMLError *error) : errorPointer_(error) {}

XMLReader::~XMLReader() = default;

std::optional<XMLNode> XMLReader::dictionaryForXMLData(std::string_view data, XMLError *error)
{
    XMLReader reader(error);
    return reader.objectWithData(data);
}

// The joined text is handed to expat in pieces as it is produced, never held whole: the bytes
// expat sees are exactly joinTrimmedLines(text).
std::optional<XMLNode> XMLReader::dictionaryForXMLString(std::string_view text, XMLError *error)
{
    XMLReader reader(error);
    if (!reader.beginParse())
        return std::nullopt;
    std::string pending;
    pending.reserve(std::min(text.size(), kPieceBytes));
    bool ok = true;
    forEachTrimmedLine(text, [&](std::string_view line) {
        if (!ok)
            return;
        if (pending.size() + line.size() <= kPieceBytes) {
            pending += line;
            return;
        }
        ok = reader.feed(pending, false);
        pending.clear();
        if (ok && line.size() >= kPieceBytes)
            ok = reader.feed(line, false); // a very long line goes as it is, without a copy
        else
            pending += line;
    });
    if (ok)
        ok = reader.feed(pending, true);
    return reader.endParse(ok);
}

std::optional<XMLNode> XMLReader::dictionaryForPath(std::string_view name, XMLError *error)
{
    const std::filesystem::path path =
        std::filesystem::path(xmlResourceDirectory()) / (std::string(name) + ".xml");
    std::ifstream in(path, std::ios::binary);
    std::string contents;
    if (in)
        contents.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    if (!in.is_open() || in.bad()) {
        if (error)
            *error = XMLError{"cannot read XML resource " + path.string(), 0, 0};
        return std::nullopt;
    }
    return dictionaryForXMLData(contents, error);
}

std::string XMLReader::xmlResourceDirectory()
{
    std::error_code error;
    const auto beside = executableDirectory() / ".." / "share" / "cxf-compare" / "xml";
    if (std::filesystem::is_directory(beside, error))
        return beside.lexically_normal().string();
    return CXF_XML_SOURCE_RESOURCE_DIR;
}

std::optional<XMLNode> XMLReader::objectWithData(std::string_view data)
{
    if (!beginParse())
        return std::nullopt;
    bool ok = true;
    std::size_t offset = 0;
    do {
        const std::size_t length = std::min(kPieceBytes, data.size() - offset);
        ok = feed(data.substr(offset, length), offset + length == data.size());
        offset += length;
    } while (ok && offset < data.size());
    return endParse(ok);
}

bool XMLReader::beginParse()
{
    root_ = XMLNode();
    dictionaryStack_.assign(1, &root_);
    textInProgress_.clear();

    parse_.reset(new Parse{std::unique_ptr<XML_ParserStruct, ParserFree>(XML_ParserCreate(nullptr)),
                           ExpatContext{this, nullptr, 0, {}}});
    XML_Parser parser = parse_->parser.get();
    if (!parser) {
        parse_.reset();
        parserParseErrorOccurred(XMLError{"out of memory", 0, 0});
        return false;
    }
    parse_->context.parser = parser;
    XML_SetUserData(parser, &parse_->context);
    XML_SetElementHandler(parser, onStartElement, onEndElement);
    XML_SetCharacterDataHandler(parser, onCharacters);
    XML_SetEntityDeclHandler(parser, onEntityDeclaration);
    // No external entity handler is set, so external entities are skipped, never fetched; the
    // external DTD subset and external parameter entities are not read either.
    XML_SetParamEntityParsing(parser, XML_PARAM_ENTITY_PARSING_NEVER);
#ifdef XML_DTD
    XML_SetBillionLaughsAttackProtectionMaximumAmplification(parser, kMaxEntityAmplification);
#endif
    return true;
}

bool XMLReader::feed(std::string_view piece, bool last)
{
    return XML_Parse(parse_->parser.get(), piece.data(), static_cast<int>(piece.size()),
                     last ? XML_TRUE : XML_FALSE) == XML_STATUS_OK;
}

std::optional<XMLNode> XMLReader::endParse(bool ok)
{
    std::optional<XMLNode> result;
    if (ok) {
        result.emplace(std::move(root_));
    } else {
        XML_Parser parser = parse_->parser.get();
        const std::string &stopReason = parse_->context.stopReason;
        XMLError error;
        error.message = stopReason.empty() ? XML_ErrorString(XML_GetErrorCode(parser)) : stopReason;
        error.line = XML_GetCurrentLineNumber(parser);
        error.column = XML_GetCurrentColumnNumber(parser) + 1;
        parserParseErrorOccurred(std::move(error));
    }
    parse_.reset();
    root_ = XMLNode(); // a partly built tree is dropped
    dictionaryStack_.clear();
    textInProgress_.clear();
    return result;
}

void XMLReader::parserDidStartElement(std::string_view name, const char *const *attributes)
{
    XMLNode child;
    std::size_t count = 0;
    while (attributes && attributes[2 * count])
        ++count;
    child.reserve(count);
    for (std::size_t i = 0; i < count; ++i)
        child.insert(attributes[2 * i], XMLNode(attributes[2 * i + 1]));

    XMLNode &parent = *dictionaryStack_.back();
    XMLNode *slot = nullptr;
    if (XMLNode *existing = parent.find(name)) {
        if (!existing->isArray()) {
            XMLNode first = std::move(*existing);
            *existing = XMLNode::array();
            existing->append(std::move(first));
        }
        slot = existing->append(std::move(child));
    } else {
        slot = parent.insert(name, std::move(child));
    }
    dictionaryStack_.push_back(slot);
}

void XMLReader::parserDidEndElement(std::string_view name)
{
    if (dictionaryStack_.size() < 2)
        return; // unbalanced events; expat does not send them
    XMLNode *node = dictionaryStack_.back();
    dictionaryStack_.pop_back();
    const bool hasText = !textInProgress_.empty();
    const bool hasKeys = !node->empty();
    if (hasText) {
        // The node is parent[name] itself, or the last item of the array under that name:
        // replacing it in place is the collapse of the leaf to its text.
        XMLNode text(std::move(textInProgress_));
        if (hasKeys)
            node->insert("text", std::move(text));
        else
            *node = std::move(text);
        textInProgress_.clear();
    } else if (!hasKeys) {
        dictionaryStack_.back()->remove(name);
    }
}

void XMLReader::parserFoundCharacters(std::string_view characters)
{
    textInProgress_ += trimWhitespaceAndNewlines(characters);
}

void XMLReader::parserParseErrorOccurred(XMLError error)
{
    if (errorPointer_)
        *errorPointer_ = std::move(error);
}
