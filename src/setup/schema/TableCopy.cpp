#include "setup/schema/TableCopy.h"

#include "data/ServerSchema.h"
#include "database/sql/Quoting.h"
#include "setup/TerminalTable.h"
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

qsizetype Find(const QStringList& names, const QString& name) {
    for (qsizetype i = 0; i < names.size(); ++i)
        if (names[i].compare(name, Qt::CaseInsensitive) == 0) return i;
    return -1;
}

void RefuseMissingTables(const ForeignTables& file, const QString& path, const QList<TableDefinition>& tables) {
    QStringList missing;
    for (const TableDefinition& table : tables)
        if (Find(file.Tables(), table.name) < 0) missing.append(table.name);
    if (!missing.isEmpty())
        throw platform::RuntimeError(
            1, u"%1 には次の表がなく、何も取り込んでいません。%2"_s.arg(path, missing.join(u'、')));
}

void ReportDifferences(const TableDefinition& table, const QStringList& columns, QTextStream& out) {
    QStringList missing, unknown;
    for (const ColumnDefinition& column : table.columns)
        if (Find(columns, column.name) < 0) missing.append(column.name);
    for (const QString& column : columns)
        if (!HasColumn(table, column)) unknown.append(column);
    if (!missing.isEmpty()) out << u"  ファイルにない列: %1\n"_s.arg(missing.join(u'、'));
    // A column name in the file may contain any text, including terminal escape sequences.
    if (!unknown.isEmpty()) out << u"  取り込まない列: %1\n"_s.arg(StripControlCharacters(unknown.join(u'、')));
}

void InsertRow(database::Connection& general, const TableDefinition& table, const QString& statement) {
    try {
        general.Execute(statement);
    } catch (const database::DatabaseError& error) {
        if (error.Number() != database::kIntegrityViolation) throw;
        throw platform::RuntimeError(
            1, u"表 %1 に、キーが空か他の行と同じ行があります。何も取り込んでいません。"_s.arg(table.name));
    }
}

void ImportTable(const ForeignTables& file, database::Connection& general, const TableDefinition& table,
                 QTextStream& out) {
    const QString name = file.Tables()[Find(file.Tables(), table.name)];
    const QStringList columns = file.Columns(name);
    const ColumnMap map(table, columns);
    const QString head = InsertHead(table);
    qint64 read = 0;
    general.Execute(u"DELETE FROM "_s + database::QuotedName(table.name));
    file.ReadRows(name, [&](const QStringList& row) {
        InsertRow(general, table, head + map.Literals(row));
        ++read;
    });
    const qint64 arrived = CountRows(general, table.name);
    if (arrived != read)
        throw platform::RuntimeError(
            1, u"表 %1 は %2 行のうち %3 行しか取り込まれていません。"_s.arg(table.name).arg(read).arg(arrived));
    out << u"%1: %2 行\n"_s.arg(table.name).arg(read) << Qt::flush;
    ReportDifferences(table, columns, out);
}

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
               QTextStream& out) {
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
            out << u"%1: %2 / %3 行\n"_s.arg(table.name).arg(copied).arg(all) << Qt::flush;
    }
    sender.Send();
    whole.Commit();
    const qint64 arrived = CountRows(target, table.name);
    if (arrived != all)
        throw platform::RuntimeError(
            1, u"表 %1 は %2 行のうち %3 行しか複写されていません。"_s.arg(table.name).arg(all).arg(arrived));
    out << u"%1: %2 行\n"_s.arg(table.name).arg(all) << Qt::flush;
}

ColumnMap::ColumnMap(const TableDefinition& table, const QStringList& columns)
    : table_(table.name), columns_(columns.size()) {
    for (const ColumnDefinition& column : table.columns) places_.append(Find(columns, column.name));
}

QString ColumnMap::Literals(const QStringList& row) const {
    if (row.size() != columns_)
        throw platform::RuntimeError(
            1, u"表 %1 に %2 列の行があります。列は %3 です。"_s.arg(table_).arg(row.size()).arg(columns_));
    QStringList values;
    for (const qsizetype place : places_)
        values.append(place < 0 ? u"NULL"_s : database::TextOrNullLiteral(row[place]));
    return u'(' + values.join(u", "_s) + u')';
}

void ImportTables(const ForeignTables& tables, const QString& origin, database::Connection& general, QTextStream& out) {
    const QList<TableDefinition> wanted = TablesOf(DatabaseKind::General);
    RefuseMissingTables(tables, origin, wanted);
    database::Transaction whole(general);
    for (const TableDefinition& table : wanted) ImportTable(tables, general, table, out);
    tables.CheckUnchanged();
    whole.Commit();
}

}  // namespace setup
