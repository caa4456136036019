#include "data/FolderPath.h"

#include "platform/RuntimeError.h"
#include "platform/Services.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace {

bool IsSeparator(QChar sign) { return sign == u'\\' || sign == platform::kPathSeparator.front(); }

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
