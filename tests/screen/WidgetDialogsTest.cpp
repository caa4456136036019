#include "screen/WidgetDialogs.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

/// Asks and answers with the last button, once whatever waited to be deleted is gone.
bool AskAndAnswer() {
    QTimer::singleShot(0, [] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        box->buttons().last()->click();
    });
    return WidgetDialogs().Confirm(u"印刷しますか?"_s, u"要員名簿照会"_s);
}

}  // namespace

TEST(Dialogs, ABoxOutlivesTheWindowThatHasJustEndedAndIsStillTheActiveOne) {
    const QPointer<QWidget> ended = new QWidget;
    ended->show();
    QApplication::setActiveWindow(ended);
    ASSERT_TRUE(QTest::qWaitForWindowActive(ended));
    ended->hide();
    QApplication::setActiveWindow(ended);
    ended->deleteLater();
    EXPECT_FALSE(AskAndAnswer());
    EXPECT_TRUE(ended.isNull());
}

TEST(Dialogs, ACarriageReturnOfAMessageEndsALineAndABoxWithoutATitleBearsNoName) {
    QString shown, title;
    QTimer::singleShot(0, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        shown = box->text();
        title = box->windowTitle();
        box->buttons().first()->click();
    });
    WidgetDialogs().ShowMessage(u"SYB_OPEN ERROR14 x\rsysopen error"_s, QString());
    EXPECT_EQ(shown, u"SYB_OPEN ERROR14 x\nsysopen error"_s);
    EXPECT_EQ(title, u" "_s);  // an empty one would be replaced by the program's name
}
