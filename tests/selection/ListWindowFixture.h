#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "globals/ProgramGlobals.h"
#include "screen/Form.h"
#include "screen/InputItem.h"
#include "selection/ListWindows.h"
#include "support/SampleInstallation.h"
#include "support/TestServices.h"
#include "support/ModalScript.h"

/// A form with a caller's two items, over a sample installation of its own; list windows are opened from it as the main
/// form does, and worked by real keys and mouse.
class ListWindowTest : public ::testing::Test {
  protected:
    using Works = QList<ModalScript::Work>;

    ListWindowTest();
    ~ListWindowTest() override;

    /// Opens a list window as a caller does and returns when the works have ended it.
    void Open(const QString& window, const QString& condition, const Works& works);
    void Open(const QString& window, const Works& works) { Open(window, QString(), works); }
    /// Puts another caller in place, with a form of that name.
    void UseMainForm(const QString& name);

    InputItem& Result() const { return *result_; }
    Form& Caller() const { return *caller_; }
    /// Statements and failures that the run history tells of, oldest first.
    QStringList History() const { return installation.HistoryTexts(); }

    static void GoBack(const FormRobot& hands) { hands.Click(QStringLiteral("btn_戻る")); }

    TestServices services;
    SampleInstallation installation;

  private:
    std::unique_ptr<Form> caller_;
    InputItem* result_ = nullptr;
};
