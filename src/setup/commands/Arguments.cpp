#include "setup/commands/Arguments.h"

#include <QCommandLineParser>

#include "setup/UsageError.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

/// The parser wants names without dashes.
QString BareName(QStringView option) { return option.sliced(2).toString(); }

void Declare(QCommandLineParser& parser, const Verb& verb) {
    for (const OptionDefinition& option : verb.options) {
        QCommandLineOption known(BareName(option.name));
        known.setValueName(option.value.japanese);
        parser.addOption(known);
    }
}

/// The option as it was written: the parser reads "-x" and "--x" alike.
QString Written(const QString& name, const QStringList& words) {
    const QString full = u"--"_s + name;
    for (const QString& word : words)
        if (word == full || word.startsWith(full + u'=')) return full;
    return u'-' + name;
}

/// The parser has one untranslated message for both errors, and takes a following option as the value.
void CheckValues(const Verb& verb, const QStringList& words) {
    for (qsizetype i = 0; i < words.size() && words[i] != u"--"_s; ++i)
        for (const OptionDefinition& option : verb.options) {
            const QString name = option.name.toString();
            const bool takesValue = !option.value.IsEmpty();
            if (!takesValue && words[i].startsWith(name + u'='))
                throw UsageError(u"オプション %1 に値は付けられません。"_s.arg(name));
            if (takesValue && words[i] == name && (i + 1 == words.size() || words[i + 1].startsWith(u"--"_s)))
                throw UsageError(u"オプション %1 の値がありません。"_s.arg(name));
        }
}

void CheckOperands(const Verb& verb, const QStringList& operands) {
    if (operands.size() > verb.operands.size())
        throw UsageError(u"引数 %1 が余分です。"_s.arg(operands[verb.operands.size()]));
    for (qsizetype i = 0; i < verb.operands.size(); ++i) {
        const OperandDefinition& operand = verb.operands[i];
        const bool given = operand.mayBeEmpty ? i < operands.size() : !operands.value(i).isEmpty();
        if (!given && !operand.missing.isEmpty()) throw UsageError(operand.missing);
    }
}

}  // namespace

Arguments::Arguments(const Verb& verb, const QStringList& words) {
    QCommandLineParser parser;
    Declare(parser, verb);
    // The first word is taken as the name of the program.
    parser.parse(QStringList{verb.name} + words);
    if (const QStringList unknown = parser.unknownOptionNames(); !unknown.isEmpty())
        throw UsageError(u"オプション %1 は使えません。"_s.arg(Written(unknown.first(), words)));
    CheckValues(verb, words);
    operands_ = parser.positionalArguments();
    CheckOperands(verb, operands_);
    for (const OptionDefinition& option : verb.options)
        if (const QString name = BareName(option.name); parser.isSet(name))
            options_.insert(option.name.toString(), parser.value(name));
}

qint64 Arguments::Number(QStringView option, qint64 fallback, qint64 low, qint64 high) const {
    if (!Has(option)) return fallback;
    bool good = false;
    const qint64 number = Value(option).toLongLong(&good);
    if (!good || number < low || number > high)
        throw UsageError(
            u"オプション %1 には %2 から %3 までの整数を指定してください。"_s.arg(option).arg(low).arg(high));
    return number;
}

QString Arguments::Choice(QStringView option, const QStringList& words) const {
    const QString word = Value(option, words.first());
    if (!words.contains(word))
        throw UsageError(u"オプション %1 には %2 のどれかを指定してください。"_s.arg(option, words.join(u'、')));
    return word;
}

}  // namespace setup
