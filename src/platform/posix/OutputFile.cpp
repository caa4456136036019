#include "platform/OutputFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <utility>

#include "platform/RuntimeError.h"

namespace platform {
namespace {

constexpr qsizetype kPiece = 1 << 18;
constexpr long kDiskFull = 61;
constexpr long kWriteFailure = 57;

[[noreturn]] void ThrowWriteFailure(int code) {
    const bool full = code == ENOSPC || code == EDQUOT || code == EFBIG;
    throw RuntimeError(full ? kDiskFull : kWriteFailure, QString::fromLocal8Bit(std::strerror(code)));
}

/// True if another process has the lock. Errors of a file system without locks count as not locked.
bool HeldElsewhere(int result) { return result != 0 && (errno == EAGAIN || errno == EACCES || errno == EWOULDBLOCK); }

/// fcntl and flock locks do not conflict with each other on Linux, so both are taken.
bool LockedByAnother(int descriptor) {
    struct flock whole = {};
    whole.l_type = F_WRLCK;
    whole.l_whence = SEEK_SET;
    return HeldElsewhere(::fcntl(descriptor, F_OFD_SETLK, &whole)) ||
           HeldElsewhere(::flock(descriptor, LOCK_EX | LOCK_NB));
}

/// Only after locking: a file in use must keep its content. Only regular files can be truncated.
bool Empty(int descriptor) {
    struct stat status = {};
    if (::fstat(descriptor, &status) != 0) return false;
    return !S_ISREG(status.st_mode) || ::ftruncate(descriptor, 0) == 0;
}

}  // namespace

OutputFile::OutputFile(int descriptor) : descriptor_(descriptor) { pending_.reserve(2 * kPiece); }

OutputFile::~OutputFile() {
    if (descriptor_ >= 0) ::close(descriptor_);
}

std::unique_ptr<OutputFile> OutputFile::Open(const QString& path) {
    // O_NONBLOCK: opening a pipe without a reader fails instead of blocking.
    const int flags = O_WRONLY | O_CREAT | O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
    const int descriptor = ::open(QFile::encodeName(path).constData(), flags, 0666);
    if (descriptor < 0) return nullptr;
    std::unique_ptr<OutputFile> file(new OutputFile(descriptor));
    if (LockedByAnother(descriptor) || !Empty(descriptor)) return nullptr;
    ::fcntl(descriptor, F_SETFL, O_WRONLY);
    return file;
}

void OutputFile::Write(QByteArrayView bytes) {
    pending_.append(bytes);
    if (pending_.size() >= kPiece) WriteOut();
}

void OutputFile::WriteOut() {
    qsizetype done = 0;
    while (done < pending_.size()) {
        const ssize_t written =
            ::write(descriptor_, pending_.constData() + done, static_cast<size_t>(pending_.size() - done));
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) ThrowWriteFailure(errno);
        done += written;
    }
    pending_.resize(0);
}

// On network file systems a full disk may be reported only by close.
void OutputFile::Close() {
    WriteOut();
    if (::close(std::exchange(descriptor_, -1)) != 0) ThrowWriteFailure(errno);
}

void LetWritesPastALimitFail() { std::signal(SIGXFSZ, SIG_IGN); }

}  // namespace platform
