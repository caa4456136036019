#pragma once

#include <QList>
#include <QString>

#include "setup/commands/Arguments.h"
#include "setup/commands/Console.h"

// The verbs of suite-setup. Parsing, help texts and manual pages are all generated from this table.

namespace setup {

/// A text in the languages of the manual pages. Help texts are Japanese.
struct Words {
    QString japanese, english;

    bool IsEmpty() const { return japanese.isEmpty(); }
};

struct OperandDefinition {
    Words name;
    Words description{};
    QString missing{};        ///< message if it is not given; empty: it may be left out
    bool mayBeEmpty = false;  ///< otherwise an empty text counts as not given
};

struct OptionDefinition {
    QStringView name;  ///< one of namespace option
    Words value{};     ///< name of its value; empty: it takes none
    Words description{};  ///< may have several lines
    bool required = false;  ///< shown without brackets; the verb itself refuses to run without it
};

struct Verb {
    QString name;  ///< one word, or two with a blank between
    QList<OperandDefinition> operands{};
    QList<OptionDefinition> options{};
    Words summary{};      ///< empty: an internal verb, which no text mentions
    Words description{};  ///< paragraphs, one per line
    void (*run)(const Arguments&, const Console&);

    bool IsInternal() const { return summary.IsEmpty(); }
};

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

}  // namespace setup
