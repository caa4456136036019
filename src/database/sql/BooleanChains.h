#pragma once

#include "database/sql/SyntaxTree.h"

namespace database {

/// Brackets OR and AND chains of the level with more than `longest` terms into a tree whose nodes have at most `fanOut`
/// terms: some engines count n terms as a depth of n and reject deep expressions. Order of the terms and meaning are
/// unchanged. Does not descend into brackets.
void BalanceChains(NodeList& level, size_t longest, size_t fanOut = 32);

}  // namespace database
