#pragma once

#include <QString>
#include <QStringList>

#include "support/SampleInstallation.h"

/// Result of a headless run of the real program in a separate process.
struct ProgramRun {
    int exitCode;    ///< -1 if it crashed or was killed after a minute
    QString output;  ///< "message=TEXT" per message box and other modal window, then "rows=N" of the first list
};

/// Runs the built program from the installation's program folder until it has shown its first list and closed its
/// window, or until a message box ended it.
ProgramRun RunProgram(const SampleInstallation& installation, const QStringList& arguments = {});
/// Same for an installation with programs; `root`: its folder.
ProgramRun RunInstalledProgram(const QString& root, const QStringList& arguments = {});
