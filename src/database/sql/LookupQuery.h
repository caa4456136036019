#pragma once

#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

namespace database {

/// A small lookup in one table: SELECT … FROM table WHERE column op 'value' AND … ORDER BY columns.
struct LookupQuery {
    struct Term {
        QString column;  ///< without its table
        QString sign;    ///< =, <, >, <= or >=
        size_t literal;  ///< index of its value in the statement's literals
    };
    QString table;
    std::vector<Term> terms;  ///< one per literal
    QStringList order;        ///< columns
};

/// Parses a statement with its literals lifted out (ParameterisedStatement). Empty if it is not such a lookup.
std::optional<LookupQuery> ReadLookup(const QString& lifted);

}  // namespace database
