#pragma once

#include "database/sql/SyntaxTree.h"

namespace database {

/// Brackets every OR or AND chain of the level that has more than `longest` terms into a tree whose nodes have at
/// most `fanOut` terms each, so that an engine which counts a chain of n terms as n levels takes it. The terms keep
/// their order and the condition its meaning. Works on this level alone, not inside its brackets.
void BalanceChains(NodeList& level, size_t longest, size_t fanOut = 32);

}  // namespace database
