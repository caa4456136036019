// Part of VerbTable.h: ManualPage. Part of Verbs.h: the internal verb `manual-page`.
#include <QRegularExpression>

#include "setup/TerminalTable.h"
#include "setup/UsageError.h"
#include "setup/commands/VerbTable.h"
#include "setup/commands/Verbs.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

using Language = QString Words::*;

const Words kOpening{
    uR"(.TH SUITE\-SETUP 1 2026-11-22 "要員名簿照会" "利用者コマンド"
.\" Japanese has no blanks to widen, and words of other languages in it are not hyphenated.
.ad l
.nh
.SH 名前
suite\-setup \- 要員名簿照会のインストールを作り、管理する
.SH 書式
.B suite\-setup
.I コマンド
.RI [ 引数 ]
.RI [ オプション ]
.br
.B suite\-setup
.RI [ コマンド ]
.B \-\-help
.SH 説明
)"_s,
    uR"(.TH SUITE\-SETUP 1 2026-11-22 "Staff inquiry" "User Commands"
.SH NAME
suite\-setup \- create and maintain installations of the staff inquiry
.SH SYNOPSIS
.B suite\-setup
.I VERB
.RI [ ARGUMENTS ]
.RI [ OPTIONS ]
.br
.B suite\-setup
.RI [ VERB ]
.B \-\-help
.SH DESCRIPTION
)"_s};

const Words kDescription{
    u"インストールは、データベース、構成、帳票、プログラムを持つ一つのフォルダです。"
    u"オプションはどこに書いてもかまいません。値は空白か「="
    u"」で続けます。同じオプションを重ねて指定すると、最後の値を使います。"
    u"「-」で始まる引数は、-- の後に書きます。"_s,
    u"An installation is one folder with databases, configuration, reports and programs. Options may be at any "
    u"position, with the value in the next argument or after \"=\". Of an option given several times the last value "
    u"counts. Arguments that begin with \"-\" are written after --."_s};

const Words kVerbs{u".SH コマンド\n"_s, u".SH VERBS\n"_s};

const Words kClosing{
    uR"(.SH 終了コード
.TP
0
正常
.TP
1
途中で失敗した
.TP
2
指定に誤りがあり、何も変更していない
.SH ファイル
.TP
.I /usr/lib/youin\-meibo
インストールに複写されるプログラム
.TP
.I /etc/youin\-meibo/registry
このコンピューターの設定
.TP
.I ~/.config/youin\-meibo/registry
利用者の設定
.SH 関連項目
.BR youin\-meibo (1)
)"_s,
    uR"(.SH EXIT STATUS
.TP
0
success
.TP
1
failed on the way
.TP
2
invalid arguments; nothing was changed
.SH FILES
.TP
.I /usr/lib/youin\-meibo
the programs that are copied into installations
.TP
.I /etc/youin\-meibo/registry
settings of the machine
.TP
.I ~/.config/youin\-meibo/registry
settings of the user
.SH SEE ALSO
.BR youin\-meibo (1)
)"_s};

/// Lets lines end wherever the rules of Japanese allow it, also in a locale that does not know them.
QString WithBreakPoints(const QString& text) {
    QString marked;
    for (const QString& piece : LineBreakPieces(text)) {
        if (!marked.isEmpty() && !marked.back().isSpace()) marked += u"\\:"_s;
        marked += piece;
    }
    return marked;
}

/// A connection string may be broken after each semicolon.
QString Escaped(QString text) {
    static const QRegularExpression joining(u";(?=\\S)"_s);
    text = WithBreakPoints(text.replace(u'\\', u"\\e"_s).replace(u'-', u"\\-"_s).replace(joining, u";\\:"_s));
    return text.replace(u'\n', u"\n.br\n"_s);
}

QString Bold(QStringView text) { return u"\\fB\\%"_s + Escaped(text.toString()) + u"\\fR"_s; }
QString Italic(QString text) { return u"\\fI"_s + text.replace(u'-', u"\\-"_s) + u"\\fR"_s; }
QString Bracketed(const QString& text, bool optional) { return optional ? u'[' + text + u']' : text; }

QString OptionText(const OptionDefinition& option, Language language) {
    return Bold(option.name) + (option.value.IsEmpty() ? QString() : u' ' + Italic(option.value.*language));
}

QString Synopsis(const Verb& verb, Language language) {
    QString text = Bold(verb.name);
    for (const OperandDefinition& operand : verb.operands)
        text += u' ' + Bracketed(Italic(operand.name.*language), IsOptional(operand));
    for (const OptionDefinition& option : verb.options)
        text += u' ' + Bracketed(OptionText(option, language), IsOptional(option));
    return text;
}

QString Entry(const Verb& verb, Language language) {
    QString text = u".TP\n"_s + Synopsis(verb, language) + u'\n' + Escaped(verb.description.*language) + u'\n';
    if (verb.options.isEmpty()) return text;
    text += u".RS\n"_s;
    for (const OptionDefinition& option : verb.options)
        text += u".TP\n"_s + OptionText(option, language) + u'\n' + Escaped(option.description.*language) + u'\n';
    return text + u".RE\n"_s;
}

}  // namespace

QString ManualPage(const QString& language) {
    if (language != u"ja"_s && language != u"en"_s) throw UsageError(u"言語 %1 の説明書はありません。"_s.arg(language));
    const Language chosen = language == u"ja"_s ? &Words::japanese : &Words::english;
    QString page = kOpening.*chosen + Escaped(kDescription.*chosen) + u'\n' + kVerbs.*chosen;
    for (const Verb& verb : AllVerbs())
        if (!verb.IsInternal()) page += Entry(verb, chosen);
    return page + kClosing.*chosen;
}

void PrintManualPage(const Arguments& arguments, const Console& console) {
    console.out << ManualPage(arguments.Operand(0));
}

}  // namespace setup
