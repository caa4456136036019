#include "platform/FileSystem.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace platform {

bool HostFileSystem::FileExists(const QString& path) const { return QFileInfo(path).isFile(); }

bool HostFileSystem::CopyFile(const QString& source, const QString& target) const {
    QFile from(source);
    QSaveFile to(target);  // appears under its name only when it is whole
    if (!from.open(QIODevice::ReadOnly) || !to.open(QIODevice::WriteOnly)) return false;
    constexpr qint64 kBlock = 1 << 20;
    while (!from.atEnd()) {
        const QByteArray block = from.read(kBlock);
        if (block.isEmpty() || to.write(block) != block.size()) return false;
    }
    return from.error() == QFileDevice::NoError && to.commit();
}

}  // namespace platform
