#pragma once

#include <QString>
#include <optional>

#include "database/collation/LikePattern.h"

namespace database {

// Translation of a LIKE pattern of the suite for server engines. The results are not yet quoted as SQL literals.

/// For the server's LIKE, without an escape character, over folded text. Empty if the pattern needs more than "%" and
/// "_".
std::optional<QString> FoldedLikeText(const LikePattern& pattern);

/// PostgreSQL regular expression over folded text.
QString FoldedExpression(const LikePattern& pattern);

/// Perl-compatible regular expression over text as it is stored: each character becomes a class of all characters that
/// fold to it, a voiced kana also the kana followed by its mark. No backtracking, as in LikePattern.
QString StoredExpression(const LikePattern& pattern);

}  // namespace database
