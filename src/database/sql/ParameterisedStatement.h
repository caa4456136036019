#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringView>
#include <string>
#include <vector>

namespace database {

/// A statement whose text literals have been lifted out, so that statements that differ in their values alone have
/// one text. Kept by its user from statement to statement, for it reuses its memory.
class ParameterisedStatement {
  public:
    /// Takes the literals of a SELECT, INSERT, UPDATE or DELETE out, from its first WHERE, ON, HAVING, SET or
    /// VALUES on: before that a literal may be a column's heading. Text of any other kind, with parameters of its
    /// own or that can't be read stays as it is and has no literals.
    void Lift(QStringView sql);

    /// The statement with ?1, ?2 and so on in place of the literals.
    const QString& Text() const { return text_; }
    size_t LiteralCount() const { return ends_.size(); }
    /// Value of a literal in UTF-8, quotes taken off. Valid until the next Lift.
    QByteArrayView Literal(size_t index) const;

  private:
    // What one statement looked like between its literals. A load sends the same few statements again and again
    // with other values, and to compare a text with these is five times faster than to cut it into tokens.
    struct Shape {
        QString text;
        std::vector<QString> between;  // one more than there are literals
    };
    static constexpr size_t kMostShapes = 8;

    bool HasShape(QStringView sql, const Shape& shape);
    bool TryShapes(QStringView sql);
    bool TryTokens(QStringView sql);
    void AppendLiteral(QStringView quoted);

    std::vector<Shape> shapes_;  // the one used last in front
    QString text_;
    std::string values_;        // all literals one behind the other
    std::vector<size_t> ends_;  // end of each in values_
};

}  // namespace database
