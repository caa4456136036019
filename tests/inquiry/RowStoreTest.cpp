#include <algorithm>

#include "inquiry/InquiryTest.h"
#include "inquiry/StaffQuery.h"

using namespace Qt::StringLiterals;

namespace {
QString TextFor(int field, int row) { return u"%1/%2"_s.arg(field).arg(row); }

class FakeStaffRows : public StaffRows {
  public:
    QString Text(StaffText field, int row) const override { return TextFor(static_cast<int>(field), row); }
};

/// Fills rows 0 to `last`; each field identifies its row.
class RowStore : public InquiryTest {
  protected:
    void Fill(int last) {
        ResetRowStore();
        const auto query = std::make_shared<FakeStaffRows>();
        for (int row = 0; row <= last; ++row) {
            Rows().LoadTexts(row, query, row);
            const auto at = static_cast<size_t>(row);
            Rows().出力対象[at] = static_cast<qint16>(row % 2);
            Rows().閲覧区分[at] = static_cast<qint16>(row % 1000 + 10);
            Rows().rowFlag[at] = static_cast<qint16>(row % 1000 + 20);
        }
        Globals().LastRow = last;
    }

    /// For each text field of a row the row that it came from; -1 if empty.
    void ExpectRowFrom(int row, int source, int mailSource) const {
        for (int field = 0; field < kStaffTextCount; ++field) {
            const int from = field == static_cast<int>(StaffText::EMAIL) ? mailSource : source;
            EXPECT_EQ(Rows().Text(static_cast<StaffText>(field), row), from < 0 ? QString() : TextFor(field, from))
                << "field " << field << " of row " << row;
        }
        const auto at = static_cast<size_t>(row);
        EXPECT_EQ(Rows().出力対象[at], source < 0 ? 0 : source % 2);
        EXPECT_EQ(Rows().閲覧区分[at], source < 0 ? 0 : source % 1000 + 10);
        EXPECT_EQ(Rows().rowFlag[at], source < 0 ? 0 : source % 1000 + 20);
    }
};
}  // namespace

TEST_F(RowStore, CopyRowLeavesTheMailAddressAtItsRow) {
    Fill(2);
    CopyRow(2, 0);
    ExpectRowFrom(0, 2, 0);
    ExpectRowFrom(2, 2, 2);
}

TEST_F(RowStore, ClearRowEmptiesEveryField) {
    Fill(1);
    ClearRow(1);
    ExpectRowFrom(1, -1, -1);
    ExpectRowFrom(0, 0, 0);
}

TEST_F(RowStore, ResetEmptiesEveryRowItUses) {
    Fill(StaffRowStore::kLastClearedRow);
    Globals().TopRow = 4;
    ResetRowStore();
    EXPECT_EQ(Globals().LastRow, -1);
    EXPECT_EQ(Globals().TopRow, 0);
    for (size_t row = 0; row < StaffRowStore::kRows; ++row) {
        for (int field = 0; field < kStaffTextCount; ++field)
            ASSERT_EQ(Rows().Text(static_cast<StaffText>(field), static_cast<int>(row)), QString()) << row;
        for (const auto* column : {&Rows().出力対象, &Rows().閲覧区分, &Rows().rowFlag})
            ASSERT_EQ(column->at(row), 0) << row;
    }
}

TEST_F(RowStore, AWrittenTextIsCopiedWithItsRowUntilTheRowIsClearedOrLoaded) {
    Fill(3);
    Rows().SetText(StaffText::担当者名, 1, u"書"_s);
    Rows().SetText(StaffText::EMAIL, 1, u"m"_s);
    CopyRow(1, 0);
    EXPECT_EQ(Rows().Text(StaffText::担当者名, 0), u"書"_s);
    EXPECT_EQ(Rows().Text(StaffText::EMAIL, 0), TextFor(static_cast<int>(StaffText::EMAIL), 0));
    CopyRow(2, 0);
    ExpectRowFrom(0, 2, 0);
    Rows().LoadTexts(1, std::make_shared<FakeStaffRows>(), 3);
    EXPECT_EQ(Rows().Text(StaffText::担当者名, 1), TextFor(static_cast<int>(StaffText::担当者名), 3));
    Rows().SetText(StaffText::担当者名, 2, u"書"_s);
    ClearRow(2);
    EXPECT_EQ(Rows().Text(StaffText::担当者名, 2), QString());
}

TEST_F(RowStore, RowsOutsideTheStoreAreRefused) {
    EXPECT_THROW(Rows().Text(StaffText::担当者名, -1), std::out_of_range);
    EXPECT_THROW(Rows().SetText(StaffText::担当者名, StaffRowStore::kRows, u"x"_s), std::out_of_range);
    EXPECT_THROW(Rows().LoadTexts(-1, std::make_shared<FakeStaffRows>(), 0), std::out_of_range);
    EXPECT_THROW(CopyRow(StaffRowStore::kRows, 0), std::out_of_range);
}

TEST_F(RowStore, AResetFreesTheQueries) {
    auto query = std::make_shared<FakeStaffRows>();
    const std::weak_ptr<FakeStaffRows> freed = query;
    Rows().LoadTexts(0, query, 0);
    query.reset();
    EXPECT_FALSE(freed.expired());
    ResetRowStore();
    EXPECT_TRUE(freed.expired());
}

TEST_F(RowStore, RemovingARowMovesTheRowsBelowUpButNotTheirMailAddresses) {
    Fill(3);
    RemoveRow(1);
    EXPECT_EQ(Globals().LastRow, 2);
    ExpectRowFrom(0, 0, 0);
    ExpectRowFrom(1, 2, 1);
    ExpectRowFrom(2, 3, 2);
    ExpectRowFrom(3, -1, -1);
}

TEST_F(RowStore, RemovingARowLeavesAGapInTheNumbers) {
    Fill(3);
    for (int row = 0; row <= 3; ++row) Rows().SetText(StaffText::行No, row, QString::number(row + 1));
    RemoveRow(1);
    QStringList numbers;
    for (int row = 0; row <= 3; ++row) numbers << Rows().Text(StaffText::行No, row);
    EXPECT_EQ(numbers, (QStringList{u"1"_s, u"3"_s, u"4"_s, QString()}));
}

TEST_F(RowStore, RemovingTheLastRowMovesNothing) {
    Fill(9);
    RemoveRow(9);
    EXPECT_EQ(Globals().LastRow, 8);
    for (int row = 0; row <= 8; ++row) ExpectRowFrom(row, row, row);
    ExpectRowFrom(9, -1, -1);
}

TEST_F(RowStore, RemovingTheOnlyRowEmptiesTheList) {
    Fill(0);
    RemoveRow(0);
    EXPECT_EQ(Globals().LastRow, -1);
    ExpectRowFrom(0, -1, -1);
}

TEST_F(RowStore, RemovingARowPastTheEndOnlyClearsIt) {
    Fill(3);
    Rows().SetText(StaffText::担当者名, 7, u"x"_s);
    RemoveRow(7);
    EXPECT_EQ(Globals().LastRow, 3);
    ExpectRowFrom(7, -1, -1);
    for (int row = 0; row <= 3; ++row) ExpectRowFrom(row, row, row);
}

TEST_F(RowStore, RemovingFromAnEmptyListOnlyClears) {
    ResetRowStore();
    Rows().SetText(StaffText::担当者名, 0, u"x"_s);
    Globals().TopRow = 3;
    RemoveRow(0);
    EXPECT_EQ(Globals().LastRow, -1);
    EXPECT_EQ(Globals().TopRow, 0);
    EXPECT_EQ(Rows().Text(StaffText::担当者名, 0), QString());
}

TEST_F(RowStore, TheFullStoreTakesARemovalOfItsFirstRow) {
    Fill(32752);
    RemoveRow(0);
    EXPECT_EQ(Globals().LastRow, 32751);
    ExpectRowFrom(0, 1, 0);
    ExpectRowFrom(32751, 32752, 32751);
    ExpectRowFrom(32752, -1, -1);
}

namespace {
struct TopRowCase {
    int rowsPerPage, lastRowBefore, topRowBefore, topRowAfter;
};
class TopRowAfterRemoval : public RowStore, public ::testing::WithParamInterface<TopRowCase> {};
}  // namespace

TEST_P(TopRowAfterRemoval, ReturnsToTheTopOnlyWhenTheListFitsThePage) {
    Fill(GetParam().lastRowBefore);
    Globals().RowsPerPage = GetParam().rowsPerPage;
    Globals().TopRow = GetParam().topRowBefore;
    RemoveRow(0);
    EXPECT_EQ(Globals().TopRow, GetParam().topRowAfter);
}

INSTANTIATE_TEST_SUITE_P(Of, TopRowAfterRemoval,
                         ::testing::Values(TopRowCase{8, 7, 5, 0},     // eight rows, seven left
                                           TopRowCase{8, 8, 5, 0},     // nine rows, eight left
                                           TopRowCase{8, 9, 5, 5},     // nine left
                                           TopRowCase{8, 30, 30, 30},  // the page is now past the end
                                           TopRowCase{6, 6, 2, 0}, TopRowCase{6, 7, 2, 2}));
