#include "support/HostProgram.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtTest/QTest>

#include <csignal>

#include "platform/RuntimeError.h"

using namespace Qt::StringLiterals;

HostProgram::HostProgram(const QString& templateFile, const QString& display) : templateFile_(templateFile) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"MEIBO_START_HIDDEN"_s, u"1"_s);
    if (!display.isEmpty()) {
        environment.insert(u"DISPLAY"_s, display);
        environment.insert(u"QT_QPA_PLATFORM"_s, u"xcb"_s);
    }
    process_.setProcessEnvironment(environment);
    process_.start(QStringLiteral(SUITE_PROGRAMS "/report-host"), {templateFile, u"/runtime"_s});
    process_.waitForStarted();
}

HostProgram::~HostProgram() { Kill(); }

std::unique_ptr<platform::ReportHost> HostProgram::Bind() const {
    std::unique_ptr<platform::ReportHost> host;
    const auto bound = [&] {
        try {
            host = platform::LocalReportHostLink().Bind(templateFile_);
        } catch (const platform::RuntimeError&) {
            return false;
        }
        return true;
    };
    EXPECT_TRUE(QTest::qWaitFor(bound, 20000)) << "the host does not listen";
    return host;
}

bool HostProgram::Ends(int timeout) {
    // Not waitForFinished: the test's events must be processed.
    return QTest::qWaitFor([this] { return !Runs(); }, timeout);
}

void HostProgram::Kill() {
    process_.kill();
    process_.waitForFinished();
}

void HostProgram::Freeze() const { ::kill(static_cast<pid_t>(process_.processId()), SIGSTOP); }

void HostProgram::Terminate() const { ::kill(static_cast<pid_t>(process_.processId()), SIGTERM); }

void HostProgram::KillNow() const { ::kill(static_cast<pid_t>(process_.processId()), SIGKILL); }

QList<qint64> ProcessesOf(const QString& program) {
    const QString wanted = QFileInfo(program).canonicalFilePath();
    QList<qint64> found;
    for (const QString& entry : QDir(u"/proc"_s).entryList(QDir::Dirs)) {
        bool isNumber = false;
        const qint64 id = entry.toLongLong(&isNumber);
        if (isNumber && QFile::symLinkTarget(u"/proc/"_s + entry + u"/exe"_s) == wanted) found.append(id);
    }
    return found;
}
