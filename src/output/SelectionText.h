#pragma once

#include <QString>

/// The conditions of the head as text for the printed list: those that differ from the defaults, and always the order,
/// separated by two blanks. Reads Globals().Conditions, the lists of the main form and the selection windows. Never
/// fails.
QString BuildSelectionText();
