#include "database/LinkedTables.h"

#include <gtest/gtest.h>

#include <QFile>

#include "database/DatabaseFile.h"

using namespace Qt::StringLiterals;
using namespace database;

namespace {

/// A file with two linked tables and one local table, and a file that contains one of the linked tables.
class LinkedTables : public testing::Test {
  protected:
    LinkedTables() {
        for (const DatabaseFile* file : {&forms, &work}) file->Run(u"DROP TABLE 印"_s);
        forms.Run(
            u"CREATE TABLE 帳票 (名称 TEXT);"
            u"CREATE TABLE リンクテーブル (名称 TEXT, 元テーブル TEXT, 接続 TEXT, 属性 TEXT);"
            u"INSERT INTO リンクテーブル VALUES ('名簿', '名簿', ';DATABASE=/old/repdb.accdb', '1073741824'),"
            u" ('it''s', '封筒', ';DATABASE=/old/repdb.accdb', '1073741824')"_s);
        work.Run(u"CREATE TABLE 名簿 (コード TEXT)"_s);
    }

    std::unique_ptr<TableFile> Open() { return engine.OpenDatabase(forms.Path()); }
    /// Points the link at a file; returns the error's text.
    QString Refresh(const QString& name, const QString& file) {
        const auto opened = Open();
        for (TableDef& table : opened->TableDefs())
            if (table.Name == name) {
                table.Connect = ConnectTextOf(file);
                return ErrorOf([&] { opened->RefreshLink(table); });
            }
        return u"no such link"_s;
    }
    QString ConnectOf(const QString& name) const {
        return forms.Value(u"SELECT 接続 FROM リンクテーブル WHERE 名称 = '%1'"_s.arg(name));
    }

    const QString old = u";DATABASE=/old/repdb.accdb"_s;
    DatabaseFile forms{u"repfrmdb.accdb"_s}, work{u"repdb.accdb"_s};
    SuiteTableEngine engine;
};

}  // namespace

TEST_F(LinkedTables, TablesComeInTheirOrderAndLinkedOnesLast) {
    QStringList lines;
    for (const TableDef& table : Open()->TableDefs())
        lines.append(
            u"%1|%2|%3|%4"_s.arg(table.Name, QString::number(table.Attributes, 16), table.Connect, table.SourceName));
    EXPECT_EQ(lines, QStringList({u"帳票|0||"_s, u"リンクテーブル|0||"_s, u"名簿|40000000|%1|名簿"_s.arg(old),
                                  u"it's|40000000|%1|封筒"_s.arg(old)}));
}

TEST_F(LinkedTables, FileWithoutLinksHasItsOwnTablesOnly) {
    const auto file = engine.OpenDatabase(work.Path());
    ASSERT_EQ(file->TableDefs().size(), 1);
    EXPECT_EQ(file->TableDefs().first().Name, u"名簿"_s);
    EXPECT_EQ(file->TableDefs().first().Attributes, 0);
}

TEST_F(LinkedTables, RefreshedLinkIsKeptInTheFileAndTheOthersStay) {
    EXPECT_EQ(Refresh(u"名簿"_s, work.Path()), QString());
    EXPECT_EQ(ConnectOf(u"名簿"_s), u";DATABASE="_s + work.Path());
    EXPECT_EQ(ConnectOf(u"it''s"_s), old);
}

TEST_F(LinkedTables, NameWithAQuoteIsRefreshedToo) {
    work.Run(u"CREATE TABLE 封筒 (コード TEXT)"_s);
    EXPECT_EQ(Refresh(u"it's"_s, work.Path()), QString());
    EXPECT_EQ(ConnectOf(u"it''s"_s), u";DATABASE="_s + work.Path());
    EXPECT_EQ(ConnectOf(u"名簿"_s), old);
}

TEST_F(LinkedTables, LinkToAFileWithoutTheTableIsRefusedAndStays) {
    EXPECT_EQ(Refresh(u"it's"_s, work.Path()), u"リンク先にテーブル「封筒」がありません。"_s);
    EXPECT_EQ(ConnectOf(u"it''s"_s), old);
}

TEST_F(LinkedTables, LinkToAMissingFileIsRefusedStaysAndMakesNoFile) {
    const QString missing = work.Path() + u".gone"_s;
    EXPECT_NE(Refresh(u"名簿"_s, missing), QString());
    EXPECT_EQ(ConnectOf(u"名簿"_s), old);
    EXPECT_FALSE(QFile::exists(missing));
}

TEST_F(LinkedTables, MissingOrBrokenFileCantBeOpened) {
    EXPECT_THROW(engine.OpenDatabase(forms.Path() + u".gone"_s), DatabaseError);
    QFile broken(work.Path());
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write("no database at all");
    broken.close();
    EXPECT_THROW(engine.OpenDatabase(work.Path()), DatabaseError);
}

TEST(ConnectText, NamesAFileAndIsReadWhateverStandsAround) {
    EXPECT_EQ(ConnectTextOf(u"/suite/report/repdb.accdb"_s), u";DATABASE=/suite/report/repdb.accdb"_s);
    EXPECT_EQ(DatabaseOfConnectText(u";DATABASE=/a b/repdb.mdb"_s), u"/a b/repdb.mdb"_s);
    EXPECT_EQ(DatabaseOfConnectText(u"MS Access;PWD=x;database=/r/repdb.mdb;TABLE=t"_s), u"/r/repdb.mdb"_s);
    EXPECT_EQ(DatabaseOfConnectText(u"ODBC;DSN=x"_s), QString());
    EXPECT_EQ(DatabaseOfConnectText({}), QString());
}
