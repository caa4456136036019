#include "screen/SuiteApplication.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QTest>
#include <QTimer>

#include "support/FocusMarks.h"

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

/// Sends keys to the question's window and returns the answer. If the keys do not answer it, `otherwise` does.
bool AnswerByKey(Qt::Key key, bool otherwise, platform::Dialogs::Answer byEnter = platform::Dialogs::Answer::Yes) {
    QTimer::singleShot(0, [key, otherwise] {
        const QPointer<QMessageBox> box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_FALSE(box.isNull());
        ASSERT_TRUE(QTest::qWaitForWindowActive(box));
        QTest::keyClick(box->windowHandle(), key);
        if (QTest::qWaitFor([&box] { return box.isNull() || !box->isVisible(); }, 2000)) return;
        box->buttons().at(otherwise ? 0 : 1)->click();
    });
    WidgetDialogs dialogs;
    dialogs.defaultAnswer = byEnter;
    return dialogs.Confirm(u"印刷しますか?"_s, u"要員名簿照会"_s);
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

TEST(Dialogs, KeysYAndNAnswerAQuestion) {
    EXPECT_TRUE(AnswerByKey(Qt::Key_Y, false));
    EXPECT_FALSE(AnswerByKey(Qt::Key_N, true));
}

TEST(Dialogs, EscapeAnswersNo) { EXPECT_FALSE(AnswerByKey(Qt::Key_Escape, true)); }

TEST(Dialogs, EnterGivesTheDefaultAnswerOfTheProgram) {
    EXPECT_TRUE(AnswerByKey(Qt::Key_Return, false));
    EXPECT_FALSE(AnswerByKey(Qt::Key_Return, true, platform::Dialogs::Answer::No));
}

TEST(Dialogs, ButtonsOfAQuestionShowWhichOneHasTheFocus) {
    const SuiteLook look;
    QTimer::singleShot(0, [] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        EXPECT_TRUE(QTest::qWaitForWindowActive(box));
        for (QAbstractButton* button : box->buttons()) {
            QAbstractButton* other = box->buttons().at(button == box->buttons().first() ? 1 : 0);
            const QRect area(button->mapTo(box, QPoint()), button->size());
            EXPECT_TRUE(ShowsFocus(
                *box, area, [button] { button->setFocus(); }, [other] { other->setFocus(); }))
                << button->text().toStdString();
        }
        box->buttons().last()->click();
    });
    EXPECT_FALSE(WidgetDialogs().Confirm(u"印刷しますか?"_s, u"要員名簿照会"_s));
}

TEST(Dialogs, KeyYAnswersYesWhereNoIsTheDefault) {
    EXPECT_TRUE(AnswerByKey(Qt::Key_Y, false, platform::Dialogs::Answer::No));
}
