#include "setup/InstallationUsers.h"

#include <QDir>
#include <QFileInfo>

#include "setup/Installer.h"

using namespace Qt::StringLiterals;

namespace setup {

FilePlaces CommonPlaces(const QString& root) { return {{}, root + u"/conf"_s, root + u"/report"_s}; }

FilePlaces PlacesOf(const QString& root, const QString& user) {
    const QString own = root + u"/users/"_s + user;
    return {user, own + u"/conf"_s, own + u"/report"_s};
}

QList<FilePlaces> AllPrivatePlaces(const QString& root) {
    QList<FilePlaces> all;
    for (const QString& user : QDir(root + u"/users"_s).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name))
        all.append(PlacesOf(root, user));
    return all;
}

QString InstallationRoot(const QString& installation) {
    const QString root = QDir::cleanPath(QFileInfo(installation).absoluteFilePath());
    if (!HoldsInstallation(root)) throw Refusal(u"%1 にインストールがありません。"_s.arg(root));
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
