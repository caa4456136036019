#pragma once

#include <QByteArrayView>

namespace platform {

/// True for the first bytes (at least 19) of a database file of the formats Jet 3, Jet 4 or ACE.
inline bool IsJetHeader(QByteArrayView header) {
    if (header.size() < 19) return false;
    const QByteArrayView mark = header.sliced(4, 15);
    return mark == QByteArrayView("Standard Jet DB") || mark == QByteArrayView("Standard ACE DB");
}

}  // namespace platform
