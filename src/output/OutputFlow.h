#pragma once

#include <QString>
#include <functional>

/// The way of every output: opens the report database, shows the wait dialog, runs `build`, which is True when there is
/// something to bring out, and then `bringOut` or a message box with `nothing`; takes dialog and connection away.
/// Without a report database a message box says so, and nothing else happens. What rises leaves dialog and connection
/// as they then stand.
void RunOutput(bool (*build)(), const std::function<void()>& bringOut, const QString& nothing);
