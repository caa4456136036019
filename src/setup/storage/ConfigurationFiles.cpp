#include "setup/storage/ConfigurationFiles.h"

#include <QDir>

#include "setup/UsageError.h"
#include "setup/storage/InstallationUsers.h"
#include "setup/storage/Installer.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

constexpr int kPrivateCopies = 1;

QList<ConfigurationInUse> PrivateFiles(const QString& root, const QString& user) {
    QList<ConfigurationInUse> files;
    const QList<FilePlaces> all = user.isEmpty() ? AllPrivatePlaces(root) : QList{PlacesOf(root, user)};
    RequireEntry(all);
    for (const FilePlaces& places : all) {
        const QString file = ConfigurationFile(places.conf);
        if (!file.isEmpty()) files.append({file, places.user});
    }
    if (files.isEmpty() && !user.isEmpty()) throw UsageError(u"利用者 %1 の構成データベースがありません。"_s.arg(user));
    return files;
}

}  // namespace

database::Connection OpenForReading(const QString& file) {
    database::Connection connection;
    connection.ConnectionTimeout = 60;
    connection.CursorLocation = database::CursorLocation::Client;
    connection.Mode = database::ConnectMode::Read;
    const QString provider = file.endsWith(u".mdb"_s) ? u"Microsoft.Jet.OLEDB.4.0"_s : u"Microsoft.ACE.OLEDB.12.0"_s;
    connection.Open(u"Provider="_s + provider + u";User ID=;Password=;Data Source="_s + file + u';');
    return connection;
}

int InstallKindOf(const QString& file) {
    database::Connection connection = OpenForReading(file);
    database::Recordset row;
    row.Open(u"SELECT インストール区分 FROM 動作環境定義 WHERE 動作環境定義ID = '001'"_s, connection);
    return row.AtEOF() ? 0 : NumericValue(row[u"インストール区分"].TextOr(u""_s));
}

QList<ConfigurationInUse> ConfigurationsInUse(const QString& installation, const QString& user) {
    const QString root = QDir::cleanPath(QDir(installation).absolutePath());
    const QString common = ConfigurationFile(root + u"/conf"_s);
    if (common.isEmpty()) throw UsageError(u"%1 にインストールがありません。"_s.arg(root));
    if (user.contains(u'/') || user == u"."_s || user == u".."_s)
        throw UsageError(u"利用者名 %1 は正しくありません。"_s.arg(user));
    if (InstallKindOf(common) != kPrivateCopies) return {{common, QString()}};
    return PrivateFiles(root, user);
}

}  // namespace setup
