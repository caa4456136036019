// What a desktop reads from the programs' windows: which entry of its menu they belong to, and their icon.

#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>

#include "support/FileBytes.h"
#include "support/SampleInstallation.h"
#include "support/VirtualScreen.h"

using namespace Qt::StringLiterals;

namespace {

class DesktopEntry : public testing::Test {
  protected:
    ~DesktopEntry() override {
        process.kill();
        process.waitForFinished();
    }

    /// Starts a program and returns its first window, which may be a message box.
    QString Start(const QString& name) {
        const QString program = installation.ProgramFolder() + u'/' + name;
        EXPECT_TRUE(QFile::link(QStringLiteral(SUITE_PROGRAMS "/") + name, program));
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"QT_QPA_PLATFORM"_s, u"xcb"_s);
        environment.insert(u"DISPLAY"_s, screen.Display());
        environment.insert(u"DESKTOP_STARTUP_ID"_s, u"menu-1_TIME7"_s);
        process.setProcessEnvironment(environment);
        process.start(program, QStringList());
        return screen.NewestOf(1);
    }
    void ExpectClassAndIcon(const QString& window) const {
        EXPECT_EQ(screen.Property(window, "WM_CLASS").split('\0').first(), "youin-meibo");
        EXPECT_FALSE(screen.Property(window, "_NET_WM_ICON").isEmpty());
    }

    SampleInstallation installation;
    VirtualScreen screen;
    QProcess process;
};

}  // namespace

TEST_F(DesktopEntry, InquiryBelongsToTheEntry) { ExpectClassAndIcon(Start(u"要員名簿照会"_s)); }

TEST_F(DesktopEntry, InquiryReportsTheEndOfItsStart) {
    EXPECT_EQ(screen.StartEnded([this] { Start(u"要員名簿照会"_s); }), "remove: ID=menu-1_TIME7");
}

TEST_F(DesktopEntry, RegistrationBelongsToTheEntry) { ExpectClassAndIcon(Start(u"要員台帳更新"_s)); }

TEST_F(DesktopEntry, ReportHostBelongsToTheEntry) { ExpectClassAndIcon(Start(u"report-host"_s)); }

TEST(MenuEntryOfThePackage, BelongsToTheWindowsOfTheProgramsAndAwaitsThem) {
    const QByteArray entry = ReadBytes(QStringLiteral(SUITE_SOURCES "/packaging/youin-meibo.desktop"));
    EXPECT_TRUE(entry.contains("\nStartupWMClass=youin-meibo\n"));
    EXPECT_TRUE(entry.contains("\nStartupNotify=true\n"));
    EXPECT_TRUE(entry.contains("\nIcon=youin-meibo\n"));
}
