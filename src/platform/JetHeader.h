#pragma once

#include <QByteArrayView>

namespace platform {

/// True if the bytes (at least the first 19 of the file) are the header of a Jet 3, Jet 4 or ACE database.
inline bool IsJetHeader(QByteArrayView header) {
    if (header.size() < 19) return false;
    const QByteArrayView mark = header.sliced(4, 15);
    return mark == QByteArrayView("Standard Jet DB") || mark == QByteArrayView("Standard ACE DB");
}

}  // namespace platform
