// Part of VerbTable.h: the help texts.
#include "setup/TerminalTable.h"
#include "setup/commands/VerbTable.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

constexpr int kColumns = 79, kTermWidth = 28;

QString Bracketed(const QString& text, bool optional) { return optional ? u'[' + text + u']' : text; }

QString OptionText(const OptionDefinition& option) {
    return option.name.toString() + (option.value.IsEmpty() ? QString() : u' ' + option.value.japanese);
}

QStringList SynopsisParts(const Verb& verb) {
    QStringList parts;
    for (const OperandDefinition& operand : verb.operands)
        parts.append(Bracketed(operand.name.japanese, IsOptional(operand)));
    for (const OptionDefinition& option : verb.options) parts.append(Bracketed(OptionText(option), IsOptional(option)));
    return parts;
}

/// `head` followed by the synopsis; continuation lines are indented below its first part.
QString Synopsis(const QString& head, const Verb& verb) {
    QString text, line = head;
    const int indent = DisplayWidth(head);
    for (const QString& part : SynopsisParts(verb)) {
        if (DisplayWidth(line) + 1 + DisplayWidth(part) > kColumns) {
            text += line + u'\n';
            line = QString(indent, u' ');
        }
        line += u' ' + part;
    }
    return text + line + u'\n';
}

QString Indented(const QString& text, int indent) {
    QString lines;
    for (const QString& line : WrapText(text, kColumns - indent)) lines += QString(indent, u' ') + line + u'\n';
    return lines;
}

/// A term in its column and the explanation beside it, or below a term that is too long.
QString Explained(const QString& term, const QString& explanation) {
    const QString text = Indented(explanation, kTermWidth);
    const QString head = u"  "_s + term;
    if (DisplayWidth(head) + 2 > kTermWidth) return head + u'\n' + text;
    return PadRight(head, kTermWidth) + text.sliced(kTermWidth);
}

}  // namespace

QString OverallHelp() {
    QString text = u"使い方: suite-setup コマンド [引数] [オプション]\n\nコマンド:\n"_s;
    for (const Verb& verb : AllVerbs())
        if (!verb.IsInternal()) text += Synopsis(u"  "_s + verb.name, verb) + Indented(verb.summary.japanese, 6);
    return text +
           u"\n"
           u"suite-setup コマンド --help   そのコマンドの引数とオプションを詳しく表示する\n"
           u"suite-setup --help            この説明を表示する\n"
           u"suite-setup --version         版を表示する\n"
           u"\n"
           u"終了コード: 0 正常  1 途中で失敗した  2 指定に誤りがあり、何も変更していない\n"_s;
}

QString VerbHelp(const Verb& verb) {
    QString text =
        Synopsis(u"使い方: suite-setup "_s + verb.name, verb) + u'\n' + Indented(verb.description.japanese, 0);
    if (!verb.operands.isEmpty()) text += u"\n引数:\n"_s;
    for (const OperandDefinition& operand : verb.operands)
        text += Explained(operand.name.japanese, operand.description.japanese);
    text += u"\nオプション:\n"_s;
    for (const OptionDefinition& option : verb.options)
        text += Explained(OptionText(option), option.description.japanese);
    return text + Explained(u"-h, "_s + option::kHelp.toString(), u"この説明を表示する"_s);
}

}  // namespace setup
