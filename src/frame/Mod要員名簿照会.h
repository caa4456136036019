#pragma once

#include <QString>

class Form;
class QApplication;

// The program: start, start command (StartCommand.cpp), end and headless runs (HeadlessRun.cpp).

/// Starts the program and shows the main form. Does not return if the start fails: shows the reason and exits the
/// process.
void Main();

/// Parses the start command, a block of fixed-width fields without separators, into the conditions and the office.
///   command  the trimmed command line; widths are in UTF-16 units:
///            office                                              3
///            start and end of department, section                3 each
///            start and end of position                           2 each
///            start and end of staff                              5 each
///            name, kana, telephone, postal code, address        30 each
///            display order                                       1
/// Fields after its end become empty.
void ParseStartCommand(const QString& command);

/// Stores the labels of the block's fields in the program's row of the menu table, where a launching program reads
/// them. Unused labels are emptied. A failed statement shows a message box.
void PublishConditionLabels(const QString& menu, const QString& programId);

/// For headless runs, if the environment variable MEIBO_PICTURE names a file: prints the text of each message box, or
/// the title of any other modal window, on standard output as "message=TEXT" and closes it by its close box. Line
/// breaks are printed as blanks. Does nothing otherwise.
void CloseModalWindowsIfHeadless(QApplication& application);

/// If the environment variable MEIBO_PICTURE names a file: saves a picture of the window to it after the first list is
/// shown, prints "rows=N" and closes the window normally. If MEIBO_PICTURE_LOOKUP names a range item of the head, the
/// picture is of the lookup window that Ctrl opens there. Does nothing otherwise.
void SaveScreenshotIfHeadless(Form& form);
