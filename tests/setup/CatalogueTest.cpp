#include "data/Catalogue.h"

#include <gtest/gtest.h>

#include "support/SampleInstallation.h"

using namespace Qt::StringLiterals;

namespace {

const SampleFile& FileOf(const SampleInstallation& installation, DatabaseKind store) {
    if (store == DatabaseKind::General) return installation.General();
    if (store == DatabaseKind::Forms) return installation.Forms();
    return store == DatabaseKind::Configuration ? installation.Configuration() : installation.Report();
}

QStringList ColumnsOf(DatabaseKind store, const QString& table) {
    QStringList names;
    for (const ColumnDefinition& column : SuiteTable(store, table).columns) names.append(column.name);
    return names;
}

struct ExpectedTable {
    DatabaseKind store;
    const char16_t* table;
    const char16_t* columns;  // a selection of columns
    int count;
};

class CatalogueTable : public testing::TestWithParam<ExpectedTable> {};

}  // namespace

TEST(Catalogue, EveryTableAndColumnExistsInAFreshInstallation) {
    const SampleInstallation installation({.staff = 1});
    ASSERT_EQ(SuiteTables().size(), 30);
    for (const TableDefinition& table : SuiteTables()) {
        QList<QStringList> expected;
        for (const ColumnDefinition& column : table.columns) expected.append(QStringList{column.name, column.type});
        EXPECT_EQ(
            FileOf(installation, table.store).Rows(u"SELECT name, type FROM pragma_table_info('%1')"_s.arg(table.name)),
            expected)
            << table.name.toStdString();
    }
}

TEST(Catalogue, EveryIndexExistsAndTheSchemaHasNoCollation) {
    const SampleInstallation installation({.staff = 1});
    const QString count =
        u"SELECT count(*) FROM sqlite_master WHERE type = 'index' AND tbl_name = '%1' AND sql <> ''"_s;
    for (const TableDefinition& table : SuiteTables())
        EXPECT_EQ(FileOf(installation, table.store).Value(count.arg(table.name)), QString::number(table.indexes.size()))
            << table.name.toStdString();
    EXPECT_EQ(installation.General().Value(u"SELECT count(*) FROM sqlite_master WHERE sql LIKE '%COLLATE%'"_s), u"0"_s);
}

TEST(Catalogue, LastViewIsFoundByTheIndexAlone) {
    const SampleInstallation installation({.staff = 1});
    const QString plan = installation.General()
                             .Rows(
                                 u"EXPLAIN QUERY PLAN SELECT 閲覧日付, 閲覧時刻, 閲覧区分 FROM T閲覧 WHERE 担当者コード"
                                 u" = 'a' AND 閲覧情報 = 'b' AND 伝票事業所コード = '' AND 伝票番号基準日付 = ''"
                                 u" AND 伝票No = '' AND キー項目 = 'c' ORDER BY 閲覧日付 DESC, 閲覧時刻 DESC"_s)
                             .first()
                             .last();
    EXPECT_TRUE(plan.contains(u"COVERING INDEX"_s)) << plan.toStdString();
}

TEST_P(CatalogueTable, HasItsColumns) {
    const ExpectedTable& expected = GetParam();
    const QStringList columns = ColumnsOf(expected.store, QString::fromUtf16(expected.table));
    EXPECT_EQ(columns.size(), expected.count);
    for (const QString& column : QString::fromUtf16(expected.columns).split(u' '))
        EXPECT_TRUE(columns.contains(column)) << column.toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Suite, CatalogueTable,
    testing::Values(
        ExpectedTable{DatabaseKind::General, u"M担当者",
                      u"コード ログインID 処理分類0操作許可 処理分類9操作許可 操作許可 イメージ出力許可", 44},
        ExpectedTable{DatabaseKind::General, u"Mユーザ",
                      u"ID 現金決済金額 BACKUPフォルダ システム特権暗証番号 更新日付", 62},
        ExpectedTable{DatabaseKind::General, u"M事業所", u"登録番号 銀行口座D 地区コード 更新実行区分", 27},
        ExpectedTable{DatabaseKind::General, u"M他業務連携", u"業務名 連携アプリフォルダ 社員更新有無区分", 21},
        ExpectedTable{DatabaseKind::General, u"担当者別操作許可プログラム",
                      u"担当者コード 業務メニュ プログラムID 操作許可", 11},
        ExpectedTable{DatabaseKind::General, u"T閲覧", u"伝票事業所コード 伝票番号基準日付 伝票No キー項目 閲覧区分",
                      9},
        ExpectedTable{DatabaseKind::General, u"K年号区分", u"開始日付 名称", 2},
        ExpectedTable{DatabaseKind::Configuration, u"データベース定義", u"情報種類 db dbmw 接続文字列 データソース名",
                      11},
        ExpectedTable{DatabaseKind::Configuration, u"動作環境定義",
                      u"日曜バックアップ バックアップフォルダ 起動担当者コード", 18},
        ExpectedTable{DatabaseKind::Configuration, u"プログラム稼動履歴", u"実行日付 proccounter 摘要 ユーザID", 7},
        ExpectedTable{DatabaseKind::Configuration, u"プログラム連携情報", u"受信期限 連携区分 終了連携情報", 10},
        ExpectedTable{DatabaseKind::Configuration, u"プログラムクリップボード明細", u"貼付日時", 1},
        ExpectedTable{DatabaseKind::Configuration, u"販路推進サービスメニュ",
                      u"プログラムID 処理分類 条件項目名A 条件項目名Z", 28},
        ExpectedTable{DatabaseKind::Report, u"要員名簿照会", u"選択条件 表示退社日付 更新日付", 33},
        ExpectedTable{DatabaseKind::Report, u"要員名簿照会封筒", u"御中 ユーザ会社ロゴfile ユーザFAX 事業所FAX", 23},
        ExpectedTable{DatabaseKind::Report, u"要員名簿照会はがき", u"御中 ユーザ名称 ユーザFAX", 15},
        ExpectedTable{DatabaseKind::Report, u"要員名簿照会宛名ラベル", u"行番号 A列コード B列御中", 17},
        ExpectedTable{DatabaseKind::Forms, u"帳票", u"名称 定義", 2},
        ExpectedTable{DatabaseKind::Forms, u"リンクテーブル", u"名称 元テーブル 接続 属性", 4}));

TEST(Catalogue, UnknownTableIsAnError) {
    EXPECT_THROW(SuiteTable(DatabaseKind::Report, u"M担当者"_s), database::DatabaseError);
}

TEST(Catalogue, NamesAreSortedAsTextAndCodesAreNot) {
    const database::TextRules rules = SuiteTextRules();
    for (const QString& column : {u"氏名"_s, u"カナ"_s, u"名称"_s, u"住所A"_s, u"住所B"_s, u"住所C"_s})
        EXPECT_TRUE(rules.sortedAsText.contains(column)) << column.toStdString();
    for (const QString& column : {u"コード"_s, u"郵便番号"_s, u"区分"_s, u"生年月日"_s, u"開始日付"_s})
        EXPECT_FALSE(rules.sortedAsText.contains(column)) << column.toStdString();
    EXPECT_EQ(rules.comparedCaseBlind, QStringList{u"ログインID"_s});
}
