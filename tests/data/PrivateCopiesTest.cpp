// Files that another user may have placed where a user's private copies are created.

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "data/Environment.h"
#include "globals/ProgramGlobals.h"
#include "platform/RuntimeError.h"
#include "support/FakeRegistry.h"
#include "support/FileBytes.h"
#include "support/GivenAway.h"
#include "support/SampleInstallation.h"
#include "support/TestServices.h"

using namespace Qt::StringLiterals;

namespace {

class PrivateCopies : public testing::Test {
  protected:
    PrivateCopies() {
        services.system.applicationFolder = installation.ProgramFolder();
        UseStandInRegistry().GiveHost(u"/opt/host/OFFICE16/"_s);
    }

    /// True if the configuration was opened.
    static bool Start() {
        try {
            return LoadEnvironment();
        } catch (const platform::RuntimeError&) {
            return false;
        }
    }
    QString Own(const QString& path = {}) const {
        return installation.UserFolder(u"tester"_s) + (path.isEmpty() ? path : u'/' + path);
    }
    void MakeOwnFolders() const {
        for (const QString& folder : {u"conf"_s, u"report"_s}) ASSERT_TRUE(QDir().mkpath(Own(folder)));
    }
    /// Names and contents of the folder that a start must not change.
    QStringList Elsewhere() const {
        QStringList names;
        for (const QFileInfo& entry : QDir(elsewhere.path()).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot))
            names.append(entry.fileName() + (entry.isDir() ? u"/"_s + QString::number(QDir(entry.filePath()).count())
                                                           : u"="_s + QString::fromUtf8(ReadBytes(entry.filePath()))));
        return names;
    }

    TestServices services;
    SampleInstallation installation{{.staff = 1, .installKind = 1}};
    QTemporaryDir elsewhere;
};

/// Reports success but cuts off the last byte of each copy.
class CuttingFiles : public platform::LocalFileSystem {
  public:
    bool CopyFile(const QString& source, const QString& target) const override {
        return LocalFileSystem::CopyFile(source, target) && QFile::resize(target, QFileInfo(source).size() - 1);
    }
};

}  // namespace

TEST_F(PrivateCopies, FolderIsTheUsersAloneFromTheFirstStart) {
    const mode_t kept = ::umask(0);
    EXPECT_TRUE(Start());
    ::umask(kept);
    EXPECT_EQ(ModeOf(Own()), 0700U);
    EXPECT_TRUE(QFile::exists(Own(u"conf/usrcnfg.accdb"_s)));
}

TEST_F(PrivateCopies, FolderOfAnEarlierVersionIsClosedToOthersAndKept) {
    ASSERT_TRUE(Start());
    for (const QString& folder : {Own(), Own(u"conf"_s), Own(u"report"_s)}) SetModeOf(folder, 02775);
    const QByteArray report = ReadBytes(Own(u"report/repdb.accdb"_s));
    EXPECT_TRUE(Start());
    for (const QString& folder : {Own(), Own(u"conf"_s), Own(u"report"_s)}) EXPECT_EQ(ModeOf(folder), 0700U);
    EXPECT_EQ(ReadBytes(Own(u"report/repdb.accdb"_s)), report);
}

TEST_F(PrivateCopies, CopyThatDiffersFromItsSourceIsNotKept) {
    platform::Services().files = std::make_unique<CuttingFiles>();
    EXPECT_FALSE(Start());
    for (const QString& file : {u"conf/usrcnfg.accdb"_s, u"report/repdb.accdb"_s, u"report/repfrmdb.accdb"_s})
        EXPECT_FALSE(QFile::exists(Own(file))) << file.toStdString();
    EXPECT_TRUE(QFile::exists(Own(u"report/repdb.accdb-unfinished"_s)));
    platform::Services().files = std::make_unique<platform::LocalFileSystem>();
    EXPECT_TRUE(Start());
    EXPECT_EQ(ReadBytes(Own(u"report/repdb.accdb"_s)), ReadBytes(installation.Report().Path()));
    EXPECT_FALSE(QFile::exists(Own(u"report/repdb.accdb-unfinished"_s)));
}

class PlantedLink : public PrivateCopies, public testing::WithParamInterface<const char16_t*> {};

TEST_P(PlantedLink, EndsTheStartAndWhatItPointsAtStays) {
    const QString link = Own(QString::fromUtf16(GetParam())), file = elsewhere.filePath(u"file"_s);
    for (const bool exists : {true, false}) {
        if (!QFile::remove(Own())) QDir(Own()).removeRecursively();
        QDir().mkpath(QFileInfo(link).path());
        const bool forAFolder = !QFileInfo(link).fileName().contains(u'.');
        if (exists && !forAFolder) WriteBytes(file, ReadBytes(installation.Configuration().Path()));
        if (exists && forAFolder) QDir().mkpath(file);
        MakeLink(file, link);
        const QStringList before = Elsewhere();
        EXPECT_FALSE(Start());
        EXPECT_EQ(Elsewhere(), before);
        EXPECT_TRUE(QFileInfo(link).isSymLink());
        EXPECT_TRUE(services.dialogs.shown.isEmpty());
        QFile::remove(file);
        QDir().rmdir(file);
    }
}
INSTANTIATE_TEST_SUITE_P(At, PlantedLink,
                         testing::Values(u"", u"conf", u"report", u"conf/usrcnfg.accdb", u"conf/usrcnfg.accdb-journal",
                                         u"report/repdb.accdb", u"report/repdb.accdb-unfinished",
                                         u"report/repfrmdb.accdb", u"report/repfrmdb.accdb-journal"));

TEST_F(PrivateCopies, PlantedPipeEndsTheStartAtOnce) {
    MakeOwnFolders();
    ASSERT_EQ(::mkfifo(QFile::encodeName(Own(u"report/repdb.accdb-unfinished"_s)).constData(), 0666), 0);
    EXPECT_FALSE(Start());
    EXPECT_FALSE(QFile::exists(Own(u"conf/usrcnfg.accdb"_s)));
}

TEST_F(PrivateCopies, FolderOfAnotherUserIsNeverTaken) {
    REQUIRE_SUPERUSER();
    ASSERT_TRUE(Start());
    const QStringList folders{Own(), Own(u"conf"_s), Own(u"report"_s)};
    const QStringList files{Own(u"conf/usrcnfg.accdb"_s), Own(u"report/repdb.accdb"_s)};
    for (const QString& path : folders + files) {
        GiveTo(kNobody, path);
        EXPECT_FALSE(Start()) << path.toStdString();
        EXPECT_EQ(Globals().Layout.UserConfFolder, QString());
        EXPECT_EQ(Globals().Layout.UserReportFolder, QString());
        GiveTo(0, path);
        EXPECT_TRUE(Start()) << path.toStdString();
    }
}
