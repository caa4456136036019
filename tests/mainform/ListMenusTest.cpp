#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QLabel>
#include <QMenu>
#include <QtTest/QTest>

#include "globals/ProgramGlobals.h"
#include "inquiry/RowMarks.h"
#include "inquiry/ScreenState.h"
#include "screen/Form.h"
#include "support/MainFormFixture.h"

using namespace Qt::StringLiterals;

namespace {

const QStringList kMarkEntries = {u"すべて印を付ける"_s, u"すべて外す"_s, u"反転"_s, u"ここから下を外す"_s};
const QStringList kCopyEntries = {u"ｺﾋﾟｰ"_s, u"行をｺﾋﾟｰ"_s};

/// The main form with twelve staff members, 00001 to 00012.
class ListMenus : public MainFormTest {
  protected:
    ListMenus() {
        installation.ClearStaff();
        for (int i = 1; i <= 12; ++i)
            installation.AddStaff(QString::number(i).rightJustified(5, u'0'),
                                  {{u"氏名"_s, u"要員"_s + QString::number(i)},
                                   {u"生年月日"_s, u"19650403"_s},
                                   {u"担当者メモ"_s, u"上\t下\n右"_s}});
    }
    void TearDown() override {
        if (QWidget* menu = QApplication::activePopupWidget()) menu->close();
        MainFormTest::TearDown();
    }

    /// Presses the right mouse button on an item as the window system does.
    QMenu* Open(const QString& item, int position = -1) const {
        QWidget& widget = Item(item, position).Widget();
        const QPoint place = widget.mapTo(&MainForm(), widget.rect().center());
        QTest::mouseClick(MainForm().windowHandle(), Qt::RightButton, {}, place);
        return qobject_cast<QMenu*>(QApplication::activePopupWidget());
    }
    static QStringList Entries(const QMenu* menu, bool onlyEnabled = false) {
        QStringList entries;
        if (menu == nullptr) return entries;
        for (const QAction* action : menu->actions())
            if (action->isEnabled() || !onlyEnabled) entries << action->text();
        return entries;
    }
    void Choose(const QString& entry, const QString& item, int position = -1) const {
        QMenu* menu = Open(item, position);
        ASSERT_NE(menu, nullptr) << item.toStdString();
        for (QAction* action : menu->actions())
            if (action->text() == entry)
                QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
    }
    static QString Marks() {
        QString marks;
        for (int row = 0; row <= Globals().LastRow; ++row) marks += IsMarked(row) ? u'1' : u'0';
        return marks;
    }
    QString ShownMarks() const {
        QString marks;
        for (int position = 0; position < 8; ++position)
            marks += QString::number(Item(u"chb_出力対象"_s, position).Value());
        return marks;
    }
    QString Status() const { return MainForm().findChild<QLabel*>(u"状況"_s)->accessibleName(); }
    static QString Copied() { return QApplication::clipboard()->text(); }
};

}  // namespace

TEST_F(ListMenus, NumberCellAndItsTitleHaveTheMarkMenu) {
    Start();
    for (const QString& item : {u"行No"_s, u"chb_出力対象"_s}) {
        const QMenu* menu = Open(item, 2);
        EXPECT_EQ(Entries(menu), kMarkEntries);
        EXPECT_EQ(Entries(menu, true), kMarkEntries);
        QApplication::activePopupWidget()->close();
    }
    const QMenu* menu = Open(u"itm_ttl_行No"_s);
    EXPECT_EQ(Entries(menu), kMarkEntries);
    EXPECT_EQ(Entries(menu, true), kMarkEntries.first(3)) << "no row is under the title";
}

TEST_F(ListMenus, MarkEntriesChangeAllRowsAlsoThoseOutsideThePage) {
    Start();
    Choose(u"すべて外す"_s, u"itm_ttl_行No"_s);
    EXPECT_EQ(Marks(), QString(12, u'0'));
    EXPECT_EQ(ShownMarks(), QString(8, u'0'));
    EXPECT_EQ(Status(), u"12 件　印 0 件"_s);
    Click(u"chb_出力対象"_s, 1);
    Choose(u"反転"_s, u"行No"_s, 5);
    EXPECT_EQ(Marks(), u"101111111111"_s);
    EXPECT_EQ(ShownMarks(), u"10111111"_s);
    EXPECT_EQ(Status(), u"12 件　印 11 件"_s);
    Choose(u"すべて印を付ける"_s, u"chb_出力対象"_s, 5);
    EXPECT_EQ(Marks(), QString(12, u'1'));
    EXPECT_EQ(ShownMarks(), QString(8, u'1'));
}

TEST_F(ListMenus, FromHereDownBeginsAtTheRowUnderThePointerOfAScrolledList) {
    Start();
    Item(u"scl_行"_s).SetValue(4);
    Choose(u"ここから下を外す"_s, u"行No"_s, 2);
    EXPECT_EQ(Marks(), u"111111000000"_s);
    EXPECT_EQ(ShownMarks(), u"11000000"_s);
    EXPECT_EQ(Globals().TopRow, 4);
}

TEST_F(ListMenus, MarksLeaveTypingFocusAndOutputButtonsAlone) {
    Start();
    Type(u"検索名称"_s, u"山"_s);
    Choose(u"すべて外す"_s, u"行No"_s, 0);
    EXPECT_EQ(Focused(), u"検索名称"_s);
    EXPECT_EQ(Item(u"検索名称"_s).Text(), u"山"_s);
    EXPECT_TRUE(Item(u"btn_印刷"_s).Enabled());
    EXPECT_TRUE(services.processes.starts.isEmpty());
}

TEST_F(ListMenus, RowItemIsCopied) {
    Start();
    Choose(u"ｺﾋﾟｰ"_s, u"担当者名"_s, 2);
    EXPECT_EQ(Copied(), u"要員3"_s);
    EXPECT_TRUE(services.processes.starts.isEmpty());
}

TEST_F(ListMenus, RowIsCopiedAsOneLineWithoutThePin) {
    Start();
    Item(u"scl_行"_s).SetValue(1);
    Globals().Rows.Text(StaffText::暗証番号, 3) = u"secret"_s;
    Choose(u"行をｺﾋﾟｰ"_s, u"カナ"_s, 2);
    const QStringList cells = Copied().split(u'\t');
    ASSERT_EQ(cells.size(), 23) << Copied().toStdString();
    EXPECT_EQ(cells.first(2), QStringList({u"00004"_s, u"要員4"_s}));
    EXPECT_EQ(cells[17], u"昭和40年04月03日"_s);
    EXPECT_EQ(cells[20], u"上 下 右"_s);
    EXPECT_FALSE(Copied().contains(u"secret"_s));
    EXPECT_FALSE(Copied().contains(u'\n'));
}

TEST_F(ListMenus, EveryRowPartHasTheCopyMenu) {
    Start();
    const QStringList items = {u"担当者コード"_s, u"部門名"_s, u"電話"_s, u"担当者メモ"_s};
    for (int page = 0; page < 3; ++page) {
        Item(u"tab_詳細"_s).SetValue(page);
        EXPECT_EQ(Entries(Open(items[page + 1], 0)), kCopyEntries) << page;
        QApplication::activePopupWidget()->close();
    }
    EXPECT_EQ(Entries(Open(items[0], 0), true), kCopyEntries);
    QApplication::activePopupWidget()->close();
    EXPECT_EQ(Entries(Open(u"itm_ttl_性別"_s, 0), true), QStringList{u"行をｺﾋﾟｰ"_s}) << "a title is not data";
}

TEST_F(ListMenus, PinIsNotCopied) {
    Start();
    Globals().Staff.LaunchingStaffCode = u"00001"_s;
    Globals().Staff.ClassRights[9] = u"0"_s;
    Globals().Rows.Text(StaffText::暗証番号, 0) = u"secret"_s;
    PaintDetailRow(0, 0);
    ASSERT_TRUE(Item(u"暗証番号"_s, 0).Visible());
    EXPECT_EQ(Entries(Open(u"暗証番号"_s, 0), true), QStringList{u"行をｺﾋﾟｰ"_s});
}

TEST_F(ListMenus, BlankPositionsAndAnEmptyListHaveNoRowMenu) {
    Start();
    Item(u"scl_行"_s).SetValue(11);
    EXPECT_EQ(Open(u"担当者名"_s, 1), nullptr);
    EXPECT_EQ(Entries(Open(u"行No"_s, 1), true), kMarkEntries.first(3));
    QApplication::activePopupWidget()->close();
    Click(u"btn_画面クリア"_s);
    EXPECT_EQ(Open(u"行No"_s, 0), nullptr);
    EXPECT_EQ(Open(u"担当者名"_s, 0), nullptr);
    EXPECT_EQ(Open(u"itm_ttl_行No"_s), nullptr);
}

TEST_F(ListMenus, WaitingOrDisabledFormOpensNoMenu) {
    Start();
    Globals().LinkWaiting = true;
    EXPECT_EQ(Open(u"行No"_s, 0), nullptr);
    Globals().LinkWaiting = false;
    MainForm().SetEnabled(false);
    EXPECT_EQ(Open(u"行No"_s, 0), nullptr);
    EXPECT_EQ(Open(u"担当者名"_s, 0), nullptr);
}

TEST_F(ListMenus, TickBoxFillsItsPartOfTheCell) {
    Start();
    QWidget& box = Item(u"chb_出力対象"_s, 1).Widget();
    QWidget& cell = Item(u"bak_dtl_行No"_s, 1).Widget();
    const QPoint middle(cell.width() / 2, cell.height() * 2 / 3);
    const QList<QPoint> places = {middle - QPoint(23, 0), middle + QPoint(23, 0), middle + QPoint(0, 18),
                                  middle - QPoint(0, 18)};
    for (const QPoint& place : places) {
        QTest::mouseClick(MainForm().windowHandle(), Qt::LeftButton, {}, cell.mapTo(&MainForm(), place));
        EXPECT_FALSE(IsMarked(1)) << place.x() << ',' << place.y();
        MarkRowsFrom(1, true);
        Item(u"chb_出力対象"_s, 1).SetValue(1);
    }
    EXPECT_TRUE(services.dialogs.shown.isEmpty()) << "the registration program was started";
    const QImage picture = box.grab().toImage();
    EXPECT_NE(picture.pixel(box.width() / 2, box.height() / 2), picture.pixel(3, box.height() / 2))
        << "the box is in the middle of its area";
}
