#include "platform/ProcessService.h"

#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

#include <cstdio>
#include <cstdlib>

#include "platform/RuntimeError.h"

namespace platform {
namespace {

/// The file that a program name of the suite means on this platform.
QString ProgramFile(const QString& path) {
    const QLatin1StringView suffix(".exe");
    const bool plain = path.endsWith(suffix, Qt::CaseInsensitive) && !QFileInfo(path).isFile();
    return plain ? path.chopped(suffix.size()) : path;
}

}  // namespace

void HostProcessService::EndProcess(int exitCode) {
    std::fflush(nullptr);
    // Not exit(): destructors of windows and libraries would run underneath the loops that still stand.
    std::_Exit(exitCode);
}

void HostProcessService::StartProgram(const QString& path, const QString& arguments) {
    const QString program = ProgramFile(path);
    const QStringList words = arguments.isEmpty() ? QStringList() : QStringList{arguments};
    if (!QProcess::startDetached(program, words))
        throw RuntimeError(kFileNotFound, QStringLiteral("プログラム「%1」を起動できません。").arg(program));
}

bool HostProcessService::OpenDocument(const QString& path, const QString& workingFolder) {
    const QString opener = QStandardPaths::findExecutable(QStringLiteral("xdg-open"));
    return !opener.isEmpty() && QProcess::startDetached(opener, {path}, workingFolder);
}

}  // namespace platform
