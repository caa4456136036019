#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

namespace setup {

/// One option of a verb, named with its dashes.
struct OptionRule {
    QString name;
    bool takesValue;
};

/// What stands behind a verb on the command line.
struct Arguments {
    QString installation;
    QStringList further;  ///< words behind it, of a verb that takes some
    QHash<QString, QString> options;

    bool Has(const QString& option) const { return options.contains(option); }
    /// A whole number within the bounds, `fallback` when the option is not given. Throws UsageError.
    qint64 Number(const QString& option, qint64 fallback, qint64 low, qint64 high) const;
    /// One of the words, the first one when the option is not given. Throws UsageError.
    QString Choice(const QString& option, const QStringList& words) const;
};

/// The first word is the installation, and at most `further` may follow; with `further` below 0 there are options
/// alone. These may stand anywhere, their value in the next word or behind "=". Throws UsageError.
Arguments ParseArguments(const QStringList& words, const QList<OptionRule>& rules, int further = 0);

}  // namespace setup
