#pragma once

#include <QString>
#include <QStringList>
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

/// Runs the tool on its arguments (program name left out). 0: done; 1: something failed on the way, and the message
/// says what; 2: refused, nothing was changed.
int RunSetup(const QStringList& arguments, const Console& console);

}  // namespace setup
