// Part of Verbs.h: RunSetup.
#include <algorithm>

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

[[noreturn]] void FailUnknown(const QStringList& arguments) {
    const qsizetype words = Group(arguments).isEmpty() ? 1 : std::min<qsizetype>(2, arguments.size());
    throw UsageError(u"コマンド %1 はありません。"_s.arg(arguments.first(words).join(u' ')));
}

bool AsksForHelp(const QStringList& arguments) {
    const auto end = std::find(arguments.begin(), arguments.end(), u"--"_s);  // operands follow
    return std::find(arguments.begin(), end, option::kHelp) != end;
}

/// Help of the verb, or of all verbs that begin with the only word.
QString HelpFor(const QStringList& arguments) {
    if (arguments.first() == option::kHelp) return OverallHelp();
    if (const Verb* verb = FindVerb(arguments); verb != nullptr && !verb->IsInternal()) return VerbHelp(*verb);
    QStringList texts;
    for (const Verb* verb : Group(arguments)) texts.append(VerbHelp(*verb));
    if (texts.isEmpty() || arguments.value(1) != option::kHelp) FailUnknown(arguments);
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
