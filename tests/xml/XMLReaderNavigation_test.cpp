// retrieveForPath over the trees the reader produces.
#include "XMLReaderNavigation.h"

#include "XMLReader.h"

#include <gtest/gtest.h>

namespace {

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
    const struct {
        const char *path, *result;
    } cases[] = {
        {"a.b.last", "2"}, {"a.b.0", "1"},        {"a.b.1", "2"},      {"a.b.5", "nil"},
        {"a.b.2", "nil"},  {"a.b.-1", "nil"},     {"a.b.x", "1"},      {"a.b.", "1"},
        {"a.b.1x", "2"},   {"a.b", "array"},      {"a", "dictionary"}, {"a.c.x", "7"},
        {"a.c.text", "t"}, {"a.d", "nil"},        {"z", "nil"},        {"", "nil"},
        {"a..b", "nil"},   {"a.b.last.x", "nil"}, {"a.c.x.y", "nil"},  {"a.b.99999999999", "nil"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(found(*tree, c.path), c.result) << c.path;
}

TEST(RetrieveForPath, LastOfAnEmptyArrayAndAStartThatIsNoDictionary)
{
    XMLNode tree;
    tree.insert("list", XMLNode::array());
    EXPECT_EQ(retrieveForPath(tree, "list.last"), nullptr);
    EXPECT_EQ(retrieveForPath(tree, "list.0"), nullptr);
    EXPECT_EQ(retrieveForPath(XMLNode("s"), "s"), nullptr);
}

} // namespace
