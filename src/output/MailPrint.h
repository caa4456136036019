#pragma once

// The three prints of mail pieces for the ticked rows: the same way as the list's print, each with its own work table
// and its own report on the report host's default printer.

void RunEnvelopePrint();
void RunPostcardPrint();
void RunLabelPrint();
