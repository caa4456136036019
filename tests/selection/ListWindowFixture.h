#pragma once

#include <gtest/gtest.h>

#include <memory>

#include <QtTest/QTest>

#include "globals/ProgramGlobals.h"
#include "screen/Form.h"
#include "screen/InputItem.h"
#include "screen/ListView.h"
#include "selection/OpenListWindow.h"
#include "support/ModalScript.h"
#include "support/SampleInstallation.h"
#include "support/TestServices.h"

/// A fake main form with two items over a sample installation. List windows are opened as the main form does, and
/// controlled by real key and mouse events.
class ListWindowTest : public ::testing::Test {
  protected:
    using Works = QList<ModalScript::Callback>;

    ListWindowTest();
    ~ListWindowTest() override;

    /// Opens a list window as a caller does and returns when the callbacks have closed it.
    void Open(const QString& window, const QString& condition, const Works& works);
    void Open(const QString& window, const Works& works) { Open(window, QString(), works); }
    /// Replaces the calling form by one of that name.
    void UseMainForm(const QString& name);

    InputItem& Result() const { return *result_; }
    Form& Caller() const { return *caller_; }
    /// Statements and errors in the run history, oldest first.
    QStringList History() const { return installation.HistoryTexts(); }

    /// What the window system reports as soon as events are processed: keys that choose the first row.
    static void QueueChoice(const FormRobot& robot) {
        QMetaObject::invokeMethod(
            &robot.Window(),
            [window = robot.Window().windowHandle()] {
                QTest::keyClick(window, Qt::Key_Down);
                QTest::keyClick(window, Qt::Key_Return);
            },
            Qt::QueuedConnection);
    }
    /// Clicks a button that loads the list, with keys that arrive meanwhile; they must not choose a row.
    static void ExpectDroppedKeys(const FormRobot& robot, const QString& button) {
        QueueChoice(robot);
        robot.Click(button);
        QCoreApplication::processEvents();
        EXPECT_TRUE(robot.Window().isVisible()) << button.toStdString();
        EXPECT_EQ(robot.List().SelectedRow(), -1) << button.toStdString();
    }

    static void GoBack(const FormRobot& robot) { robot.Click(QStringLiteral("btn_戻る")); }

    TestServices services;
    SampleInstallation installation;

  private:
    std::unique_ptr<Form> caller_;
    InputItem* result_ = nullptr;
};
