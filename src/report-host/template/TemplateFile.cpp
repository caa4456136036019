#include "report-host/template/TemplateFile.h"

#include "database/LinkedTables.h"
#include "database/sqlite/OpenSqlite.h"
#include "report-host/layout/SqliteQuery.h"

using namespace Qt::StringLiterals;

namespace report {

QString LinkedTable::DatabaseFile() const { return database::DatabaseOfConnectText(connect); }

FormsFile::FormsFile(const QString& path, database::ConnectMode mode) {
    database::ConnectionRequest request;
    request.dataSource = path;
    request.mode = mode;
    database_ = database::OpenSqliteFile(request);
}

QStringList FormsFile::Names() const {
    QStringList names;
    const auto statement = PrepareStatement(database_.get(), u"SELECT 名称 FROM 帳票 ORDER BY rowid"_s);
    EachRow(database_.get(), statement.get(), [&] { names.append(TextOf(statement.get(), 0)); });
    return names;
}

std::optional<QString> FormsFile::Form(const QString& name) const {
    std::optional<QString> form;
    const auto statement = PrepareStatement(database_.get(), u"SELECT 定義 FROM 帳票 WHERE 名称 = ?"_s, {name});
    EachRow(database_.get(), statement.get(), [&] { form = TextOf(statement.get(), 0); });
    return form;
}

void FormsFile::StoreForm(const QString& name, const QString& text) {
    const auto statement = PrepareStatement(
        database_.get(),
        u"INSERT INTO 帳票 (名称, 定義) VALUES (?, ?) ON CONFLICT (名称) DO UPDATE SET 定義 = excluded.定義"_s,
        {name, text});
    EachRow(database_.get(), statement.get(), [] {});
}

std::optional<LinkedTable> FormsFile::Link(const QString& name) const {
    std::optional<LinkedTable> link;
    const auto statement = PrepareStatement(
        database_.get(), u"SELECT 名称, 元テーブル, 接続 FROM リンクテーブル WHERE 名称 = ?"_s, {name});
    EachRow(database_.get(), statement.get(), [&] {
        link = LinkedTable{TextOf(statement.get(), 0), TextOf(statement.get(), 1), TextOf(statement.get(), 2)};
    });
    return link;
}

}  // namespace report
