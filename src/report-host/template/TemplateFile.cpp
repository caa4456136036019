#include "report-host/template/TemplateFile.h"

#include <QFile>

#include "database/LinkedTables.h"
#include "database/sqlite/OpenSqlite.h"
#include "platform/RuntimeError.h"
#include "report-host/layout/SqliteQuery.h"
#include "report-host/template/TemplateParser.h"

using namespace Qt::StringLiterals;

namespace report {

QString LinkedTable::DatabaseFile() const { return database::DatabaseOfConnectText(connect); }

TemplateFile::TemplateFile(const QString& path, database::ConnectMode mode) {
    database::ConnectionRequest request;
    request.dataSource = path;
    request.mode = mode;
    database_ = database::OpenSqliteFile(request);
}

QStringList TemplateFile::Names() const {
    QStringList names;
    const auto statement = PrepareStatement(database_.get(), u"SELECT 名称 FROM 帳票 ORDER BY rowid"_s);
    EachRow(database_.get(), statement.get(), [&] { names.append(TextOf(statement.get(), 0)); });
    return names;
}

std::optional<QString> TemplateFile::Template(const QString& name) const {
    std::optional<QString> definition;
    const auto statement = PrepareStatement(database_.get(), u"SELECT 定義 FROM 帳票 WHERE 名称 = ?"_s, {name});
    EachRow(database_.get(), statement.get(), [&] { definition = TextOf(statement.get(), 0); });
    return definition;
}

void TemplateFile::StoreTemplate(const QString& name, const QString& text) {
    const auto statement = PrepareStatement(
        database_.get(),
        u"INSERT INTO 帳票 (名称, 定義) VALUES (?, ?) ON CONFLICT (名称) DO UPDATE SET 定義 = excluded.定義"_s,
        {name, text});
    EachRow(database_.get(), statement.get(), [] {});
}

std::optional<LinkedTable> TemplateFile::Link(const QString& name) const {
    std::optional<LinkedTable> link;
    const auto statement = PrepareStatement(
        database_.get(), u"SELECT 名称, 元テーブル, 接続 FROM リンクテーブル WHERE 名称 = ?"_s, {name});
    EachRow(database_.get(), statement.get(), [&] {
        link = LinkedTable{TextOf(statement.get(), 0), TextOf(statement.get(), 1), TextOf(statement.get(), 2)};
    });
    return link;
}

QString TableOfTemplate(const TemplateDefinition& definition, const QString& report) {
    return definition.table.isEmpty() ? report : definition.table;
}

database::SqliteDatabase OpenLinked(const LinkedTable& link) {
    database::ConnectionRequest request;
    request.dataSource = link.DatabaseFile();
    request.mode = database::ConnectMode::Read;
    return database::OpenSqliteFile(request);
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

QString StandardTemplate(const QString& name) {
    QFile file(u":/templates/%1.txt"_s.arg(name));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

}  // namespace report
