#pragma once

#include <QString>

class Form;
class QApplication;

// The program: start, start command (StartCommand.cpp), end and headless runs (HeadlessRun.cpp).

/// Starts the program and shows the main form with the first list. If the start fails, shows the reason and exits the
/// process. An error that is thrown is for the caller to show; then there may be no window.
void Main();

/// Parses the start command, a block of fixed-width fields without separators, into Globals().Conditions and
/// ScopeOfficeCode.
///   command  the trimmed command line; widths are in UTF-16 units:
///            office                                              3
///            start and end of department, section                3 each
///            start and end of position                           2 each
///            start and end of staff                              5 each
///            name, kana, telephone, postal code, address        30 each
///            display order                                       1
/// Fields after its end become empty. If no bound of a range is empty, StartCommandAbsent is cleared, and a start that
/// consists of blanks becomes empty.
void ParseStartCommand(const QString& command);

/// Stores the labels of the block's fields in the program's row of the menu's table (StoreConditionLabels), where a
/// launching program reads them. Unused labels are emptied.
void PublishConditionLabels(const QString& menu, const QString& programId);

/// For headless runs, if the environment variable MEIBO_PICTURE names a file: prints the text of each message box, or
/// the title of any other modal window, on standard output as "message=TEXT" and closes it by its close box. Line
/// breaks are printed as blanks. Does nothing otherwise.
void CloseModalWindowsIfHeadless(QApplication& application);

/// The same for the form: after the first list is shown, saves a picture of the window to the file as PNG, prints
/// "rows=N" and closes the window normally. If MEIBO_PICTURE_LOOKUP names a range item of the head, the picture is of
/// the lookup window that Ctrl opens there. A file that cannot be written is reported on standard error. Does nothing
/// otherwise.
void SaveScreenshotIfHeadless(Form& form);
