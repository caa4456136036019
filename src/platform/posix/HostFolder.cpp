#include "platform/report-host/HostFolder.h"

#include <sys/stat.h>
#include <unistd.h>

#include <QFile>

#include "platform/ReportHostLink.h"
#include "platform/RuntimeError.h"

using namespace Qt::StringLiterals;

namespace platform {
namespace {

constexpr mode_t kOwnerOnly = 0700;
constexpr qsizetype kLongestFolder = 60;  // sun_path is limited to 107 bytes

bool IsOwnFolder(const QByteArray& folder) {
    struct stat found = {};
    return ::lstat(folder.constData(), &found) == 0 && S_ISDIR(found.st_mode) && found.st_uid == ::getuid() &&
           (found.st_mode & 0777) == kOwnerOnly;
}

/// TMPDIR is used only if it is absolute and short enough for a socket path.
QByteArray FolderInTemporary() {
    const QByteArray name = "/youin-meibo-" + QByteArray::number(::getuid());
    const QByteArray temporary = qgetenv("TMPDIR");
    const bool usable = temporary.startsWith('/') && temporary.size() + name.size() <= kLongestFolder;
    return (usable ? temporary : "/tmp") + name;
}

}  // namespace

QByteArray HostFolder() {
    const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
    if (!runtime.isEmpty() && runtime.size() <= kLongestFolder && IsOwnFolder(runtime)) return runtime;
    const QByteArray folder = FolderInTemporary();
    ::mkdir(folder.constData(), kOwnerOnly);
    if (IsOwnFolder(folder)) return folder;
    throw RuntimeError(kHostNotFound,
                       u"フォルダ「%1」は自分専用のものではないため、帳票ホストとの連絡に使えません。"_s.arg(
                           QFile::decodeName(folder)));
}

}  // namespace platform
