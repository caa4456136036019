#pragma once

#include <QString>

// What belongs to rooms that are not built yet. Each procedure does nothing and answers success, so that the program
// runs without it; whoever builds the room takes its procedures out of here.

/// Makes the user's own copies of configuration and report files where they are missing.
void PrepareUserConfig();

/// Opens the lookup window of a head item, whose answer goes into ListResultItem.
void OpenLookupWindow(const QString& item);
/// Opens the selection window behind a button of the head.
void OpenSelectionWindow(const QString& button);

/// Outputs of the rows ticked in the list.
void RunEnvelopePrint();
void RunPostcardPrint();
void RunLabelPrint();
