#include "output/CsvWriter.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "platform/OutputFile.h"
#include "support/FileBytes.h"
#include "support/FullDisk.h"
#include "support/OutputFixture.h"
#include "support/WithoutFileRights.h"
#include "text/CodePage932.h"

using namespace Qt::StringLiterals;

namespace {

/// Writes temporary tables to files of a temporary folder.
class Csv : public OutputTest {
  protected:
    Csv() { OpenReportDatabase(); }

    QString Target() const { return folder.filePath(u"出力.csv"_s); }

    /// Creates the table 表 by the statements and opens it.
    void Open(const QString& statements) {
        installation.Report().Execute(statements);
        OpenReportReadOnly(records, u"SELECT * FROM 表"_s);
        ASSERT_TRUE(records.IsOpen());
    }
    QByteArray Written(const QString& statements) {
        Open(statements);
        lost = WriteRecordsetAsCsv(records, Target());
        EXPECT_TRUE(services.dialogs.shown.isEmpty());
        EXPECT_EQ(Globals().TextOutputFile, nullptr);
        return ReadBytes(Target());
    }
    /// Writes a table of one cell to a path that cannot be opened.
    void ExpectInUse(const QString& path) {
        Open(u"DROP TABLE IF EXISTS 表; CREATE TABLE 表 (a TEXT); INSERT INTO 表 VALUES ('x')"_s);
        services.dialogs.shown.clear();
        WriteRecordsetAsCsv(records, path);
        ASSERT_FALSE(services.dialogs.shown.isEmpty());
        EXPECT_EQ(services.dialogs.shown.last().text, path + u"が使用中です。"_s);
        EXPECT_EQ(services.dialogs.shown.last().title, services.dialogs.defaultTitle);
        EXPECT_TRUE(records.IsOpen());
        EXPECT_FALSE(records.AtEOF());
    }
    static QByteArray In932(const QString& text) { return Encode932(text).bytes; }

    QTemporaryDir folder;
    database::Recordset& records = Globals().ReportRecordset;
    LostCharacters lost;
};

}  // namespace

TEST_F(Csv, NamesAndValuesAreQuotedWithCrLf) {
    EXPECT_EQ(Written(u"CREATE TABLE 表 (コード TEXT, 氏名 TEXT);"
                      u"INSERT INTO 表 VALUES ('00001', '髙﨑　德'), ('00002', 'ｻﾄｳ～－①㈱')"_s),
              "\"" + In932(u"コード"_s) + "\",\"" + In932(u"氏名"_s) +
                  "\"\r\n\"00001\",\"\xFB\xFC\xFA\xB1\x81\x40\xFA\xBA\"\r\n"
                  "\"00002\",\"\xBB\xC4\xB3\x81\x60\x81\x7C\x87\x40\x87\x8A\"\r\n");
    EXPECT_EQ(lost.characters, 0);
}

TEST_F(Csv, OneFieldIsOneQuotedNameAndOneFieldALine) {
    EXPECT_EQ(Written(u"CREATE TABLE 表 (a TEXT); INSERT INTO 表 VALUES ('x'), (NULL), ('')"_s),
              "\"a\"\r\n\"x\"\r\n\"\"\r\n\"\"\r\n");
}

TEST_F(Csv, ANullIsTwoQuotesInAnyPlace) {
    EXPECT_EQ(Written(u"CREATE TABLE 表 (a TEXT, b TEXT, c TEXT); INSERT INTO 表 VALUES (NULL, 'x', NULL)"_s),
              "\"a\",\"b\",\"c\"\r\n\"\",\"x\",\"\"\r\n");
}

TEST_F(Csv, NothingIsEscapedAndNothingTrimmed) {
    EXPECT_EQ(
        Written(u"CREATE TABLE 表 (a TEXT, b TEXT);"
                u"INSERT INTO 表 VALUES ('  x,y ', 'a \"b\" c'), ('1' || char(13, 10) || '2', char(0) || 'z ')"_s),
        QByteArray("\"a\",\"b\"\r\n\"  x,y \",\"a \"b\" c\"\r\n\"1\r\n2\",\"\0z \"\r\n", 43));
}

TEST_F(Csv, CurrencyIsNotQuoted) {
    EXPECT_EQ(Written(u"CREATE TABLE 表 (a CURRENCY, b TEXT, c money);"
                      u"INSERT INTO 表 VALUES (1500, '1500', -20), (0, NULL, 0.5), (-1234.5, 'x', 12.345678),"
                      u" (1e15, 'x', 0.00001)"_s),
              "\"a\",\"b\",\"c\"\r\n"
              " 1500 ,\"1500\",-20 \r\n"
              " 0 ,\"\", 0.5 \r\n"
              "-1234.5 ,\"x\", 12.3457 \r\n"
              " 1000000000000000 ,\"x\", 0 \r\n");
}

TEST_F(Csv, CurrencyIsRoundedToFourDecimals) {
    EXPECT_EQ(Written(u"CREATE TABLE 表 (a CURRENCY, b CURRENCY, c CURRENCY, d CURRENCY);"
                      u"INSERT INTO 表 VALUES (1.2345, 1.23456, 0.12346, -1.23456)"_s),
              "\"a\",\"b\",\"c\",\"d\"\r\n 1.2345 , 1.2346 , 0.1235 ,-1.2346 \r\n");
}

TEST_F(Csv, CurrencyThatRoundsToNothingHasNoSign) {
    EXPECT_EQ(Written(u"CREATE TABLE 表 (a CURRENCY, b CURRENCY); INSERT INTO 表 VALUES (-0.00001, -0.00004)"_s),
              "\"a\",\"b\"\r\n 0 , 0 \r\n");
}

TEST_F(Csv, ANullOfCurrencyIsACommaAloneAndInTheLastFieldOneBlank) {
    EXPECT_EQ(Written(u"CREATE TABLE 表 (a CURRENCY, b CURRENCY); INSERT INTO 表 VALUES (NULL, NULL), (1, NULL)"_s),
              "\"a\",\"b\"\r\n, \r\n 1 , \r\n");
}

TEST_F(Csv, OtherNumbersAreQuoted) {
    EXPECT_EQ(Written(u"CREATE TABLE 表 (a INTEGER, b DOUBLE); INSERT INTO 表 VALUES (-3, 2.5)"_s),
              "\"a\",\"b\"\r\n\"-3\",\"2.5\"\r\n");
}

TEST_F(Csv, LostCharactersBecomeQuestionMarksAndAreCounted) {
    EXPECT_EQ(
        Written(u"CREATE TABLE 表 (a TEXT, b TEXT); INSERT INTO 表 VALUES ('𠮷', '鷗x€'), ('a', 'b'), ('é', '')"_s),
        "\"a\",\"b\"\r\n\"??\",\"?x?\"\r\n\"a\",\"b\"\r\n\"?\",\"\"\r\n");
    EXPECT_EQ(lost.characters, 5);
    EXPECT_EQ(lost.lines, 2);
}

TEST_F(Csv, OfARecordsetWithoutRowsOnlyTheNamesAreWritten) {
    EXPECT_EQ(Written(u"CREATE TABLE 表 (a TEXT, b CURRENCY)"_s), "\"a\",\"b\"\r\n");
}

TEST_F(Csv, ReadsOnFromTheCurrentRecordToTheEnd) {
    Open(u"CREATE TABLE 表 (a TEXT); INSERT INTO 表 VALUES ('1'), ('2'), ('3')"_s);
    records.MoveNext();
    WriteRecordsetAsCsv(records, Target());
    EXPECT_EQ(ReadBytes(Target()), "\"a\"\r\n\"2\"\r\n\"3\"\r\n");
    EXPECT_TRUE(records.AtEOF());
}

TEST_F(Csv, ExistingFileIsOverwrittenSilently) {
    WriteBytes(Target(), QByteArray(100000, 'x'));
    ASSERT_TRUE(QFile::setPermissions(Target(), QFile::ReadOwner | QFile::WriteOwner));
    ASSERT_EQ(link(QFile::encodeName(Target()), QFile::encodeName(folder.filePath(u"second"_s))), 0);
    EXPECT_EQ(Written(u"CREATE TABLE 表 (a TEXT); INSERT INTO 表 VALUES ('x')"_s), "\"a\"\r\n\"x\"\r\n");
    EXPECT_EQ(ReadBytes(folder.filePath(u"second"_s)), "\"a\"\r\n\"x\"\r\n");
    EXPECT_EQ(QFile::permissions(Target()) & (QFile::ReadOther | QFile::ReadGroup), QFile::Permissions());
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size(), 2);
}

TEST_F(Csv, MissingFoldersAreMadeAlsoWithBlanksInTheirNames) {
    const QString path = folder.filePath(u"新しい フォルダ/中/a b.csv"_s);
    Open(u"CREATE TABLE 表 (a TEXT)"_s);
    WriteRecordsetAsCsv(records, path);
    EXPECT_EQ(ReadBytes(path), "\"a\"\r\n");
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(Csv, ARelativePathLiesInTheWorkingFolder) {
    QDir::setCurrent(folder.path());
    Open(u"CREATE TABLE 表 (a TEXT)"_s);
    WriteRecordsetAsCsv(records, u"a b.csv"_s);
    QDir::setCurrent(QDir::rootPath());
    EXPECT_EQ(ReadBytes(folder.filePath(u"a b.csv"_s)), "\"a\"\r\n");
}

TEST_F(Csv, EveryPathThatCannotBeOpenedIsInUse) {
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"sub"_s));
    ExpectInUse(folder.filePath(u"sub"_s));
    EXPECT_EQ(services.dialogs.shown.size(), 1);
    ExpectInUse(u"no such folder/a.csv"_s);
    EXPECT_EQ(services.dialogs.shown.size(), 1);
    ExpectInUse(QString());
    ExpectInUse(u" "_s + Target());
}

TEST_F(Csv, FailedFolderShowsBothMessages) {
    WriteBytes(folder.filePath(u"file"_s), "x");
    const QString path = folder.filePath(u"file/sub/a.csv"_s);
    ExpectInUse(path);
    EXPECT_EQ(services.dialogs.Texts(),
              QStringList({u"DIREXISTCHK ERROR58 同じ名前のファイルがあります。\rdirexeistchk\r"_s + path + u'\r' +
                               folder.filePath(u"file"_s) + u"\rFalse"_s,
                           path + u"が使用中です。"_s}));
    EXPECT_EQ(ReadBytes(folder.filePath(u"file"_s)), "x");
}

TEST_F(Csv, PathsOfAnotherSystemMakeNothingHere) {
    QDir::setCurrent(folder.path());
    ExpectInUse(u"C:\\out\\a.csv"_s);
    ExpectInUse(u"\\\\no-such-server\\share\\sub\\a.csv"_s);
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
    QDir::setCurrent(QDir::rootPath());
}

TEST_F(Csv, AFileLockedByAnotherProgramIsInUseAndKeepsItsContent) {
    WriteBytes(Target(), "old");
    for (const bool byRange : {false, true}) {
        const int other = open(QFile::encodeName(Target()).constData(), O_RDWR | O_CLOEXEC);
        struct flock whole = {};
        whole.l_type = F_WRLCK;
        ASSERT_EQ(byRange ? fcntl(other, F_OFD_SETLK, &whole) : flock(other, LOCK_EX), 0);
        ExpectInUse(Target());
        EXPECT_EQ(ReadBytes(Target()), "old");
        close(other);
    }
}

TEST_F(Csv, FileIsLockedWhileItIsWritten) {
    const auto file = platform::OutputFile::Open(Target());
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(platform::OutputFile::Open(Target()), nullptr);
}

TEST_F(Csv, APipeWithoutAReaderIsInUseAndDoesNotHang) {
    ASSERT_EQ(mkfifo(QFile::encodeName(Target()).constData(), 0600), 0);
    ExpectInUse(Target());
}

TEST_F(Csv, FullDiskThrowsAndLeavesTheFileOpen) {
    Open(u"CREATE TABLE 表 (a TEXT); INSERT INTO 表 VALUES (printf('%.*c', 900, 'x'))"_s);
    {
        const FullDisk full(100);
        EXPECT_EQ(FailureOf([&] { WriteRecordsetAsCsv(records, Target()); }).number, 61);
    }
    EXPECT_NE(Globals().TextOutputFile, nullptr);
    EXPECT_EQ(platform::OutputFile::Open(Target()), nullptr);
    EXPECT_EQ(ReadBytes(Target()).size(), 100);
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(Csv, FullDiskThrowsInTheMiddleOfALongFile) {
    Open(
        u"CREATE TABLE 表 (a TEXT);"
        u"INSERT INTO 表 WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 50)"
        u" SELECT printf('%.*c', 90000, 'x') FROM n"_s);
    {
        const FullDisk full(2000000);
        EXPECT_EQ(FailureOf([&] { WriteRecordsetAsCsv(records, Target()); }).number, 61);
    }
    EXPECT_FALSE(records.AtEOF());
    EXPECT_EQ(ReadBytes(Target()).size(), 2000000);
}

TEST_F(Csv, ATargetThatMayOnlyBeReadIsInUse) {
    WriteBytes(Target(), "old");
    ASSERT_EQ(chmod(QFile::encodeName(Target()).constData(), 0444), 0);
    Open(u"CREATE TABLE 表 (a TEXT)"_s);
    const WithoutFileRights held;
    WriteRecordsetAsCsv(records, Target());
    EXPECT_EQ(services.dialogs.Texts(), QStringList{Target() + u"が使用中です。"_s});
    EXPECT_EQ(ReadBytes(Target()), "old");
}
