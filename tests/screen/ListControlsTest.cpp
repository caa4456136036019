#include <QAbstractItemView>
#include <QApplication>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QtTest/QTest>

#include "screen/PlainControls.h"
#include "screen/ScreenTest.h"
#include "screen/TabItem.h"

using namespace Qt::StringLiterals;

class ComboItemTest : public ScreenTest {
  protected:
    ThreeItems form;
    ComboItem combo{form, form, u"在籍区分名称"_s};
    QList<int> clicks;

    void SetUp() override {
        combo.setGeometry(200, 10, 120, 24);
        for (const QString& entry : {u"在籍"_s, u"退職"_s, u"全て"_s}) combo.AddItem(entry);
        combo.Click = [this] { clicks << combo.ListIndex(); };
        ShowActive(form);
        combo.SetFocus();
    }
};

TEST_F(ComboItemTest, FillingShowsNoEntryAndEmitsNothing) {
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_EQ(combo.Text(), QString());
    EXPECT_TRUE(clicks.isEmpty());
}

TEST_F(ComboItemTest, WrittenIndexEmitsClickIfItChanged) {
    combo.SetListIndex(1);
    combo.SetListIndex(1);
    EXPECT_EQ(clicks, QList<int>{1});
    EXPECT_EQ(combo.Text(), u"退職"_s);
}

TEST_F(ComboItemTest, IndexBeyondTheListShowsNoEntryAndEmitsNothing) {
    combo.SetListIndex(1);
    clicks.clear();
    combo.SetListIndex(5);
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_EQ(combo.Text(), QString());
    EXPECT_TRUE(clicks.isEmpty());
    combo.SetListIndex(2);
    EXPECT_EQ(clicks, QList<int>{2});
}

TEST_F(ComboItemTest, ChoosingByKeysEmitsClick) {
    combo.SetListIndex(0);
    clicks.clear();
    PressInWindow(form, Qt::Key_Down);
    EXPECT_EQ(clicks, QList<int>{1});
}

TEST_F(ComboItemTest, ChoosingInTheOpenedListEmitsClickOnceAndNoFocusEvents) {
    form.Record(combo);
    combo.showPopup();
    const QModelIndex entry = combo.model()->index(2, 0);
    QTest::mouseMove(combo.view()->viewport(), combo.view()->visualRect(entry).center());
    QTest::keyClick(combo.view(), Qt::Key_End);
    QTest::keyClick(combo.view(), Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(clicks, QList<int>{2});
    EXPECT_EQ(form.Taken(), u"+一 -一"_s);  // from showing the form, before the list was opened
    EXPECT_EQ(form.ActiveControl(), &combo);
}

TEST_F(ComboItemTest, EmptiedListShowsNothing) {
    combo.SetListIndex(0);
    clicks.clear();
    combo.ClearList();
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_TRUE(clicks.isEmpty());
}

TEST_F(ComboItemTest, WheelDoesNothing) {
    combo.SetListIndex(1);
    Wheel(combo, QPoint(0, -120));
    EXPECT_EQ(combo.ListIndex(), 1);
}

class ScrollItemTest : public ScreenTest {
  protected:
    ThreeItems form;
    ScrollItem bar{form, form, u"scl_行"_s};
    QList<int> changes;

    void SetUp() override {
        bar.setGeometry(350, 10, 18, 200);
        bar.SetPosition(0, 100);
        bar.SetLargeChange(8);
        bar.Change = [this] { changes << bar.Value(); };
        ShowActive(form);
    }
    QPoint Centre(QStyle::SubControl part) const {
        QStyleOptionSlider option;
        option.initFrom(&bar);
        option.orientation = Qt::Vertical;
        option.minimum = bar.minimum();
        option.maximum = bar.maximum();
        option.pageStep = bar.pageStep();
        option.sliderPosition = bar.value();
        option.sliderValue = bar.value();
        option.subControls = QStyle::SC_All;
        return bar.style()->subControlRect(QStyle::CC_ScrollBar, &option, part, &bar).center();
    }
};

TEST_F(ScrollItemTest, WrittenValueEmitsChangeIfItChanged) {
    bar.SetValue(30);
    bar.SetValue(30);
    EXPECT_EQ(changes, QList<int>{30});
    EXPECT_EQ(bar.LargeChange(), 8);
}

TEST_F(ScrollItemTest, WrittenValueIsClampedToTheBounds) {
    bar.SetValue(200);
    bar.SetValue(-5);
    EXPECT_EQ(changes, (QList<int>{100, 0}));
}

TEST_F(ScrollItemTest, TakePlaceEmitsNothing) {
    bar.SetValue(50);
    changes.clear();
    bar.SetPosition(0, 20);
    EXPECT_EQ(bar.Value(), 0);
    EXPECT_EQ(bar.MaxValue(), 20);
    bar.SetPosition(90, 200);
    EXPECT_EQ(bar.Value(), 90);
    EXPECT_TRUE(changes.isEmpty());
}

TEST_F(ScrollItemTest, ClickOnTheBarTakesTheFocusFirstSoThatTypedTextIsAccepted) {
    form.first.SetFocus();
    form.Taken();
    bar.Change = [this] { form.events << u"change"_s; };
    QTest::mouseClick(&bar, Qt::LeftButton, {}, Centre(QStyle::SC_ScrollBarAddPage));
    EXPECT_EQ(form.Taken(), u"-一 change"_s);
    EXPECT_EQ(bar.Value(), 8);
}

TEST_F(ScrollItemTest, IsNoTabStop) {
    form.third.SetFocus();
    form.Taken();
    PressInWindow(form, Qt::Key_Tab);
    EXPECT_EQ(form.Taken(), u"-三 +一"_s);
}

TEST_F(ScrollItemTest, WheelPassesItBy) {
    Wheel(bar, QPoint(0, -120));
    Wheel(bar, QPoint(120, 0));
    EXPECT_TRUE(changes.isEmpty());
}

class TabItemTest : public ScreenTest {
  protected:
    ThreeItems form;
    TabItem tab{form, form, u"tab_詳細"_s};
    QWidget& pageOne = tab.AddPage(u"所属情報"_s);
    QWidget& pageTwo = tab.AddPage(u"基本情報"_s);
    QList<int> clicks;  // the page at each Click

    void SetUp() override {
        tab.setGeometry(10, 150, 300, 120);
        tab.Click = [this] { clicks << tab.Value(); };
        ShowActive(form);
    }
    void ClickStrip(int page) {
        auto& strip = static_cast<QTabBar&>(tab.FocusWidget());
        QTest::mouseClick(&strip, Qt::LeftButton, {}, strip.tabRect(page).center());
    }
};

TEST_F(TabItemTest, OnlyTheCurrentPageIsVisible) {
    EXPECT_EQ(tab.Value(), 0);
    EXPECT_TRUE(pageOne.isVisible());
    EXPECT_FALSE(pageTwo.isVisible());
    EXPECT_TRUE(clicks.isEmpty());
}

TEST_F(TabItemTest, ClickOnACaptionChangesThePage) {
    ClickStrip(1);
    ClickStrip(1);
    EXPECT_EQ(clicks, QList<int>{1});
    EXPECT_TRUE(pageTwo.isVisible());
    EXPECT_FALSE(pageOne.isVisible());
    EXPECT_EQ(form.ActiveControl(), &tab);
}

TEST_F(TabItemTest, WrittenPageEmitsClickIfItChanged) {
    tab.SetValue(1);
    tab.SetValue(1);
    tab.SetValue(7);
    EXPECT_EQ(clicks, QList<int>{1});
    EXPECT_TRUE(pageTwo.isVisible());
}

TEST_F(TabItemTest, FocusDropsFromAHiddenPage) {
    InputItem item(form, pageOne, u"xField"_s, u"四"_s, -1, {});
    item.show();
    item.SetFocus();
    ASSERT_EQ(form.ActiveControl(), &item);
    tab.SetValue(1);
    EXPECT_EQ(form.ActiveControl(), nullptr);
    EXPECT_EQ(form.focusWidget(), nullptr);
    EXPECT_TRUE(item.Visible());
}

TEST_F(TabItemTest, WheelDoesNotChangeThePage) {
    Wheel(tab.FocusWidget(), QPoint(0, -120));
    EXPECT_EQ(tab.Value(), 0);
}
