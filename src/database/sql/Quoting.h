#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>

// Escapes values and names for SQL statements by quotes, in standard syntax, which every supported engine accepts.

namespace database {

/// A text literal: the text in single quotes, with the quotes inside doubled. Keeps trailing blanks, unlike
/// QuoteSqlText; wildcards of LIKE are not escaped. A null string becomes the empty text.
QString TextLiteral(QStringView text);
/// Same, but a null string becomes the keyword NULL.
QString TextOrNullLiteral(const QString& text);

/// An identifier in double quotes, with the quotes inside doubled.
QString QuotedName(QStringView name);
/// QuotedName of each, separated by a comma and a blank.
QString QuotedNames(const QStringList& names);

}  // namespace database
