// XMLReader: trees, line joining, errors, resources, navigation and hostile documents.
#include "XMLReader.h"
#include "XMLReaderNavigation.h"

#include "xml_tree_text.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include <unistd.h>

namespace {

std::string treeOfData(const std::string &document)
{
    XMLError error;
    const auto tree = XMLReader::dictionaryForXMLData(document, &error);
    return tree ? treeText(*tree) : "error: " + error.description();
}

std::string treeOfString(const std::string &document)
{
    XMLError error;
    const auto tree = XMLReader::dictionaryForXMLString(document, &error);
    return tree ? treeText(*tree) : "error: " + error.description();
}

// tests/data/xml/reader_trees.txt: documents and the trees they read as.
TEST(ReaderTree, BuildsTheDescribedTree)
{
    std::ifstream in(CXF_TEST_DATA_DIR "/xml/reader_trees.txt");
    int cases = 0;
    for (std::string document, tree; std::getline(in, document);) {
        if (document.empty() || document[0] == '#')
            continue;
        ASSERT_TRUE(std::getline(in, tree)) << document;
        SCOPED_TRACE(document);
        EXPECT_EQ(treeOfData(document), tree);
        EXPECT_EQ(treeOfString(document), tree);
        ++cases;
    }
    EXPECT_EQ(cases, 19);
}

TEST(ReaderString, JoinsTrimmedLinesBeforeParsing)
{
    EXPECT_EQ(treeOfString("<a>\r\n  <b>\n    51.2\n  </b>\n</a>\n"), "{a: {b: 51.2}}");
    // An attribute continued over a line break is joined without a space; the data entry keeps
    // XML's attribute-value normalisation (the line break becomes a space).
    EXPECT_EQ(treeOfString("<a b=\"x\n   y\"/>"), "{a: {b: xy}}");
    EXPECT_EQ(treeOfData("<a b=\"x\n   y\"/>"), "{a: {b: x    y}}");
}

TEST(ReaderErrors, CarryExpatsMessageWithLineAndColumn)
{
    EXPECT_EQ(treeOfData(""), "error: no element found at line 1, column 1");
    EXPECT_EQ(treeOfData("<a>\xff</a>"),
              "error: not well-formed (invalid token) at line 1, column 4");
    EXPECT_EQ(treeOfData(std::string("<a>\0</a>", 8)),
              "error: not well-formed (invalid token) at line 1, column 4");
    // The string entry joins the lines first; a null error slot is accepted.
    EXPECT_EQ(treeOfString("<a>\n<b>\n</a>"), "error: mismatched tag at line 1, column 9");
    EXPECT_FALSE(XMLReader::dictionaryForXMLData("<a><b></a>", nullptr));
}

TEST(ReaderReuse, EachParseStartsAfreshAndNamedResourcesAreFound)
{
    XMLError error;
    XMLReader reader(&error);
    EXPECT_FALSE(reader.objectWithData("<a>half"));
    EXPECT_EQ(treeText(*reader.objectWithData("<c>1</c>")), "{c: 1}");
    const auto resource = XMLReader::dictionaryForPath("cxf-template", &error);
    ASSERT_TRUE(resource) << error.description();
    EXPECT_TRUE(retrieveForPath(*resource, "CxF:CxF.CxF:Palette.CxF:ColorSet.ColorSetName")
                    ->equalsString("Untitled palette"));
    EXPECT_FALSE(XMLReader::dictionaryForPath("no-such-resource", &error));
    EXPECT_EQ(error.message.rfind("cannot read XML resource ", 0), 0u) << error.message;
}

std::string found(const XMLNode &tree, const char *path)
{
    const XMLNode *node = retrieveForPath(tree, path);
    if (!node)
        return "nil";
    return node->isString() ? *node->stringValue() : node->isArray() ? "array" : "dictionary";
}

TEST(RetrieveForPath, FollowsDictionariesAndArrays)
{
    const auto tree =
        XMLReader::dictionaryForXMLData("<a><b>1</b><b>2</b><c x=\"7\">t</c><d/></a>", nullptr);
    ASSERT_TRUE(tree);
    const std::pair<const char *, const char *> cases[] = {
        {"a.b.last", "2"}, {"a.b.0", "1"},        {"a.b.1", "2"},      {"a.b.5", "nil"},
        {"a.b.2", "nil"},  {"a.b.-1", "nil"},     {"a.b.x", "1"},      {"a.b.", "1"},
        {"a.b.1x", "2"},   {"a.b", "array"},      {"a", "dictionary"}, {"a.c.x", "7"},
        {"a.c.text", "t"}, {"a.d", "nil"},        {"z", "nil"},        {"", "nil"},
        {"a..b", "nil"},   {"a.b.last.x", "nil"}, {"a.c.x.y", "nil"},  {"a.b.99999999999", "nil"},
    };
    for (const auto &[path, result] : cases)
        EXPECT_EQ(found(*tree, path), result) << path;
    EXPECT_EQ(retrieveForPath(XMLNode("s"), "s"), nullptr);
}

TEST(ReaderPieces, DocumentsLongerThanOnePieceReadWhole)
{
    // Elements, a text and an attribute value all cross the borders between the pieces that go
    // to expat, in both entries (the string entry joins lines on the way).
    const std::size_t count = 2 * XMLReader::kPieceBytes / 20;
    std::string document = "<a>\n";
    for (std::size_t i = 0; i < count; ++i)
        document += "  <b>" + std::to_string(i) + "</b>\n";
    const std::string longText(XMLReader::kPieceBytes + 7, 't');
    document += "<c v=\"" + longText + "\">" + longText + "</c></a>";
    for (const bool joined : {false, true}) {
        SCOPED_TRACE(joined ? "string" : "data");
        const auto tree = joined ? XMLReader::dictionaryForXMLString(document, nullptr)
                                 : XMLReader::dictionaryForXMLData(document, nullptr);
        ASSERT_TRUE(tree);
        const XMLNode *b = tree->find("a")->find("b");
        ASSERT_EQ(b->size(), count);
        EXPECT_TRUE(b->items()[count - 1].equalsString(std::to_string(count - 1)));
        const XMLNode *c = tree->find("a")->find("c");
        EXPECT_TRUE(c->find("v")->equalsString(longText));
        EXPECT_TRUE(c->find("text")->equalsString(longText));
    }
}

TEST(ReaderHostile, HundredThousandNestedElementsWithText)
{
    std::string document;
    for (int i = 0; i < 100000; ++i)
        document += "<e>";
    document += "x";
    for (int i = 0; i < 100000; ++i)
        document += "</e>";
    const auto tree = XMLReader::dictionaryForXMLData(document, nullptr);
    ASSERT_TRUE(tree);
    // Walk down iteratively: 99,999 dictionaries, then the collapsed innermost leaf.
    const XMLNode *node = &*tree;
    int depth = 0;
    while (node->isDictionary()) {
        node = node->find("e");
        ASSERT_NE(node, nullptr);
        ++depth;
    }
    EXPECT_EQ(depth, 100000);
    EXPECT_TRUE(node->equalsString("x"));
    const XMLNode copy = *tree; // copy and destruction must not recurse either
    EXPECT_TRUE(copy == *tree);
}

std::string entityChain(int count)
{
    std::string document = "<!DOCTYPE a [<!ENTITY e0 \"z\">";
    for (int i = 1; i < count; ++i)
        document += "<!ENTITY e" + std::to_string(i) + " \"&e" + std::to_string(i - 1) + ";\">";
    return document + "]><a>&e" + std::to_string(count - 1) + ";</a>";
}

TEST(ReaderHostile, EntityChainsAreBoundedInLength)
{
    // A chain within the limit expands (expat follows it by recursion)...
    EXPECT_EQ(treeOfData(entityChain(XMLReader::kMaxEntityDeclarations)), "{a: z}");
    // ... and a long one is refused before it is expanded.
    XMLError error;
    EXPECT_FALSE(XMLReader::dictionaryForXMLData(entityChain(100000), &error));
    EXPECT_EQ(error.message, "too many entity declarations (more than 256)");
}

TEST(ReaderHostile, ExternalEntitiesAreNeverLoaded)
{
    const auto dir = std::filesystem::temp_directory_path();
    const auto secret = dir / ("cxf-reader-secret-" + std::to_string(::getpid()) + ".txt");
    const auto dtd = dir / ("cxf-reader-dtd-" + std::to_string(::getpid()) + ".dtd");
    std::ofstream(secret) << "SECRET";
    std::ofstream(dtd) << "<!ENTITY fromdtd \"SECRET\">";
    const std::string url = "file://" + secret.string(), dtdUrl = "file://" + dtd.string();
    const std::string documents[] = {
        "<!DOCTYPE a [<!ENTITY x SYSTEM \"" + url + "\">]><a><b>1</b><c>&x;</c></a>",
        "<!DOCTYPE a [<!ENTITY x SYSTEM \"" + url + "\">]><a><b>1</b><c v=\"&x;\"/></a>",
        "<!DOCTYPE a [<!ENTITY % p SYSTEM \"" + dtdUrl + "\"> %p;]><a><b>1</b><c>&fromdtd;</c></a>",
        "<!DOCTYPE a SYSTEM \"" + dtdUrl + "\"><a><b>1</b><c>&fromdtd;</c></a>",
    };
    for (const auto &document : documents) {
        SCOPED_TRACE(document);
        const std::string tree = treeOfData(document);
        EXPECT_EQ(tree.find("SECRET"), std::string::npos) << tree;
    }
    // A reference to an external entity in text is skipped.
    EXPECT_EQ(treeOfData(documents[0]), "{a: {b: 1}}");
    std::filesystem::remove(secret);
    std::filesystem::remove(dtd);
}

} // namespace
