#pragma once

#include <QtGlobal>

class Control;
class Form;

/// Each wheel event over the form changes the bar's Value by `step`, increasing it when scrolling towards the user,
/// clamped to its bounds, while the bar is enabled. The distance is ignored. The form still gets the event. Only one
/// hook at a time; it is destroyed with the form. False if the hook cannot be set.
bool InstallWheelHook(Form& form, Control& scrollBar, int step);
/// Removes the hook. False if there is none.
bool RemoveWheelHook();

/// Distance of a wheel message: the high word of `wParam` as a signed number; -1, towards the user, for a high word of
/// 0. The low word (keys and buttons) is ignored.
int WheelDelta(quint32 wParam);
