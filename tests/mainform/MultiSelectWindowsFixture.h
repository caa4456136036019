#pragma once

#include "mainform/SelectionFixture.h"
#include "selection/MultiSelectDefinitions.h"
#include "support/ModalScript.h"

class SelectionSource;

/// The main form with somebody at the windows in which rows of a master are picked.
class PickWindowsTest : public SelectionTest {
  protected:
    static const PickDefinition& Departments() { return PickDefinitions()[0]; }
    static const PickDefinition& Sections() { return PickDefinitions()[1]; }
    static const PickDefinition& Positions() { return PickDefinitions()[2]; }
    static const PickDefinition& People() { return PickDefinitions()[3]; }

    /// Presses the window's button on the main form and lets somebody work the window until it is closed.
    void Open(const PickDefinition& definition, const ModalScript::Work& work);
    /// Ticks rows by the mouse and goes back.
    void Tick(const PickDefinition& definition, const QStringList& codes);
    static void GoBack(const FormRobot& hands) { hands.Click(QStringLiteral("btn_戻る")); }
    static bool Picked(const PickDefinition& definition);
    /// What the window tells query and condition text; it must be loaded.
    static const SelectionSource& Source(const PickDefinition& definition);
};
