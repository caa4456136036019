#pragma once

#include "mainform/SelectionFixture.h"
#include "selection/wnd担当者複数指定.h"
#include "support/ModalRobot.h"

/// The main form with its value windows.
class ValueWindowsTest : public SelectionTest {
  protected:
    static const TextCondition& Names() { return TextConditions()[0]; }
    static const TextCondition& Kana() { return TextConditions()[1]; }
    static const TextCondition& Addresses() { return TextConditions()[2]; }
    static const TextCondition& Phones() { return TextConditions()[3]; }

    /// Presses the window's button on the main form; the callback must close the window.
    void Open(const TextCondition& definition, const ModalRobot::Callback& callback) {
        ModalRobot user(definition.selection.window, callback);
        Click(definition.selection.button);
        EXPECT_EQ(user.Opened(), 1) << definition.selection.window.toStdString();
    }
    /// Types the values from the first row on, checks 絞込み if `narrowing`, and closes the window.
    void Give(const TextCondition& definition, const QStringList& values, bool narrowing = false) {
        Open(definition, [&](ModalRobot& user) {
            for (int row = 0; row < values.size(); ++row) {
                user.Click(definition.valueItem, row);
                user.Type(values[row]);
            }
            if (narrowing) user.Click(QStringLiteral("chb_絞込み"));
            user.Click(QStringLiteral("btn_戻る"));
        });
    }
    static void GoBack(ModalRobot& user) { user.Press(Qt::Key_Escape); }
    static bool Given(const TextCondition& definition);
};
