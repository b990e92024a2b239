// XMLNode: order and replacement, the hash index against a model, and trees far deeper than the
// stack allows recursion for.
#include "XMLNode.h"

#include "xml_tree_text.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>

namespace {

TEST(XMLNodeDictionary, InsertReplacesAndRemoveDropsTheWholeValue)
{
    XMLNode node;
    node.insert("a", XMLNode("1"));
    node.insert("b", XMLNode::array())->append(XMLNode("2"));
    node.insert("a", XMLNode("3"));
    EXPECT_EQ(treeText(node), "{a: 3, b: [2]}");
    EXPECT_TRUE(node.remove("b"));
    EXPECT_FALSE(node.remove("b"));
    EXPECT_EQ(treeText(node), "{a: 3}");
}

TEST(XMLNodeDictionary, RandomInsertsAndRemovalsAgreeWithAModel)
{
    // Enough keys for the hash index, with long probe runs and removals inside them.
    std::mt19937 random(20240514);
    std::map<std::string, std::string> model;
    XMLNode node;
    for (int step = 0; step < 20000; ++step) {
        const std::string key = "key" + std::to_string(random() % 400);
        if (random() % 3 == 0) {
            EXPECT_EQ(node.remove(key), model.erase(key) == 1);
        } else {
            const std::string value = std::to_string(step);
            node.insert(key, XMLNode(value));
            model[key] = value;
        }
        const std::string probe = "key" + std::to_string(random() % 400);
        const XMLNode *found = node.find(probe);
        const auto expected = model.find(probe);
        ASSERT_EQ(found != nullptr, expected != model.end()) << step;
        ASSERT_TRUE(!found || found->equalsString(expected->second)) << step;
    }
    EXPECT_EQ(node.size(), model.size());
    for (const auto &[key, value] : model)
        EXPECT_TRUE(node.find(key) && node.find(key)->equalsString(value)) << key;
    const XMLNode copy = node; // the copy rebuilds its own index
    EXPECT_TRUE(copy == node);
}

TEST(XMLNodeDeepTrees, CopyCompareAssignAndDestroyWithoutRecursion)
{
    XMLNode tree("leaf"); // {k: {k: ... "leaf"}}
    for (int i = 0; i < 300000; ++i) {
        XMLNode parent;
        parent.insert("k", std::move(tree));
        tree = std::move(parent);
    }
    XMLNode copy = tree;
    EXPECT_TRUE(copy == tree);
    XMLNode *node = &copy; // a different innermost leaf makes the trees differ
    while (node->find("k") && node->find("k")->isDictionary())
        node = node->find("k");
    node->insert("k", XMLNode("other"));
    EXPECT_FALSE(copy == tree);
    tree = XMLNode(); // assignment drops the old deep tree

    XMLNode array("leaf");
    for (int i = 0; i < 300000; ++i) {
        XMLNode parent = XMLNode::array();
        parent.append(std::move(array));
        array = std::move(parent);
    }
    const XMLNode arrayCopy = array;
    EXPECT_TRUE(arrayCopy == array);
}

} // namespace
