#pragma once

#include <QString>

// Parser for the conditions that callers pass to a list window: terms such as "M部門.コード >= '001'", joined by AND or
// OR, optionally after WHERE, optionally in brackets. Operators and these words are surrounded by single blanks.

/// Extracts the value of a column's term from a condition.
///   column     qualified name, "M担当者.コード"; not case-sensitive
///   condition  the text to parse
///   rest       receives the condition without the term; may be the same object as `condition`
/// Returns the value without its quotes, for LIKE also without "%". If the column has several terms, the first operator
/// in the order >=, <=, =, >, <, LIKE is used. Without a term the result is empty and `rest` is unchanged. An
/// unterminated quote gives an empty value. Never fails.
QString ExtractCondition(const QString& column, const QString& condition, QString& rest);

/// The text without the wildcard "%".
QString RemovePercent(const QString& text);
