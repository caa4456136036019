// Command import: from foreign tables into the general database.

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <QFile>
#include <QTemporaryDir>

#include "data/ServerSchema.h"
#include "setup/RunTool.h"
#include "setup/schema/TableCopy.h"
#include "support/FileBytes.h"
#include "support/SampleInstallation.h"

using namespace Qt::StringLiterals;

namespace {

const QString kFiles = QStringLiteral(SUITE_SOURCES) + u"/tests/setup/jet/"_s;

ToolOutput ImportFile(const SampleInstallation& installation, const QString& file) {
    return RunTool(
        {u"import"_s, installation.Root(), file}, [] { return false; }, QStringLiteral(SUITE_PROGRAMS));
}

/// Fake: every table of the suite with a lower-case name and one row that contains its column names.
class OtherTables : public setup::ForeignTables {
  public:
    QStringList without;                      // missing tables
    QHash<QString, QStringList> columns;      // columns instead of the suite's
    QHash<QString, QList<QStringList>> rows;  // rows instead of the default one
    QString breaksAt;                         // reading this table fails
    bool changed = false;                     // CheckUnchanged fails

    QStringList Tables() const override {
        QStringList names = {u"お知らせ"_s};
        for (const TableDefinition& table : TablesOf(DatabaseKind::General))
            if (!without.contains(table.name)) names.append(table.name.toLower());
        return names;
    }
    QStringList Columns(const QString& table) const override {
        QStringList names;
        for (const TableDefinition& known : TablesOf(DatabaseKind::General))
            if (known.name.toLower() == table)
                for (const ColumnDefinition& column : known.columns) names.append(column.name);
        return columns.value(table, names);
    }
    void ReadRows(const QString& table, const std::function<void(const QStringList&)>& take) const override {
        if (table == breaksAt) throw platform::RuntimeError(1, u"damaged"_s);
        for (const QStringList& row : rows.value(table, {Columns(table)})) take(row);
    }
    void CheckUnchanged() const override {
        if (changed) throw platform::RuntimeError(1, u"changed"_s);
    }
};

class Import : public testing::Test {
  protected:
    Import() {
        connection.Open(u"Provider=Microsoft.ACE.OLEDB.12.0;User ID=;Password=;Data Source="_s +
                        installation.General().Path());
    }
    /// The output; the error message if the import fails.
    QString Run() {
        QString printed;
        QTextStream out(&printed);
        try {
            setup::ImportTables(tables, u"旧.accdb"_s, connection, out);
        } catch (const platform::RuntimeError& error) {
            return error.Description();
        }
        return printed;
    }

    SampleInstallation installation{{.staff = 3}};
    database::Connection connection;
    OtherTables tables;
};

}  // namespace

TEST_F(Import, ReplacesTheRowsOfEveryTableAndCountsThem) {
    tables.rows.insert(u"m部門"_s, {{u"1"_s, u"it's 𠮷"_s, QString()}, {u"2"_s, u""_s, u"0"_s}});
    const QString printed = Run();
    EXPECT_TRUE(printed.startsWith(u"M担当者: 1 行\nMユーザ: 1 行\n"_s)) << printed.toStdString();
    EXPECT_TRUE(printed.contains(u"\nM部門: 2 行\n"_s));
    EXPECT_EQ(printed.count(u'\n'), 14);
    EXPECT_EQ(installation.General().Rows(u"SELECT コード, 名称, 稼動状況区分 FROM M部門"_s),
              (QList<QStringList>{{u"1"_s, u"it's 𠮷"_s, QString()}, {u"2"_s, u""_s, u"0"_s}}));
    EXPECT_EQ(installation.General().Value(u"SELECT 氏名 FROM M担当者"_s), u"氏名"_s);
}

TEST_F(Import, ColumnsAreFoundByTheirNamesAndDifferencesAreReported) {
    tables.columns.insert(u"m役職"_s, {u"備考"_s, u"名称"_s, u"コード"_s});
    tables.columns.insert(u"m部門"_s, {u"コード"_s, u"名称"_s});
    const QString printed = Run();
    EXPECT_TRUE(printed.contains(u"M役職: 1 行\n  取り込まない列: 備考\n"_s)) << printed.toStdString();
    EXPECT_TRUE(printed.contains(u"M部門: 1 行\n  ファイルにない列: 稼動状況区分\n"_s)) << printed.toStdString();
    EXPECT_EQ(installation.General().Rows(u"SELECT コード, 名称 FROM M役職"_s),
              (QList<QStringList>{{u"コード"_s, u"名称"_s}}));
    EXPECT_EQ(installation.General().Rows(u"SELECT 稼動状況区分 FROM M部門"_s), QList<QStringList>{{QString()}});
}

TEST_F(Import, AllMissingTablesAreNamedAndNothingIsChanged) {
    tables.without = {u"M役職"_s, u"T閲覧"_s};
    EXPECT_EQ(Run(), u"旧.accdb には次の表がなく、何も取り込んでいません。M役職、T閲覧"_s);
    EXPECT_EQ(installation.General().Value(u"SELECT COUNT(*) FROM M担当者"_s), u"3"_s);
}

TEST_F(Import, AFailureInTheMiddleChangesNothing) {
    tables.breaksAt = u"t閲覧"_s;
    EXPECT_EQ(Run(), u"damaged"_s);
    EXPECT_EQ(installation.General().Value(u"SELECT COUNT(*) FROM M担当者"_s), u"3"_s);
    connection.Execute(u"DELETE FROM T閲覧"_s);
}

TEST_F(Import, ARowOfAnotherNumberOfColumnsIsAFailure) {
    tables.rows.insert(u"m部門"_s, {{u"1"_s, u"総務部"_s}});
    EXPECT_EQ(Run(), u"表 M部門 に 2 列の行があります。列は 3 です。"_s);
    tables.rows.insert(u"m部門"_s, {{u"1"_s, u"総務部"_s, u"0"_s, u"余り"_s}});
    EXPECT_EQ(Run(), u"表 M部門 に 4 列の行があります。列は 3 です。"_s);
    EXPECT_EQ(installation.General().Value(u"SELECT COUNT(*) FROM M担当者"_s), u"3"_s);
}

TEST_F(Import, RowsOfTheSameKeyAreAFailure) {
    tables.rows.insert(u"m部門"_s, {{u"1"_s, u"総務部"_s, u"0"_s}, {u"1"_s, u"営業部"_s, u"0"_s}});
    EXPECT_EQ(Run(), u"表 M部門 に、キーが空か他の行と同じ行があります。何も取り込んでいません。"_s);
    EXPECT_EQ(installation.General().Value(u"SELECT COUNT(*) FROM M担当者"_s), u"3"_s);
}

TEST_F(Import, NamesOfColumnsCannotControlTheTerminal) {
    tables.columns.insert(u"m部門"_s, {u"コード"_s, u"名称"_s, u"稼動状況区分"_s, u"\x1b[2J\n備考"_s});
    EXPECT_TRUE(Run().contains(u"M部門: 1 行\n  取り込まない列:  [2J 備考\n"_s));
}

TEST_F(Import, AChangeOfTheTablesDuringTheReadChangesNothing) {
    tables.changed = true;
    EXPECT_EQ(Run(), u"changed"_s);
    EXPECT_EQ(installation.General().Value(u"SELECT COUNT(*) FROM M担当者"_s), u"3"_s);
}

TEST_F(Import, WithoutAFileItIsRefused) { EXPECT_EQ(RunTool({u"import"_s, installation.Root()}).status, 2); }

TEST(ImportFiles, TablesOfEveryFormatReplaceThoseOfTheInstallation) {
    for (const QString& name : {u"general97.mdb"_s, u"general.mdb"_s, u"general.accdb"_s}) {
        const SampleInstallation installation({.staff = 1});
        const ToolOutput output = ImportFile(installation, kFiles + name);
        EXPECT_EQ(output.status, 0) << output.err.toStdString();
        EXPECT_EQ(output.out,
                  u"M担当者: 5 行\nMユーザ: 1 行\nM事業所: 7 行\n"
                  u"M部門: 6 行\n  取り込まない列: 設立、兼務\n"
                  u"Mセクション: 3 行\nM役職: 3 行\nM他業務連携: 4 行\nK性別区分: 2 行\nK在籍区分: 2 行\n"
                  u"K社員区分: 6 行\nK稼動状況区分: 2 行\nK年号区分: 6 行\n担当者別操作許可プログラム: 0 行\n"
                  u"T閲覧: 300 行\n"_s);
        EXPECT_EQ(installation.General().Rows(u"SELECT * FROM M役職"_s),
                  (QList<QStringList>{{u"10"_s, u"取締役"_s}, {u"20"_s, u"部長"_s}, {u"30"_s, QString()}}));
        EXPECT_EQ(
            installation.General().Rows(u"SELECT * FROM M部門 LIMIT 3"_s),
            (QList<QStringList>{
                {u"010"_s, u"総務部"_s, QString()}, {u"020"_s, u""_s, QString()}, {u"030"_s, QString(), QString()}}));
    }
}

TEST(ImportFiles, WhatIsNoWholeFileIsRefusedAtOnceAndTheInstallationIsUntouched) {
    const SampleInstallation installation({.staff = 1});
    const QByteArray before = ReadBytes(installation.General().Path()), whole = ReadBytes(kFiles + u"general.mdb"_s);
    const auto refusal = [&](const QString& name, const QByteArray& content) {
        const QString file = installation.Root() + u'/' + name;
        WriteBytes(file, content);
        return ImportFile(installation, file).err.replace(installation.Root(), u""_s);
    };
    EXPECT_EQ(refusal(u"empty"_s, {}), u"suite-setup: /empty は Jet/ACE 形式のデータベースではありません。\n"_s);
    EXPECT_EQ(refusal(u"other"_s, "no database"),
              u"suite-setup: /other は Jet/ACE 形式のデータベースではありません。\n"_s);
    EXPECT_EQ(refusal(u"cut"_s, whole.chopped(1)), u"suite-setup: /cut は途中で切れています。\n"_s);
    EXPECT_EQ(refusal(u"head"_s, whole.first(4096)),
              u"suite-setup: 表の一覧を読めません。ファイルが壊れています。何も取り込んでいません。\n"_s);
    EXPECT_EQ(ImportFile(installation, u"/nowhere"_s).err, u"suite-setup: /nowhere がありません。\n"_s);
    EXPECT_EQ(ImportFile(installation, u"/dev/zero"_s).err,
              u"suite-setup: /dev/zero は通常のファイルではありません。\n"_s);
    EXPECT_EQ(ImportFile(installation, u"/tmp"_s).err, u"suite-setup: /tmp は通常のファイルではありません。\n"_s);
    const QString pipe = installation.Root() + u"/pipe"_s;
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    EXPECT_EQ(ImportFile(installation, pipe).err, u"suite-setup: "_s + pipe + u" は通常のファイルではありません。\n"_s);
    EXPECT_EQ(ReadBytes(installation.General().Path()), before);
}

TEST(ImportFiles, AFileThatLacksPagesIsAFailureAndTheInstallationIsUntouched) {
    const SampleInstallation installation({.staff = 1});
    const QByteArray before = ReadBytes(installation.General().Path()), whole = ReadBytes(kFiles + u"general.mdb"_s);
    const QString file = installation.Root() + u"/half.mdb"_s;
    WriteBytes(file, whole.first(whole.size() / 8192 * 4096));
    EXPECT_EQ(ImportFile(installation, file).err,
              u"suite-setup: 表の一覧を読めません。ファイルが壊れています。何も取り込んでいません。\n"_s);
    QByteArray blank = whole;
    blank.replace(whole.indexOf("00000299") / 4096 * 4096, 4096, QByteArray(4096, '\0'));
    WriteBytes(file, blank);
    const ToolOutput output = ImportFile(installation, file);
    EXPECT_EQ(output.status, 1);
    EXPECT_EQ(output.err,
              u"suite-setup: 表 T閲覧 の 300 行のうち 275 行しか読めません。ファイルが壊れています。"
              u"何も取り込んでいません。\n"_s);
    EXPECT_EQ(ReadBytes(installation.General().Path()), before);
}
