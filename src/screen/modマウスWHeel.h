#pragma once

#include <QtGlobal>

class Control;
class Form;

/// From now on each turn of the wheel over the form moves the bar's Value by one step, towards the user up,
/// clamped to its bounds, while the bar is enabled. How far the wheel was turned does not count. The form still
/// gets the event. One form at a time; both must outlive the hook or end with it. False when the hook can't be set.
bool InstallWheelHook(Form& form, Control& scrollBar, int step);
/// Takes the hook away again. False when there is none.
bool RemoveWheelHook();

/// The turn in a wheel message: the high word of `wParam` as a signed number. A high word of 0 counts as -1, so as a
/// turn towards the user. The low word, keys and buttons, does not matter.
int WheelDelta(quint32 wParam);
