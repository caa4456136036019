// Work folders of a killed init or report host, and what removes them.

#include <gtest/gtest.h>
#include <csignal>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest/QTest>

#include "report-host/template/OutputTarget.h"
#include "setup/RunTool.h"
#include "setup/storage/Installer.h"
#include "support/FileBytes.h"
#include "support/GivenAway.h"
#include "support/SampleInstallation.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kTimeout = 60000;  // milliseconds

class Leftovers : public testing::Test {
  protected:
    QString Root(const QString& name = u"honten"_s) const { return folder.filePath(name); }
    QStringList WorkFolders() const {
        return QDir(folder.path()).entryList({u".suite-setup-*"_s}, QDir::Dirs | QDir::Hidden, QDir::Name);
    }
    void Make(const QString& name, const QStringList& options = {}) const {
        ASSERT_EQ(RunTool(QStringList{u"init"_s, Root(name), u"--staff"_s, u"1"_s} + options).status, 0);
    }
    /// Starts an init with a large sample and stops it (SIGSTOP) while it writes.
    void StartAndStop(QProcess& tool, const QStringList& options = {}) const {
        const qsizetype before = WorkFolders().size();
        tool.start(QStringLiteral(SUITE_PROGRAMS "/suite-setup"),
                   QStringList{u"init"_s, Root(), u"--staff"_s, u"99999"_s} + options);
        ASSERT_TRUE(QTest::qWaitFor([&] { return WorkFolders().size() > before; }, kTimeout));
        const QString data = folder.filePath(WorkFolders().last()) + u"/new/data/gnrdb.accdb"_s;
        ASSERT_TRUE(QTest::qWaitFor([&] { return QFile::exists(data); }, kTimeout));
        ASSERT_EQ(::kill(static_cast<pid_t>(tool.processId()), SIGSTOP), 0);
    }
    void KillOne(const QStringList& options = {}) const {
        QProcess tool;
        StartAndStop(tool, options);
        tool.kill();
        ASSERT_TRUE(tool.waitForFinished(kTimeout));
    }
    /// A leftover that holds an installation which was at `root`. Returns its path.
    QString Plant(const QString& root) const {
        const QString work = folder.filePath(u".suite-setup-AbCdEf"_s);
        EXPECT_TRUE(QDir().mkpath(work + u"/old/conf"_s));
        WriteBytes(work + u"/in-use"_s, root.toUtf8());
        WriteBytes(work + u"/old/conf/usrcnfg.accdb"_s, "old");
        return work;
    }
    /// Each finding about a leftover with what to do about it, as one text.
    QStringList CheckLines(const QString& name = u"honten"_s) const {
        QStringList findings;
        for (const QString& finding : RunTool({u"check"_s, Root(name)}).out.split(u"・"_s))
            if (finding.startsWith(u"途中で終わった"_s))
                findings.append(finding.section(u'\n', 0, 0) + finding.section(u'\n', 2).replace(u'\n', u'|'));
        return findings;
    }

    QTemporaryDir folder;
};

}  // namespace

TEST_F(Leftovers, OfAKilledReplacementAreNamedByCheckAndRemovedByTheNextInit) {
    Make(u"honten"_s);
    KillOne({u"--replace"_s});
    ASSERT_EQ(WorkFolders().size(), 1);
    EXPECT_EQ(
        CheckLines(),
        QStringList{u"途中で終わった suite-setup init のフォルダ %1 が残っています。  対処: 利用者 root が次に init "
                    u"を実行すると消えます。|    rm -r -- '%1'|"_s.arg(folder.filePath(WorkFolders().first()))});
    Make(u"shiten"_s);
    EXPECT_EQ(WorkFolders(), QStringList());
    EXPECT_EQ(CheckLines(), QStringList());
}

TEST_F(Leftovers, OfARunningInitAreNone) {
    Make(u"shiten"_s);
    QProcess tool;
    StartAndStop(tool);
    const QStringList before = WorkFolders();
    EXPECT_EQ(CheckLines(u"shiten"_s), QStringList());
    Make(u"shiten"_s, {u"--replace"_s});
    EXPECT_EQ(WorkFolders(), before);
    tool.kill();
    ASSERT_TRUE(tool.waitForFinished(kTimeout));
}

TEST_F(Leftovers, OnlyCopyOfAReplacedInstallationGoesBack) {
    KillOne();
    const QString work = folder.filePath(WorkFolders().first());
    Make(u"shiten"_s);
    ASSERT_FALSE(QFile::exists(work));
    KillOne();
    // The state between the two renames of a replacement.
    ASSERT_TRUE(QDir().rename(Root(u"shiten"_s), folder.filePath(WorkFolders().first()) + u"/old"_s));
    const QByteArray key = ReadBytes(folder.filePath(WorkFolders().first()) + u"/old/conf/pin.key"_s);
    const ToolOutput made = RunTool({u"init"_s, Root()});
    EXPECT_EQ(made.status, 2);
    EXPECT_EQ(
        made.err.section(u'\n', 0, 0),
        u"suite-setup: %1 には既にインストールがあります。作り直すときは --replace を付けてください。"_s.arg(Root()));
    EXPECT_EQ(ReadBytes(Root() + u"/conf/pin.key"_s), key);
    EXPECT_EQ(WorkFolders(), QStringList());
}

TEST_F(Leftovers, OnlyCopyThatCantGoBackStays) {
    KillOne();
    const QString work = folder.filePath(WorkFolders().first());
    Make(u"shiten"_s);
    KillOne();
    const QString old = folder.filePath(WorkFolders().first()) + u"/old"_s;
    ASSERT_TRUE(QDir().rename(Root(u"shiten"_s), old));
    WriteBytes(Root(), "in its place");
    Make(u"shiten"_s);
    EXPECT_TRUE(QFile::exists(old + u"/conf/pin.key"_s));
}

TEST_F(Leftovers, CopyOfAnInstallationThatIsThereGoes) {
    Make(u"honten"_s);
    const QByteArray key = ReadBytes(Root() + u"/conf/pin.key"_s);
    const QString work = Plant(Root());
    Make(u"shiten"_s);
    EXPECT_FALSE(QFile::exists(work));
    EXPECT_EQ(ReadBytes(Root() + u"/conf/pin.key"_s), key);
}

TEST_F(Leftovers, CopyFromAnotherFolderIsNotMovedThere) {
    const QTemporaryDir elsewhere;
    const QString work = Plant(elsewhere.filePath(u"honten"_s));
    Make(u"shiten"_s);
    EXPECT_FALSE(QFile::exists(elsewhere.filePath(u"honten"_s)));
    EXPECT_TRUE(QFile::exists(work + u"/old/conf/usrcnfg.accdb"_s));
}

TEST_F(Leftovers, CopyOfAnotherUserIsNotPutInPlace) {
    REQUIRE_SUPERUSER();
    const QString work = Plant(Root());
    GiveTo(kNobody, work);
    Make(u"shiten"_s);
    EXPECT_FALSE(QFile::exists(Root()));
    EXPECT_TRUE(QFile::exists(work + u"/old/conf/usrcnfg.accdb"_s));
}

TEST_F(Leftovers, CheckDoesNotAdviseToRemoveTheOnlyCopyOfAnInstallation) {
    Make(u"shiten"_s);
    const QString work = Plant(Root());
    EXPECT_EQ(
        CheckLines(u"shiten"_s),
        QStringList{u"途中で終わった suite-setup init のフォルダ %1 が残っています。  対処: 利用者 root が次に init "
                    u"を実行すると消えます。|"_s.arg(work)});
}

TEST_F(Leftovers, OfEarlierVersionsAreNamedAndLeftToTheAdministrator) {
    Make(u"honten"_s);
    ASSERT_TRUE(QDir().mkpath(folder.filePath(u".suite-setup-AbCdEf/old/data"_s)));
    EXPECT_EQ(
        CheckLines(),
        QStringList{u"途中で終わった処理のフォルダ %1 が残っています。  対処: 中を確かめて、要らなければ削除してく"
                    u"ださい。|    rm -r -- '%1'|"_s.arg(folder.filePath(u".suite-setup-AbCdEf"_s))});
    Make(u"shiten"_s);
    EXPECT_EQ(WorkFolders(), QStringList{u".suite-setup-AbCdEf"_s});
}

TEST_F(Leftovers, OfAKilledHostAreNamedForEachFolderThatIsPrintedTo) {
    Make(u"honten"_s);
    const QString forms = Root() + u"/report/repfrmdb.accdb"_s;
    QStringList named;
    for (const QString& report : {u""_s, u"要員名簿照会はがき"_s}) {
        const QString place = folder.filePath(u"to"_s + report), work = place + u"/.youin-meibo-print-AbCdEf"_s;
        ASSERT_TRUE(QDir().mkpath(work));
        WriteBytes(work + u"/in-use"_s, "");
        WriteOutputTarget(forms, report, {OutputTarget::Kind::Folder, place});
        named.append(
            u"途中で終わった帳票ホストのフォルダ %1 が残っています。  対処: 利用者 root が次に印刷すると消えます。"
            u"|    rm -r -- '%1'|"_s.arg(work));
    }
    EXPECT_EQ(CheckLines(), named);
}

TEST_F(Leftovers, OfAKilledHostAreNamedInTheTemporaryFolderAndWhereAUserPrintsTo) {
    Make(u"honten"_s);
    const QString own = Root() + u"/users/nobody/report"_s, place = folder.filePath(u"own"_s);
    ASSERT_TRUE(QDir().mkpath(own) && QDir().mkpath(place));
    ASSERT_TRUE(QFile::copy(Root() + u"/report/repfrmdb.accdb"_s, own + u"/repfrmdb.accdb"_s));
    WriteOutputTarget(own + u"/repfrmdb.accdb"_s, {}, {OutputTarget::Kind::Folder, place});
    const QByteArray temporary = qgetenv("TMPDIR");
    qputenv("TMPDIR", QFile::encodeName(folder.path()));
    for (const QString& parent : {folder.path(), place}) {
        ASSERT_TRUE(QDir().mkpath(parent + u"/.youin-meibo-print-AbCdEf"_s));
        WriteBytes(parent + u"/.youin-meibo-print-AbCdEf/in-use"_s, "");
    }
    const QString lines = CheckLines().join(u'\n');
    temporary.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", temporary);
    for (const QString& parent : {folder.path(), place})
        EXPECT_TRUE(lines.contains(u" "_s + parent + u"/.youin-meibo-print-AbCdEf "_s)) << lines.toStdString();
}
