#include <QDir>

#include "data/Environment.h"
#include "faults/FaultFixture.h"
#include "support/FakeRegistry.h"

using namespace Qt::StringLiterals;

namespace {

const QStringList kOwnFiles = {u"conf/usrcnfg.accdb"_s, u"report/repdb.accdb"_s, u"report/repfrmdb.accdb"_s};

/// A user's first start in an installation with private copies.
class FirstStartUnderFaults : public FaultTest {
  protected:
    FirstStartUnderFaults() {
        UseStandInRegistry().GiveHost(u"/opt/host/OFFICE16/"_s);
        installation.SetEnvironment(u"インストール区分"_s, u"1"_s);
        KeepAsBeginning();
    }

    QString Own(const QString& path) const { return installation.UserFolder(u"tester"_s) + u'/' + path; }
    SampleFile HistoryFile() const override {
        return QFile::exists(Own(kOwnFiles[0])) ? SampleFile(Own(kOwnFiles[0])) : installation.Configuration();
    }

    void Work() override { started_ = LoadEnvironment(); }
    /// Every existing private file is a complete copy.
    void CheckBehindFault(bool /*untold*/) override {
        for (const QString& name : kOwnFiles) {
            const QString common = installation.Root() + u'/' + name;
            if (!QFile::exists(Own(name))) continue;
            EXPECT_GE(QFileInfo(Own(name)).size(), QFileInfo(common).size()) << name.toStdString();
            EXPECT_EQ(Tables(Own(name)), Tables(common));
        }
    }
    void CheckBehindNextWork() override {
        EXPECT_TRUE(started_);
        for (const QString& name : kOwnFiles) ASSERT_TRUE(QFile::exists(Own(name))) << name.toStdString();
        CheckBehindFault(false);
        EXPECT_EQ(SampleFile(Own(kOwnFiles[2])).Rows(u"SELECT DISTINCT 接続 FROM リンクテーブル"_s),
                  (QList<QStringList>{{u";DATABASE="_s + Own(kOwnFiles[1])}}));
        EXPECT_EQ(QDir(Own(u"report"_s)).entryList(QDir::Files | QDir::Hidden, QDir::Name),
                  QStringList({u"repdb.accdb"_s, u"repfrmdb.accdb"_s}));
        EXPECT_EQ(QDir(Own(u"conf"_s)).entryList(QDir::Files | QDir::Hidden, QDir::Name),
                  QStringList(u"usrcnfg.accdb"_s));
    }
    static QStringList Tables(const QString& path) {
        QStringList names;
        for (const QStringList& row : SampleFile(path).Rows(u"SELECT name FROM sqlite_schema ORDER BY rowid"_s))
            names << row.first();
        return names;
    }
    int FailFiles(bool lasting) {
        Try({lasting ? u"files from then on"_s : u"files once"_s,
             [this, lasting](int point) { files->Arm(point, lasting); }, [this] { return files->Disarm(); }, true});
        return PrintTried();
    }

    bool started_ = false;
};

}  // namespace

TEST_F(FirstStartUnderFaults, NoCopyThatBrokeOffIsTakenForGood) { EXPECT_GT(FailFiles(false), 15); }

TEST_F(FirstStartUnderFaults, NothingHalfIsTakenForGoodWhereTheDiskStaysFull) { EXPECT_GT(FailFiles(true), 15); }

TEST_F(FirstStartUnderFaults, OneFaultOfTheDiskIsMadeGoodByTheNextStart) { EXPECT_GT(FailOnce(), 15); }

TEST_F(FirstStartUnderFaults, BrokenDiskIsMadeGoodByTheNextStart) { EXPECT_GT(FailFromThenOn("repfrmdb"), 15); }

TEST_F(FirstStartUnderFaults, LackOfMemoryIsMadeGoodByTheNextStart) { EXPECT_GT(RunOutOfMemory(), 300); }
