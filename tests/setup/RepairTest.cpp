// Command repair; the cases of check-advice.txt play most of it.

#include <gtest/gtest.h>

#include <QFile>

#include "setup/RunTool.h"
#include "support/FileBytes.h"
#include "support/FileSizeLimit.h"
#include "support/SampleInstallation.h"
#include "support/TestServices.h"

using namespace Qt::StringLiterals;

namespace {

class Repair : public testing::Test {
  protected:
    ToolOutput Run(const QStringList& options = {}) const {
        return RunTool(QStringList{u"repair"_s, installation.Root()} + options);
    }
    void ExpectRefused(const QStringList& options, const QString& text) const {
        const ToolOutput output = Run(options);
        EXPECT_EQ(output.status, 2);
        EXPECT_EQ(output.err.section(u'\n', 0, 0), u"suite-setup: "_s + text);
        EXPECT_EQ(output.out, QString());
    }

    TestServices services;
    SampleInstallation installation{{.staff = 3}};
};

}  // namespace

TEST_F(Repair, ChangesNothingInAnIntactInstallation) {
    const QStringList files{installation.General().Path(), installation.Configuration().Path(),
                            installation.Report().Path(), installation.Forms().Path()};
    QList<QByteArray> before;
    for (const QString& file : files) before.append(ReadBytes(file));
    const ToolOutput output = Run();
    EXPECT_EQ(output.status, 0) << output.err.toStdString();
    EXPECT_EQ(output.out, u"直すところはありませんでした。\n"_s);
    for (qsizetype i = 0; i < files.size(); ++i) EXPECT_EQ(ReadBytes(files[i]), before[i]) << files[i].toStdString();
}

TEST_F(Repair, RefusesWhatItCantDo) {
    ExpectRefused({u"--office"_s, u"099"_s}, u"事業所 099 は M事業所 にありません。"_s);
    ExpectRefused({u"--install-kind"_s, u"2"_s}, u"オプション --install-kind には 0、1 のどれかを指定してください。"_s);
    ExpectRefused({u"--user"_s, u"nobody"_s}, u"--user は --report と一緒に指定してください。"_s);
    ExpectRefused({u"--report"_s, u"無い"_s}, u"標準の帳票に「無い」はありません。"_s);
    ExpectRefused({u"--report"_s, u"要員名簿照会"_s, u"--user"_s, u"nobody"_s},
                  u"%1/report に帳票ファイル repfrmdb がありません。"_s.arg(installation.UserFolder(u"nobody"_s)));
    ExpectRefused({u"--odbc"_s, u"DSN=x"_s}, u"一般データベースはファイルです。--odbc は付けられません。"_s);
}

TEST_F(Repair, NewCompanyAsksForPinsIfItsWholeCompanyRowDoes) {
    installation.General().Execute(
        u"UPDATE M事業所 SET 暗証番号有無 = '1' WHERE コード = '000'; DELETE FROM Mユーザ"_s);
    EXPECT_EQ(Run().out, u"Mユーザ に会社の行 0001 を加えました。\n"_s);
    EXPECT_EQ(installation.General().Value(u"SELECT 暗証番号有無 FROM Mユーザ WHERE ID = '0001'"_s), u"1"_s);
}

TEST_F(Repair, AddedClassesOfEnrolmentHaveTheirFixedMeaning) {
    installation.General().Execute(u"DELETE FROM K在籍区分"_s);
    EXPECT_EQ(Run().out, u"K在籍区分 に区分 0 を加えました。\nK在籍区分 に区分 1 を加えました。\n"_s);
    EXPECT_EQ(installation.General().Rows(u"SELECT 区分, 名称 FROM K在籍区分 ORDER BY 区分"_s),
              (QList<QStringList>{{u"0"_s, u"在籍"_s}, {u"1"_s, u"退職"_s}}));
}

TEST_F(Repair, StaffKeepTheirClassesUnlessAResetIsAskedFor) {
    installation.General().Execute(u"UPDATE M担当者 SET 社員区分 = 'X' WHERE コード = '00002'"_s);
    EXPECT_EQ(Run().out, u"直すところはありませんでした。\n"_s);
    EXPECT_EQ(Run({u"--reset-classes"_s}).out, u"要員 1 名の社員区分を 0 にしました。\n"_s);
    EXPECT_EQ(installation.General().Value(u"SELECT 社員区分 FROM M担当者 WHERE コード = '00002'"_s), u"0"_s);
}

TEST_F(Repair, FullDiskLeavesTheDatabasesAsTheyAreAndFails) {
    installation.General().Execute(u"DELETE FROM Mユーザ"_s);
    installation.Configuration().Execute(u"DELETE FROM 動作環境定義"_s);
    const QByteArray general = ReadBytes(installation.General().Path()),
                     configuration = ReadBytes(installation.Configuration().Path());
    QFile::remove(installation.Report().Path());
    ToolOutput output;
    {
        const FileSizeLimit full(100);
        output = Run();
    }
    EXPECT_EQ(output.status, 1);
    for (const QString& subject : {u"フォルダとファイルを直せません。"_s, u"構成データベースを直せません。"_s,
                                   u"一般データベースを直せません。"_s})
        EXPECT_TRUE(output.err.contains(subject)) << output.err.toStdString();
    EXPECT_EQ(ReadBytes(installation.General().Path()), general);
    EXPECT_EQ(ReadBytes(installation.Configuration().Path()), configuration);
    EXPECT_EQ(Run().status, 0) << "with space again";
}
