#pragma once

// This glibc header lacks extern "C".
extern "C" {
#include <sys/pidfd.h>
}

#include <QString>
#include <QStringList>
#include <functional>
#include <memory>

#include "platform/ProcessService.h"

class QSocketNotifier;

namespace platform {

/// Starts a program file in a new session; arguments are encoded in the locale's encoding. It inherits only the
/// environment and the working directory: with an inherited descriptor, a reader of this program's output would wait
/// for the end of the child. `hidden` sets kStartHiddenVariable. Returns the process id, 0 on failure. The child is
/// reaped in the event loop when it ends; without an application object it stays a zombie. Uses posix_spawn instead of
/// QProcess::startDetached, since the caller needs a direct child and its exit code.
int StartChild(const QString& program, const QStringList& arguments, bool hidden);

/// How a process has ended.
struct ProcessEnd {
    bool known = false;
    quint32 exitCode = ProcessService::kUnknownExitCode;  ///< or the number of the signal
};

/// The record of a child that StartChild has started and that has not been reaped; for any other process a new record.
/// Shared, since a child can be reaped only once, but several descriptors may be open for it.
std::shared_ptr<ProcessEnd> EndOfProcess(quint32 processId);

/// True if the process of a pidfd has ended. Reaps a child and stores its exit code in `end`; for any other process the
/// exit code stays unknown. Does not block.
bool HasEnded(int processDescriptor, ProcessEnd& end);

/// Calls `ended` once from the event loop when the process of the pidfd has ended. Disable the notifier before closing
/// the descriptor; it deletes itself after the call. Null without an application object.
QSocketNotifier* WatchForEnd(int processDescriptor, std::function<void()> ended);

}  // namespace platform
