#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "globals/ProgramGlobals.h"
#include "screen/Form.h"
#include "screen/InputItem.h"
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

    static void GoBack(const FormRobot& robot) { robot.Click(QStringLiteral("btn_戻る")); }

    TestServices services;
    SampleInstallation installation;

  private:
    std::unique_ptr<Form> caller_;
    InputItem* result_ = nullptr;
};
