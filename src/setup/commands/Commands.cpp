// Part of Verbs.h: RunSetup.
#include <algorithm>
#include <vector>

#include "platform/RuntimeError.h"
#include "setup/UsageError.h"
#include "setup/commands/VerbTable.h"
#include "setup/commands/Verbs.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

/// The verb that the arguments begin with; null if there is none.
const Verb* FindVerb(const QStringList& arguments) {
    for (const Verb& verb : AllVerbs())
        if (arguments.first(std::min(verb.name.count(u' ') + 1, arguments.size())).join(u' ') == verb.name)
            return &verb;
    return nullptr;
}

/// Verbs of two words that begin with the first argument.
QList<const Verb*> Group(const QStringList& arguments) {
    QList<const Verb*> group;
    for (const Verb& verb : AllVerbs())
        if (verb.name.startsWith(arguments.first() + u' ')) group.append(&verb);
    return group;
}

/// Number of letters to insert, remove, replace or exchange with the next one (optimal string alignment).
int EditDistance(const QString& from, const QString& to) {
    const auto width = static_cast<size_t>(to.size()) + 1;
    std::vector<std::vector<int>> cost(static_cast<size_t>(from.size()) + 1, std::vector<int>(width));
    for (size_t i = 0; i < cost.size(); ++i)
        for (size_t j = 0; j < width; ++j) {
            const auto at = [&](size_t back) { return from[static_cast<qsizetype>(i - back)]; };
            const auto other = [&](size_t back) { return to[static_cast<qsizetype>(j - back)]; };
            if (i == 0 || j == 0) {
                cost[i][j] = static_cast<int>(i + j);
                continue;
            }
            const int replaced = cost[i - 1][j - 1] + (at(1) == other(1) ? 0 : 1);
            cost[i][j] = std::min({cost[i - 1][j] + 1, cost[i][j - 1] + 1, replaced});
            if (i > 1 && j > 1 && at(1) == other(2) && at(2) == other(1))
                cost[i][j] = std::min(cost[i][j], cost[i - 2][j - 2] + 1);
        }
    return cost.back().back();
}

/// The verb whose name is most similar to the first words; empty if none is similar.
QString Suggestion(const QStringList& arguments) {
    constexpr int kMostErrors = 2;
    QString best;
    int least = kMostErrors + 1;
    for (const Verb& verb : AllVerbs()) {
        const QString typed = arguments.first(std::min(verb.name.count(u' ') + 1, arguments.size())).join(u' ');
        const int errors = EditDistance(typed.toLower(), verb.name);
        // Of a name of three letters two wrong ones would be anything.
        if (verb.IsInternal() || errors >= least || errors * 3 > verb.name.size()) continue;
        best = verb.name;
        least = errors;
    }
    return best;
}

/// The verbs of a group, each with its summary.
QString GroupText(const QList<const Verb*>& group) {
    QString text;
    for (const Verb* verb : group) text += u"\n  %1  %2"_s.arg(verb->name, verb->summary.japanese);
    return text;
}

[[noreturn]] void FailUnknown(const QStringList& arguments) {
    const QList<const Verb*> group = Group(arguments);
    if (!group.isEmpty() && arguments.size() == 1)
        throw UsageError(u"%1 のあとにコマンドの続きを指定してください。"_s.arg(arguments.first()) + GroupText(group));
    const qsizetype words = group.isEmpty() ? 1 : std::min<qsizetype>(2, arguments.size());
    const QString suggestion = Suggestion(arguments);
    throw UsageError(u"コマンド %1 はありません。"_s.arg(arguments.first(words).join(u' ')) +
                     (suggestion.isEmpty() ? QString() : u"%1 ではありませんか。"_s.arg(suggestion)));
}

bool IsHelp(const QString& word) { return word == option::kHelp || word == u"-h"_s; }

bool AsksForHelp(const QStringList& arguments) {
    const auto end = std::find(arguments.begin(), arguments.end(), u"--"_s);  // operands follow
    return std::any_of(arguments.begin(), end, IsHelp);
}

/// Help of the verb, or of all verbs that begin with the only word.
QString HelpFor(const QStringList& arguments) {
    if (IsHelp(arguments.first())) return OverallHelp();
    if (const Verb* verb = FindVerb(arguments); verb != nullptr && !verb->IsInternal()) return VerbHelp(*verb);
    QStringList texts;
    for (const Verb* verb : Group(arguments)) texts.append(VerbHelp(*verb));
    if (texts.isEmpty() || !IsHelp(arguments.value(1))) FailUnknown(arguments);
    return texts.join(u'\n');
}

void Run(const QStringList& arguments, const Console& console) {
    if (arguments.isEmpty()) throw UsageError(u"コマンドを指定してください。"_s);
    if (AsksForHelp(arguments)) {
        console.out << HelpFor(arguments);
        return;
    }
    const Verb* verb = FindVerb(arguments);
    if (verb == nullptr) FailUnknown(arguments);
    verb->run(Arguments(*verb, arguments.mid(verb->name.count(u' ') + 1)), console);
}

}  // namespace

int RunSetup(const QStringList& arguments, const Console& console) {
    try {
        Run(arguments, console);
        return 0;
    } catch (const UsageError& error) {
        console.err << u"suite-setup: "_s << platform::TextForPeople(error) << u'\n'
                    << u"使い方は suite-setup --help で表示されます。\n"_s;
        return 2;
    } catch (const platform::RuntimeError& error) {
        console.err << u"suite-setup: "_s << platform::TextForPeople(error) << u'\n';
        return 1;
    }
}

}  // namespace setup
