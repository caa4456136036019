#include "platform/PlainFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace platform {
namespace {

/// Maps errno of a failed open.
FileRead Refused(int code) {
    if (code == ENOENT || code == ENOTDIR) return FileRead::Missing;
    return code == ENXIO ? FileRead::NotPlain : FileRead::Denied;
}

}  // namespace

FileRead OpenPlainFile(const QString& path, QFile& file, QIODevice::OpenMode more) {
    // O_NONBLOCK, since opening a pipe would block; O_NOCTTY, since opening a terminal would have a side effect.
    const int flags = O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    const int descriptor = ::open(QFile::encodeName(path).constData(), flags);
    if (descriptor < 0) return Refused(errno);
    struct stat state = {};
    const bool plain = ::fstat(descriptor, &state) == 0 && S_ISREG(state.st_mode);
    if (plain && file.open(descriptor, QIODevice::ReadOnly | more, QFileDevice::AutoCloseHandle)) return FileRead::Done;
    ::close(descriptor);
    return plain ? FileRead::Failed : FileRead::NotPlain;
}

FileRead ReadPlainFile(const QString& path, qint64 limit, QByteArray& content) {
    QFile file;
    const FileRead opened = OpenPlainFile(path, file);
    if (opened != FileRead::Done) return opened;
    // One extra byte detects a file that is too large or still growing.
    QByteArray read = file.read(limit + 1);
    if (file.error() != QFileDevice::NoError) return FileRead::Failed;
    if (read.size() > limit) return FileRead::TooLarge;
    content = std::move(read);
    return FileRead::Done;
}

bool SameContent(const QString& one, const QString& other) {
    QFile a, b;
    if (OpenPlainFile(one, a) != FileRead::Done || OpenPlainFile(other, b) != FileRead::Done) return false;
    constexpr qint64 kBlock = 1 << 20;
    for (;;) {
        const QByteArray block = a.read(kBlock);
        if (block != b.read(kBlock) || a.error() != QFileDevice::NoError || b.error() != QFileDevice::NoError)
            return false;
        if (block.isEmpty()) return true;
    }
}

FileVersion FileVersionOf(const QString& path) {
    struct stat status = {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0) return {};
    return {.inode = status.st_ino,
            .size = status.st_size,
            .seconds = status.st_mtim.tv_sec,
            .nanoseconds = status.st_mtim.tv_nsec};
}

bool IsSpecialFile(const QString& path) {
    struct stat status = {};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 && !S_ISREG(status.st_mode);
}

bool MayWriteFile(const QString& path) {
    return ::faccessat(AT_FDCWD, QFile::encodeName(path).constData(), W_OK, AT_EACCESS) == 0;
}

}  // namespace platform
