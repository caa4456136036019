#include "screen/ListView.h"

#include <QAccessible>
#include <QApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QStyleHints>
#include <QToolTip>
#include <QtTest/QTest>
#include <utility>

#include "screen/PlainControls.h"
#include "screen/ScreenTest.h"

using namespace Qt::StringLiterals;

class ListViewTest : public ScreenTest {
  protected:
    ThreeItems form;
    ListView list{form, form, u"List部門"_s};
    QStringList events;

    void SetUp() override {
        list.setGeometry(10, 140, 380, 150);
        list.AddColumn(u"コード"_s, 750);
        list.AddColumn(u"名称"_s, 2500);
        list.Click = [this] { events << u"click "_s + QString::number(list.SelectedRow()); };
        list.KeyPress = [this](int key) { events << u"key "_s + QString::number(key); };
        list.ColumnClick = [this](int column) { events << u"column "_s + QString::number(column); };
        ShowActive(form);
    }

    void Fill(const QStringList& codes, const QStringList& names = {}) {
        QList<ListRow> rows;
        for (int i = 0; i < codes.size(); ++i) rows << ListRow{codes[i], u'C' + codes[i], {names.value(i)}};
        list.ClearRows();
        list.AddRows(rows);
    }
    QStringList Codes() const {
        QStringList codes;
        for (int row = 0; row < list.RowCount(); ++row) codes << list.Row(row).text;
        return codes;
    }
    QPoint PlaceOf(int row, int column = 1) const { return list.visualRect(list.model()->index(row, column)).center(); }
    void ClickRow(int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::mouseClick(list.viewport(), Qt::LeftButton, modifiers, PlaceOf(row));
    }
    bool IsVisible(int row) const {
        return list.viewport()->rect().contains(list.visualRect(list.model()->index(row, 0)));
    }
    QStringList Numbered(int count) const {
        QStringList codes;
        for (int i = 0; i < count; ++i) codes << QString::number(i).rightJustified(3, u'0');
        return codes;
    }
};

TEST_F(ListViewTest, NothingIsSelectedAfterFillingAndAfterTheFocusHasCome) {
    Fill({u"001"_s, u"002"_s});
    EXPECT_EQ(list.SelectedRow(), -1);
    list.SetFocus();
    EXPECT_EQ(form.ActiveControl(), &list);
    EXPECT_EQ(list.SelectedRow(), -1);
    EXPECT_FALSE(list.currentIndex().isValid()) << "a frame around a row would look like a choice";
    list.SelectRow(1);
    EXPECT_EQ(list.SelectedRow(), 1);
    list.SelectRow(-1);
    EXPECT_EQ(list.SelectedRow(), -1);
}

TEST_F(ListViewTest, FirstArrowSelectsTheFirstRowAndEndTheLast) {
    Fill({u"001"_s, u"002"_s, u"003"_s});
    list.SetFocus();
    Press(list, Qt::Key_Down);
    EXPECT_EQ(list.SelectedRow(), 0);
    Press(list, Qt::Key_Down);
    EXPECT_EQ(list.SelectedRow(), 1);
    list.SelectRow(-1);
    Press(list, Qt::Key_End);
    EXPECT_EQ(list.SelectedRow(), 2);
}

TEST_F(ListViewTest, ClickNeedsARowAndComesWhenTheButtonGoesUpOnIt) {
    Fill({u"001"_s, u"002"_s});
    QTest::mousePress(list.viewport(), Qt::LeftButton, Qt::NoModifier, PlaceOf(1));
    EXPECT_TRUE(events.isEmpty());
    QTest::mouseRelease(list.viewport(), Qt::LeftButton, Qt::NoModifier, PlaceOf(1));
    EXPECT_EQ(events, QStringList{u"click 1"_s});
    events.clear();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, PlaceOf(1) + QPoint(0, 60));
    QTest::mouseClick(list.viewport(), Qt::RightButton, Qt::NoModifier, PlaceOf(0));
    QTest::mousePress(list.viewport(), Qt::LeftButton, Qt::NoModifier, PlaceOf(0));
    QTest::mouseRelease(list.viewport(), Qt::LeftButton, Qt::NoModifier, PlaceOf(1));
    EXPECT_TRUE(events.isEmpty()) << events.join(u',').toStdString();
}

TEST_F(ListViewTest, ColumnTitleIsAColumnClickAndNoClick) {
    Fill({u"001"_s, u"002"_s});
    QTest::mouseClick(list.header()->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(60, 5));
    EXPECT_EQ(events, QStringList{u"column 1"_s});
    EXPECT_EQ(form.ActiveControl(), &list);
}

TEST_F(ListViewTest, EnterIsAKeyPressOncePerPress) {
    Fill({u"001"_s});
    list.SetFocus();
    Press(list, Qt::Key_Return);
    Press(list, Qt::Key_Enter);
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
    QApplication::sendEvent(&list, &held);
    EXPECT_EQ(events, (QStringList{u"key 13"_s, u"key 13"_s}));
    EXPECT_EQ(form.ActiveControl(), &list);
}

TEST_F(ListViewTest, DisabledListOrFormAnswersNothing) {
    Fill({u"001"_s});
    form.SetEnabled(false);
    ClickRow(0);
    form.SetEnabled(true);
    list.SetEnabled(false);
    ClickRow(0);
    EXPECT_TRUE(events.isEmpty());
    EXPECT_EQ(list.SelectedRow(), -1);
}

TEST_F(ListViewTest, TypedDigitsGoToTheFirstCodeThatBeginsWithThem) {
    Fill({u"00001"_s, u"00010"_s, u"00123"_s, u"01000"_s, u"A0001"_s});
    list.SetFocus();
    Type(list, u"001"_s);
    EXPECT_EQ(list.SelectedRow(), 2);
    services.clock.now = services.clock.now.addMSecs(1500);
    Type(list, u"0"_s);
    EXPECT_EQ(list.SelectedRow(), 0) << "a pause begins a new word";
    services.clock.now = services.clock.now.addMSecs(1000);
    Type(list, u"0"_s);
    services.clock.now = services.clock.now.addMSecs(1000);
    Type(list, u"01"_s);
    EXPECT_EQ(list.SelectedRow(), 1) << "slow typing is one word still: 0001";
    Type(list, u"a"_s);
    EXPECT_EQ(list.SelectedRow(), 4) << "no such word, so a new one";
    Type(list, u"9"_s);
    EXPECT_EQ(list.SelectedRow(), 4) << "no such code";
    EXPECT_TRUE(events.isEmpty());
}

TEST_F(ListViewTest, SelectedRowIsVisibleAfterTypingAndAfterSorting) {
    Fill(Numbered(300));
    list.SetFocus();
    Type(list, u"250"_s);
    EXPECT_EQ(list.SelectedRow(), 250);
    EXPECT_TRUE(IsVisible(250));
    list.SetSortOrder(Qt::DescendingOrder);
    list.SetSorted(true);
    EXPECT_EQ(list.SelectedRow(), 49);
    EXPECT_EQ(list.Row(49).text, u"250"_s);
    EXPECT_TRUE(IsVisible(49));
}

TEST_F(ListViewTest, SortIsJapaneseAndStableInBothDirections) {
    Fill({u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s}, {u"わだ"_s, u"あべ"_s, u"ｶﾄｳ"_s, u"あべ"_s, u"サトウ"_s});
    list.SetSortKey(1);
    list.SetSorted(true);
    EXPECT_EQ(Codes(), (QStringList{u"2"_s, u"4"_s, u"3"_s, u"5"_s, u"1"_s}));
    list.SetSortOrder(Qt::DescendingOrder);
    list.SetSorted(true);
    EXPECT_EQ(Codes(), (QStringList{u"1"_s, u"5"_s, u"3"_s, u"2"_s, u"4"_s}));
}

TEST_F(ListViewTest, RefillingIsNotSortedButKeepsTheKey) {
    Fill({u"1"_s, u"2"_s});
    list.SetSortOrder(Qt::DescendingOrder);
    list.SetSorted(true);
    EXPECT_TRUE(list.header()->isSortIndicatorShown());
    Fill({u"1"_s, u"3"_s, u"2"_s});
    EXPECT_EQ(Codes(), (QStringList{u"1"_s, u"3"_s, u"2"_s}));
    EXPECT_FALSE(list.header()->isSortIndicatorShown());
    EXPECT_EQ(list.SortKey(), 0);
    EXPECT_EQ(list.SortOrder(), Qt::DescendingOrder);
}

TEST_F(ListViewTest, ClickAndSpaceToggleChecksThatMoveWithTheirRows) {
    list.SetCheckBoxes(true);
    Fill({u"1"_s, u"2"_s, u"3"_s});
    const QPoint box(list.visualRect(list.model()->index(1, 0)).left() + 8, PlaceOf(1).y());
    QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, box);
    EXPECT_TRUE(list.Checked(1));
    list.SelectRow(2);
    list.SetFocus();
    Press(list, Qt::Key_Space);
    EXPECT_TRUE(list.Checked(2));
    Press(list, Qt::Key_Space);
    EXPECT_FALSE(list.Checked(2));
    list.SetChecked(0, true);
    list.SetSortOrder(Qt::DescendingOrder);
    list.SetSorted(true);
    EXPECT_FALSE(list.Checked(0));
    EXPECT_TRUE(list.Checked(1));
    EXPECT_TRUE(list.Checked(2));
    Fill({u"1"_s, u"2"_s, u"3"_s});
    for (int row = 0; row < 3; ++row) EXPECT_FALSE(list.Checked(row));
}

TEST_F(ListViewTest, SeveralRowsCanBeHighlightedOnlyWhereThatIsAskedFor) {
    Fill({u"1"_s, u"2"_s, u"3"_s});
    ClickRow(0);
    ClickRow(2, Qt::ControlModifier);
    EXPECT_FALSE(list.Highlighted(0));
    EXPECT_TRUE(list.Highlighted(2));
    list.SetMultiSelect(true);
    ClickRow(0);
    ClickRow(2, Qt::ControlModifier);
    EXPECT_TRUE(list.Highlighted(0));
    EXPECT_FALSE(list.Highlighted(1));
    EXPECT_TRUE(list.Highlighted(2));
    ClickRow(2, Qt::ShiftModifier);
    Fill({u"1"_s});
    EXPECT_FALSE(list.Highlighted(0));
}

TEST_F(ListViewTest, ColumnsAreTwipsWideAndTheirBordersCanBeDragged) {
    const QHeaderView& header = *list.header();
    EXPECT_EQ(header.sectionSize(0), 50);
    EXPECT_EQ(header.sectionSize(1), 167);
    const QPoint border(header.sectionViewportPosition(1), 5);
    QTest::mousePress(header.viewport(), Qt::LeftButton, Qt::NoModifier, border);
    QTest::mouseMove(header.viewport(), border + QPoint(40, 0));
    QTest::mouseRelease(header.viewport(), Qt::LeftButton, Qt::NoModifier, border + QPoint(40, 0));
    EXPECT_NEAR(header.sectionSize(0), 90, 2);
    EXPECT_TRUE(events.isEmpty());
    EXPECT_FALSE(header.sectionsMovable());
}

TEST_F(ListViewTest, HeaderExtendsToTheRightOfTheLastColumn) {
    QPalette colours = form.palette();
    colours.setColor(QPalette::Window, Qt::red);
    form.setPalette(colours);
    const QImage strip = list.header()->viewport()->grab().toImage();
    const int inLastColumn = list.header()->length() - 20;
    for (int y = 0; y < strip.height(); ++y) {
        const QColor below = strip.pixelColor(strip.width() - 2, y), title = strip.pixelColor(inLastColumn, y);
        EXPECT_NEAR(below.green(), title.green(), 2) << y;
        EXPECT_NEAR(below.red(), title.red(), 2) << y;
    }
}

TEST_F(ListViewTest, HasAnAccessibleNameAndIgnoresMissingCells) {
    Fill({u"001"_s}, {u"総務部"_s});
    ASSERT_TRUE(IsVisible(0));
    QAccessibleInterface* access = QAccessible::queryAccessibleInterface(&list);
    ASSERT_NE(access, nullptr);
    EXPECT_EQ(access->text(QAccessible::Name), u"List部門"_s);
    ASSERT_NE(access->tableInterface(), nullptr);
    QAccessibleInterface* cell = access->tableInterface()->cellAt(0, 1);
    ASSERT_NE(cell, nullptr);
    EXPECT_EQ(cell->text(QAccessible::Name), u"総務部"_s);
    EXPECT_EQ(access->tableInterface()->cellAt(5, 5), nullptr);
}

/// A click that hides its window, and the events of another form below it.
class DoubleClickGuardTest : public ListViewTest {
  protected:
    ThreeItems below{u"後ろ"_s};
    QPointF place;

    void SetUp() override {
        ListViewTest::SetUp();
        Fill({u"001"_s});
        list.Click = [this] { form.HideForm(); };
        below.panel.Click = [this] { events << u"below"_s; };
        below.ShowModeless();
        place = list.viewport()->mapToGlobal(QPointF(PlaceOf(0)));
    }

    /// A panel ignores clicks outside it.
    void PutPanelUnderPlace() {
        below.panel.move(below.panel.mapFromGlobal(place.toPoint()) + below.panel.pos() - QPoint(5, 5));
    }
    static void Send(QWidget& widget, QEvent::Type type, QPointF place, quint64 time) {
        const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, widget.mapFromGlobal(place), place, Qt::LeftButton, held, Qt::NoModifier);
        event.setTimestamp(time);
        QApplication::sendEvent(&widget, &event);
    }
    void ClickAt(QWidget& widget, QPointF where, quint64 time, QEvent::Type press = QEvent::MouseButtonPress) {
        Send(widget, press, where, time);
        Send(widget, QEvent::MouseButtonRelease, where, time + 20);
    }
};

TEST_F(DoubleClickGuardTest, SecondPressNeverReachesAnotherWindow) {
    PutPanelUnderPlace();
    for (const QEvent::Type press : {QEvent::MouseButtonPress, QEvent::MouseButtonDblClick}) {
        form.ShowModeless();
        ClickAt(*list.viewport(), place, 1000);
        ASSERT_FALSE(form.isVisible());
        ClickAt(below.panel, place, 1150, press);
        EXPECT_TRUE(events.isEmpty());
        ClickAt(below.panel, place, 1200);
        EXPECT_EQ(std::exchange(events, {}), QStringList{u"below"_s}) << "the third press is the user's own";
    }
}

TEST_F(DoubleClickGuardTest, AlsoGuardsAButtonThatHidesItsWindow) {
    Button button(form, form, u"btn_戻る"_s, u"戻る"_s);
    button.setGeometry(10, 100, 80, 30);
    button.show();
    button.Click = [this] { form.HideForm(); };
    place = button.mapToGlobal(QPointF(20, 10));
    PutPanelUnderPlace();
    ClickAt(button, place, 1000);
    ASSERT_FALSE(form.isVisible());
    ClickAt(below.panel, place, 1150);
    EXPECT_TRUE(events.isEmpty());
    ClickAt(below.panel, place, 1200);
    EXPECT_EQ(events, QStringList{u"below"_s}) << "the third press is the user's own";
}

TEST_F(DoubleClickGuardTest, LaterPressAndOneElsewhereAreTheUsersOwn) {
    const QPointF inside = below.panel.mapToGlobal(QPointF(5, 5));
    const int interval = QGuiApplication::styleHints()->mouseDoubleClickInterval();
    ClickAt(*list.viewport(), place, 1000);
    ClickAt(below.panel, inside, 1100);
    EXPECT_EQ(std::exchange(events, {}), QStringList{u"below"_s}) << "elsewhere";
    form.ShowModeless();
    PutPanelUnderPlace();
    ClickAt(*list.viewport(), place, 5000);
    ClickAt(below.panel, place, 5000 + static_cast<quint64>(interval) + 50);
    EXPECT_EQ(events, QStringList{u"below"_s}) << "later";
}

TEST_F(ListViewTest, TooltipShowsTheWholeTextOfACutCellOnly) {
    const QString whole(40, u'長');
    Fill({u"001"_s}, {whole});
    const auto tip = [this](int column) {
        QToolTip::hideText();
        EXPECT_TRUE(QTest::qWaitFor([] { return QToolTip::text().isEmpty(); })) << "tooltips disappear after a while";
        const QPoint place = PlaceOf(0, column);
        QHelpEvent event(QEvent::ToolTip, place, list.viewport()->mapToGlobal(place));
        QApplication::sendEvent(list.viewport(), &event);
        return QToolTip::text();
    };
    EXPECT_TRUE(tip(1).contains(whole));
    EXPECT_EQ(tip(0), QString());
    QToolTip::hideText();
}
