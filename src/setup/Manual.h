#pragma once

#include <QByteArray>

namespace setup {

/// The clerk's manual as a document that word processors open under the suffix .doc (RTF, ASCII bytes only).
QByteArray ManualDocument();

}  // namespace setup
