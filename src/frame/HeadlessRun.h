#pragma once

class QApplication;

/// For headless runs, if the environment variable MEIBO_PICTURE names a file: prints the text of each message box, or
/// the title of any other modal window, on standard output as "message=TEXT" and closes it by its close box. Line
/// breaks are printed as blanks. Does nothing otherwise.
void AutoCloseModalWindows(QApplication& application);
