#include "setup/ImportCommand.h"

#include "data/ServerSchema.h"
#include "setup/GeneralDatabase.h"
#include "setup/InstallationUsers.h"
#include "setup/Installer.h"
#include "setup/TableCopy.h"

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

void TellDifferences(const TableDefinition& table, const QStringList& columns, const Console& console) {
    QStringList missing, unknown;
    for (const ColumnDefinition& column : table.columns)
        if (Find(columns, column.name) < 0) missing.append(column.name);
    for (const QString& column : columns)
        if (!HasColumn(table, column)) unknown.append(column);
    if (!missing.isEmpty()) console.out << u"  ファイルにない列: %1\n"_s.arg(missing.join(u'、'));
    if (!unknown.isEmpty()) console.out << u"  取り込まない列: %1\n"_s.arg(unknown.join(u'、'));
}

QString Literal(QString value) { return value.isNull() ? u"NULL"_s : u'\'' + value.replace(u'\'', u"''"_s) + u'\''; }

void ImportTable(const ForeignTables& file, platform::Connection& general, const TableDefinition& table,
                 const Console& console) {
    const QString name = file.Tables()[Find(file.Tables(), table.name)];
    const QStringList columns = file.Columns(name);
    const QString head = InsertHead(table);
    qint64 read = 0;
    general.Execute(u"DELETE FROM \"%1\""_s.arg(table.name));
    file.ReadRows(name, [&](const QStringList& row) {
        QStringList values;
        for (const ColumnDefinition& column : table.columns) {
            const qsizetype place = Find(columns, column.name);
            values.append(place < 0 ? u"NULL"_s : Literal(row[place]));
        }
        general.Execute(head + u'(' + values.join(u", "_s) + u')');
        ++read;
    });
    const qint64 arrived = CountRows(general, table.name);
    if (arrived != read)
        throw platform::RuntimeError(
            1, u"表 %1 は %2 行のうち %3 行しか取り込まれていません。"_s.arg(table.name).arg(read).arg(arrived));
    console.out << u"%1: %2 行\n"_s.arg(table.name).arg(read) << Qt::flush;
    TellDifferences(table, columns, console);
}

}  // namespace

void ImportTables(const ForeignTables& tables, const QString& origin, platform::Connection& general,
                  const Console& console) {
    const QList<TableDefinition> wanted = TablesOf(Store::General);
    RefuseMissingTables(tables, origin, wanted);
    platform::Transaction whole(general);
    for (const TableDefinition& table : wanted) ImportTable(tables, general, table, console);
    whole.Commit();
}

void ImportGeneral(const Arguments& arguments, const Console& console) {
    if (arguments.further.isEmpty()) throw Refusal(u"取り込むファイルを指定してください。"_s);
    const QString path = arguments.further.first();
    platform::Connection general;
    OpenGeneralFile(general, InstallationRoot(arguments.installation), platform::ConnectMode::ReadWrite);
    ImportTables(JetFile(path), path, general, console);
}

}  // namespace setup
