#include "screen/SuiteApplication.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

/// Asks and answers with the last button, after pending deletions have been processed.
bool AskAndAnswer() {
    QTimer::singleShot(0, [] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        box->buttons().last()->click();
    });
    return WidgetDialogs().Confirm(u"印刷しますか?"_s, u"要員名簿照会"_s);
}

}  // namespace

TEST(Dialogs, BoxOutlivesTheWindowThatHasJustClosed) {
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

TEST(Dialogs, CarriageReturnBreaksTheLine) {
    QString shown;
    QTimer::singleShot(0, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        shown = box->text();
        box->buttons().first()->click();
    });
    WidgetDialogs().ShowMessage(u"SYB_OPEN ERROR14 x\rsysopen error"_s, QString());
    EXPECT_EQ(shown, u"SYB_OPEN ERROR14 x\nsysopen error"_s);
}

TEST(Dialogs, BoxWithoutTitleHasEmptyCaption) {
    QString title;
    QTimer::singleShot(0, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        title = box->windowTitle();
        box->buttons().first()->click();
    });
    WidgetDialogs().ShowMessage(u"x"_s, QString());
    EXPECT_EQ(title, u" "_s);  // Qt would replace an empty title by the program's name
}
