#include "screen/InputItem.h"

#include <QApplication>
#include <QClipboard>
#include <QtTest/QTest>

#include "screen/ScreenTest.h"

using namespace Qt::StringLiterals;

class NumItemTest : public ScreenTest {
  protected:
    Form form{u"数"_s};
    NumItem item{form, form, u"在籍区分"_s};
    QList<int> changes;

    void SetUp() override {
        item.setGeometry(10, 10, 40, 24);
        item.SetMinValue(0);
        item.SetMaxValue(5);
        item.Change = [this] { changes << item.Value(); };
        ShowActive(form);
        item.SetFocus();
    }
};

TEST_F(NumItemTest, TypedDigitReplacesTheNumber) {
    Type(item, u"3"_s);
    Type(item, u"1"_s);
    EXPECT_EQ(changes, (QList<int>{3, 1}));
    EXPECT_EQ(item.Text(), u"1"_s);
}

TEST_F(NumItemTest, WhatWouldLeaveTheBoundsIsRefused) {
    item.SetMinValue(1);
    item.SetValue(2);
    changes.clear();
    Type(item, u"6"_s);
    Type(item, u"0"_s);
    Type(item, u"-"_s);
    Type(item, u"あ"_s);
    Press(item, Qt::Key_Down);
    Press(item, Qt::Key_Down);
    EXPECT_EQ(item.Value(), 1);
    EXPECT_EQ(changes, QList<int>{1});
    EXPECT_EQ(item.Text(), u"1"_s);
}

TEST_F(NumItemTest, SecondDigitIsAppendedWithinTheBounds) {
    item.SetMaxValue(12);
    Type(item, u"1"_s);
    Type(item, u"2"_s);
    EXPECT_EQ(item.Value(), 12);
    Type(item, u"3"_s);
    EXPECT_EQ(item.Value(), 3);
    item.SetValue(1);
    Type(item, u"2"_s);  // the 1 was not typed
    EXPECT_EQ(item.Value(), 2);
}

TEST_F(NumItemTest, ProgramWritesAreTakenAlsoBeyondTheBounds) {
    item.SetValue(9);
    EXPECT_EQ(item.Value(), 9);
    EXPECT_EQ(item.Text(), u"9"_s);
    EXPECT_EQ(changes, QList<int>{9});
    item.SetValue(9);
    EXPECT_EQ(changes.size(), 1);
    Press(item, Qt::Key_Down);  // 8 is out of bounds, too
    EXPECT_EQ(item.Value(), 9);
}

TEST_F(NumItemTest, ArrowsCountAndDeletingGoesBackToTheLeastValue) {
    Press(item, Qt::Key_Up);
    Press(item, Qt::Key_Up);
    EXPECT_EQ(item.Value(), 2);
    Press(item, Qt::Key_Delete);
    EXPECT_EQ(item.Value(), 0);
    EXPECT_EQ(item.Text(), u"0"_s);
    EXPECT_EQ(changes, (QList<int>{1, 2, 0}));
}

TEST_F(NumItemTest, PastedNumberHasToLieWithinTheBounds) {
    QApplication::clipboard()->setText(u"4"_s);
    Press(item, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(item.Value(), 4);
    QApplication::clipboard()->setText(u"44"_s);
    Press(item, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(item.Value(), 4);
}

TEST_F(NumItemTest, WheelDoesNothing) {
    item.SetValue(2);
    Wheel(item, QPoint(0, 120));
    EXPECT_EQ(item.Value(), 2);
}
