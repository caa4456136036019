#include <QCoreApplication>
#include <QFile>
#include <QLocalServer>
#include <QLocalSocket>

#include "platform/report-host/HostMessages.h"

// Fake report host: accepts a host's arguments and answers every request except the one for a report, for which it only
// creates the template file's name + ".asked". Exits when its client disconnects.
int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    const QString forms = QFile::decodeName(argv[1]);
    QLocalServer server;
    if (!server.listen(platform::HostSocketPath(forms)) || !server.waitForNewConnection(60000)) return 1;
    QLocalSocket* caller = server.nextPendingConnection();
    while (caller->canReadLine() || caller->waitForReadyRead(120000)) {
        const auto request = platform::ParseRequest(caller->readLine());
        if (!request) continue;
        if (request->verb == platform::HostVerb::OpenReport)
            QFile(forms + QStringLiteral(".asked")).open(QIODevice::WriteOnly);
        else
            caller->write(platform::LineOf(platform::HostAnswer{}));
        caller->flush();
    }
    return 0;
}
