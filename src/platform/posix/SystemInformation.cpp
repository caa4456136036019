#include "platform/SystemInformation.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QStringList>
#include <QSysInfo>

#include <pwd.h>
#include <unistd.h>

#include "platform/Utf8Text.h"

namespace platform {
namespace {

QString ProgramPath(const QString& startedAs) {
    if (startedAs.contains(u'/')) return QDir::cleanPath(QDir::current().absoluteFilePath(startedAs));
    // The shell passes the bare name of a program found in PATH.
    const QString found = QStandardPaths::findExecutable(startedAs);
    return found.isEmpty() ? QDir::current().absoluteFilePath(startedAs) : found;
}

void WriteWithNul(const QString& name, QString& buffer) {
    if (name.isEmpty() || name.size() >= buffer.size()) return;
    buffer.replace(0, name.size() + 1, name + QChar(u'\0'));
}

}  // namespace

LocalSystemInformation::LocalSystemInformation(int argc, char** argv) {
    QStringList arguments;
    for (int i = 1; i < argc; ++i) arguments.append(TextFromLocal8Bit(argv[i]));
    commandLine_ = arguments.join(u' ');
    if (argc > 0) applicationFolder_ = QFileInfo(ProgramPath(QString::fromLocal8Bit(argv[0]))).path();
}

// The real user id, not $USER: folders and rights depend on the name.
void LocalSystemInformation::ReadUserName(QString& buffer) const {
    const passwd* entry = getpwuid(getuid());
    if (entry != nullptr) WriteWithNul(QString::fromLocal8Bit(entry->pw_name), buffer);
}

void LocalSystemInformation::ReadComputerName(QString& buffer) const {
    WriteWithNul(QSysInfo::machineHostName(), buffer);
}

}  // namespace platform
