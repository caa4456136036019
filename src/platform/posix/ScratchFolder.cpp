#include "platform/ScratchFolder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "platform/FileRights.h"

using namespace Qt::StringLiterals;

namespace platform {
namespace {

const QString kLockFile = u"in-use"_s;
constexpr qsizetype kRandomCharacters = 6;
constexpr qint64 kLongestNote = 4096;
constexpr int kAttempts = 100;  // on a machine under load the cleanup is often faster

/// Opens the lock file of a folder and locks it. -1 if there is none or another process has locked it.
int TakeLock(const QString& folder, int furtherFlags) {
    const QByteArray file = QFile::encodeName(folder + u'/' + kLockFile);
    const int lock = ::open(file.constData(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC | furtherFlags, 0600);
    if (lock < 0) return -1;
    if (::flock(lock, LOCK_EX | LOCK_NB) == 0) return lock;
    ::close(lock);
    return -1;
}

bool IsThere(int file) {
    struct stat found = {};
    return ::fstat(file, &found) == 0 && found.st_nlink > 0;
}

/// Removes the lock file last: if interrupted, the rest must still be recognised as a leftover.
bool RemoveFolder(const QString& folder) {
    const auto entries =
        QDir(folder).entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    bool gone = true;
    for (const QFileInfo& entry : entries) {
        if (entry.fileName() == kLockFile) continue;
        const bool realFolder = entry.isDir() && !entry.isSymLink();
        gone &= realFolder ? QDir(entry.filePath()).removeRecursively() : QFile::remove(entry.filePath());
    }
    if (!gone) return false;
    QFile::remove(folder + u'/' + kLockFile);
    return ::rmdir(QFile::encodeName(folder).constData()) == 0;
}

QByteArray NoteIn(int lock) {
    QFile file;
    return file.open(lock, QIODevice::ReadOnly | QIODevice::Unbuffered) ? file.read(kLongestNote) : QByteArray();
}

}  // namespace

ScratchFolder::ScratchFolder(const QString& parent, const QString& prefix, const QByteArray& note) {
    // Until it is locked, the cleanup of another process may remove the new folder; hence the retries.
    const QByteArray pattern = QFile::encodeName(parent + u'/' + prefix) + QByteArray(kRandomCharacters, 'X');
    for (int attempt = 0; attempt < kAttempts && !IsValid(); ++attempt)
        if (!Make(pattern, note)) return;
    if (IsValid()) error_.clear();
}

bool ScratchFolder::Make(const QByteArray& pattern, const QByteArray& note) {
    QByteArray name = pattern;
    if (::mkdtemp(name.data()) == nullptr) {
        error_ = QString::fromLocal8Bit(std::strerror(errno));
        return false;
    }
    path_ = QFile::decodeName(name);
    lock_ = TakeLock(path_, O_CREAT | O_EXCL);
    const bool written =
        lock_ >= 0 && ::write(lock_, note.constData(), static_cast<size_t>(note.size())) == note.size();
    if (!written) error_ = QString::fromLocal8Bit(std::strerror(errno));
    if (written && IsThere(lock_)) return true;
    if (written) error_ = u"フォルダが作成の途中で削除されました。"_s;
    if (lock_ >= 0) ::close(std::exchange(lock_, -1));
    RemoveFolder(path_);
    return true;
}

ScratchFolder::~ScratchFolder() {
    if (!IsValid()) return;
    if (!keep_) RemoveFolder(path_);
    ::close(lock_);
}

QList<ScratchLeftover> ScratchLeftovers(const QString& parent, const QString& prefix) {
    QList<ScratchLeftover> found;
    const auto filter = QDir::Dirs | QDir::Hidden | QDir::NoSymLinks | QDir::NoDotAndDotDot;
    for (const QFileInfo& entry : QDir(parent).entryInfoList({prefix + u"??????"_s}, filter, QDir::Name)) {
        const std::optional<FileRights> rights = RightsOf(entry.filePath());
        if (!rights || (!QFileInfo(entry.filePath()).isReadable())) continue;
        const bool known = QFileInfo::exists(entry.filePath() + u'/' + kLockFile);
        const int lock = known ? TakeLock(entry.filePath(), 0) : -1;
        if (known && lock < 0) continue;
        found.append({.path = entry.filePath(),
                      .owner = rights->owner,
                      .note = known ? NoteIn(lock) : QByteArray(),
                      .known = known});
        if (lock >= 0) ::close(lock);
    }
    return found;
}

bool RemoveScratchLeftover(const ScratchLeftover& leftover) {
    const std::optional<FileRights> rights = RightsOf(leftover.path);
    if (!leftover.known || !rights || !rights->folder || rights->owner != OwnUserId()) return false;
    const int lock = TakeLock(leftover.path, 0);
    if (lock < 0) return false;
    const bool gone = RemoveFolder(leftover.path);
    ::close(lock);
    return gone;
}

void RemoveScratchLeftovers(const QString& parent, const QString& prefix) {
    for (const ScratchLeftover& leftover : ScratchLeftovers(parent, prefix)) RemoveScratchLeftover(leftover);
}

}  // namespace platform
