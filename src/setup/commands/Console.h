#pragma once

#include <QString>
#include <QTextStream>
#include <functional>

namespace setup {

/// What a command reaches of the outside.
struct Console {
    QTextStream& out;
    QTextStream& err;
    QString programFolder;  ///< where the built programs lie beside each other
    /// Waits a moment before the next look at a history; False ends the watch.
    std::function<bool()> waitForMore;
};

}  // namespace setup
