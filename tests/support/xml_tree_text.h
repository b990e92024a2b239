#pragma once
// Writes an XMLNode tree in the notation used to describe reader results: dictionaries as
// {key: value, ...} in entry order, arrays as [item, ...], strings bare ("" when empty).
// Recursive: for the small trees of tests only.

#include "XMLNode.h"

#include <string>

inline std::string treeText(const XMLNode &node)
{
    switch (node.kind()) {
    case XMLNode::Kind::String:
        return node.empty() ? std::string("\"\"") : *node.stringValue();
    case XMLNode::Kind::Array: {
        std::string text = "[";
        for (const XMLNode &item : node.items())
            text += (text.size() > 1 ? ", " : "") + treeText(item);
        return text + "]";
    }
    case XMLNode::Kind::Dictionary: {
        std::string text = "{";
        for (const XMLDictionaryEntry &entry : node.entries())
            text += (text.size() > 1 ? ", " : "") + entry.key + ": " + treeText(entry.value);
        return text + "}";
    }
    }
    return {};
}
