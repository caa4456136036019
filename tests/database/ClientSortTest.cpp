#include "database/ResultTable.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace database;

namespace {

/// Rows of a name and one or two sort keys; "-" is Null.
std::shared_ptr<ResultTable> Rows(const QList<QStringList>& rows) {
    auto columns = std::make_shared<ColumnSet>();
    for (int column = 0; column < rows[0].size(); ++column) columns->Add(u"c%1"_s.arg(column), u"TEXT"_s);
    auto table = std::make_shared<ResultTable>(columns);
    for (const QStringList& row : rows) {
        table->BeginRow();
        for (const QString& cell : row) cell == u"-"_s ? table->AppendNull() : table->AppendText(cell.toUtf8());
    }
    return table;
}

QString Order(const QList<QStringList>& rows, const QList<SortKey>& keys, int limit = -1) {
    const auto sorted = SortRows(*Rows(rows), keys, limit);
    EXPECT_EQ(sorted->Columns().Count(), rows[0].size() - keys.size());
    QString names;
    for (int row = 0; row < sorted->RowCount(); ++row) names += sorted->Text(row, 0);
    return names;
}

const QList<QStringList> kRows = {
    {u"a"_s, u"ん"_s}, {u"b"_s, u"-"_s}, {u"c"_s, u"ｱ"_s}, {u"d"_s, u"Z"_s}, {u"e"_s, u"ア"_s}};

}  // namespace

TEST(SortedRowsTest, WordsStandInTheirOrderAndEqualOnesAsTheyCame) {
    EXPECT_EQ(Order(kRows, {{true, false}}), u"bdcea"_s);
    EXPECT_EQ(Order(kRows, {{true, true}}), u"acedb"_s);
}

TEST(SortedRowsTest, OtherKeysStandByTheirBytes) { EXPECT_EQ(Order(kRows, {{false, false}}), u"bdaec"_s); }

TEST(SortedRowsTest, TheSecondKeyDecidesBetweenEqualFirstOnes) {
    EXPECT_EQ(Order({{u"a"_s, u"1"_s, u"い"_s}, {u"b"_s, u"1"_s, u"ｱ"_s}, {u"c"_s, u"0"_s, u"う"_s}},
                    {{false, false}, {true, false}}),
              u"cba"_s);
}

TEST(SortedRowsTest, TheLimitCountsBehindTheSorting) {
    EXPECT_EQ(Order(kRows, {{true, false}}, 2), u"bd"_s);
    EXPECT_EQ(Order(kRows, {{true, false}}, 0), u""_s);
    EXPECT_EQ(Order(kRows, {{true, false}}, 9), u"bdcea"_s);
}
