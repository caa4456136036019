#pragma once

class QApplication;

/// Where the environment variable MEIBO_PICTURE names a file, nobody is at the screen: from now on every message box
/// and every other modal window is told on standard output, as "message=TEXT" with its title where it has no text of
/// its own, and closed by its close box. Ends of lines are told as blanks. Does nothing otherwise.
void TellAndCloseModalWindows(QApplication& application);
