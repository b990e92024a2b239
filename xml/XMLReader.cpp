#include "XMLReader.h"

#include "HugePages.h"
#include "XMLStrings.h"
#include "XMLTreeBuilder.h"

#include <expat.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <new>
#include <stdexcept>
#include <utility>

// The library has the amplification limit when it is built with DTD support (Debian's is) even
// where its header hides the declarations (they sit under XML_DTD); the build checks that the
// functions link (CXF_EXPAT_HAS_AMPLIFICATION_LIMIT) and they are declared here.
#if defined(CXF_EXPAT_HAS_AMPLIFICATION_LIMIT) && !defined(XML_DTD)
extern "C" {
XMLPARSEAPI(XML_Bool)
XML_SetBillionLaughsAttackProtectionMaximumAmplification(XML_Parser parser,
                                                         float maximumAmplificationFactor);
XMLPARSEAPI(XML_Bool)
XML_SetBillionLaughsAttackProtectionActivationThreshold(
    XML_Parser parser, unsigned long long activationThresholdBytes);
}
#endif

namespace {

// The state of one expat parse that the callbacks reach through expat's user data.
struct ExpatContext {
    XMLReader *reader;
    XML_Parser parser;
    XMLTreeBuilder *builder;
    const XMLReadLimits *limits;
    std::size_t entityDeclarations = 0;
    std::string stopReason; // set when a handler stopped the parser
};

ExpatContext &contextOf(void *userData)
{
    return *static_cast<ExpatContext *>(userData);
}

// Stops the parse with reason as its error; events that expat still delivers are ignored.
void stop(ExpatContext &context, std::string reason)
{
    if (!context.stopReason.empty())
        return;
    context.stopReason = reason.empty() ? std::string("stopped") : std::move(reason);
    XML_StopParser(context.parser, XML_FALSE);
}

std::string over(std::size_t limit, const char *what)
{
    return "more than " + std::to_string(limit) + " " + what;
}

// Runs an event; running out of memory stops the parse instead of leaving through expat.
template <typename Event> void guarded(ExpatContext &context, Event event)
{
    if (!context.stopReason.empty())
        return;
    try {
        event();
    } catch (const std::bad_alloc &) {
        stop(context, "out of memory");
    } catch (const std::length_error &) {
        stop(context, "out of memory");
    }
}

void XMLCALL onStartElement(void *userData, const XML_Char *name, const XML_Char **attributes)
{
    ExpatContext &context = contextOf(userData);
    guarded(context, [&] {
        const XMLReadLimits &limits = *context.limits;
        const XMLTreeBuilder &builder = *context.builder;
        std::size_t count = 0;
        while (attributes && attributes[2 * count])
            ++count;
        if (builder.depth() >= limits.maxDepth)
            return stop(context, over(limits.maxDepth, "levels of nested elements"));
        if (builder.elements() >= limits.maxElements)
            return stop(context, over(limits.maxElements, "elements"));
        if (count > limits.maxAttributesPerElement)
            return stop(context, over(limits.maxAttributesPerElement, "attributes on one element"));
        if (count > limits.maxAttributes - builder.attributes())
            return stop(context, over(limits.maxAttributes, "attributes"));
        context.reader->parserDidStartElement(name, attributes);
        if (builder.names() > limits.maxNames)
            stop(context, over(limits.maxNames, "distinct names"));
    });
}

void XMLCALL onEndElement(void *userData, const XML_Char *name)
{
    ExpatContext &context = contextOf(userData);
    guarded(context, [&] { context.reader->parserDidEndElement(name); });
}

void XMLCALL onCharacters(void *userData, const XML_Char *characters, int length)
{
    ExpatContext &context = contextOf(userData);
    guarded(context, [&] {
        context.reader->parserFoundCharacters(
            std::string_view(characters, static_cast<std::size_t>(length)));
        if (context.builder->textBytes() > context.limits->maxTextBytes)
            stop(context, over(context.limits->maxTextBytes, "bytes of text"));
    });
}

// Counts entity declarations (general and parameter): a chain of entities that refer to one
// another is expanded by recursion inside expat, so their number is what bounds its depth.
void XMLCALL onEntityDeclaration(void *userData, const XML_Char *, int, const XML_Char *, int,
                                 const XML_Char *, const XML_Char *, const XML_Char *,
                                 const XML_Char *)
{
    ExpatContext &context = contextOf(userData);
    if (++context.entityDeclarations > XMLReader::kMaxEntityDeclarations)
        stop(context, "too many entity declarations (more than " +
                          std::to_string(XMLReader::kMaxEntityDeclarations) + ")");
}

// expat's memory under a budget (XMLReadLimits::maxParserBytes): each block carries its size
// in front. The functions take no user data, so the budget of the parse being run on this
// thread is reached through tParserBudget, set around every call into expat.
struct ParserBudget {
    std::size_t limit;
    std::size_t used = 0;
};
thread_local ParserBudget *tParserBudget = nullptr;

// In front of each block: the size expat asked for, and the length of the huge block it sits
// in (0 for one from malloc).
constexpr std::size_t kBlockHeader = alignof(std::max_align_t);
static_assert(2 * sizeof(std::size_t) <= kBlockHeader);

void *budgetMalloc(std::size_t size)
{
    ParserBudget *budget = tParserBudget;
    if (budget && size > budget->limit - std::min(budget->limit, budget->used))
        return nullptr;
    // expat's input buffer (a megabyte or two) is filled at once: whole huge pages for it.
    unsigned char *block = nullptr;
    std::size_t length = 0;
    if (size >= kHugePageBytes / 2 && size <= SIZE_MAX / 2) {
        length = kBlockHeader + size;
        try {
            block = static_cast<unsigned char *>(takeHugeBlock(length));
        } catch (const std::bad_alloc &) {
            return nullptr;
        }
    } else {
        block = static_cast<unsigned char *>(std::malloc(kBlockHeader + size));
    }
    if (!block)
        return nullptr;
    std::memcpy(block, &size, sizeof size);
    std::memcpy(block + sizeof size, &length, sizeof length);
    if (budget)
        budget->used += size;
    return block + kBlockHeader;
}

void budgetFree(void *pointer)
{
    if (!pointer)
        return;
    auto *block = static_cast<unsigned char *>(pointer) - kBlockHeader;
    std::size_t size, length;
    std::memcpy(&size, block, sizeof size);
    std::memcpy(&length, block + sizeof size, sizeof length);
    if (ParserBudget *budget = tParserBudget)
        budget->used -= std::min(budget->used, size);
    if (length)
        giveBackHugeBlock(block, length);
    else
        std::free(block);
}

void *budgetRealloc(void *pointer, std::size_t size)
{
    if (!pointer)
        return budgetMalloc(size);
    void *fresh = budgetMalloc(size);
    if (!fresh)
        return nullptr;
    std::size_t old;
    std::memcpy(&old, static_cast<unsigned char *>(pointer) - kBlockHeader, sizeof old);
    std::memcpy(fresh, pointer, std::min(old, size));
    budgetFree(pointer);
    return fresh;
}

const XML_Memory_Handling_Suite kBudgetSuite = {budgetMalloc, budgetRealloc, budgetFree};

// Sets the thread's parser budget for the length of a call into expat.
class BudgetScope
{
public:
    explicit BudgetScope(ParserBudget *budget) : previous_(tParserBudget)
    {
        tParserBudget = budget;
    }
    ~BudgetScope() { tParserBudget = previous_; }
    BudgetScope(const BudgetScope &) = delete;
    BudgetScope &operator=(const BudgetScope &) = delete;

private:
    ParserBudget *previous_;
};

struct ParserFree {
    void operator()(XML_ParserStruct *parser) const noexcept { XML_ParserFree(parser); }
};

} // namespace

struct XMLReader::Parse {
    ParserBudget budget;
    bool budgeted;
    std::unique_ptr<XML_ParserStruct, ParserFree> parser;
    ExpatContext context;
};

void XMLReader::ParseDelete::operator()(Parse *parse) const noexcept
{
    BudgetScope scope(parse->budgeted ? &parse->budget : nullptr);
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

XMLReader::XMLReader(XMLError *error, const XMLReadLimits &limits)
    : limits_(limits), errorPointer_(error)
{
}

XMLReader::~XMLReader() = default;

std::optional<XMLNode> XMLReader::dictionaryForXMLData(std::string_view data, XMLError *error,
                                                       const XMLReadLimits &limits)
{
    XMLReader reader(error, limits);
    return reader.objectWithData(data);
}

// The joined text is handed to expat in pieces as it is produced, never held whole: the bytes
// expat sees are exactly joinTrimmedLines(text).
std::optional<XMLNode> XMLReader::dictionaryForXMLString(std::string_view text, XMLError *error,
                                                         const XMLReadLimits &limits)
{
    XMLReader reader(error, limits);
    if (!reader.beginParse(text.size()))
        return std::nullopt;
    // The joined lines are written straight into expat's buffer, a piece at a time.
    bool ok = true;
    const std::size_t pieceBytes = std::min(text.size() + 1, kPieceBytes);
    char *piece = nullptr;
    std::size_t filled = 0;
    forEachTrimmedLine(text, [&](std::string_view line) {
        while (ok && !line.empty()) {
            if (!piece && !(piece = reader.pieceBuffer(pieceBytes))) {
                ok = false;
                return;
            }
            const std::size_t n = std::min(line.size(), pieceBytes - filled);
            std::memcpy(piece + filled, line.data(), n);
            filled += n;
            line.remove_prefix(n);
            if (filled == pieceBytes) {
                ok = reader.feedPieceBuffer(filled, false);
                piece = nullptr;
                filled = 0;
            }
        }
    });
    if (ok)
        ok = piece ? reader.feedPieceBuffer(filled, true) : reader.feed({}, true);
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
    if (!beginParse(data.size()))
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

bool XMLReader::beginParse(std::size_t documentBytes)
{
    parse_.reset();
    try {
        builder_ = std::make_unique<XMLTreeBuilder>(documentBytes);
        parse_.reset(new Parse{ParserBudget{limits_.maxParserBytes},
                               limits_.maxParserBytes != SIZE_MAX, nullptr,
                               ExpatContext{this, nullptr, builder_.get(), &limits_, 0, {}}});
    } catch (const std::bad_alloc &) {
        builder_.reset();
        parserParseErrorOccurred(XMLError{"out of memory", 0, 0});
        return false;
    }
    {
        BudgetScope scope(parse_->budgeted ? &parse_->budget : nullptr);
        parse_->parser.reset(parse_->budgeted ? XML_ParserCreate_MM(nullptr, &kBudgetSuite, nullptr)
                                              : XML_ParserCreate(nullptr));
    }
    XML_Parser parser = parse_->parser.get();
    if (!parser) {
        parse_.reset();
        builder_.reset();
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
#ifdef CXF_EXPAT_HAS_AMPLIFICATION_LIMIT
    XML_SetBillionLaughsAttackProtectionMaximumAmplification(parser, kMaxEntityAmplification);
    XML_SetBillionLaughsAttackProtectionActivationThreshold(parser, kEntityAmplificationThreshold);
#endif
    return true;
}

char *XMLReader::pieceBuffer(std::size_t bytes)
{
    BudgetScope scope(parse_->budgeted ? &parse_->budget : nullptr);
    return static_cast<char *>(XML_GetBuffer(parse_->parser.get(), static_cast<int>(bytes)));
}

bool XMLReader::feedPieceBuffer(std::size_t bytes, bool last)
{
    BudgetScope scope(parse_->budgeted ? &parse_->budget : nullptr);
    return XML_ParseBuffer(parse_->parser.get(), static_cast<int>(bytes),
                           last ? XML_TRUE : XML_FALSE) == XML_STATUS_OK;
}

bool XMLReader::feed(std::string_view piece, bool last)
{
    BudgetScope scope(parse_->budgeted ? &parse_->budget : nullptr);
    return XML_Parse(parse_->parser.get(), piece.data(), static_cast<int>(piece.size()),
                     last ? XML_TRUE : XML_FALSE) == XML_STATUS_OK;
}

std::optional<XMLNode> XMLReader::endParse(bool ok)
{
    std::optional<XMLNode> result;
    if (ok) {
        try {
            result.emplace(builder_->finish());
        } catch (const std::bad_alloc &) {
            ok = false;
            parse_->context.stopReason = "out of memory";
        }
    }
    if (!ok) {
        XML_Parser parser = parse_->parser.get();
        const std::string &stopReason = parse_->context.stopReason;
        XMLError error;
        error.message = stopReason.empty() ? XML_ErrorString(XML_GetErrorCode(parser)) : stopReason;
        error.line = XML_GetCurrentLineNumber(parser);
        error.column = XML_GetCurrentColumnNumber(parser) + 1;
        parserParseErrorOccurred(std::move(error));
    }
    parse_.reset();
    builder_.reset(); // a partly built tree is dropped
    return result;
}

void XMLReader::parserDidStartElement(std::string_view name, const char *const *attributes)
{
    builder_->startElement(name, attributes);
}

void XMLReader::parserDidEndElement(std::string_view)
{
    builder_->endElement();
}

void XMLReader::parserFoundCharacters(std::string_view characters)
{
    builder_->characters(characters);
}

void XMLReader::parserParseErrorOccurred(XMLError error)
{
    if (errorPointer_)
        *errorPointer_ = std::move(error);
}
