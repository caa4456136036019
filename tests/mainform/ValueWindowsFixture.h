#pragma once

#include "mainform/SelectionFixture.h"
#include "selection/ValueWindowLayout.h"
#include "support/ModalRobot.h"

/// The main form with its value windows.
class ValueWindowsTest : public SelectionTest {
  protected:
    static const ValueWindowDefinition& Names() { return ValueWindowDefinitions()[0]; }
    static const ValueWindowDefinition& Kana() { return ValueWindowDefinitions()[1]; }
    static const ValueWindowDefinition& Addresses() { return ValueWindowDefinitions()[2]; }
    static const ValueWindowDefinition& Phones() { return ValueWindowDefinitions()[3]; }

    /// Presses the window's button on the main form; the callback must close the window.
    void Open(const ValueWindowDefinition& definition, const ModalRobot::Callback& callback) {
        ModalRobot user(definition.window, callback);
        Click(definition.button);
        EXPECT_EQ(user.Opened(), 1) << definition.window.toStdString();
    }
    /// Types the values from the first row on, checks 絞込み if `narrowing`, and closes the window.
    void Give(const ValueWindowDefinition& definition, const QStringList& values, bool narrowing = false) {
        Open(definition, [&](ModalRobot& user) {
            for (int row = 0; row < values.size(); ++row) {
                user.Click(definition.item, row);
                user.Type(values[row]);
            }
            if (narrowing) user.Click(QStringLiteral("chb_絞込み"));
            user.Click(QStringLiteral("btn_戻る"));
        });
    }
    static void GoBack(ModalRobot& user) { user.Press(Qt::Key_Escape); }
    static bool Given(const ValueWindowDefinition& definition);
};
