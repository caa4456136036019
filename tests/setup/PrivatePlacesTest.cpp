// Private copies are accessible to their user only: what check reports, and the message for users who may not enter
// them.

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include "setup/RunTool.h"
#include "support/FileBytes.h"
#include "support/GivenAway.h"
#include "support/SampleInstallation.h"
#include "support/TestServices.h"
#include "support/WithoutFileRights.h"

using namespace Qt::StringLiterals;

namespace {

/// Private copies of an unprivileged user.
class PrivatePlaces : public testing::Test {
  protected:
    PrivatePlaces() {
        for (const QString& folder : {u"/conf"_s, u"/report"_s}) QDir().mkpath(Own(folder));
        QFile::copy(installation.Configuration().Path(), Own(u"/conf/usrcnfg.accdb"_s));
        QFile::copy(installation.Report().Path(), Own(u"/report/repdb.accdb"_s));
        QFile::copy(installation.Forms().Path(), Own(u"/report/repfrmdb.accdb"_s));
    }
    QString Own(const QString& path = {}) const { return installation.UserFolder(u"nobody"_s) + path; }
    /// The reported faults that concern the user's folder.
    QStringList Check() const { return RunTool({u"check"_s, installation.Root()}).out.split(u'\n').filter(Own()); }
    void GiveOwnToNobody() const {
        for (const QString& path : {u""_s, u"/conf"_s, u"/report"_s, u"/conf/usrcnfg.accdb"_s, u"/report/repdb.accdb"_s,
                                    u"/report/repfrmdb.accdb"_s})
            GiveTo(kNobody, Own(path));
        SetModeOf(Own(), 0700);
    }

    TestServices services;
    SampleInstallation installation{{.staff = 1, .installKind = 1}};
};

}  // namespace

TEST_F(PrivatePlaces, CheckNamesAFolderThatBelongsToAnotherUser) {
    REQUIRE_SUPERUSER();
    SetModeOf(Own(), 0700);
    EXPECT_EQ(Check(), QStringList{u"・%1 は利用者 root のものです。"_s.arg(Own())});
    GiveTo(kNobody, Own());
    EXPECT_EQ(Check().filter(u"のものです。"_s), QStringList());
}

TEST_F(PrivatePlaces, CheckNamesLinksWhereverTheyLead) {
    REQUIRE_SUPERUSER();
    GiveOwnToNobody();
    MakeLink(u"/nowhere"_s, Own(u"/report/repdb.accdb-unfinished"_s));
    EXPECT_EQ(Check(), QStringList{u"・%1/report/repdb.accdb-unfinished はリンクです。"_s.arg(Own())});
    for (const QString& target : {installation.ConfFolder(), u"/nowhere"_s}) {
        if (!QFile::remove(Own())) QDir(Own()).removeRecursively();
        MakeLink(target, Own());
        EXPECT_EQ(Check(), QStringList{u"・%1 はリンクです。"_s.arg(Own())});
    }
}

TEST_F(PrivatePlaces, TheAdministratorWorksOnUsersCopies) {
    REQUIRE_SUPERUSER();
    GiveOwnToNobody();
    EXPECT_EQ(RunTool({u"move"_s, installation.Root()}).status, 0);
    EXPECT_EQ(RunTool({u"printer"_s, installation.Root(), u"--to-printer"_s, u"office"_s}).status, 0);
    EXPECT_EQ(RunTool({u"history"_s, installation.Root()}).out, u"履歴はまだありません。\n"_s);
    EXPECT_EQ(SampleFile(Own(u"/report/repfrmdb.accdb"_s)).Rows(u"SELECT DISTINCT 接続 FROM リンクテーブル"_s),
              (QList<QStringList>{{u";DATABASE="_s + Own(u"/report/repdb.accdb"_s)}}));
    EXPECT_EQ(Check().filter(u"のものです。"_s), QStringList());
    EXPECT_EQ(QDir(Own(u"/report"_s)).entryList(QDir::Files), QStringList({u"repdb.accdb"_s, u"repfrmdb.accdb"_s}));
}

TEST_F(PrivatePlaces, OtherUsersAreSentToTheAdministratorAndNothingChanges) {
    REQUIRE_SUPERUSER();
    GiveOwnToNobody();
    const QByteArray configuration = ReadBytes(installation.Configuration().Path()),
                     forms = ReadBytes(installation.Forms().Path());
    const QString refusal =
        u"suite-setup: 利用者 nobody のファイルを使う権限がありません。root で実行してください。\n"_s;
    const WithoutFileRights asAnybody;
    for (const QStringList& words : {QStringList{u"history"_s, installation.Root()},
                                     QStringList{u"links"_s, installation.Root(), u"--user"_s, u"nobody"_s},
                                     QStringList{u"move"_s, installation.Root()},
                                     QStringList{u"printer"_s, installation.Root(), u"--to-printer"_s, u"office"_s}}) {
        const ToolOutput output = RunTool(words);
        EXPECT_EQ(output.status, 1) << words.first().toStdString();
        EXPECT_EQ(output.err, refusal) << words.first().toStdString();
    }
    EXPECT_EQ(ReadBytes(installation.Configuration().Path()), configuration);
    EXPECT_EQ(ReadBytes(installation.Forms().Path()), forms);
    EXPECT_TRUE(RunTool({u"check"_s, installation.Root()})
                    .out.contains(u"利用者 nobody\nこの利用者だけのフォルダなので、調べられません。"
                                  u"root で実行してください。\n"_s));
}
