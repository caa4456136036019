#include "setup/storage/InstallationUsers.h"

#include <QDir>
#include <QFileInfo>

#include "platform/FileRights.h"
#include "platform/RuntimeError.h"
#include "setup/UsageError.h"
#include "setup/storage/Installer.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

constexpr long kWorkFailed = 1;

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

QString InstallationRoot(const QString& installation) {
    const QString root = QDir::cleanPath(QFileInfo(installation).absoluteFilePath());
    if (!HoldsInstallation(root)) throw UsageError(u"%1 にインストールがありません。"_s.arg(root));
    return root;
}

QString DatabaseIn(const QString& folder, const QString& name) {
    for (const QString& suffix : {u".accdb"_s, u".mdb"_s}) {
        const QString path = folder + u'/' + name + suffix;
        if (QFileInfo(path).isFile()) return path;
    }
    return {};
}

QStringList FormsFilesIn(const QString& reportFolder) {
    QStringList files;
    for (const QString& name : {u"/repfrmdb.accdb"_s, u"/repfrmdb.mdb"_s})
        if (QFileInfo(reportFolder + name).isFile()) files.append(reportFolder + name);
    return files;
}

QString WorkTablesIn(const QString& reportFolder) {
    const QString found = DatabaseIn(reportFolder, u"repdb"_s);
    return found.isEmpty() ? reportFolder + u"/repdb.accdb"_s : found;
}

}  // namespace setup
