#pragma once

#include <QList>
#include <QtGlobal>

/// Sizes of files around one byte, a block of the disk, the buffer of a file and a block of a copy.
inline const QList<qint64> kSizesAroundBuffers = {
    1, 2, 4095, 4096, 4097, 16383, 16384, 16385, 32767, 32768, 32769, 65536, (1 << 20) - 1, 1 << 20, (1 << 20) + 1};

/// Bytes after which a disk may be full for a file of that size: none fit, all but one fit, and those between.
inline QList<qint64> FullAfter(qint64 size) {
    QList<qint64> limits;
    for (const qint64 limit : {qint64{0}, qint64{1}, qint64{4096}, qint64{16384}, size / 2, size - 1})
        if (limit < size && !limits.contains(limit)) limits.append(limit);
    return limits;
}
