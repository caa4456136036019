#include "support/PrintService.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocalSocket>
#include <QtTest/QTest>

#include <stdexcept>

#include "support/FileBytes.h"

using namespace Qt::StringLiterals;

namespace {

const QString kDescription = u"/usr/share/ppd/cupsfilters/Generic-PDF_Printer-PDF.ppd"_s;
const QString kMailDescription = QStringLiteral(SUITE_SOURCES "/tests/support/mail-printer.ppd");

const QByteArray kScheduler =
    "Listen ROOT/socket\n"
    "LogLevel warn\n"
    "DefaultAuthType None\n"
    "Browsing Off\n"
    "WebInterface No\n"
    "<Location />\nOrder allow,deny\nAllow all\n</Location>\n"
    "<Policy default>\n<Limit All>\nOrder deny,allow\n</Limit>\n</Policy>\n";

// The scheduler must be configured to allow device files.
const QByteArray kFiles =
    "ServerRoot ROOT/etc\nDataDir /usr/share/cups\nServerBin /usr/lib/cups\nCacheDir ROOT/cache\n"
    "RequestRoot ROOT/spool\nStateDir ROOT/state\nTempDir ROOT/spool/tmp\nAccessLog ROOT/log/access\n"
    "ErrorLog ROOT/log/error\nPageLog ROOT/log/page\nFileDevice Yes\nPrintcap\nSystemGroup root\n";

void Run(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitCode() != 0)
        throw std::runtime_error(program.toStdString() + ": " + process.readAllStandardError().toStdString());
}

}  // namespace

// Not in the tests' temporary folder, which may be below /dev, where the scheduler expects devices.
PrintService::PrintService() : folder_(u"/tmp/cups-XXXXXX"_s), environmentBefore_(qgetenv("CUPS_SERVER")) {
    const QByteArray root = folder_.path().toUtf8();
    QFile::setPermissions(folder_.path(), QFile::Permissions(0x7755));
    for (const QString& name : {u"etc/ppd"_s, u"cache"_s, u"spool/tmp"_s, u"state"_s, u"log"_s})
        QDir(folder_.path()).mkpath(name);
    WriteBytes(folder_.filePath(u"etc/cupsd.conf"_s), QByteArray(kScheduler).replace("ROOT", root));
    WriteBytes(folder_.filePath(u"etc/cups-files.conf"_s), QByteArray(kFiles).replace("ROOT", root));
    qputenv("CUPS_SERVER", root + "/socket");
    scheduler_.setStandardErrorFile(folder_.filePath(u"log/out"_s));
    scheduler_.start(u"/usr/sbin/cupsd"_s, {u"-f"_s, u"-c"_s, folder_.filePath(u"etc/cupsd.conf"_s), u"-s"_s,
                                            folder_.filePath(u"etc/cups-files.conf"_s)});
    // The socket's file exists a moment before the scheduler listens.
    const auto listens = [this] {
        QLocalSocket client;
        client.connectToServer(folder_.filePath(u"socket"_s));
        return client.waitForConnected(1000);
    };
    if (!QTest::qWaitFor(listens, 20000))
        throw std::runtime_error("the printing system does not start: " +
                                 ReadBytes(folder_.filePath(u"log/out"_s)).toStdString());
}

PrintService::~PrintService() {
    scheduler_.terminate();
    if (!scheduler_.waitForFinished(10000)) scheduler_.kill();
    scheduler_.waitForFinished();
    if (environmentBefore_.isEmpty())
        qunsetenv("CUPS_SERVER");
    else
        qputenv("CUPS_SERVER", environmentBefore_);
}

void PrintService::Add(const QString& name, const QString& description) {
    Run(u"/usr/sbin/lpadmin"_s, {u"-p"_s, name, u"-E"_s, u"-v"_s, u"file:"_s + OutputOf(name), u"-P"_s, description});
}

void PrintService::AddPrinter(const QString& name) { Add(name, kDescription); }

void PrintService::AddMailPrinter(const QString& name) { Add(name, kMailDescription); }

void PrintService::MakeDefault(const QString& name) { Run(u"/usr/sbin/lpadmin"_s, {u"-d"_s, name}); }

void PrintService::Reject(const QString& name) { Run(u"/usr/sbin/cupsreject"_s, {name}); }

QByteArray PrintService::Arrived(const QString& name) const {
    QByteArray pdf;
    const auto whole = [&] {
        if (!Idle(name)) pdf = ReadBytes(OutputOf(name));
        return pdf.contains("%%EOF");  // the driver's job trailer may follow
    };
    return QTest::qWaitFor(whole, 30000) ? pdf : QByteArray();
}

QString PrintService::ArrivedFile(const QString& name) const {
    // The driver's job header precedes the PDF.
    const QByteArray arrived = Arrived(name);
    const QString file = folder_.filePath(name + u"-arrived.pdf"_s);
    WriteBytes(file, arrived.mid(arrived.indexOf("%PDF")));
    return file;
}

void PrintService::Clear(const QString& name) const { QFile::remove(OutputOf(name)); }

bool PrintService::Idle(const QString& name) const { return !QFileInfo::exists(OutputOf(name)); }
