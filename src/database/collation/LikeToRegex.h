#pragma once

#include <QString>
#include <optional>

#include "database/collation/LikePattern.h"

namespace database {

// A pattern of the suite's LIKE in the words of other engines. None of these texts is quoted yet.

/// For a plain LIKE without an escape character over folded texts; none for a pattern that needs more than "%" and "_".
std::optional<QString> FoldedLikeText(const LikePattern& pattern);

/// For PostgreSQL's regular expressions over folded texts.
QString FoldedExpression(const LikePattern& pattern);

/// For Perl's regular expressions over texts as they are stored: each character stands with all those that fold to it,
/// a voiced kana also as the kana with its mark behind it. Time grows with the length of the text, as in LikePattern.
QString StoredExpression(const LikePattern& pattern);

}  // namespace database
