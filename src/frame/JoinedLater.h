#pragma once

#include <QString>

// What belongs to rooms that are not built yet. Each procedure does nothing and answers success, so that the program
// runs without it; whoever builds the room takes its procedures out of here.

/// Opens the window behind a range button of the head, in which rows of a master are picked one by one.
void OpenSelectionWindow(const QString& button);

/// Outputs of the rows ticked in the list.
void RunEnvelopePrint();
void RunPostcardPrint();
void RunLabelPrint();
