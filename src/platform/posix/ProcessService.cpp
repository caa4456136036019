#include "platform/ProcessService.h"

#include <poll.h>

#include <unistd.h>

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QPointer>
#include <QProcess>
#include <QSocketNotifier>
#include <QStandardPaths>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "platform/RuntimeError.h"
#include "platform/posix/ChildProcess.h"

using namespace Qt::StringLiterals;

namespace platform {
namespace {

/// An open process. The pidfd stays valid for this process even if its id is reused. It is closed when the process
/// ends, since handles of previews stay open for the rest of the run.
struct OpenedProcess {
    int descriptor = -1;
    std::shared_ptr<ProcessEnd> end;
    QPointer<QSocketNotifier> watch;
};

// A killed process that is blocked in the kernel, as by a network share that is gone, ends when that call returns.
constexpr int kKillTimeout = 3000;  // milliseconds

// Above all possible process ids, so that an id is never mistaken for a handle.
constexpr quint32 kFirstHandle = 0x40000001;

QHash<quint32, OpenedProcess>& Handles() {
    static QHash<quint32, OpenedProcess> handles;
    return handles;
}

void Release(OpenedProcess& process) {
    if (process.watch) {
        process.watch->setEnabled(false);
        process.watch->deleteLater();
    }
    if (process.descriptor >= 0) ::close(std::exchange(process.descriptor, -1));
}

/// True if the process has ended; its descriptor is then closed.
bool CheckEnd(OpenedProcess& process) {
    if (process.descriptor >= 0 && HasEnded(process.descriptor, *process.end)) Release(process);
    return process.descriptor < 0;
}

void CheckEndOf(quint32 handle) {
    if (const auto found = Handles().find(handle); found != Handles().end()) CheckEnd(*found);
}

QString ProgramFile(const QString& named) {
    QString file = named;
    file.replace(u'\\', u'/');
    const QString suffix = u".exe"_s;
    if (!QFileInfo(file).isFile() && file.endsWith(suffix, Qt::CaseInsensitive)) file.chop(suffix.size());
    return file;
}

quint32 Start(const QString& program, const QStringList& arguments, bool hidden) {
    const QString file = ProgramFile(program);
    // A name without a folder must not start a file of the working directory.
    const bool there = QDir::isAbsolutePath(file) && QFileInfo(file).isFile();
    const int child = there ? StartChild(file, arguments, hidden) : 0;
    if (child == 0) throw RuntimeError(kFileNotFound, u"プログラム「%1」を起動できません。"_s.arg(program));
    return static_cast<quint32>(child);
}

}  // namespace

void LocalProcessService::EndProcess(int exitCode) {
    std::fflush(nullptr);
    // Not exit(): destructors would run while nested event loops are still active.
    std::_Exit(exitCode);
}

bool LocalProcessService::OpenDocument(const QString& path, const QString& workingFolder) {
    const QString opener = QStandardPaths::findExecutable(u"xdg-open"_s);
    return !opener.isEmpty() && QProcess::startDetached(opener, {path}, workingFolder);
}

void LocalProcessService::StartProgram(const QString& path, const QString& arguments) {
    Start(path, arguments.isEmpty() ? QStringList() : QStringList{arguments}, false);
}

quint32 LocalProcessService::StartHidden(const QString& path, const QStringList& arguments) {
    return Start(path, arguments, true);
}

quint32 LocalProcessService::OpenProcess(quint32 /*access*/, bool /*inherit*/, quint32 processId) {
    const int descriptor = processId == 0 ? -1 : ::pidfd_open(static_cast<pid_t>(processId), 0);
    if (descriptor < 0) return 0;
    static quint32 next = kFirstHandle;
    const quint32 handle = next++;
    Handles().insert(handle,
                     {descriptor, EndOfProcess(processId), WatchForEnd(descriptor, [handle] { CheckEndOf(handle); })});
    return handle;
}

bool LocalProcessService::GetExitCodeProcess(quint32 handle, quint32& code) {
    const auto found = Handles().find(handle);
    if (found == Handles().end()) return false;
    code = CheckEnd(*found) ? found->end->exitCode : kStillActive;
    return true;
}

bool LocalProcessService::TerminateProcess(quint32 handle, quint32 /*exitCode*/) {
    const auto found = Handles().find(handle);
    if (found == Handles().end()) return false;
    if (!CheckEnd(*found) && ::pidfd_send_signal(found->descriptor, SIGKILL, nullptr, 0) == 0) {
        pollfd gone{found->descriptor, POLLIN, 0};
        ::poll(&gone, 1, kKillTimeout);
    }
    return CheckEnd(*found);
}

bool LocalProcessService::CloseHandle(quint32 handle) {
    const auto found = Handles().find(handle);
    if (found == Handles().end()) return false;
    Release(*found);
    Handles().erase(found);
    return true;
}

}  // namespace platform
