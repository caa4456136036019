#include "setup/commands/ImportCommand.h"

#include "data/ServerSchema.h"
#include "database/sql/Quoting.h"
#include "setup/commands/TerminalTable.h"
#include "setup/commands/Verbs.h"
#include "setup/schema/GeneralDatabase.h"
#include "setup/schema/TableCopy.h"
#include "setup/storage/InstallationUsers.h"
#include "setup/storage/JetReader.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

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

void ReportDifferences(const TableDefinition& table, const QStringList& columns, const Console& console) {
    QStringList missing, unknown;
    for (const ColumnDefinition& column : table.columns)
        if (Find(columns, column.name) < 0) missing.append(column.name);
    for (const QString& column : columns)
        if (!HasColumn(table, column)) unknown.append(column);
    if (!missing.isEmpty()) console.out << u"  ファイルにない列: %1\n"_s.arg(missing.join(u'、'));
    // A column name in the file may contain any text, including terminal escape sequences.
    if (!unknown.isEmpty()) console.out << u"  取り込まない列: %1\n"_s.arg(StripControlCharacters(unknown.join(u'、')));
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
                 const Console& console) {
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
    console.out << u"%1: %2 行\n"_s.arg(table.name).arg(read) << Qt::flush;
    ReportDifferences(table, columns, console);
}

}  // namespace

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

void ImportTables(const ForeignTables& tables, const QString& origin, database::Connection& general,
                  const Console& console) {
    const QList<TableDefinition> wanted = TablesOf(DatabaseKind::General);
    RefuseMissingTables(tables, origin, wanted);
    database::Transaction whole(general);
    for (const TableDefinition& table : wanted) ImportTable(tables, general, table, console);
    tables.CheckUnchanged();
    whole.Commit();
}

void ImportGeneral(const Arguments& arguments, const Console& console) {
    const QString path = arguments.Operand(1);
    const QString root = InstallationRoot(arguments.Installation());
    // Must be created before the database is opened: the reader process must not inherit its file descriptors.
    const JetReader reader(path, console.programFolder + u"/suite-setup"_s);
    database::Connection general;
    OpenGeneralFile(general, root, database::ConnectMode::ReadWrite);
    ImportTables(reader, path, general, console);
}

}  // namespace setup
