#pragma once

// Work tables of envelopes, postcards and address labels, filled with the rows ticked for output. The report database
// is open. Each is True when its table then holds a row.

/// Failures are ignored statement by statement: a column that the table lacks is left out, and the rest goes on.
/// Reads the office "001", and with two offices also "002", into OutputOffice anew for each envelope.
bool BuildEnvelopeData();
/// Failures are ignored in the same way.
bool BuildPostcardData();
/// Two labels a record. Traps nothing, like the list: database::DatabaseError.
bool BuildLabelData();
