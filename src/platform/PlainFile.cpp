#include "platform/PlainFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

bool OpenPlainFile(QFile& file, QIODevice::OpenMode more) {
    const QByteArray path = QFile::encodeName(file.fileName());
    const int descriptor = ::open(path.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (descriptor < 0) return false;
    struct stat status = {};
    const bool plain = ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
    if (plain && file.open(descriptor, QIODevice::ReadOnly | more, QFileDevice::AutoCloseHandle)) return true;
    ::close(descriptor);
    return false;
}

bool IsSpecialFile(const QString& path) {
    struct stat status = {};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 && !S_ISREG(status.st_mode);
}

bool MayWriteFile(const QString& path) {
    return ::faccessat(AT_FDCWD, QFile::encodeName(path).constData(), W_OK, AT_EACCESS) == 0;
}

}  // namespace platform
