#pragma once

#include "mainform/SelectionFixture.h"
#include "selection/SelectionWindow.h"
#include "support/ModalScript.h"

class SelectionSource;

/// The main form with its multi-select windows.
class MultiSelectTest : public SelectionTest {
  protected:
    static const RangeCondition& Departments() { return RangeConditions()[0]; }
    static const RangeCondition& Sections() { return RangeConditions()[1]; }
    static const RangeCondition& Positions() { return RangeConditions()[2]; }
    static const RangeCondition& People() { return RangeConditions()[3]; }

    /// Presses the window's button on the main form; the callback must close the window.
    void Open(const RangeCondition& definition, const ModalScript::Callback& callback);
    /// Checks rows by the mouse and closes the window.
    void Tick(const RangeCondition& definition, const QStringList& codes);
    static void GoBack(const FormRobot& robot) { robot.Click(QStringLiteral("btn_戻る")); }
    static bool Picked(const RangeCondition& definition);
    /// The selection of the window, which must be loaded.
    static const SelectionSource& Source(const RangeCondition& definition);
};
