#include <QtTest/QTest>

#include <QWheelEvent>

#include "globals/ProgramGlobals.h"
#include "inquiry/ScreenState.h"
#include "inquiry/StaffQuery.h"
#include "screen/Form.h"
#include "support/MainFormFixture.h"

using namespace Qt::StringLiterals;

namespace {

/// Replaces the staff by the given number, all in the list of a start without command.
void KeepStaff(const SampleInstallation& installation, int count) {
    installation.General().Execute(
        u"DELETE FROM M担当者 WHERE rowid NOT IN (SELECT rowid FROM M担当者 ORDER BY コード LIMIT "_s +
        QString::number(count) + u")"_s);
    installation.General().Execute(u"UPDATE M担当者 SET 在籍区分 = '0', 社員区分 = '0', 性別区分 = '0'"_s);
}

void TurnWheel(QWidget& form, int delta) {
    const QPointF place(100, 400);
    QWheelEvent event(place, form.mapToGlobal(place), {}, {0, delta}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                      false);
    QCoreApplication::sendEvent(&form, &event);
}

}  // namespace

class ListTest : public MainFormTest {
  protected:
    /// Asserts that a position is empty.
    void ExpectBlank(int position) const {
        EXPECT_EQ(Item(u"行No"_s, position).Text(), QString()) << position;
        EXPECT_EQ(Item(u"chb_出力対象"_s, position).Value(), 0) << position;
        for (const DetailItem& detail : DetailItems())
            EXPECT_EQ(Item(detail.item, position).Text(), QString()) << detail.item.toStdString() << position;
    }
    void ExpectOutputs(bool enabled) const {
        for (const QString& name : kOutputs) EXPECT_EQ(Item(name).Enabled(), enabled) << name.toStdString();
    }
    const QStringList kOutputs = {u"btn_印刷"_s, u"btn_プレビュ"_s, u"btn_テキスト出力"_s,
                                  u"btn_封筒"_s, u"btn_はがき"_s,   u"btn_宛名ラベル"_s};
};

TEST_F(ListTest, ScreenOf863PixelsGivesSixRowsAnd864Eight) {
    Start(QString(), 863);
    EXPECT_EQ(Globals().RowsPerPage, 6);
    EXPECT_FALSE(Item(u"bak_dtla"_s, 6).Visible());
    EXPECT_FALSE(Item(u"bak_dtl_行No"_s, 7).Visible());
    EXPECT_EQ(Item(u"scl_行"_s).LargeChange(), 6);
    TearDown();
    ResetGlobals();
    Start(QString(), 864);
    EXPECT_EQ(Globals().RowsPerPage, 8);
    EXPECT_TRUE(Item(u"bak_dtla"_s, 7).Visible());
}

TEST_F(ListTest, LowScreenTakesTwoRowsOffAndGivesTheTabItsBorderBack) {
    Start(QString(), 1024);
    const int height = Item(u"bak_dtla"_s, 0).Height();
    const int tab = Item(u"tab_詳細"_s).Height();
    const int bar = Item(u"scl_行"_s).Height();
    const QStringList below = kOutputs + QStringList{u"btn_終了"_s, u"お知らせ"_s};
    QList<int> tops;
    for (const QString& name : below) tops << Item(name).Top();
    const int window = MainForm().WindowHeight();
    TearDown();
    ResetGlobals();
    Start(QString(), 768);
    EXPECT_EQ(Item(u"tab_詳細"_s).Height(), tab - 2 * height + 30);
    EXPECT_EQ(Item(u"scl_行"_s).Height(), bar - 2 * height + 30);
    for (int i = 0; i < below.size(); ++i)
        EXPECT_EQ(Item(below[i]).Top(), tops[i] - 2 * height) << below[i].toStdString();
    EXPECT_EQ(MainForm().WindowHeight(), window - 2 * height);
}

TEST_F(ListTest, SixRowsNeverTouchTheLastTwoPositions) {
    Start(QString(), 768);
    Item(u"担当者名"_s, 6).SetText(u"six"_s);
    Item(u"担当者名"_s, 7).SetText(u"seven"_s);
    RefreshScreen();
    EXPECT_EQ(Item(u"担当者名"_s, 6).Text(), u"six"_s);
    EXPECT_EQ(Item(u"担当者名"_s, 7).Text(), u"seven"_s);
}

TEST_F(ListTest, WithoutRowsNothingCanBeScrolledOrOutput) {
    // There is no staff to sign in, so the company must not ask for a PIN.
    installation.General().Execute(
        u"DELETE FROM M担当者; UPDATE Mユーザ SET 暗証番号有無 = '0'; UPDATE M事業所 SET 暗証番号有無 = '0'"_s);
    Start();
    for (int position = 0; position < kRowPositions; ++position) ExpectBlank(position);
    EXPECT_FALSE(Item(u"scl_行"_s).Enabled());
    ExpectOutputs(false);
}

TEST_F(ListTest, EmptyResultClearsAFullList) {
    Start();
    for (int position = 0; position < kRowPositions; ++position)
        ASSERT_EQ(Item(u"chb_出力対象"_s, position).Value(), 1);
    Enter(u"検索名称"_s, u"誰でもない"_s);
    Click(u"btn_集計検索"_s);
    for (int position = 0; position < kRowPositions; ++position) ExpectBlank(position);
    EXPECT_FALSE(Item(u"scl_行"_s).Enabled());
    ExpectOutputs(false);
}

TEST_F(ListTest, SevenRowsLeaveTheBarOffAndTheEighthPositionBlank) {
    Start();
    ASSERT_EQ(Item(u"chb_出力対象"_s, 7).Value(), 1);
    KeepStaff(installation, 7);
    Click(u"btn_集計検索"_s);
    EXPECT_EQ(Globals().LastRow, 6);
    EXPECT_FALSE(Item(u"scl_行"_s).Enabled());
    EXPECT_FALSE(Column(u"担当者コード"_s)[6].isEmpty());
    ExpectBlank(7);
}

TEST_F(ListTest, BarIsOnAtExactlyEightRowsAndItsMaxIsTheLastRow) {
    KeepStaff(installation, 8);
    Start();
    EXPECT_TRUE(Item(u"scl_行"_s).Enabled());
    EXPECT_EQ(Item(u"scl_行"_s).MaxValue(), 7);
    EXPECT_EQ(Item(u"scl_行"_s).Value(), 0);
}

TEST_F(ListTest, LastRowCanBeScrolledToTheTop) {
    KeepStaff(installation, 20);
    Start();
    for (int turn = 0; turn < 3; ++turn) TurnWheel(MainForm(), -120);
    EXPECT_EQ(Globals().TopRow, 19);
    EXPECT_EQ(Column(u"行No"_s), QStringList({u"20"_s, {}, {}, {}, {}, {}, {}, {}}));
    for (int position = 1; position < kRowPositions; ++position) ExpectBlank(position);
}

TEST_F(ListTest, ScrollingPutsTheCursorBackIntoTheHead) {
    KeepStaff(installation, 20);
    Start();
    Click(u"検索カナ"_s);
    Click(u"検索住所"_s);
    Item(u"scl_行"_s).SetValue(3);
    EXPECT_EQ(Focused(), u"検索カナ"_s);
    EXPECT_EQ(Column(u"行No"_s)[0], u"4"_s);
}

TEST_F(ListTest, BoxTickedOffStaysOffAfterScrollingAwayAndBack) {
    KeepStaff(installation, 20);
    Start();
    ASSERT_EQ(Item(u"chb_出力対象"_s, 2).Value(), 1);
    Click(u"chb_出力対象"_s, 2);
    EXPECT_EQ(Globals().Rows.出力対象[2], 0);
    Item(u"scl_行"_s).SetValue(10);
    EXPECT_EQ(Item(u"chb_出力対象"_s, 2).Value(), 1);
    Item(u"scl_行"_s).SetValue(0);
    EXPECT_EQ(Item(u"chb_出力対象"_s, 2).Value(), 0);
}

TEST_F(ListTest, WheelMovesOnePageByItsSignAndStopsAtTheEnds) {
    KeepStaff(installation, 20);
    Start();
    TurnWheel(MainForm(), 120);
    EXPECT_EQ(Globals().TopRow, 0);
    TurnWheel(MainForm(), -240);
    EXPECT_EQ(Globals().TopRow, 8);
    TurnWheel(MainForm(), -120);
    TurnWheel(MainForm(), -120);
    EXPECT_EQ(Globals().TopRow, 19);
}

TEST_F(ListTest, WheelMovesSixRowsOnALowScreen) {
    KeepStaff(installation, 20);
    Start(QString(), 768);
    TurnWheel(MainForm(), -120);
    EXPECT_EQ(Globals().TopRow, 6);
}

TEST_F(ListTest, PinColumnNeedsTheRightOfClassNine) {
    struct Case {
        QString office, staff, right;
        bool shows;
    };
    Start();
    for (const Case& c : {Case{u"000"_s, u"00001"_s, u"0"_s, true}, Case{u"001"_s, u"00001"_s, u"0"_s, false},
                          Case{u"000"_s, QString(), u"0"_s, false}, Case{u"000"_s, u"00001"_s, u"1"_s, false},
                          Case{u"000"_s, u"00001"_s, QString(), false}, Case{u"001"_s, u"00001"_s, u"1"_s, false},
                          Case{u"001"_s, u"00001"_s, QString(), false}}) {
        Globals().ScopeOfficeCode = c.office;
        Globals().Staff.LaunchingStaffCode = c.staff;
        Globals().Staff.ClassRights[9] = c.right;
        PaintDetailRow(0, 0);
        EXPECT_EQ(Item(u"暗証番号"_s, 0).Visible(), c.shows) << c.office.toStdString() << c.staff.toStdString();
    }
}

TEST_F(ListTest, StaffCodeIsColouredByTheViewingLog) {
    Start();
    const QColor colors[] = {QApplication::palette().color(QPalette::ButtonText),
                             QApplication::palette().color(QPalette::ButtonText), QColor(0, 128, 128),
                             QColor(0, 128, 0)};
    for (int kind = -2; kind <= 1; ++kind) {
        Globals().Rows.閲覧区分[0] = static_cast<qint16>(kind);
        PaintDetailRow(0, 0);
        EXPECT_EQ(Item(u"担当者コード"_s, 0).ForeColor(), colors[kind + 2]) << kind;
    }
}

TEST_F(ListTest, EveryItemShowsTheFieldOfItsName) {
    Start();
    for (const DetailItem& detail : DetailItems())
        Globals().Rows.SetText(detail.field, 3, u"<"_s + detail.item + u">"_s);
    PaintDetailRow(3, 1);
    for (const DetailItem& detail : DetailItems())
        EXPECT_EQ(Item(detail.item, 1).Text(), u"<"_s + detail.item + u">"_s);
}
