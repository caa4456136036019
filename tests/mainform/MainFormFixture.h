#pragma once

#include <gtest/gtest.h>

#include <QString>
#include <QStringList>

#include <memory>

#include "support/FormRobot.h"
#include "support/SampleInstallation.h"
#include "support/TestServices.h"

class Control;
class Form;

/// The main form as Main() leaves it, over a sample installation of its own, worked by real keys and mouse.
class MainFormTest : public ::testing::Test {
  protected:
    void TearDown() override;

    /// Starts the program with a command line, on a screen of some height.
    void Start(const QString& commandLine = {}, int screenHeight = 1024);

    Form& MainForm() const;
    FormRobot Hands() const;
    Control& Item(const QString& name, int index = -1) const;

    /// Moves the focus to the item with the mouse, replaces its text by keys and leaves it with Tab.
    void Enter(const QString& item, const QString& text);
    void Type(const QString& item, const QString& text);
    void Click(const QString& item, int index = -1);
    void Press(Qt::Key key);
    /// Name of the item that has the focus, empty for none.
    QString Focused() const;

    /// Texts of one item over the row positions, blank ones included.
    QStringList Column(const QString& item) const;
    /// 摘要 of the history rows, in the order of their writing.
    QStringList History() const;

    TestServices services;
    SampleInstallation installation;
};
