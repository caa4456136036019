#pragma once

#include <QString>
#include <QStringList>
#include <QTextStream>
#include <functional>

#include "setup/commands/Verbs.h"

struct ToolOutput {
    int status = 0;
    QString out, err;
};

/// Runs the set-up tool in this process. `waitForMore` replaces the wait between two polls of a followed history;
/// `programFolder` is the folder of the programs that it copies or starts.
inline ToolOutput RunTool(
    const QStringList& arguments, const std::function<bool()>& waitForMore = [] { return false; },
    const QString& programFolder = {}) {
    ToolOutput output;
    QTextStream out(&output.out), err(&output.err);
    output.status = setup::RunSetup(arguments, {out, err, programFolder, waitForMore});
    return output;
}
