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

/// The main form as started by Main() over a sample installation, controlled by real key and mouse events.
class MainFormTest : public ::testing::Test {
  protected:
    void TearDown() override;

    /// Starts the program with a command line on a screen of `screenHeight` pixels.
    void Start(const QString& commandLine = {}, int screenHeight = 1024);

    Form& MainForm() const;
    FormRobot Hands() const;
    Control& Item(const QString& name, int index = -1) const;

    /// Clicks the item, replaces its text by keys and leaves it with Tab.
    void Enter(const QString& item, const QString& text);
    void Type(const QString& item, const QString& text);
    void Click(const QString& item, int index = -1);
    void Press(Qt::Key key);
    /// Name of the active control; empty if there is none.
    QString Focused() const;

    /// Texts of one item in all row positions, empty ones included.
    QStringList Column(const QString& item) const;
    /// 摘要 of the history rows, oldest first.
    QStringList History() const;

    TestServices services;
    SampleInstallation installation;
};
