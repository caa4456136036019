#pragma once

#include <QString>
#include <QStringList>

#include "support/SampleInstallation.h"

/// What a run of the real program left, in a process of its own and with nobody at its screen.
struct ProgramRun {
    int exitCode;    ///< -1 when it crashed, or had to be killed after a minute
    QString output;  ///< "message=TEXT" for each message box and other modal window, then "rows=N" of the first list
};

/// Runs the program as it was built, from the installation's program folder, until its first list stands and its window
/// has been closed, or until a message has ended it.
ProgramRun RunProgram(const SampleInstallation& installation, const QStringList& arguments = {});
