#pragma once

#include <QString>
#include <QStringList>
#include <functional>

class QSocketNotifier;

namespace platform {

/// Starts a program file in a session of its own, with nothing of this process but its environment and working folder:
/// whoever reads this program's output must not wait for its children. 0 when it can't be run. The child is reaped
/// when it ends and events are let through.
int StartChild(const QString& program, const QStringList& arguments, bool hidden);

/// True when the process behind the descriptor has ended. A child is reaped by this, and its exit code is left in
/// `code`.
bool HasEnded(int processDescriptor, int& code);

/// Calls `ended` once when the process behind the descriptor has ended and events are let through. The watch has to be
/// disabled before the descriptor is closed; it deletes itself after the call. None without an application object.
QSocketNotifier* WatchForEnd(int processDescriptor, std::function<void()> ended);

}  // namespace platform
