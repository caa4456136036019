#include "database/ResultTable.h"

#include "database/DatabaseError.h"

#include <gtest/gtest.h>

#include <QStringList>

#include "platform/RuntimeError.h"

using namespace Qt::StringLiterals;
using namespace database;

namespace {

std::shared_ptr<ColumnSet> Columns(const QStringList& names) {
    auto columns = std::make_shared<ColumnSet>();
    for (const QString& name : names) columns->Add(name, u"text"_s);
    return columns;
}

}  // namespace

TEST(ColumnSet, FindsHundredsOfNamesInEveryCase) {
    QStringList names;
    for (int i = 0; i < 300; ++i) names.append(u"Col%1列"_s.arg(i));
    const auto columns = Columns(names);
    for (int i = 0; i < 300; ++i) {
        EXPECT_EQ(columns->Find(names[i]), i);
        EXPECT_EQ(columns->Find(names[i].toUpper()), i);
    }
    EXPECT_EQ(columns->Find(u"Col300列"), -1);
    EXPECT_EQ(columns->Find(u""), -1);
    EXPECT_EQ(ColumnSet().Find(u"a"), -1);
    EXPECT_EQ(columns->DeclaredType(7), u"TEXT"_s);
}

TEST(ColumnSet, TheFirstOfEqualNamesCounts) {
    const auto columns = Columns({u"名称"_s, u"EMAIL"_s, u"名称"_s, u"email"_s});
    EXPECT_EQ(columns->Find(u"名称"), 0);
    EXPECT_EQ(columns->Find(u"email"), 1);
}

TEST(ResultTable, KeepsCellsOverBlockBounds) {
    ResultTable table(Columns({u"a"_s, u"b"_s, u"c"_s}));
    for (int row = 0; row < 1000; ++row) {
        table.BeginRow();
        table.AppendText(QByteArray::number(row));
        table.AppendNull();
        table.AppendText(row % 3 == 0 ? QByteArray() : QByteArray("同じ"));
    }
    EXPECT_EQ(table.RowCount(), 1000);
    for (const int row : {0, 1, 255, 256, 257, 511, 512, 999}) {
        EXPECT_EQ(table.Text(row, 0), QString::number(row));
        EXPECT_TRUE(table.IsNull(row, 1));
        EXPECT_FALSE(table.IsNull(row, 2));
        EXPECT_EQ(table.Text(row, 2), row % 3 == 0 ? u""_s : u"同じ"_s);
    }
    for (const int row : {999, 3, 998, 4}) EXPECT_EQ(table.Text(row, 0), QString::number(row));
}

TEST(ResultTable, RowsLeftBehindGiveTheirMemoryBack) {
    ResultTable table(Columns({u"a"_s}));
    for (int row = 0; row < 2560; ++row) {
        table.BeginRow();
        table.AppendText(QByteArray(100, 'x'));
    }
    const qsizetype whole = table.Size();
    EXPECT_EQ(table.Text(2000, 0).size(), 100);
    table.ForgetRowsBefore(2100);
    EXPECT_LT(table.Size(), whole / 3);
    EXPECT_EQ(table.Text(2100, 0), QString(100, u'x'));
}

TEST(ResultTable, ACellOfMoreThan16MebibytesIsAnError) {
    ResultTable table(Columns({u"a"_s}));
    table.BeginRow();
    table.AppendText(QByteArray(ResultTable::kLongestCell, 'x'));
    table.BeginRow();
    try {
        table.AppendText(QByteArray(ResultTable::kLongestCell + 1, 'x'));
        FAIL();
    } catch (const database::DatabaseError& error) {
        EXPECT_EQ(error.Description(), u"値が長すぎます (16 MiB まで)。"_s);
    }
}

TEST(ResultTable, RowsWithoutAnEndAreAnError) {
    ResultTable table(Columns({u"a"_s}), 100'000);
    int rows = 0;
    try {
        for (; rows < 1'000'000; ++rows) {
            table.BeginRow();
            table.AppendText("0123456789");
        }
    } catch (const database::DatabaseError& error) {
        EXPECT_EQ(error.Description(), u"検索結果が大きすぎます。"_s);
    }
    EXPECT_EQ(rows, 10'001);
}

TEST(ResultTable, EqualTextsOfAColumnAreOne) {
    ResultTable table(Columns({u"a"_s}));
    for (int row = 0; row < 3; ++row) {
        table.BeginRow();
        table.AppendText(row < 2 ? "総務部" : "営業部");
    }
    const QString first = table.Text(0, 0);
    EXPECT_EQ(table.Text(1, 0).constData(), first.constData());
    EXPECT_EQ(table.Text(2, 0), u"営業部"_s);
    EXPECT_EQ(first, u"総務部"_s);
}
