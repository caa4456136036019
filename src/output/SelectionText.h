#pragma once

#include <QString>

/// The conditions of the head in words, for a printed list: what differs from the defaults, and always the order.
/// Segments stand two blanks apart. Reads the conditions, the lists of the main form and the selection windows;
/// changes nothing.
QString BuildSelectionText();
