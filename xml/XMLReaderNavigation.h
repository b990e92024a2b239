#pragma once
// Dotted-path lookup over a tree built by XMLReader.

#include "XMLNode.h"

#include <string_view>

// Follows path, a list of keys joined by ".", from dictionary. The first component is looked up
// in dictionary; each further component c applies to the node reached so far:
// - on an array: "last" gives its last item (nullptr when empty); otherwise the integer value of
//   c (intValue, so a non-numeric component reads as 0) is an index, and an index that is
//   negative or not below the count gives nullptr;
// - on a dictionary: the value under c, or nullptr;
// - on a string, or after nullptr: nullptr (a string has no keys; asking one is not an error).
// Returns the node found, owned by the tree, or nullptr.
// Examples on {a: {b: [1, 2]}}: "a.b.last" gives 2, "a.b.5" gives nullptr, "a.b.x" gives 1,
// "a.b.-1" gives nullptr, "a.c" gives nullptr.
const XMLNode *retrieveForPath(const XMLNode &dictionary, std::string_view path);
