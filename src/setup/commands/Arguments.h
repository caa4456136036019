#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

namespace setup {

/// One option of a verb; `name` includes the dashes.
struct OptionRule {
    QString name;
    bool takesValue;
};

/// Parsed command line after the verb.
struct Arguments {
    QString installation;
    QStringList further;  ///< further positional arguments, for verbs that take them
    QHash<QString, QString> options;

    bool Has(const QString& option) const { return options.contains(option); }
    /// An integer in [low, high]; `fallback` if the option is not given. Throws UsageError.
    qint64 Number(const QString& option, qint64 fallback, qint64 low, qint64 high) const;
    /// One of `words`; the first one if the option is not given. Throws UsageError.
    QString Choice(const QString& option, const QStringList& words) const;
};

/// The first positional argument is the installation; at most `further` more may follow. If `further` is negative, only
/// options are accepted. Options may be at any position, with the value in the next argument or after "=". Throws
/// UsageError.
Arguments ParseArguments(const QStringList& words, const QList<OptionRule>& rules, int further = 0);

}  // namespace setup
