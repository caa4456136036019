#pragma once

#include <QtGlobal>

class Control;
class Form;

/// From now on a turn of the wheel over the form moves the scroll bar by `step`, one step for each message, whatever
/// its amount, and only while the bar is enabled. True.
bool InstallWheelHook(Form& form, Control& bar, int step);
/// Takes the hook away again. True.
bool RemoveWheelHook();

/// The turn in a wheel message: the upper half of its first parameter as a signed number. A turn of 0 comes out as -1
/// and so scrolls down; the lower half holds keys and buttons and counts for nothing.
qint32 WheelDelta(quint32 parameter);
