#include "data/Files.h"

#include "platform/RuntimeError.h"
#include "platform/Services.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace {

const QString kAccdbSuffix = u".accdb"_s;
const QString kMdbSuffix = u".mdb"_s;

bool IsSeparator(QChar c) { return c == u'\\' || c == platform::kPathSeparator.front(); }

/// Index of the next separator at or after `from`, -1 if there is none.
qsizetype NextSeparator(const QString& path, qsizetype from) {
    for (qsizetype at = from; at < path.size(); ++at)
        if (IsSeparator(path[at])) return at;
    return -1;
}

/// Index after which folders are created, -1 if there are none. Server and share of a network path cannot be created.
qsizetype StartOfFolders(const QString& path) {
    if (const qsizetype network = path.indexOf(u"\\\\"_s); network >= 0) {
        const qsizetype server = NextSeparator(path, network + 2);
        const qsizetype share = server < 0 ? -1 : NextSeparator(path, server + 1);
        return share < 0 ? -1 : share + 1;
    }
    if (const qsizetype drive = path.indexOf(u":\\"_s); drive >= 0) return drive + 2;
    return path.startsWith(platform::kPathSeparator) ? 1 : -1;
}

void ShowFailure(const platform::RuntimeError& error, const QString& path, const QString& folder, bool exists) {
    const QStringList lines = {
        u"DIREXISTCHK ERROR"_s + QString::number(error.Number()) + u' ' + error.Description(),
        u"direxeistchk"_s,
        path,
        folder,
        exists ? u"True"_s : u"False"_s,
    };
    platform::Services().dialogs->ShowMessage(lines.join(u'\r'));
}

}  // namespace

QString DesktopFileName(const QString& name, FileKind kind) {
    switch (kind) {
        case FileKind::Accdb:
            return name + kAccdbSuffix;
        case FileKind::Mdb:
            return name + kMdbSuffix;
        default:
            return QString();
    }
}

DesktopFile FindDesktopFile(const QString& folder, const QString& name) {
    for (const FileKind kind : {FileKind::Accdb, FileKind::Mdb}) {
        const QString path = folder + platform::kPathSeparator + DesktopFileName(name, kind);
        if (FileExistsCheck(path)) return {.path = path, .kind = kind};
    }
    return {};
}

FileKind KindOfDesktopFile(const QString& path) {
    return path.endsWith(kMdbSuffix, Qt::CaseInsensitive) ? FileKind::Mdb : FileKind::Accdb;
}

bool FileExistsCheck(const QString& path) { return platform::Services().files->FileExists(path); }

bool CopyFileOver(const QString& source, const QString& target) {
    return platform::Services().files->CopyFile(source, target);
}

void EnsureFolderPath(const QString& path) {
    const platform::FileSystem& files = *platform::Services().files;
    const QString trimmed = TrimBlanks(path);
    const qsizetype start = StartOfFolders(trimmed);
    if (start < 0) return;
    for (qsizetype at = NextSeparator(trimmed, start); at >= 0; at = NextSeparator(trimmed, at + 1)) {
        const QString folder = trimmed.first(at);
        const bool exists = files.FolderExists(folder);
        try {
            if (!exists) files.CreateFolder(folder);
        } catch (const platform::RuntimeError& error) {
            ShowFailure(error, path, folder, exists);
            return;
        }
    }
}
