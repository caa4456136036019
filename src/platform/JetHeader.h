#pragma once

#include <QByteArrayView>

namespace platform {

/// True if the bytes, the first 19 of a file or more, are the header of a .mdb or .accdb database (Jet 3, Jet 4, ACE).
inline bool IsJetHeader(QByteArrayView header) {
    if (header.size() < 19) return false;
    const QByteArrayView mark = header.sliced(4, 15);
    return mark == QByteArrayView("Standard Jet DB") || mark == QByteArrayView("Standard ACE DB");
}

}  // namespace platform
