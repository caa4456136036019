#include "faults/FaultFixture.h"
#include "inquiry/StaffQuery.h"

using namespace Qt::StringLiterals;

namespace {

/// The first search by name after a start, including the eras of each row's dates and the viewing log.
class SearchUnderFaults : public FaultTest {
  protected:
    SearchUnderFaults() {
        installation.General().Execute(
            u"INSERT INTO T閲覧 (担当者コード, 閲覧情報, 伝票事業所コード, 伝票番号基準日付, 伝票No, キー項目, "
            u"閲覧日付,"
            u" 閲覧時刻, 閲覧区分) VALUES ('00001', '要員台帳更新', '', '', '', '00002', '20261001', '101500', 1)"_s);
        Globals().Conditions.SearchName = u"子"_s;
        Globals().Conditions.DisplayOrder = 1;
        KeepAsBeginning();
        Work();
        found_ = List();
        EndProgram();
    }

    void Work() override {
        for (int row = 0; row < 5; ++row) ClearRow(row);
        Globals().LastRow = -1;
        OpenConnections();
        RunStaffSearch();
        // The search has left no read transaction open that would block writers.
        const OnAnotherMachine well;
        installation.General().Execute(u"UPDATE M担当者 SET 氏名 = 氏名"_s);
    }
    void CheckBehindFault(bool untold) override {
        if (untold) CheckBehindNextWork();
    }
    void CheckBehindNextWork() override { EXPECT_EQ(List(), found_); }

    static QList<QStringList> List() {
        const ProgramGlobals& globals = Globals();
        QList<QStringList> rows;
        for (int row = 0; row <= globals.LastRow; ++row) {
            QStringList cells{QString::number(globals.Rows.閲覧区分[static_cast<size_t>(row)])};
            for (int field = 0; field < kStaffTextCount; ++field)
                cells << globals.Rows.Text(static_cast<StaffText>(field), row);
            rows << cells;
        }
        return rows;
    }

    QList<QStringList> found_;
};

}  // namespace

TEST_F(SearchUnderFaults, FindsEverybodyWithoutOne) {
    ASSERT_EQ(found_.size(), 1);
    EXPECT_EQ(found_.first().first(), u"1"_s);
    EXPECT_TRUE(found_.first().contains(u"佐藤　花子"_s));
    EXPECT_TRUE(found_.first().contains(u"昭和"_s));
}

TEST_F(SearchUnderFaults, OneFaultOfTheDiskIsToldOrDoesNoHarm) { EXPECT_GT(FailOnce(), 15); }

TEST_F(SearchUnderFaults, BrokenDiskIsToldAndTheNextSearchFindsEverybody) { EXPECT_GT(FailFromThenOn("gnrdb"), 15); }

TEST_F(SearchUnderFaults, LackOfMemoryIsToldAndNoCellComesOutEmpty) { EXPECT_GT(RunOutOfMemory(), 300); }
