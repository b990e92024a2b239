// XMLNode: dictionary semantics (replacing, removing, the hash index of large dictionaries),
// deep equality, and copies and destruction of trees far deeper than the stack allows
// recursion for.
#include "XMLNode.h"

#include "xml_tree_text.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>

namespace {

// A chain of depth dictionaries {k: {k: ... "leaf"}} built without recursion.
XMLNode chain(int depth)
{
    XMLNode node("leaf");
    for (int i = 0; i < depth; ++i) {
        XMLNode parent;
        parent.insert("k", std::move(node));
        node = std::move(parent);
    }
    return node;
}

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

TEST(XMLNodeDictionary, WrongKindsAnswerNothing)
{
    XMLNode text("t");
    EXPECT_EQ(text.find("t"), nullptr);
    EXPECT_EQ(text.insert("k", XMLNode("v")), nullptr);
    EXPECT_FALSE(text.remove("k"));
    EXPECT_EQ(text.append(XMLNode("v")), nullptr);
    EXPECT_TRUE(text.items().empty());
    EXPECT_TRUE(text.entries().empty());
    EXPECT_EQ(XMLNode::array().stringValue(), nullptr);
    EXPECT_FALSE(XMLNode().equalsString(""));
    EXPECT_EQ(text.size(), 1u);
}

TEST(XMLNodeDictionary, LargeDictionariesStayConsistentThroughRemovals)
{
    // Past the index threshold, removal moves the last entry into the hole: every remaining
    // key must still be found with its own value.
    XMLNode node;
    const int count = 200;
    for (int i = 0; i < count; ++i)
        node.insert("k" + std::to_string(i), XMLNode(std::to_string(i)));
    for (int i = 0; i < count; i += 3)
        EXPECT_TRUE(node.remove("k" + std::to_string(i)));
    node.insert("k10", XMLNode("ten")); // replaces in place
    for (int i = 0; i < count; ++i) {
        const XMLNode *value = node.find("k" + std::to_string(i));
        if (i % 3 == 0) {
            EXPECT_EQ(value, nullptr) << i;
        } else {
            ASSERT_NE(value, nullptr) << i;
            EXPECT_TRUE(value->equalsString(i == 10 ? "ten" : std::to_string(i))) << i;
        }
    }
    EXPECT_EQ(node.size(), static_cast<size_t>(count - (count + 2) / 3));
    const XMLNode copy = node; // the copy rebuilds its own index
    EXPECT_TRUE(copy.find("k199")->equalsString("199"));
    EXPECT_TRUE(copy == node);
}

TEST(XMLNodeDictionary, RandomInsertsAndRemovalsAgreeWithAModel)
{
    // Inserts, replacements and removals at random over a few hundred keys, so that the hash
    // index sees long probe runs, wrap-around and removals in the middle of runs; after every
    // step a sample of keys, and at the end every key, must agree with std::map.
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
        if (found) {
            ASSERT_TRUE(found->equalsString(expected->second)) << step;
        }
    }
    EXPECT_EQ(node.size(), model.size());
    for (const auto &[key, value] : model)
        EXPECT_TRUE(node.find(key) && node.find(key)->equalsString(value)) << key;
}

TEST(XMLNodeEquality, IgnoresKeyOrderButNotItemOrder)
{
    XMLNode ab, ba;
    ab.insert("a", XMLNode("1"));
    ab.insert("b", XMLNode("2"));
    ba.insert("b", XMLNode("2"));
    ba.insert("a", XMLNode("1"));
    EXPECT_TRUE(ab == ba);

    XMLNode list12 = XMLNode::array(), list21 = XMLNode::array();
    list12.append(XMLNode("1"));
    list12.append(XMLNode("2"));
    list21.append(XMLNode("2"));
    list21.append(XMLNode("1"));
    EXPECT_FALSE(list12 == list21);
    EXPECT_FALSE(XMLNode() == XMLNode::array());
    EXPECT_FALSE(XMLNode("") == XMLNode());
    ba.insert("a", XMLNode("9"));
    EXPECT_FALSE(ab == ba);
}

TEST(XMLNodeDeepTrees, CopyCompareAssignAndDestroyWithoutRecursion)
{
    const int depth = 300000;
    XMLNode tree = chain(depth);
    XMLNode copy = tree;
    EXPECT_TRUE(copy == tree);
    // Changing the innermost leaf of the copy makes the trees differ.
    XMLNode *node = &copy;
    while (node->find("k") && node->find("k")->isDictionary())
        node = node->find("k");
    node->insert("k", XMLNode("other"));
    EXPECT_FALSE(copy == tree);
    copy = tree;
    EXPECT_TRUE(copy == tree);
    tree = XMLNode(); // assignment drops the old deep tree
    EXPECT_TRUE(tree.empty());
}

TEST(XMLNodeDeepTrees, DeepArraysToo)
{
    XMLNode node("leaf");
    for (int i = 0; i < 300000; ++i) {
        XMLNode parent = XMLNode::array();
        parent.append(std::move(node));
        node = std::move(parent);
    }
    const XMLNode copy = node;
    EXPECT_TRUE(copy == node);
}

} // namespace
