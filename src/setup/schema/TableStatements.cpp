#include "setup/schema/TableStatements.h"

#include "database/sql/Quoting.h"

using namespace Qt::StringLiterals;
using database::QuotedName;
using database::QuotedNames;

namespace setup {

namespace {

QString ColumnText(const ColumnDefinition& column) { return QuotedName(column.name) + u' ' + column.type; }

}  // namespace

QString CreateTableStatement(const TableDefinition& table) {
    QStringList parts;
    for (const ColumnDefinition& column : table.columns) parts.append(ColumnText(column));
    if (!table.key.isEmpty()) parts.append(u"PRIMARY KEY ("_s + QuotedNames(table.key) + u')');
    return u"CREATE TABLE "_s + QuotedName(table.name) + u" ("_s + parts.join(u", "_s) + u')';
}

QString AddColumnStatement(const TableDefinition& table, const ColumnDefinition& column) {
    return u"ALTER TABLE "_s + QuotedName(table.name) + u" ADD COLUMN "_s + ColumnText(column);
}

QString IndexName(const TableDefinition& table, int number) {
    return table.name + u"_索引"_s + QString::number(number + 1);
}

QString CreateIndexStatement(const TableDefinition& table, int number) {
    return u"CREATE INDEX "_s + QuotedName(IndexName(table, number)) + u" ON "_s + QuotedName(table.name) + u" ("_s +
           QuotedNames(table.indexes[number]) + u')';
}

}  // namespace setup
