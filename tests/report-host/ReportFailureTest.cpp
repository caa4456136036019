#include <sys/stat.h>

#include <QDir>
#include <QFile>

#include "report-host/ReportFixture.h"
#include "support/FileBytes.h"
#include "support/FileSizeLimit.h"
#include "support/FullDiskSizes.h"

using namespace Qt::StringLiterals;

TEST_F(ReportTest, MissingTemplateIsReported) {
    EXPECT_EQ(Failure(u"無い帳票"_s), u"帳票「無い帳票」が帳票ファイルにありません。"_s);
}

TEST_F(ReportTest, TemplateWithAnErrorIsReportedWithItsLine) {
    SetTemplate(kList, u"用紙 A4\n明細 高さ=九"_s);
    EXPECT_EQ(Failure(kList), u"帳票「要員名簿照会」の定義に誤りがあります。2 行目: 高さ「九」は数ではありません。"_s);
}

TEST_F(ReportTest, ColumnThatTheTableLacksIsReportedWithItsLine) {
    AddLabels(1);
    SetTemplate(kLabels, u"用紙 A4\n明細 高さ=9\n文字 0,0 9x9 \"[社名]\""_s);
    EXPECT_EQ(Failure(kLabels),
              u"帳票「要員名簿照会宛名ラベル」の定義に誤りがあります。3 行目: 表に列「社名」がありません。"_s);
}

TEST_F(ReportTest, EmptyWorkTableMakesNoPages) {
    EXPECT_EQ(Failure(kLabels), u"帳票「要員名簿照会宛名ラベル」に印刷するデータがありません。"_s);
}

TEST_F(ReportTest, LinkThatIsMissingIsReported) {
    installation.Forms().Execute(u"DELETE FROM リンクテーブル"_s);
    EXPECT_EQ(Failure(kList), u"帳票「要員名簿照会」が使うリンクテーブル「要員名簿照会」がありません。"_s);
}

TEST_F(ReportTest, LinkThatPointsNowhereIsReportedWithItsPath) {
    installation.Forms().Execute(u"UPDATE リンクテーブル SET 接続 = ';DATABASE=/nowhere/repdb.accdb'"_s);
    EXPECT_EQ(Failure(kList),
              u"リンクテーブル「要員名簿照会」を読めません。データベース「/nowhere/repdb.accdb」が見つかりません。"_s);
}

TEST_F(ReportTest, LinkToATableThatIsNotThereIsReported) {
    installation.Forms().Execute(u"UPDATE リンクテーブル SET 元テーブル = '別の表'"_s);
    EXPECT_EQ(Failure(kList),
              u"リンクテーブル「要員名簿照会」の接続先に表「別の表」がありません。"_s + installation.Report().Path());
}

TEST_F(ReportTest, MissingTemplateFileIsReported) {
    QFile::remove(TemplateFile());
    EXPECT_EQ(Failure(kList), u"帳票ファイルを使えません。データベース「%1」が見つかりません。"_s.arg(TemplateFile()));
}

TEST_F(ReportTest, BrokenTemplateFileIsReported) {
    QFile file(TemplateFile());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(2000, 'x'));
    file.close();
    EXPECT_EQ(Failure(kList),
              u"帳票ファイルを使えません。「%1」はデータベースのファイルではありません。"_s.arg(TemplateFile()));
}

TEST_F(ReportTest, FileWithoutTheTablesOfFormsIsReported) {
    installation.Forms().Execute(u"DROP TABLE 帳票"_s);
    EXPECT_TRUE(Failure(kList).startsWith(u"帳票ファイルを使えません。"_s));
}

TEST_F(ReportTest, PdfThatCannotBeWrittenIsReportedAndLeavesNothing) {
    AddLabels(1);
    const auto report = Prepare(kLabels);
    try {
        WritePdf(*report, folder.filePath(u"none/a.pdf"_s));
        FAIL() << "no failure";
    } catch (const ReportFailure& failure) {
        EXPECT_TRUE(failure.Description().startsWith(
            u"PDF ファイル「%1」に書き込めません。"_s.arg(folder.filePath(u"none/a.pdf"_s))));
    }
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
}

TEST_F(ReportTest, WhatIsNoFileIsNeverReplacedByAPdf) {
    AddLabels(1);
    const auto report = Prepare(kLabels);
    const QString pipe = folder.filePath(u"pipe"_s);
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    for (const QString& target : {pipe, folder.path()}) {
        try {
            WritePdf(*report, target);
            FAIL() << "no failure";
        } catch (const ReportFailure& failure) {
            EXPECT_EQ(failure.Description(), u"「%1」はファイルではありません。"_s.arg(target));
        }
    }
    EXPECT_FALSE(QFileInfo(pipe).isFile());
}

TEST_F(ReportTest, EveryFullDiskUnderAPdfIsReportedAndKeepsTheOldFile) {
    AddLabels(13);
    const auto report = Prepare(kLabels);
    const QString path = folder.filePath(u"a.pdf"_s);
    WritePdf(*report, path);
    const qint64 size = QFileInfo(path).size();
    WriteBytes(path, "old");
    for (const qint64 limit : FullAfter(size)) {
        QString reason;
        try {
            const FileSizeLimit full(limit);
            WritePdf(*report, path);
        } catch (const ReportFailure& failure) {
            reason = failure.Description();
        }
        EXPECT_TRUE(reason.startsWith(u"PDF ファイル「%1」に書き込めません。"_s.arg(path)))
            << "full after " << limit << ": " << reason.toStdString();
        EXPECT_EQ(ReadBytes(path), "old") << "full after " << limit;
    }
}
