#pragma once

#include "mainform/SelectionFixture.h"
#include "selection/MultiSelectController.h"
#include "support/ModalScript.h"

class SelectionSource;

/// The main form with its multi-select windows.
class MultiSelectTest : public SelectionTest {
  protected:
    static const MultiSelectDefinition& Departments() { return MultiSelectDefinitions()[0]; }
    static const MultiSelectDefinition& Sections() { return MultiSelectDefinitions()[1]; }
    static const MultiSelectDefinition& Positions() { return MultiSelectDefinitions()[2]; }
    static const MultiSelectDefinition& People() { return MultiSelectDefinitions()[3]; }

    /// Presses the window's button on the main form; the callback must close the window.
    void Open(const MultiSelectDefinition& definition, const ModalScript::Callback& callback);
    /// Checks rows by the mouse and closes the window.
    void Tick(const MultiSelectDefinition& definition, const QStringList& codes);
    static void GoBack(const FormRobot& robot) { robot.Click(QStringLiteral("btn_戻る")); }
    static bool Picked(const MultiSelectDefinition& definition);
    /// The selection of the window, which must be loaded.
    static const SelectionSource& Source(const MultiSelectDefinition& definition);
};
