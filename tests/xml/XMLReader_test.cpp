// XMLReader: the mapping from documents to trees, the line joining of dictionaryForXMLString,
// error reports, named resources, and hostile documents (deep nesting, entity expansion,
// external entities), which must end in a tree or an error, never in a crash.
#include "XMLReader.h"

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

TEST(ReaderTree, BuildsTheDescribedTree)
{
    const std::pair<const char *, const char *> cases[] = {
        {"<a><b>1</b></a>", "{a: {b: 1}}"},
        {"<a><b>1</b><b>2</b><b>3</b></a>", "{a: {b: [1, 2, 3]}}"},
        {"<a><b x=\"7\">1</b></a>", "{a: {b: {x: 7, text: 1}}}"},
        {"<a b=\"1\"><b>2</b></a>", "{a: {b: [1, 2]}}"},
        {"<a text=\"q\">t</a>", "{a: {text: t}}"},
        {"<a><b x=\"\"/></a>", "{a: {b: {x: \"\"}}}"},
        // An empty leaf is removed, with the array of its name, and empties its parent.
        {"<a><b/></a>", "{}"},
        {"<a><b>1</b><b/></a>", "{}"},
        {"<a><c>3</c><b>1</b><b/></a>", "{a: {c: 3}}"},
        {"<a> <b> </b> </a>", "{}"},
        // One text accumulator for the whole parse: text before a child goes to the child.
        {"<a>x<b/></a>", "{a: {b: x}}"},
        {"<a>x<b>1</b>y</a>", "{a: {b: x1, text: y}}"},
        // Each chunk expat hands over is trimmed on its own, Unicode spaces included.
        {"<a>a &amp; b</a>", "{a: a&b}"},
        {"<a>a&#32;b</a>", "{a: ab}"},
        {"<a>\u00a0\u30001\u2009</a>", "{a: 1}"},
        {"<?xml version=\"1.0\"?><!-- c --><a><?pi x?><b>1<!-- c --></b></a>", "{a: {b: 1}}"},
        {"<CxF:CxF xmlns:CxF=\"urn:x\"><CxF:Color ColorName=\"n\"/></CxF:CxF>",
         "{CxF:CxF: {xmlns:CxF: urn:x, CxF:Color: {ColorName: n}}}"},
    };
    for (const auto &[document, tree] : cases) {
        SCOPED_TRACE(document);
        EXPECT_EQ(treeOfData(document), tree);
        EXPECT_EQ(treeOfString(document), tree);
    }
}

TEST(ReaderString, JoinsTrimmedLinesBeforeParsing)
{
    // A value written over three lines reads as the bare value.
    EXPECT_EQ(treeOfString("<a>\n  <b>\n    51.2\n  </b>\n</a>\n"), "{a: {b: 51.2}}");
    // An attribute continued over a line break is joined without a space; the data entry keeps
    // XML's attribute-value normalisation (the line break becomes a space).
    EXPECT_EQ(treeOfString("<a b=\"x\n   y\"/>"), "{a: {b: xy}}");
    EXPECT_EQ(treeOfData("<a b=\"x\n   y\"/>"), "{a: {b: x    y}}");
    // Windows line ends.
    EXPECT_EQ(treeOfString("<a>\r\n <b>1</b>\r\n</a>\r\n"), "{a: {b: 1}}");
}

TEST(ReaderErrors, CarryExpatsMessageWithLineAndColumn)
{
    struct ErrorCase {
        std::string document;
        std::string message;
        unsigned long line, column;
    };
    const ErrorCase cases[] = {
        {"<a><b></a>", "mismatched tag", 1, 9},
        {"<a>\n<b>\n</a>", "mismatched tag", 3, 3},
        {"", "no element found", 1, 1},
        {"<a></a><b/>", "junk after document element", 1, 8},
        {"<a>\xff</a>", "not well-formed (invalid token)", 1, 4},
        {std::string("<a>\0</a>", 8), "not well-formed (invalid token)", 1, 4},
        {"<a>&undefined;</a>", "undefined entity", 1, 4},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.document);
        XMLError error;
        EXPECT_FALSE(XMLReader::dictionaryForXMLData(c.document, &error));
        EXPECT_EQ(error.message, c.message);
        EXPECT_EQ(error.line, c.line);
        EXPECT_EQ(error.column, c.column);
    }
    // The string entry joins the lines first; a null error slot is accepted.
    XMLError error;
    EXPECT_FALSE(XMLReader::dictionaryForXMLString("<a>\n<b>\n</a>", &error));
    EXPECT_EQ(error.description(), "mismatched tag at line 1, column 9");
    EXPECT_FALSE(XMLReader::dictionaryForXMLData("<a><b></a>", nullptr));
}

TEST(ReaderReuse, EachParseStartsAfresh)
{
    XMLError error;
    XMLReader reader(&error);
    EXPECT_FALSE(reader.objectWithData("<a>half"));
    const auto tree = reader.objectWithData("<c>1</c>");
    ASSERT_TRUE(tree);
    EXPECT_EQ(treeText(*tree), "{c: 1}");
}

TEST(ReaderResources, ReadsANamedResourceShippedWithTheProgram)
{
    XMLError error;
    const auto tree = XMLReader::dictionaryForPath("cxf-template", &error);
    ASSERT_TRUE(tree) << error.description();
    const XMLNode *set = tree->find("CxF:CxF")->find("CxF:Palette")->find("CxF:ColorSet");
    ASSERT_NE(set, nullptr);
    EXPECT_TRUE(set->find("ColorSetName")->equalsString("Untitled palette"));

    EXPECT_FALSE(XMLReader::dictionaryForPath("no-such-resource", &error));
    EXPECT_EQ(error.message.rfind("cannot read XML resource ", 0), 0u) << error.message;
    EXPECT_EQ(error.line, 0u);
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
        for (std::size_t i = 0; i < count; i += 9973)
            EXPECT_TRUE(b->items()[i].equalsString(std::to_string(i))) << i;
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
