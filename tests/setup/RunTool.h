#pragma once

#include <QString>
#include <QStringList>
#include <QTextStream>
#include <functional>

#include "setup/Commands.h"

struct ToolOutput {
    int status = 0;
    QString out, err;
};

/// Runs the set-up tool as from a command line, without programs beside it. `waitForMore` stands for the wait between
/// two looks at a followed history.
inline ToolOutput RunTool(
    const QStringList& arguments, const std::function<bool()>& waitForMore = [] { return false; }) {
    ToolOutput output;
    QTextStream out(&output.out), err(&output.err);
    output.status = setup::RunSetup(arguments, {out, err, {}, waitForMore});
    return output;
}
