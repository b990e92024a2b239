// XMLNode's dictionary against a model, with enough keys for the hash index and removals
// inside its probe runs. (The reader's tests build and copy deep trees.)
#include "XMLNode.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>

namespace {

TEST(XMLNodeDictionary, RandomInsertsAndRemovalsAgreeWithAModel)
{
    std::mt19937 random(20240514);
    std::map<std::string, std::string> model;
    XMLNode node;
    for (int step = 0; step < 20000; ++step) {
        const std::string key = "key" + std::to_string(random() % 400);
        if (random() % 3 == 0) {
            EXPECT_EQ(node.remove(key), model.erase(key) == 1);
        } else {
            node.insert(key, XMLNode(std::to_string(step)));
            model[key] = std::to_string(step);
        }
        const std::string probe = "key" + std::to_string(random() % 400);
        const XMLNode *found = node.find(probe);
        const auto expected = model.find(probe);
        ASSERT_EQ(found != nullptr, expected != model.end()) << step;
        ASSERT_TRUE(!found || found->equalsString(expected->second)) << step;
    }
    const XMLNode copy = node; // the copy rebuilds its own index
    EXPECT_EQ(copy.size(), model.size());
    for (const auto &[key, value] : model)
        EXPECT_TRUE(copy.find(key) && copy.find(key)->equalsString(value)) << key;
}

} // namespace
