#pragma once

#include <QString>

// Conditions as callers leave them for a list window: terms of a column, a blank, an operator, a blank and a value in
// single quotes, such as "M部門.コード >= '001'"; several are joined by " AND " or " OR ", with " WHERE " in front or
// without, with or without brackets.

/// Takes the value of a column's term out of a condition.
///   column     qualified name, "M担当者.コード"; letter case does not count
///   condition  the text to read
///   rest       gets the condition without the term; may be the same text as `condition`
/// The result is the value without its quotes, and for LIKE without "%". Of several terms of the column the one whose
/// operator comes first in the order >=, <=, =, >, <, LIKE counts. Without a term the result is empty and `rest` stays
/// as it was. A term without a closing quote gives an empty value. Never reports anything.
QString ExtractCondition(const QString& column, const QString& condition, QString& rest);

/// The text without any "%".
QString RemovePercent(const QString& text);
