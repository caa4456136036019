#pragma once

class QMouseEvent;

/// For a click that takes its own window away. Who double-clicks out of habit would press a second time on whatever
/// has come to light behind, so one more press at the same place and within the double-click time is swallowed,
/// together with its release, whichever window of the program it meets.
void SwallowSecondPress(const QMouseEvent& click);
