#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QtTest/QTest>

#include "screen/InputItem.h"
#include "screen/ScreenTest.h"

using namespace Qt::StringLiterals;

class EditMenu : public ScreenTest {
  protected:
    ThreeItems form;

    void SetUp() override {
        ShowActive(form);
        form.first.SetFocus();
    }
    static QMenu* Open(QWidget& item) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5), item.mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(&item, &event);
        return qobject_cast<QMenu*>(QApplication::activePopupWidget());
    }
    static QStringList Entries(const QMenu& menu) {
        QStringList entries;
        for (const QAction* action : menu.actions())
            if (!action->isSeparator()) entries << action->text();
        return entries;
    }
    /// Triggers an entry by its mnemonic.
    static void Choose(QWidget& item, Qt::Key mnemonic) {
        QMenu* menu = Open(item);
        ASSERT_NE(menu, nullptr);
        QTest::keyClick(menu, mnemonic);
    }
};

TEST_F(EditMenu, HasExactlySixEntriesInTheUsersLanguage) {
    QMenu* menu = Open(form.first);
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(Entries(*menu), (QStringList{u"元に戻す(&U)"_s, u"切り取り(&T)"_s, u"ｺﾋﾟｰ(&C)"_s, u"貼り付け(&P)"_s,
                                           u"削除(&D)"_s, u"すべて選択(&A)"_s}));
    menu->close();
}

TEST_F(EditMenu, NumberItemAddsTheCopyOfItsForm) {
    NumItem number(form, form, u"数"_s);
    number.setGeometry(200, 10, 40, 24);
    number.show();
    number.SetFocus();
    number.SetValue(7);
    QMenu* menu = Open(number);
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(Entries(*menu).last(), u"書式コピー(&F)"_s);
    EXPECT_EQ(Entries(*menu).size(), 7);
    QTest::keyClick(menu, Qt::Key_F);
    EXPECT_EQ(QApplication::clipboard()->text(), u"7"_s);
}

TEST_F(EditMenu, EveryEntryWorks) {
    InputItem& item = form.first;
    Type(item, u"abc"_s);
    Choose(item, Qt::Key_A);
    EXPECT_EQ(item.selectedText(), u"abc"_s);
    Choose(item, Qt::Key_C);
    EXPECT_EQ(QApplication::clipboard()->text(), u"abc"_s);
    Choose(item, Qt::Key_D);
    EXPECT_EQ(item.Text(), QString());
    Choose(item, Qt::Key_P);
    EXPECT_EQ(item.Text(), u"abc"_s);
    item.selectAll();
    QApplication::clipboard()->clear();
    Choose(item, Qt::Key_T);
    EXPECT_EQ(item.Text(), QString());
    EXPECT_EQ(QApplication::clipboard()->text(), u"abc"_s);
    Choose(item, Qt::Key_U);
    EXPECT_EQ(item.Text(), u"abc"_s);
}

TEST_F(EditMenu, EntriesThatCanDoNothingAreGrey) {
    QApplication::clipboard()->clear();
    QMenu* menu = Open(form.first);
    ASSERT_NE(menu, nullptr);
    for (const QAction* action : menu->actions()) {
        if (action->isSeparator()) continue;
        EXPECT_FALSE(action->isEnabled()) << action->text().toStdString();
    }
    menu->close();
}

TEST_F(EditMenu, PastingByTheMenuObeysTheLimit) {
    ItemDesign design;
    design.maxLength = 2;
    InputItem item(form, form, u"xField"_s, u"短"_s, -1, design);
    item.setGeometry(200, 10, 40, 24);
    item.show();
    item.SetFocus();
    QApplication::clipboard()->setText(u"12345"_s);
    Choose(item, Qt::Key_P);
    EXPECT_EQ(item.Text(), u"12"_s);
}
