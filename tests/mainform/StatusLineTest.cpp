#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QTemporaryDir>
#include <QtTest/QTest>

#include "globals/ProgramGlobals.h"
#include "inquiry/RowMarks.h"
#include "screen/Form.h"
#include "support/LinkAnswers.h"
#include "support/MainFormFixture.h"

using namespace Qt::StringLiterals;

namespace {

/// The main form with twelve staff members, 00001 to 00012.
class StatusLineTest : public MainFormTest {
  protected:
    StatusLineTest() {
        installation.ClearStaff();
        for (int i = 1; i <= 12; ++i)
            installation.AddStaff(QString::number(i).rightJustified(5, u'0'), {{u"氏名"_s, u"要員"_s}});
    }

    QLabel& Line() const { return *MainForm().findChild<QLabel*>(u"状況"_s); }
    QString Status() const { return Line().accessibleName(); }
};

}  // namespace

TEST_F(StatusLineTest, ShowsRowsAndMarksAfterTheStartAndAfterEachTick) {
    Start();
    EXPECT_EQ(Status(), u"12 件　印 12 件"_s);
    EXPECT_EQ(Line().text(), Status());
    Click(u"chb_出力対象"_s, 3);
    EXPECT_EQ(Status(), u"12 件　印 11 件"_s);
    Click(u"chb_出力対象"_s, 3);
    EXPECT_EQ(Status(), u"12 件　印 12 件"_s);
}

TEST_F(StatusLineTest, IsToTheRightOfTheTabTitlesAndIsNoControl) {
    Start();
    const QWidget& tab = Item(u"tab_詳細"_s).Widget();
    EXPECT_TRUE(Line().isVisible());
    EXPECT_GE(Line().x(), tab.x() + Item(u"tab_詳細"_s).FocusWidget().sizeHint().width());
    EXPECT_LE(Line().geometry().right(), tab.geometry().right());
    EXPECT_EQ(Line().y(), tab.y());
    EXPECT_EQ(dynamic_cast<Control*>(&Line()), nullptr);
    EXPECT_EQ(Line().focusPolicy(), Qt::NoFocus);
}

TEST_F(StatusLineTest, SearchShowsItsCountsOrThatThereAreNoneAndClearEmptiesIt) {
    Start();
    Click(u"chb_出力対象"_s, 0);
    Click(u"btn_集計検索"_s);
    EXPECT_EQ(Status(), u"12 件　印 12 件"_s);
    Enter(u"検索名称"_s, u"誰でもない"_s);
    Click(u"btn_集計検索"_s);
    EXPECT_EQ(Status(), u"該当する要員はいません。"_s);
    Click(u"btn_画面クリア"_s);
    EXPECT_EQ(Status(), QString());
    EXPECT_EQ(Line().text(), QString());
    Click(u"chb_出力対象"_s, 0);
    EXPECT_EQ(Status(), QString()) << "a tick on an empty position";
}

TEST_F(StatusLineTest, WaitForTheOtherProgramHasItsNameAndTheWaitCursor) {
    QString during;
    Qt::CursorShape shape = Qt::ArrowCursor;
    Start();
    Click(u"chb_出力対象"_s, 2);
    AnswerAtOnce(services, installation, [&](const RecordingProcesses::Start&) {
        during = Status();
        if (QApplication::overrideCursor() != nullptr) shape = QApplication::overrideCursor()->shape();
    });
    Click(u"担当者名"_s, 2);
    EXPECT_EQ(during, u"要員台帳更新 で作業中です。"_s);
    EXPECT_EQ(shape, Qt::WaitCursor);
    EXPECT_EQ(Status(), u"12 件　印 12 件"_s) << "the re-read row is marked again";
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(StatusLineTest, MissingProgramLeavesNoWaitCursor) {
    Start();
    Click(u"担当者名"_s, 2);
    EXPECT_EQ(services.dialogs.Texts(), QStringList{u"情報登録プログラムが有りません"_s});
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(Status(), u"12 件　印 12 件"_s);
}

TEST_F(StatusLineTest, RowDeletedInTheOtherProgramIsNotCounted) {
    Start();
    AnswerAtOnce(services, installation, [&](const RecordingProcesses::Start&) {
        installation.General().Execute(u"DELETE FROM M担当者 WHERE コード = '00003'"_s);
    });
    Click(u"担当者名"_s, 2);
    EXPECT_EQ(Status(), u"11 件　印 11 件"_s);
}

TEST_F(StatusLineTest, TextOutputShowsTheNumberOfPeopleAndTheFile) {
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"名簿.csv"_s);
    Start();
    Click(u"chb_出力対象"_s, 0);
    Click(u"btn_テキスト出力"_s);
    EXPECT_EQ(Status(), u"12 件　印 11 件"_s) << "the save dialog was cancelled";
    services.dialogs.saveAnswers = {file};
    Click(u"btn_テキスト出力"_s);
    EXPECT_EQ(Status(), u"11 名を "_s + file + u" に出力しました。"_s);
}

TEST_F(StatusLineTest, OutputOfNothingDoesNotSayThatSomethingWasOutput) {
    const QTemporaryDir folder;
    Start();
    MarkRowsFrom(0, false);
    services.dialogs.saveAnswers = {folder.filePath(u"名簿.csv"_s)};
    Click(u"btn_テキスト出力"_s);
    EXPECT_EQ(services.dialogs.Texts(), QStringList{u"出力情報が有りません"_s});
    EXPECT_EQ(Status(), u"12 件　印 12 件"_s) << "no tick has been counted";
}

TEST_F(StatusLineTest, LongTextIsShortenedAndWholeInTheTooltip) {
    const QTemporaryDir folder;
    const QString file = folder.filePath(QString(60, u'名') + u".csv"_s);
    Start();
    EXPECT_EQ(Line().toolTip(), QString());
    services.dialogs.saveAnswers = {file};
    Click(u"btn_テキスト出力"_s);
    EXPECT_EQ(Status(), u"12 名を "_s + file + u" に出力しました。"_s);
    EXPECT_NE(Line().text(), Status());
    EXPECT_TRUE(Line().text().startsWith(u"12 名を "_s) && Line().text().endsWith(u"に出力しました。"_s));
    EXPECT_TRUE(Line().toolTip().contains(Status()));
}

TEST_F(StatusLineTest, IsANotificationForScreenReaders) {
    Start();
    const QAccessibleInterface* line = QAccessible::queryAccessibleInterface(&Line());
    EXPECT_EQ(line->role(), QAccessible::Notification);
    EXPECT_EQ(line->text(QAccessible::Name), u"12 件　印 12 件"_s);
}

TEST_F(StatusLineTest, RepaintDoesNotCountTheMarks) {
    Start();
    MarkRowsFrom(0, false);
    Item(u"scl_行"_s).SetValue(3);
    EXPECT_EQ(Status(), u"12 件　印 12 件"_s);
}
