#include "setup/commands/Arguments.h"

#include <algorithm>

#include "setup/UsageError.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

const OptionRule& RuleFor(const QString& name, const QList<OptionRule>& rules) {
    const auto rule = std::find_if(rules.begin(), rules.end(), [&](const OptionRule& r) { return r.name == name; });
    if (rule == rules.end()) throw UsageError(u"オプション %1 は使えません。"_s.arg(name));
    return *rule;
}

}  // namespace

Arguments ParseArguments(const QStringList& words, const QList<OptionRule>& rules, int further) {
    Arguments arguments;
    for (qsizetype i = 0; i < words.size(); ++i) {
        const QString& word = words[i];
        if (!word.startsWith(u"--"_s)) {
            if (arguments.installation.isEmpty() && further >= 0)
                arguments.installation = word;
            else if (arguments.further.size() < further)
                arguments.further.append(word);
            else
                throw UsageError(u"引数 %1 が余分です。"_s.arg(word));
            continue;
        }
        const qsizetype equals = word.indexOf(u'=');
        const QString name = word.left(equals);
        if (!RuleFor(name, rules).takesValue) {
            if (equals >= 0) throw UsageError(u"オプション %1 に値は付けられません。"_s.arg(name));
            arguments.options.insert(name, u""_s);
            continue;
        }
        if (equals < 0 && (++i == words.size() || words[i].startsWith(u"--"_s)))
            throw UsageError(u"オプション %1 の値がありません。"_s.arg(name));
        arguments.options.insert(name, equals < 0 ? words[i] : word.mid(equals + 1));
    }
    if (arguments.installation.isEmpty() && further >= 0)
        throw UsageError(u"インストール先のフォルダを指定してください。"_s);
    return arguments;
}

qint64 Arguments::Number(const QString& option, qint64 fallback, qint64 low, qint64 high) const {
    if (!Has(option)) return fallback;
    const QString text = options.value(option);
    bool good = false;
    const qint64 number = text.toLongLong(&good);
    if (!good || number < low || number > high)
        throw UsageError(
            u"オプション %1 には %2 から %3 までの整数を指定してください。"_s.arg(option).arg(low).arg(high));
    return number;
}

QString Arguments::Choice(const QString& option, const QStringList& words) const {
    const QString word = options.value(option, words.first());
    if (!words.contains(word))
        throw UsageError(u"オプション %1 には %2 のどれかを指定してください。"_s.arg(option, words.join(u'、')));
    return word;
}

}  // namespace setup
