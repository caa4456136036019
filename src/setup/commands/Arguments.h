#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <QTextStream>
#include <functional>

namespace setup {

/// Output streams and environment of a command.
struct Console {
    QTextStream& out;
    QTextStream& err;
    QString programFolder;  ///< folder that contains all built programs
    /// Waits before the next poll of a followed history; false stops following.
    std::function<bool()> waitForMore;
};

/// Names of the options.
namespace option {
inline constexpr QStringView kAddMissing = u"--add-missing", kAllUsers = u"--all-users", kCsv = u"--csv",
                             kErrors = u"--errors", kFolder = u"--folder", kFollow = u"--follow", kFrom = u"--from",
                             kFutureRows = u"--future-rows", kHelp = u"--help", kInstallKind = u"--install-kind",
                             kKind = u"--kind", kMenu = u"--menu", kNumber = u"--number", kOdbc = u"--odbc",
                             kOffice = u"--office", kOut = u"--out", kPin = u"--pin", kReplace = u"--replace",
                             kReport = u"--report", kResetClasses = u"--reset-classes", kRun = u"--run",
                             kSeed = u"--seed", kShort = u"--short", kSince = u"--since", kStaff = u"--staff",
                             kToDefault = u"--to-default", kToFolder = u"--to-folder", kToPrinter = u"--to-printer",
                             kUntil = u"--until", kUser = u"--user";
}  // namespace option

class Arguments;

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
    QStringView name;       ///< one of namespace option
    Words value{};          ///< name of its value; empty: it takes none
    Words description{};    ///< may have several lines
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

/// Parsed command line of a verb.
class Arguments {
  public:
    /// `words` are the arguments after the verb. Options may be at any position, with the value in the next argument or
    /// after "="; of an option given several times the last value counts; after "--" every argument is an operand.
    /// Throws UsageError for unknown options, missing or unexpected values, and missing or surplus operands.
    Arguments(const Verb& verb, const QStringList& words);

    /// An operand by its position from 0; empty if it was not given.
    QString Operand(qsizetype position) const { return operands_.value(position); }
    /// The first operand of a verb that works on one installation.
    QString Installation() const { return Operand(0); }

    bool Has(QStringView option) const { return options_.contains(option.toString()); }
    QString Value(QStringView option, const QString& fallback = {}) const {
        return options_.value(option.toString(), fallback);
    }
    /// An integer in [low, high]; `fallback` if the option is not given. Throws UsageError.
    qint64 Number(QStringView option, qint64 fallback, qint64 low, qint64 high) const;
    /// One of `words`; the first one if the option is not given. Throws UsageError.
    QString Choice(QStringView option, const QStringList& words) const;

  private:
    QStringList operands_;
    QHash<QString, QString> options_;
};

}  // namespace setup
