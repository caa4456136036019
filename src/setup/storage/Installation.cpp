#include "setup/storage/Installation.h"

#include <QDir>
#include <QFileInfo>

#include "data/Connections.h"
#include "data/Files.h"
#include "database/sql/Quoting.h"
#include "platform/FileRights.h"
#include "platform/RuntimeError.h"
#include "setup/UsageError.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

constexpr long kWorkFailed = 1;

constexpr int kPrivateCopies = 1;

/// The existing files of that name, in the order in which the programs prefer them.
QStringList DatabasesIn(const QString& folder, const QString& name) {
    QStringList files;
    for (const FileKind kind : {FileKind::Accdb, FileKind::Mdb})
        if (const QString path = folder + u'/' + DesktopFileName(name, kind); QFileInfo(path).isFile())
            files.append(path);
    return files;
}

/// Programs of other machines that share the files have written rows for users that this machine does not know.
bool HasRowsOf(const QString& configuration, const QString& user) {
    database::Connection connection = OpenSuiteFile(configuration, database::ConnectMode::Read);
    for (const QString& table : {u"プログラム稼動履歴"_s, u"プログラム連携情報"_s}) {
        database::Recordset rows;
        rows.Open(u"SELECT TOP 1 ユーザID FROM %1 WHERE ユーザID = %2"_s.arg(table, database::TextLiteral(user)),
                  connection);
        if (!rows.AtEOF()) return true;
    }
    return false;
}

QList<ConfigurationInUse> PrivateFiles(const QString& root, const QString& user) {
    QList<ConfigurationInUse> files;
    if (!user.isEmpty()) RequireUser(root, user);
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

FilePlaces CommonPlaces(const QString& root) { return {{}, root + u"/conf"_s, root + u"/report"_s}; }

FilePlaces PlacesOf(const QString& root, const QString& user) {
    const QString own = root + u"/users/"_s + user;
    return {user, own + u"/conf"_s, own + u"/report"_s};
}

bool MayEnter(const FilePlaces& places) { return platform::MayEnterFolder(QFileInfo(places.conf).path()); }

void RequireEntry(const QList<FilePlaces>& all) {
    QStringList closed;
    for (const FilePlaces& places : all)
        if (!MayEnter(places)) closed.append(places.user);
    if (!closed.isEmpty())
        throw platform::RuntimeError(
            kWorkFailed,
            u"利用者 %1 のファイルを使う権限がありません。root で実行してください。"_s.arg(closed.join(u"、"_s)));
}

QList<FilePlaces> AllPrivatePlaces(const QString& root) {
    QList<FilePlaces> all;
    // QDir::System includes dangling symbolic links, which `check` has to report.
    const auto everything = QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot;
    for (const QFileInfo& entry : QDir(root + u"/users"_s).entryInfoList(everything, QDir::Name))
        if (entry.isDir() || entry.isSymLink()) all.append(PlacesOf(root, entry.fileName()));
    return all;
}

QList<FilePlaces> AllPrivatePlacesToChange(const QString& root) {
    QList<FilePlaces> all = AllPrivatePlaces(root);
    RequireEntry(all);
    return all;
}

void RequireUser(const QString& root, const QString& user) {
    if (user.contains(u'/') || user == u"."_s || user == u".."_s)
        throw UsageError(u"利用者名 %1 は正しくありません。"_s.arg(user));
    if (!platform::AccountOf(user) && !QFileInfo(root + u"/users/"_s + user).isDir())
        throw UsageError(u"利用者 %1 はいません。"_s.arg(user));
}

bool HoldsInstallation(const QString& folder) {
    const QDir root(folder);
    return !ConfigurationFile(root.filePath(u"conf"_s)).isEmpty() ||
           !DatabaseIn(root.filePath(u"data"_s), u"gnrdb"_s).isEmpty() || QFileInfo(root.filePath(u"prgbin"_s)).isDir();
}

QString InstallationRoot(const QString& installation) {
    const QString root = QDir::cleanPath(QFileInfo(installation).absoluteFilePath());
    if (!platform::MayEnterFolder(root)) throw UsageError(u"%1 を読む権限がありません。"_s.arg(root));
    if (!HoldsInstallation(root)) throw UsageError(u"%1 にインストールがありません。"_s.arg(root));
    return root;
}

QString DatabaseIn(const QString& folder, const QString& name) { return DatabasesIn(folder, name).value(0); }

QString ConfigurationFile(const QString& confFolder) { return DatabaseIn(confFolder, u"usrcnfg"_s); }

QStringList TemplateFilesIn(const QString& reportFolder) { return DatabasesIn(reportFolder, u"repfrmdb"_s); }

QString WorkTablesIn(const QString& reportFolder) {
    const QString found = DatabaseIn(reportFolder, u"repdb"_s);
    return found.isEmpty() ? reportFolder + u'/' + DesktopFileName(u"repdb"_s, FileKind::Accdb) : found;
}

database::Connection OpenSuiteFile(const QString& file, database::ConnectMode mode) {
    database::Connection connection;
    ApplyConnectionSettings(connection);
    connection.Mode = mode;
    connection.Open(DesktopConnectionString(KindOfDesktopFile(file), file + u';'));
    return connection;
}

int InstallKindOf(const QString& file) {
    database::Connection connection = OpenSuiteFile(file, database::ConnectMode::Read);
    database::Recordset row;
    row.Open(u"SELECT インストール区分 FROM 動作環境定義 WHERE 動作環境定義ID = '001'"_s, connection);
    return row.AtEOF() ? 0 : NumericValue(row[u"インストール区分"].TextOr(u""_s));
}

QList<ConfigurationInUse> ConfigurationsInUse(const QString& installation, const QString& user) {
    const QString root = QDir::cleanPath(QDir(installation).absolutePath());
    const QString common = ConfigurationFile(root + u"/conf"_s);
    if (common.isEmpty()) throw UsageError(u"%1 にインストールがありません。"_s.arg(root));
    if (InstallKindOf(common) == kPrivateCopies) return PrivateFiles(root, user);
    if (!user.isEmpty() && !HasRowsOf(common, user)) RequireUser(root, user);
    return {{common, QString()}};
}

}  // namespace setup
