#pragma once

class QApplication;
class Form;

// A run with nobody at the screen: where the environment variable MEIBO_PICTURE names a file. Otherwise neither of
// these does anything.

/// From now on every message box and every other modal window is told on standard output, as "message=TEXT" with its
/// title where it has no text of its own, and closed by its close box. Carriage returns and line feeds are told as
/// blanks.
void TellAndCloseModalWindows(QApplication& application);

/// Once the window stands on the screen with its first list: saves a picture of it to the file, prints "rows=N", and
/// closes the window in the regular way.
void TakeFirstListPicture(Form& form);
