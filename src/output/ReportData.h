#pragma once

#include <QString>

// Fill the work tables of the reports. The report database must be open (ReportDatabase.h).

/// Empties the list's work table and fills it with the rows checked for output, in their order, each with the selection
/// text. True if the table contains a row afterwards. Throws database::DatabaseError, e.g. if the table lacks a column;
/// records added before stay.
bool BuildReportData();

// The same for envelopes, postcards and address labels (MailPieces.cpp).

/// Throws nothing: failed statements are ignored one by one, and a column that the table lacks is skipped. Reads office
/// "001", and with two offices also "002", into OutputOffice for each envelope.
bool BuildEnvelopeData();
/// Ignores errors in the same way.
bool BuildPostcardData();
/// Two labels per record; empty records fill the first sheet. Throws database::DatabaseError.
bool BuildLabelData();

/// The conditions of the head as text for the printed list: those that differ from the defaults, and always the order,
/// separated by two blanks. Reads Globals().Conditions, the lists of the main form and the selection windows. Never
/// fails.
QString BuildSelectionText();
