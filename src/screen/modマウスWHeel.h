#pragma once

#include <QtGlobal>

class Control;
class Form;

/// From now on each vertical wheel message over the form changes the bar's Value by `step`, clamped to its bounds; it
/// increases when scrolling towards the user. A wheel event is one message, whatever its distance; events of less than
/// 120 (touchpads) are gathered to 120, in one direction, without pauses of more than half a second and without leaving
/// the window. Messages are ignored while form or bar is disabled, and so are errors of the bar's Change. The form
/// still gets each event. There is one hook; a new one replaces it, and it is destroyed with the form. Always true.
bool InstallWheelHook(Form& form, Control& scrollBar, int step);
/// Removes the hook. False if there is none.
bool RemoveWheelHook();

/// Distance of a wheel message: the high word of `wParam` as a signed number, negative towards the user. A high word of
/// 0 gives -1. The low word (keys and buttons) is ignored.
int WheelDelta(quint32 wParam);
