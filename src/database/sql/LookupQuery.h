#pragma once

#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

namespace database {

/// A small look-up in one table: SELECT … FROM table WHERE column op 'value' AND … ORDER BY columns.
struct LookupQuery {
    struct Term {
        QString column;  ///< without its table
        QString sign;    ///< =, <, >, <= or >=
        size_t literal;  ///< place of its value among the statement's literals
    };
    QString table;
    std::vector<Term> terms;  ///< one for each literal
    QStringList order;        ///< columns
};

/// Reads a statement whose literals have been lifted out (ParameterisedStatement). None for anything but such a
/// look-up.
std::optional<LookupQuery> ReadLookup(const QString& lifted);

}  // namespace database
