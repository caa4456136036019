#include "report-host/template/TemplateFile.h"

#include <QFile>
#include <QScopeGuard>

#include "database/LinkedTables.h"
#include "database/sqlite/SqliteQuery.h"
#include "platform/RuntimeError.h"
#include "report-host/template/TemplateParser.h"

using namespace Qt::StringLiterals;

namespace report {

QString LinkedTable::DatabaseFile() const { return database::DatabaseOfConnectText(connect); }

TemplateFile::TemplateFile(const QString& path, database::ConnectMode mode)
    : database_(database::OpenSqliteFile(path, mode)) {}

QStringList TemplateFile::Names() const {
    QStringList names;
    const auto rows = database::PrepareSql(database_.get(), u"SELECT 名称 FROM 帳票 ORDER BY rowid"_s);
    while (database::NextRow(rows.get())) names.append(database::ColumnText(rows.get(), 0));
    return names;
}

std::optional<QString> TemplateFile::Template(const QString& name) const {
    const auto row = database::PrepareSql(database_.get(), u"SELECT 定義 FROM 帳票 WHERE 名称 = ?"_s, {name});
    if (!database::NextRow(row.get())) return std::nullopt;
    return database::ColumnText(row.get(), 0);
}

void TemplateFile::StoreTemplates(const QStringList& names, const QStringList& texts) {
    database::RunSql(database_.get(), u"BEGIN IMMEDIATE"_s);
    // Without a transaction, as after the commit, it has no effect.
    const auto rollBack = qScopeGuard([this] { database::RunPlain(database_.get(), "ROLLBACK"); });
    for (qsizetype i = 0; i < names.size(); ++i) {
        const auto statement = database::PrepareSql(
            database_.get(),
            u"INSERT INTO 帳票 (名称, 定義) VALUES (?, ?) ON CONFLICT (名称) DO UPDATE SET 定義 = excluded.定義"_s,
            {names[i], texts[i]});
        database::NextRow(statement.get());
    }
    database::RunSql(database_.get(), u"COMMIT"_s);
}

std::optional<LinkedTable> TemplateFile::Link(const QString& name) const {
    const auto row = database::PrepareSql(
        database_.get(), u"SELECT 名称, 元テーブル, 接続 FROM リンクテーブル WHERE 名称 = ?"_s, {name});
    if (!database::NextRow(row.get())) return std::nullopt;
    return LinkedTable{.name = database::ColumnText(row.get(), 0),
                       .source = database::ColumnText(row.get(), 1),
                       .connect = database::ColumnText(row.get(), 2)};
}

QStringList ColumnsOf(sqlite3* database, const QString& table) {
    QStringList columns;
    const auto rows = database::PrepareSql(database, u"SELECT name FROM pragma_table_info(?)"_s, {table});
    while (database::NextRow(rows.get())) columns.append(database::ColumnText(rows.get(), 0));
    return columns;
}

QString TableOfTemplate(const TemplateDefinition& definition, const QString& report) {
    return definition.table.isEmpty() ? report : definition.table;
}

database::SqliteDatabase OpenLinked(const LinkedTable& link) {
    return database::OpenSqliteFile(link.DatabaseFile(), database::ConnectMode::Read);
}

QList<TemplateError> TemplateErrorsOf(const TemplateFile& file, const QString& report, const QString& text) {
    ParsedTemplate parsed = ParseTemplate(text);
    const QString table = TableOfTemplate(parsed.definition, report);
    const std::optional<LinkedTable> link = file.Link(table);
    if (!link) {
        parsed.errors.append({0, u"リンクテーブル「%1」がありません。"_s.arg(table)});
        return parsed.errors;
    }
    try {
        const database::SqliteDatabase source = OpenLinked(*link);
        const QStringList existing = ColumnsOf(source.get(), link->source);
        if (existing.isEmpty())
            parsed.errors.append(
                {0, u"リンクテーブル「%1」の接続先に表「%2」がありません。"_s.arg(table, link->source)});
        else
            NeededColumns(parsed.definition, existing, parsed.errors);
    } catch (const database::DatabaseError& error) {
        parsed.errors.append({0, u"リンクテーブル「%1」を読めません。%2"_s.arg(table, platform::TextForPeople(error))});
    }
    return parsed.errors;
}

QStringList StandardTemplateNames() {
    return {u"要員名簿照会"_s, u"要員名簿照会封筒"_s, u"要員名簿照会はがき"_s, u"要員名簿照会宛名ラベル"_s};
}

namespace {

QString ResourceText(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

}  // namespace

QString StandardTemplate(const QString& name) { return ResourceText(u":/templates/%1.txt"_s.arg(name)); }

QString ReadyTemplate::Text() const {
    const QString own = ResourceText(u":/templates/ready/%1.txt"_s.arg(name));
    return own.isEmpty() ? StandardTemplate(report) : own;
}

QList<ReadyTemplate> ReadyTemplates() {
    const QString envelope = u"要員名簿照会封筒"_s, card = u"要員名簿照会はがき"_s,
                  labels = u"要員名簿照会宛名ラベル"_s;
    return {{u"封筒長形3号"_s, envelope},
            {u"封筒長形4号"_s, envelope},
            {u"封筒角形2号"_s, envelope},
            {u"はがき縦"_s, card},
            {u"はがき横"_s, card},
            {u"宛名ラベル86.4x42.3"_s, labels},
            {u"宛名ラベル83.8x42.3"_s, labels},
            {u"宛名ラベル90.2x42.3"_s, labels},
            {u"宛名ラベル84x42"_s, labels}};
}

}  // namespace report
