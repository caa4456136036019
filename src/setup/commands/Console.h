#pragma once

#include <QString>
#include <QTextStream>
#include <functional>

namespace setup {

/// Output streams and environment of a command.
struct Console {
    QTextStream& out;
    QTextStream& err;
    QString programFolder;  ///< folder that contains all built programs
    /// Waits before the next poll of a followed history; False stops following.
    std::function<bool()> waitForMore;
};

}  // namespace setup
