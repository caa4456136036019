#include "platform/ProcessService.h"

#include <QProcess>
#include <QStandardPaths>

#include <cstdio>
#include <cstdlib>

namespace platform {

void HostProcessService::EndProcess(int exitCode) {
    std::fflush(nullptr);
    // Not exit(): destructors of windows and libraries would run underneath the loops that still stand.
    std::_Exit(exitCode);
}

bool HostProcessService::OpenDocument(const QString& path, const QString& workingFolder) {
    const QString opener = QStandardPaths::findExecutable(QStringLiteral("xdg-open"));
    return !opener.isEmpty() && QProcess::startDetached(opener, {path}, workingFolder);
}

}  // namespace platform
