#pragma once

#include <QString>

#include "setup/commands/VerbTable.h"

namespace setup {

/// Whether a synopsis shows an operand or option in brackets.
inline bool IsOptional(const OperandDefinition& operand) { return operand.missing.isEmpty(); }
inline bool IsOptional(const OptionDefinition& option) { return !option.required; }

/// Usage of the tool for a terminal: all verbs with their operands, options and summaries, in Japanese, at most 80
/// columns wide.
QString OverallHelp();

/// Usage of one verb, with its operands and options in detail.
QString VerbHelp(const Verb& verb);

}  // namespace setup
