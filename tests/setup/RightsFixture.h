#pragma once

#include <grp.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include "database/Database.h"
#include "setup/RunTool.h"
#include "support/FileBytes.h"
#include "support/SampleInstallation.h"

using namespace Qt::StringLiterals;

constexpr uid_t kNobody = 65534;
constexpr gid_t kClerks = 65533;  // has no name; not the primary group of the unprivileged user
constexpr int kTimeout = 60000;   // milliseconds

inline struct stat StatusOf(const QString& path) {
    struct stat found = {};
    EXPECT_EQ(::lstat(QFile::encodeName(path).constData(), &found), 0) << path.toStdString();
    return found;
}

inline QString Octal(unsigned mode) { return QString::number(mode & 07777U, 8).rightJustified(4, u'0'); }

inline void SetOwnerAndMode(const QString& path, uid_t owner, gid_t group, mode_t mode) {
    const QByteArray name = QFile::encodeName(path);
    ASSERT_EQ(::lchown(name.constData(), owner, group), 0);
    ASSERT_EQ(::chmod(name.constData(), mode), 0);
}

/// A parent folder that belongs to the clerks' group, as the documentation recommends.
class InstallationRights : public testing::Test {
  protected:
    InstallationRights() {
        if (::geteuid() != 0) return;
        SetOwnerAndMode(folder.path(), 0, kClerks, 02755);
    }
    void SetUp() override {
        if (::geteuid() != 0) GTEST_SKIP() << "only the superuser can give files to a group of others";
    }

    QString Root() const { return folder.filePath(u"honten"_s); }
    /// Runs the tool as a child process with a umask, as root or another user.
    ToolOutput Tool(const QStringList& arguments, mode_t mask = 022, uid_t user = 0, gid_t group = 0) const {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"MEIBO_MACHINE_REGISTRY"_s, folder.filePath(u"registry"_s));
        process.setProcessEnvironment(environment);
        process.setChildProcessModifier([=] {
            ::umask(mask);
            if (user != 0 && (::setgroups(0, nullptr) != 0 || ::setgid(group) != 0 || ::setuid(user) != 0)) ::_exit(9);
        });
        process.start((user == 0 ? QStringLiteral(SUITE_PROGRAMS) : Programs()) + u"/suite-setup"_s, arguments);
        EXPECT_TRUE(process.waitForFinished(kTimeout));
        return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }
    /// Copies of the programs in a folder that every user can enter.
    static QString Programs() {
        static const QTemporaryDir copies(u"/tmp/meibo-programs-XXXXXX"_s);
        if (QDir(copies.path()).isEmpty()) {
            SetOwnerAndMode(copies.path(), 0, 0, 0755);
            for (const QString& program : {u"要員名簿照会"_s, u"要員台帳更新"_s, u"suite-setup"_s, u"report-host"_s})
                QFile::copy(QStringLiteral(SUITE_PROGRAMS "/") + program, copies.filePath(program));
        }
        return copies.path();
    }
    void Make(const QStringList& options = {}, mode_t mask = 022) const {
        const ToolOutput made = Tool(QStringList{u"init"_s, Root(), u"--staff"_s, u"2"_s} + options, mask);
        ASSERT_EQ(made.status, 0) << made.err.toStdString();
    }
    /// Lines like "conf/pin.key 0640 65533" for all entries, sorted by path.
    QStringList Entries() const {
        QStringList lines;
        const auto add = [&](const QString& name, const QString& path) {
            const struct stat found = StatusOf(path);
            lines.append(u"%1 %2 %3"_s.arg(name, Octal(found.st_mode)).arg(found.st_gid));
        };
        QDirIterator all(Root(), QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
        while (all.hasNext()) {
            const QString path = all.next();
            add(path.mid(Root().size() + 1), path);
        }
        lines.sort();
        add(u"."_s, Root());
        return lines;
    }
    /// Restores the rights that earlier versions set as root: readable for everyone, in the creator's group.
    void MakeAsBefore() const {
        Make();
        QDirIterator all(Root(), QDir::AllEntries | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
        while (all.hasNext()) {
            const QFileInfo entry(all.next());
            const bool key = entry.fileName() == u"pin.key"_s;
            const mode_t file = key ? 0640 : entry.isExecutable() ? 0755 : 0664;
            SetOwnerAndMode(entry.filePath(), 0, 0, entry.isDir() ? 02775 : file);
        }
        SetOwnerAndMode(Root(), 0, 0, 0755);
    }
    ToolOutput Check() const { return Tool({u"check"_s, Root()}); }

    // Other users can't enter the usual folder of the tests.
    QTemporaryDir folder{u"/tmp/meibo-rights-XXXXXX"_s};
};

inline const QStringList kExpected = {
    u"conf 2770 65533"_s,
    u"conf/pin.key 0640 65533"_s,
    u"conf/usrcnfg.accdb 0660 65533"_s,
    u"data 2770 65533"_s,
    u"data/gnrdb.accdb 0660 65533"_s,
    u"host 2750 65533"_s,
    u"host/OFFICE16 2750 65533"_s,
    u"host/OFFICE16/MSACCESS.EXE 0750 65533"_s,
    u"manual 2750 65533"_s,
    u"manual/要員名簿照会.doc 0640 65533"_s,
    u"prgbin 2750 65533"_s,
    u"prgbin/suite-setup 0750 65533"_s,
    u"prgbin/空白.jpg 0640 65533"_s,
    u"prgbin/要員台帳更新 0750 65533"_s,
    u"prgbin/要員名簿照会 0750 65533"_s,
    u"report 2770 65533"_s,
    u"report/repdb.accdb 0660 65533"_s,
    u"report/repfrmdb.accdb 0660 65533"_s,
    u"users 3770 65533"_s,
    u". 2750 65533"_s,
};
