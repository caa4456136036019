#include "setup/schema/TableCopy.h"

#include "database/sql/Quoting.h"
#include "setup/schema/GeneralDatabase.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

// Accepted by every supported engine, and large enough that the round trips do not matter.
constexpr int kRowsInStatement = 100;
constexpr qsizetype kLongestStatement = 0x40000;
constexpr int kRowsBetweenLines = 10'000;

QString LiteralOf(const database::Field& field) {
    return field.IsNull() ? u"NULL"_s : database::TextLiteral(field.Text());
}

/// Batches rows into multi-row INSERTs.
class RowSender {
  public:
    RowSender(database::Connection& target, QString head) : target_(target), head_(std::move(head)) {}

    void Add(const QStringList& values) {
        if (rows_ > 0) text_ += u", "_s;
        text_ += u'(' + values.join(u", "_s) + u')';
        if (++rows_ >= kRowsInStatement || text_.size() >= kLongestStatement) Send();
    }
    void Send() {
        if (rows_ > 0) target_.Execute(head_ + text_);
        rows_ = 0;
        text_.clear();
    }

  private:
    database::Connection& target_;
    QString head_, text_;
    int rows_ = 0;
};

}  // namespace

QString InsertHead(const TableDefinition& table) {
    QStringList names;
    for (const ColumnDefinition& column : table.columns) names.append(column.name);
    return u"INSERT INTO %1 (%2) VALUES "_s.arg(database::QuotedName(table.name), database::QuotedNames(names));
}

qint64 CountRows(database::Connection& connection, const QString& table) {
    database::Recordset rows;
    rows.Open(u"SELECT COUNT(*) AS 件数 FROM "_s + database::QuotedName(table), connection);
    return rows[u"件数"].Text().toLongLong();
}

void CopyTable(database::Connection& source, database::Connection& target, const TableDefinition& table,
               const Console& console) {
    const QStringList there = ColumnsOf(source, table.name);
    if (there.isEmpty())
        throw platform::RuntimeError(1, u"複写元の一般データベースに表 %1 がありません。"_s.arg(table.name));
    database::Recordset rows;
    rows.Open(u"SELECT * FROM "_s + database::QuotedName(table.name), source);
    const qint64 all = rows.RecordCount();
    qint64 copied = 0;
    database::Transaction whole(target);
    RowSender sender(target, InsertHead(table));
    for (; !rows.AtEOF(); rows.MoveNext()) {
        QStringList values;
        for (const ColumnDefinition& column : table.columns)
            values.append(there.contains(column.name, Qt::CaseInsensitive) ? LiteralOf(rows[column.name]) : u"NULL"_s);
        sender.Add(values);
        if (++copied % kRowsBetweenLines == 0 && copied < all)
            console.out << u"%1: %2 / %3 行\n"_s.arg(table.name).arg(copied).arg(all) << Qt::flush;
    }
    sender.Send();
    whole.Commit();
    const qint64 arrived = CountRows(target, table.name);
    if (arrived != all)
        throw platform::RuntimeError(
            1, u"表 %1 は %2 行のうち %3 行しか複写されていません。"_s.arg(table.name).arg(all).arg(arrived));
    console.out << u"%1: %2 行\n"_s.arg(table.name).arg(all) << Qt::flush;
}

}  // namespace setup
