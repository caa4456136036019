// import: from other tables into the general database.

#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

#include "data/ServerSchema.h"
#include "setup/ImportCommand.h"
#include "setup/RunTool.h"
#include "support/FileBytes.h"
#include "support/SampleInstallation.h"

using namespace Qt::StringLiterals;

namespace {

const QString kSamples = QStringLiteral(SUITE_SOURCES) + u"/../shared/testdata"_s;

/// Every table of the suite under a name in small letters, with one row of its column names.
class OtherTables : public setup::ForeignTables {
  public:
    QStringList without;                      // tables that are not there
    QHash<QString, QStringList> columns;      // other columns than the suite's
    QHash<QString, QList<QStringList>> rows;  // other rows
    QString breaksAt;                         // the table that can't be read

    QStringList Tables() const override {
        QStringList names = {u"お知らせ"_s};
        for (const TableDefinition& table : TablesOf(Store::General))
            if (!without.contains(table.name)) names.append(table.name.toLower());
        return names;
    }
    QStringList Columns(const QString& table) const override {
        QStringList names;
        for (const TableDefinition& known : TablesOf(Store::General))
            if (known.name.toLower() == table)
                for (const ColumnDefinition& column : known.columns) names.append(column.name);
        return columns.value(table, names);
    }
    void ReadRows(const QString& table, const std::function<void(const QStringList&)>& take) const override {
        if (table == breaksAt) throw platform::RuntimeError(1, u"damaged"_s);
        for (const QStringList& row : rows.value(table, {Columns(table)})) take(row);
    }
};

class Import : public testing::Test {
  protected:
    Import() {
        connection.Open(u"Provider=Microsoft.ACE.OLEDB.12.0;User ID=;Password=;Data Source="_s +
                        installation.General().Path());
    }
    /// What it says; a failure's words where it fails.
    QString Run() {
        QString told, errors;
        QTextStream out(&told), err(&errors);
        try {
            setup::ImportTables(tables, u"旧.accdb"_s, connection, {out, err, {}, {}});
        } catch (const platform::RuntimeError& error) {
            return error.Description();
        }
        return told;
    }

    SampleInstallation installation{{.staff = 3}};
    platform::Connection connection;
    OtherTables tables;
};

}  // namespace

TEST_F(Import, ReplacesTheRowsOfEveryTableAndCountsThem) {
    tables.rows.insert(u"m部門"_s, {{u"1"_s, u"it's 𠮷"_s, QString()}, {u"2"_s, u""_s, u"0"_s}});
    const QString told = Run();
    EXPECT_TRUE(told.startsWith(u"M担当者: 1 行\nMユーザ: 1 行\n"_s)) << told.toStdString();
    EXPECT_TRUE(told.contains(u"\nM部門: 2 行\n"_s));
    EXPECT_EQ(told.count(u'\n'), 14);
    EXPECT_EQ(installation.General().Rows(u"SELECT コード, 名称, 稼動状況区分 FROM M部門"_s),
              (QList<QStringList>{{u"1"_s, u"it's 𠮷"_s, QString()}, {u"2"_s, u""_s, u"0"_s}}));
    EXPECT_EQ(installation.General().Value(u"SELECT 氏名 FROM M担当者"_s), u"氏名"_s);
}

TEST_F(Import, ColumnsAreFoundByTheirNamesAndDifferencesAreTold) {
    tables.columns.insert(u"m役職"_s, {u"備考"_s, u"名称"_s, u"コード"_s});
    tables.columns.insert(u"m部門"_s, {u"コード"_s, u"名称"_s});
    const QString told = Run();
    EXPECT_TRUE(told.contains(u"M役職: 1 行\n  取り込まない列: 備考\n"_s)) << told.toStdString();
    EXPECT_TRUE(told.contains(u"M部門: 1 行\n  ファイルにない列: 稼動状況区分\n"_s)) << told.toStdString();
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

TEST_F(Import, ADamagedOrOtherFileIsRefusedAndChangesNothing) {
    const QString other = installation.Root() + u"/other.mdb"_s;
    WriteBytes(other, "no database");
    EXPECT_EQ(RunTool({u"import"_s, installation.Root(), other}).status, 1);
    EXPECT_EQ(RunTool({u"import"_s, installation.Root(), installation.Root() + u"/nowhere"_s}).err,
              u"suite-setup: "_s + installation.Root() + u"/nowhere がありません。\n"_s);
    EXPECT_EQ(RunTool({u"import"_s, installation.Root()}).status, 2);
    EXPECT_EQ(installation.General().Value(u"SELECT COUNT(*) FROM M担当者"_s), u"3"_s);
}

TEST(JetFiles, RealFilesAreReadAndTheirMissingTablesTold) {
    if (!QDir(kSamples).exists()) GTEST_SKIP() << "no samples of real desktop formats beside the sources";
    const setup::JetFile assets(kSamples + u"/ASampleDatabase.accdb"_s);
    EXPECT_EQ(assets.Tables(), QStringList{u"Asset Items"_s});
    EXPECT_EQ(assets.Columns(u"Asset Items"_s).first(5),
              (QStringList{u"Asset No"_s, u"Asset Category"_s, u"Make"_s, u"Model"_s, u"Description"_s}));
    QList<QStringList> rows;
    assets.ReadRows(u"Asset Items"_s, [&](const QStringList& row) { rows.append(row); });
    ASSERT_FALSE(rows.isEmpty());
    EXPECT_EQ(rows[0].first(5),
              (QStringList{u"30050"_s, u"Computer Hardware"_s, u"GEO Rocket"_s, u"220ZX"_s, u"Computer"_s}));
    EXPECT_TRUE(rows[0].contains(u"19970902"_s)) << rows[0].join(u'|').toStdString();
    const SampleInstallation installation({.staff = 1});
    const ToolOutput refused = RunTool({u"import"_s, installation.Root(), kSamples + u"/ASampleDatabase.accdb"_s});
    EXPECT_EQ(refused.status, 1);
    EXPECT_TRUE(refused.err.contains(u"には次の表がなく、何も取り込んでいません。M担当者、Mユーザ、M事業所、"_s));
}

/// The first pages of a sample, of 4,096 bytes each.
static QString CutSample(const QTemporaryDir& folder, qint64 bytes) {
    const QString file = folder.filePath(QString::number(bytes) + u".accdb"_s);
    WriteBytes(file, ReadBytes(kSamples + u"/ASampleDatabase.accdb"_s).first(bytes));
    return file;
}

static QString WordsOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const platform::RuntimeError& error) {
        return error.Description();
    }
    return {};
}

TEST(JetFiles, AFileThatIsCutShortIsAFailureAndNotAFewRows) {
    if (!QDir(kSamples).exists()) GTEST_SKIP() << "no samples of real desktop formats beside the sources";
    const QTemporaryDir folder;
    const QString half = CutSample(folder, 435'814), fewer = CutSample(folder, qint64{46} * 4'096);
    EXPECT_EQ(WordsOf([&] { const setup::JetFile file(half); }), half + u" は途中で切れています。"_s);
    const setup::JetFile short46(fewer);
    int rows = 0;
    EXPECT_EQ(WordsOf([&] { short46.ReadRows(u"Asset Items"_s, [&](const QStringList&) { ++rows; }); }),
              u"表 Asset Items の 65 行のうち 58 行しか読めません。ファイルが壊れています。"_s);
    EXPECT_EQ(rows, 58);
}

TEST(JetFiles, DatesAreDigits) {
    if (!QDir(kSamples).exists()) GTEST_SKIP() << "no samples of real desktop formats beside the sources";
    const setup::JetFile dates(kSamples + u"/DateTestDatabase.mdb"_s);
    QList<QStringList> rows;
    dates.ReadRows(u"DateTest"_s, [&](const QStringList& row) { rows.append(row); });
    ASSERT_FALSE(rows.isEmpty());
    EXPECT_EQ(rows[0][0], u"1"_s);
    EXPECT_TRUE(rows[0][1].startsWith(u"20211202"_s)) << rows[0].join(u'|').toStdString();
}
