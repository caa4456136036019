#include "setup/HistorySource.h"

#include <QDir>

#include "platform/Database.h"
#include "setup/Installer.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

platform::Connection OpenForReading(const QString& file) {
    platform::Connection connection;
    connection.ConnectionTimeout = 60;
    connection.CursorLocation = platform::CursorLocation::Client;
    connection.Mode = platform::ConnectMode::Read;
    const QString provider = file.endsWith(u".mdb"_s) ? u"Microsoft.Jet.OLEDB.4.0"_s : u"Microsoft.ACE.OLEDB.12.0"_s;
    connection.Open(u"Provider="_s + provider + u";User ID=;Password=;Data Source="_s + file + u';');
    return connection;
}

QString InstallKind(const QString& file) {
    platform::Connection connection = OpenForReading(file);
    platform::Recordset row;
    row.Open(u"SELECT インストール区分 FROM 動作環境定義 WHERE 動作環境定義ID = '001'"_s, connection);
    const QString kind = row.AtEOF() ? u""_s : row[u"インストール区分"].TextOr(u""_s);
    row.Close();
    return kind.trimmed();
}

HistoryRow RowOf(const platform::Recordset& row, const QString& file) {
    const auto text = [&](QStringView column) { return row[column].TextOr(u""_s); };
    return {text(u"実行日付"),         text(u"プログラムID"),     text(u"proccounter"), text(u"摘要"),
            text(u"運用事業所コード"), text(u"起動担当者コード"), text(u"ユーザID"),    file};
}

QList<HistorySource> PrivateSources(const QString& users, const QString& user) {
    QList<HistorySource> sources;
    const QStringList names =
        user.isEmpty() ? QDir(users).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name) : QStringList{user};
    for (const QString& name : names) {
        const QString file = ConfigurationFile(users + u'/' + name + u"/conf"_s);
        if (!file.isEmpty()) sources.append(HistorySource(file));
    }
    if (sources.isEmpty() && !user.isEmpty()) throw Refusal(u"利用者 %1 の構成データベースがありません。"_s.arg(user));
    return sources;
}

}  // namespace

QList<HistoryRow> HistorySource::NewRows() {
    platform::Connection connection = OpenForReading(file_);
    platform::Recordset row;
    row.Open(
        u"SELECT rowid AS 行, 実行日付, プログラムID, proccounter, 摘要, 運用事業所コード, 起動担当者コード,"
        u" ユーザID FROM プログラム稼動履歴 WHERE rowid > %1 ORDER BY rowid"_s.arg(lastRow_),
        connection);
    QList<HistoryRow> rows;
    for (; !row.AtEOF(); row.MoveNext()) {
        rows.append(RowOf(row, file_));
        lastRow_ = row[u"行"].Text().toLongLong();
    }
    row.Close();
    return rows;
}

QList<HistorySource> HistorySources(const QString& installation, const QString& user) {
    const QString root = QDir::cleanPath(QDir(installation).absolutePath());
    const QString common = ConfigurationFile(root + u"/conf"_s);
    if (common.isEmpty()) throw Refusal(u"%1 にインストールがありません。"_s.arg(root));
    if (user.contains(u'/') || user == u"."_s || user == u".."_s)
        throw Refusal(u"利用者名 %1 は正しくありません。"_s.arg(user));
    if (InstallKind(common) != u"1"_s) return {HistorySource(common)};
    return PrivateSources(root + u"/users"_s, user);
}

}  // namespace setup
