#include <QAccessible>
#include <QApplication>
#include <QtTest/QTest>

#include "screen/Labels.h"
#include "screen/PlainControls.h"
#include "screen/ScreenTest.h"

using namespace Qt::StringLiterals;

class PlainControls : public ScreenTest {
  protected:
    ThreeItems form;
    int panelClicks = 0;

    void SetUp() override {
        form.panel.Click = [this] { ++panelClicks; };
        ShowActive(form);
        form.first.SetFocus();
        form.Taken();
    }
    /// Places a control on the panel where it can be clicked.
    template <typename Made>
    Made& Placed(Made* made) {
        made->setGeometry(120, 10, 80, 24);
        made->show();
        return *made;
    }
};

TEST_F(PlainControls, ButtonIsPressedByMouseSpaceAndEnter) {
    auto& button = Placed(new Button(form, form.panel, u"釦"_s, u"一行\n二行"_s));
    int clicks = 0;
    button.Click = [&] { ++clicks; };
    Click(button);
    EXPECT_EQ(form.ActiveControl(), &button);
    PressInWindow(form, Qt::Key_Space);
    PressInWindow(form, Qt::Key_Return);
    PressInWindow(form, Qt::Key_Enter);
    EXPECT_EQ(clicks, 4);
    EXPECT_EQ(button.Caption(), u"一行\n二行"_s);
    EXPECT_EQ(panelClicks, 0);
}

TEST_F(PlainControls, ButtonIsNeverADefaultButton) {
    auto& button = Placed(new Button(form, form.panel, u"釦"_s, u"釦"_s));
    int clicks = 0;
    button.Click = [&] { ++clicks; };
    EXPECT_FALSE(button.autoDefault());
    EXPECT_FALSE(button.isDefault());
    PressInWindow(form, Qt::Key_Return);
    EXPECT_EQ(clicks, 0);
}

TEST_F(PlainControls, DisabledButtonEmitsNothing) {
    auto& button = Placed(new Button(form, form.panel, u"釦"_s, u"釦"_s));
    int clicks = 0;
    button.Click = [&] { ++clicks; };
    button.SetEnabled(false);
    Click(button);
    EXPECT_EQ(clicks + panelClicks, 0);
}

TEST_F(PlainControls, ButtonPressedByAScreenReaderTakesTheFocusFirst) {
    auto& button = Placed(new Button(form, form.panel, u"釦"_s, u"釦"_s));
    button.Click = [this] { form.events << u"click"_s; };
    auto* actions = QAccessible::queryAccessibleInterface(&button)->actionInterface();
    actions->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(QTest::qWaitFor([this] { return form.events.contains(u"click"_s); }));
    EXPECT_EQ(form.Taken(), u"-一 click"_s);
    form.SetEnabled(false);
    button.click();
    EXPECT_EQ(form.Taken(), QString());
}

TEST_F(PlainControls, ButtonKeepsItsColourWhileDisabledStateComesAndGoes) {
    auto& button = Placed(new Button(form, form.panel, u"釦"_s, u"釦"_s));
    button.SetForeColor(QColor(0, 192, 0));
    button.SetEnabled(false);
    EXPECT_EQ(button.ForeColor(), QColor(0, 192, 0));
}

TEST_F(PlainControls, CheckItemIsZeroOrOneAndEmitsClickOnChange) {
    auto& box = Placed(new CheckItem(form, form.panel, u"chb_出力対象"_s, 3, QString()));
    QList<int> clicks;
    box.Click = [&] { clicks << box.Value(); };
    QTest::mouseClick(&box, Qt::LeftButton, {}, box.rect().topLeft() + QPoint(1, 1));
    EXPECT_EQ(clicks, QList<int>{1});
    box.SetValue(1);
    box.SetValue(0);
    EXPECT_EQ(clicks, (QList<int>{1, 0}));
    QTest::mouseClick(&box, Qt::LeftButton, {}, box.rect().bottomRight() - QPoint(1, 1));
    EXPECT_EQ(box.Value(), 1);
    EXPECT_EQ(panelClicks, 0);
}

TEST_F(PlainControls, CheckItemOfAListRowLeavesTheFocusWhereItIs) {
    auto& box = Placed(new CheckItem(form, form.panel, u"chb_出力対象"_s, 3, QString()));
    box.setFocusPolicy(Qt::NoFocus);
    Click(box);
    box.SetFocus();
    EXPECT_EQ(box.Value(), 1);
    EXPECT_EQ(form.Taken(), QString());
    EXPECT_EQ(form.ActiveControl(), &form.first);
}

TEST_F(PlainControls, RowItemTakesNoFocusNoTypingAndNoTabStopAndKeepsItsClick) {
    auto& item = Placed(new DisplayItem(form, form.panel, u"xKana"_s, u"カナ"_s, 2));
    int clicks = 0;
    item.Click = [&] { ++clicks; };
    Click(item);
    item.SetFocus();
    Type(item, u"x"_s);
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(panelClicks, 0);
    EXPECT_EQ(item.Text(), QString());
    EXPECT_FALSE(item.TabStop());
    EXPECT_EQ(form.ActiveControl(), &form.first);
    EXPECT_EQ(form.Taken(), QString());
    EXPECT_EQ(item.TypeName(), u"xKana"_s);
    EXPECT_EQ(item.Index(), 2);
}

TEST_F(PlainControls, RowItemWithoutAHandlerKeepsItsClickToo) {
    auto& pin = Placed(new DisplayItem(form, form.panel, u"xField"_s, u"暗証番号"_s, 0));
    Click(pin);
    auto* label = new Label(form, form.panel, u"itm_ttl_性別"_s, 0, u"性別"_s);
    Click(Placed(label));
    EXPECT_EQ(panelClicks, 0);
}

TEST_F(PlainControls, ClickNeedsTheLeftButtonToGoUpInside) {
    int clicks = 0;
    auto& item = Placed(new DisplayItem(form, form.panel, u"xField"_s, u"行No"_s, 0));
    item.Click = [&] { ++clicks; };
    Click(item, Qt::RightButton);
    QTest::mousePress(&item, Qt::LeftButton);
    QTest::mouseRelease(&item, Qt::LeftButton, {}, QPoint(500, 5));
    EXPECT_EQ(clicks, 0);
}

TEST_F(PlainControls, DoubleClickIsOneClickAndOneDoubleClick) {
    QStringList events;
    auto& item = Placed(new DisplayItem(form, form.panel, u"xField"_s, u"行No"_s, 0));
    item.Click = [&] { events << u"click"_s; };
    item.DblClick = [&] { events << u"double"_s; };
    const QPointF place = item.rect().center();
    const QPointF global = item.mapToGlobal(place);
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick,
                            QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, place, global, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&item, &event);
    }
    EXPECT_EQ(events, (QStringList{u"click"_s, u"double"_s}));
}

TEST_F(PlainControls, WrittenTextEmitsChangeOnlyWhereItChanges) {
    int changes = 0;
    auto& item = Placed(new DisplayItem(form, form.panel, u"xField"_s, u"行No"_s, 0));
    item.Change = [&] { ++changes; };
    item.SetText(u"1"_s);
    item.SetText(u"1"_s);
    EXPECT_EQ(changes, 1);
    item.SetBackColor(QColor(255, 128, 128));
    EXPECT_EQ(item.BackColor(), QColor(255, 128, 128));
}

TEST_F(PlainControls, TextTooLongForItsItemIsPaintedUpToTheEdge) {
    auto& item = Placed(new DisplayItem(form, form.panel, u"xField"_s, u"住所A"_s, 0));
    item.SetForeColor(Qt::black);
    const auto inkAtRight = [&] {
        const QImage image = item.grab().toImage();
        for (int y = 4; y < image.height() - 4; ++y)
            if (image.pixelColor(image.width() - 3, y).lightness() < 128) return true;
        return false;
    };
    item.SetText(QString(200, u'■'));
    EXPECT_FALSE(inkAtRight());
    EXPECT_NE(item.grab().toImage().pixelColor(20, 12), item.BackColor());
}
