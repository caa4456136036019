#include "support/RealProgram.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

QString LinkedProgram(const SampleInstallation& installation) {
    const QString target = installation.ProgramFolder() + u"/要員名簿照会"_s;
    if (!QFile::exists(target) && !QFile::link(QStringLiteral(SUITE_PROGRAMS "/要員名簿照会"), target))
        throw std::runtime_error("cannot link the program");
    return target;
}

ProgramRun Run(const QString& program, const QStringList& arguments) {
    const QTemporaryDir folder;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
    environment.insert(u"MEIBO_PICTURE"_s, folder.filePath(u"window.png"_s));
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    if (!process.waitForFinished(60000)) process.kill();
    process.waitForFinished();
    const bool left = process.exitStatus() == QProcess::NormalExit;
    return {left ? process.exitCode() : -1, QString::fromUtf8(process.readAllStandardOutput())};
}

}  // namespace

ProgramRun RunProgram(const SampleInstallation& installation, const QStringList& arguments) {
    return Run(LinkedProgram(installation), arguments);
}

ProgramRun RunInstalledProgram(const QString& root, const QStringList& arguments) {
    return Run(root + u"/prgbin/要員名簿照会"_s, arguments);
}
