#include "platform/Dialogs.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>

using namespace Qt::StringLiterals;

TEST(Dialogs, ACarriageReturnOfAMessageEndsALineAndABoxWithoutATitleBearsNoName) {
    QString shown, title;
    QTimer::singleShot(0, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        shown = box->text();
        title = box->windowTitle();
        box->buttons().first()->click();
    });
    platform::WidgetDialogs().ShowMessage(u"SYB_OPEN ERROR14 x\rsysopen error"_s, QString());
    EXPECT_EQ(shown, u"SYB_OPEN ERROR14 x\nsysopen error"_s);
    EXPECT_EQ(title, u" "_s);  // an empty one would be replaced by the program's name
}
