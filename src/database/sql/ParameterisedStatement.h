#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringList>
#include <QStringView>
#include <optional>
#include <string>
#include <vector>

namespace database {

/// A statement with its text literals replaced by parameters ("lifted"), so that statements that differ only in values
/// have the same text. Use one object for many statements: it reuses memory and remembers recent statements.
class ParameterisedStatement {
  public:
    /// Replaces the literals of a SELECT, INSERT, UPDATE or DELETE from the first WHERE, ON, HAVING, SET or VALUES on;
    /// a literal before that may be a column heading. Other statements, and those that have parameters or can't be
    /// tokenized, keep their text and have no literals.
    void Lift(QStringView sql);

    /// The statement with ?1, ?2 ... in place of the literals.
    const QString& Text() const { return text_; }
    size_t LiteralCount() const { return ends_.size(); }
    /// Value of the literal with parameter ?(index + 1), in UTF-8 without quotes. Valid until the next Lift.
    QByteArrayView Literal(size_t index) const;

  private:
    // Text of a recent statement between its literals. A load repeats a few statements with other values, and comparing
    // with these is five times faster than tokenizing.
    struct Shape {
        QString text;
        std::vector<QString> between;  // one more than there are literals
    };
    static constexpr size_t kMostShapes = 8;

    bool HasShape(QStringView sql, const Shape& shape);
    bool TryShapes(QStringView sql);
    bool TryTokens(QStringView sql);
    void AppendLiteral(QStringView quoted);

    std::vector<Shape> shapes_;  // most recently used first
    QString text_;
    std::string values_;        // all literals, concatenated
    std::vector<size_t> ends_;  // end offset of each in values_
};

/// A small lookup in one table: SELECT … FROM table WHERE column op 'value' AND … ORDER BY columns.
struct LookupQuery {
    struct Term {
        QString column;  ///< without its table
        QString op;      ///< =, <, >, <= or >=
        size_t literal;  ///< index of its value in the statement's literals
    };
    QString table;
    std::vector<Term> terms;  ///< one per literal
    QStringList order;        ///< columns
};

/// Parses the Text() of a lifted statement. nullopt if it is not such a lookup.
std::optional<LookupQuery> ReadLookup(const QString& lifted);

}  // namespace database
