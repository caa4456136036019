#pragma once

#include <QList>
#include <QString>

#include "setup/commands/Arguments.h"

namespace setup {

// The verbs of suite-setup. Parsing, help texts and manual pages are all generated from this table.

/// All verbs in the order of the help text, internal ones last.
const QList<Verb>& AllVerbs();

/// Parts of the table, each in a source file of that name.
QList<Verb> InstallationVerbs();
QList<Verb> DatabaseVerbs();
QList<Verb> LogVerbs();
QList<Verb> ReportVerbs();

/// The operand of every verb that works on one installation.
OperandDefinition InstallationOperand();
/// The option with the connection string of a server.
OptionDefinition OdbcOption(const Words& description);

/// Whether a synopsis shows an operand or option in brackets.
inline bool IsOptional(const OperandDefinition& operand) { return operand.missing.isEmpty(); }
inline bool IsOptional(const OptionDefinition& option) { return !option.required; }

/// Usage of the tool for a terminal: all verbs with their operands, options and summaries, in Japanese, at most 80
/// columns wide.
QString OverallHelp();

/// Usage of one verb, with its operands and options in detail.
QString VerbHelp(const Verb& verb);

/// suite-setup(1) as roff source, in "ja" or "en". The package's build writes it to a file. Throws UsageError for any
/// other language.
QString ManualPage(const QString& language);

}  // namespace setup
