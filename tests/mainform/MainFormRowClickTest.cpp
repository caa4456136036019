#include <QTimer>

#include <functional>

#include "globals/ProgramGlobals.h"
#include "inquiry/ScreenState.h"
#include "mainform/frm要員名簿照会.h"
#include "screen/Form.h"
#include "support/LinkAnswers.h"
#include "support/MainFormFixture.h"

using namespace Qt::StringLiterals;

namespace {
const QColor kRowInWork(255, 128, 128);
constexpr int kPosition = 2;

frm要員名簿照会& Window() { return static_cast<frm要員名簿照会&>(*Globals().MainForm); }

/// Runs `job` and calls `onIteration` each time it processes events.
void WhilePumping(const std::function<void()>& onIteration, const std::function<void()>& job) {
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, onIteration);
    timer.start(0);
    job();
}
}  // namespace

class RowClickTest : public MainFormTest {
  protected:
    RowClickTest() { AnswerAtOnce(services, installation); }

    /// The panels of a row that were light red while the callback ran, i.e. of a row opened in the other program.
    QStringList PanelsPainted(const std::function<void()>& job) {
        QStringList painted;
        WhilePumping(
            [&] {
                for (const QString& panel :
                     {u"bak_dtl_行No"_s, u"bak_dtla"_s, u"bak_dtlb"_s, u"bak_dtlc"_s, u"bak_dtld"_s})
                    if (Item(panel, kPosition).BackColor() == kRowInWork && !painted.contains(panel)) painted << panel;
            },
            job);
        return painted;
    }
    QStringList PaintedByClick(const QString& item, int index = kPosition) {
        return PanelsPainted([&] {
            if (const auto& click = Item(item, index).Click) click();
        });
    }
    const QStringList kLaunched = {u"bak_dtl_行No"_s, u"bak_dtla"_s, u"bak_dtlb"_s, u"bak_dtlc"_s};
};

TEST_F(RowClickTest, PaintsFourPanelsOfItsRowAndNotTheThirdPages) {
    Start();
    EXPECT_EQ(PanelsPainted([this] { Click(u"担当者名"_s, kPosition); }), kLaunched);
    EXPECT_EQ(PanelsPainted([this] { Click(u"担当者名"_s, kPosition + 1); }), QStringList());
}

TEST_F(RowClickTest, RowReturnsToItsOwnColourAlthoughTheProgramEndedAtOnce) {
    Start();
    const QColor own(1, 2, 3);
    for (const QString& panel : kLaunched) Item(panel, kPosition).SetBackColor(own);
    const QColor third = Item(u"bak_dtld"_s, kPosition).BackColor();
    int starts = 0;
    for (const QString& item : {u"担当者名"_s, u"bak_dtla"_s}) {
        Click(item, kPosition);
        for (const QString& panel : kLaunched) EXPECT_EQ(Item(panel, kPosition).BackColor(), own);
        EXPECT_EQ(Item(u"bak_dtld"_s, kPosition).BackColor(), third);
        EXPECT_EQ(services.processes.starts.size(), ++starts);
    }
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(RowClickTest, EverythingButPinAndDateLabelsOpensARow) {
    Start();
    QStringList launching = {u"行No"_s,         u"bak_dtl_行No"_s,       u"bak_dtla"_s,         u"bak_dtlb"_s,
                             u"bak_dtlc"_s,     u"bak_dtld"_s,           u"itm_ttl_性別"_s,     u"itm_ttl_在籍区分名"_s,
                             u"itm_ttl_電話"_s, u"itm_ttl_社員区分名"_s, u"itm_ttl_携帯電話"_s, u"itm_ttl_EMAIL"_s};
    for (const DetailItem& detail : DetailItems()) launching << detail.item;
    launching.removeAll(u"暗証番号"_s);
    for (const QString& item : launching) EXPECT_EQ(PaintedByClick(item), kLaunched) << item.toStdString();
    for (const QString& item : {u"暗証番号"_s, u"itm_ttl_生年月日"_s, u"itm_ttl_入社日付"_s, u"itm_ttl_退社日付"_s,
                                u"itm_ttl_登録日付"_s, u"itm_ttl_更新日付"_s})
        EXPECT_EQ(PaintedByClick(item), QStringList()) << item.toStdString();
}

TEST_F(RowClickTest, ClickOnThePinDoesNothing) {
    Start();
    Globals().ScopeOfficeCode = u"000"_s;
    ASSERT_TRUE(Item(u"暗証番号"_s, kPosition).Visible());
    EXPECT_EQ(PanelsPainted([this] { Click(u"暗証番号"_s, kPosition); }), QStringList());
}

TEST_F(RowClickTest, BlankPositionLaunchesNothing) {
    Start();
    Globals().LastRow = kPosition - 1;
    EXPECT_EQ(PaintedByClick(u"担当者名"_s), QStringList());
    EXPECT_EQ(PaintedByClick(u"bak_dtla"_s), QStringList());
}

TEST_F(RowClickTest, AnyMissingRangeEndSendsBackAndLaunchesNothing) {
    Start();
    QString InquiryConditions::*const fields[] = {&InquiryConditions::DepartmentTo, &InquiryConditions::SectionTo,
                                                  &InquiryConditions::PositionTo, &InquiryConditions::StaffTo};
    for (int missing = 0; missing < 4; ++missing) {
        for (const QString& item : {u"担当者名"_s, u"bak_dtla"_s}) {
            const InquiryConditions kept = Globals().Conditions;
            Globals().Conditions.*fields[missing] = QString();
            EXPECT_EQ(PaintedByClick(item), QStringList());
            EXPECT_EQ(Focused(), RangeConditions()[static_cast<size_t>(missing)].toItem);
            Globals().Conditions = kept;
        }
    }
}

TEST_F(RowClickTest, WordThatMostCallersPassNamesNoItem) {
    Start();
    Click(u"検索カナ"_s);
    Window().FocusHeadItemByName(u"btn_集計検索"_s);
    Window().FocusHeadItemByName(QString());
    EXPECT_EQ(Focused(), u"検索カナ"_s);
    Window().FocusHeadItemByName(u"終了役職コード"_s);
    EXPECT_EQ(Focused(), u"終了役職コード"_s);
}

TEST_F(RowClickTest, MostTitlesValidateTheHead) {
    Start();
    Click(u"検索カナ"_s);
    Globals().Conditions.StaffTo.clear();
    for (const QString& title : {u"bak_dtl_head"_s, u"bak_dtl_headd"_s, u"itm_ttl_メモ"_s, u"itm_ttl_登録更新日付"_s}) {
        if (const auto& click = Item(title).Click) click();
        EXPECT_EQ(Focused(), u"検索カナ"_s) << title.toStdString();
    }
    for (const QString& title : {u"bak_dtl_head_行No"_s, u"baK_dtl_heada"_s, u"baK_dtl_headb"_s, u"itm_ttl_行No"_s,
                                 u"itm_ttl_担当者"_s, u"itm_ttl_所属"_s, u"itm_ttl_役職"_s, u"itm_ttl_日付"_s,
                                 u"itm_ttl_住所"_s, u"itm_ttl_連絡先"_s, u"tab_詳細"_s}) {
        Item(u"検索カナ"_s).SetFocus();
        Globals().Conditions.StaffTo.clear();  // LostFocus of the item has just stored its text
        ASSERT_TRUE(Item(title).Click) << title.toStdString();
        Item(title).Click();
        EXPECT_EQ(Focused(), u"終了担当者コード"_s) << title.toStdString();
    }
}

TEST_F(RowClickTest, HandlersWithoutAGuardWorkWhileASiblingIsAwaited) {
    Start();
    Click(u"検索カナ"_s);
    Click(u"検索住所"_s);
    Globals().LinkWaiting = true;
    Item(u"prg_ttl"_s).Click();
    EXPECT_EQ(Focused(), u"検索カナ"_s);
    Item(u"manualpanel"_s).Click();
    EXPECT_EQ(services.processes.documents.size(), 1);
    Item(u"scl_行"_s).SetValue(3);
    EXPECT_EQ(Globals().TopRow, 3);
    Item(u"btn_終了"_s).Click();
    EXPECT_EQ(services.processes.ends, QList<int>{0});
}

TEST_F(RowClickTest, TitlesAndPagesAnswerNothingWhileGuarded) {
    const QStringList kinds = {u"itm_ttl_在籍区分"_s, u"itm_ttl_社員区分"_s, u"itm_ttl_表示順区分"_s};
    const QStringList titles = {u"bak_dtl_head_行No"_s, u"baK_dtl_heada"_s, u"baK_dtl_headb"_s, u"itm_ttl_行No"_s,
                                u"itm_ttl_担当者"_s,    u"itm_ttl_所属"_s,  u"itm_ttl_役職"_s,  u"itm_ttl_日付"_s,
                                u"itm_ttl_住所"_s,      u"itm_ttl_連絡先"_s};
    Start();
    for (bool ProgramGlobals::*const flag : {&ProgramGlobals::ScreenPainting, &ProgramGlobals::LinkWaiting}) {
        // Without the guard they would move the focus to the missing end, or to the item of the class.
        for (const QString& end : {QString(), u"99999"_s}) {
            for (const QString& title : end.isEmpty() ? titles + kinds + QStringList{u"tab_詳細"_s} : kinds) {
                Item(u"検索カナ"_s).SetFocus();
                Globals().Conditions.StaffTo = end;
                Globals().*flag = true;
                Item(title).Click();
                EXPECT_EQ(Focused(), u"検索カナ"_s) << title.toStdString();
                Globals().*flag = false;
            }
        }
    }
}

TEST_F(RowClickTest, RowsAndBoxesAnswerNothingWhileGuarded) {
    Start();
    for (bool ProgramGlobals::*const flag : {&ProgramGlobals::ScreenPainting, &ProgramGlobals::LinkWaiting}) {
        Globals().*flag = true;
        EXPECT_EQ(PaintedByClick(u"担当者名"_s), QStringList());
        EXPECT_EQ(PaintedByClick(u"bak_dtla"_s), QStringList());
        Item(u"chb_出力対象"_s, kPosition).SetValue(0);
        EXPECT_EQ(Globals().Rows.出力対象[kPosition], 1);
        Globals().*flag = false;
        Item(u"chb_出力対象"_s, kPosition).SetValue(1);
    }
}
