#include <gtest/gtest.h>

#include <QFile>

#include "setup/RunTool.h"
#include "setup/TerminalTable.h"
#include "setup/commands/VerbTable.h"
#include "support/PrintText.h"

using namespace Qt::StringLiterals;

namespace {

void ExpectShortLines(const QString& text) {
    for (const QString& line : text.split(u'\n')) EXPECT_LT(setup::DisplayWidth(line), 80) << line.toStdString();
}

}  // namespace

TEST(Help, OverallHelpHasSynopsisAndSummaryOfEachVerb) {
    const ToolOutput output = RunTool({u"--help"_s});
    EXPECT_EQ(output.status, 0);
    EXPECT_EQ(output.err, QString());
    EXPECT_TRUE(
        output.out.startsWith(u"使い方: suite-setup コマンド [引数] [オプション]\n"
                              u"\n"
                              u"コマンド:\n"
                              u"  init フォルダ [--staff N] [--seed N] [--kind accdb|mdb] [--install-kind 0|1]\n"
                              u"       [--pin] [--replace] [--menu]\n"
                              u"      インストールを作る\n"
                              u"  upgrade フォルダ [--odbc 接続文字列] [--menu]\n"
                              u"      インストールを新しい版にする\n"_s))
        << output.out.toStdString();
    EXPECT_TRUE(
        output.out.endsWith(u"\n"
                            u"suite-setup コマンド --help   そのコマンドの引数とオプションを詳しく表示する\n"
                            u"suite-setup --help            この説明を表示する\n"
                            u"suite-setup --version         版を表示する\n"
                            u"\n"
                            u"終了コード: 0 正常  1 途中で失敗した  2 指定に誤りがあり、何も変更していない\n"_s));
    ExpectShortLines(output.out);
}

TEST(Help, HelpOfAVerbExplainsOperandsAndOptions) {
    const ToolOutput output = RunTool({u"server-init"_s, u"--help"_s});
    EXPECT_EQ(output.status, 0);
    EXPECT_EQ(output.err, QString());
    EXPECT_EQ(output.out,
              u"使い方: suite-setup server-init --odbc 接続文字列 [--from フォルダ]\n"
              u"                                [--add-missing]\n"
              u"\n"
              u"PostgreSQL または MariaDB のサーバーに一般データベースの表を作り、インストール\n"
              u"から複写します。失敗したときは、作った表を消します。\n"
              u"\n"
              u"オプション:\n"
              u"  --odbc 接続文字列         表を作る利用者とサーバー\n"
              u"                            Driver=…;Server=…;Port=…;Database=…;UID=…;PWD=…\n"
              u"                            または DSN=…;UID=…;PWD=…\n"
              u"  --from フォルダ           このインストールの一般データベースの行を複写する\n"
              u"  --add-missing             既にある表に、足りない表、列、索引、関数だけを加え\n"
              u"                            る（データはそのまま）。--from とは一緒に指定できな\n"
              u"                            い\n"
              u"  -h, --help                この説明を表示する\n"_s);
    EXPECT_EQ(RunTool({u"forms"_s, u"pdf"_s, u"--help"_s}).out,
              u"使い方: suite-setup forms pdf フォルダ 帳票名 [--out ファイル] [--user 利用者]\n"
              u"\n"
              u"今ある作業テーブルのデータで帳票を PDF にします。\n"
              u"\n"
              u"引数:\n"
              u"  フォルダ                  インストールのフォルダ\n"
              u"  帳票名                    帳票の名前\n"
              u"\n"
              u"オプション:\n"
              u"  --out ファイル            PDF のファイル（省略時は今のフォルダの 帳票名.pdf）\n"
              u"  --user 利用者             この利用者が持つ帳票を扱う（省略時は共通の帳票）\n"
              u"  -h, --help                この説明を表示する\n"_s);
}

TEST(Help, EveryVerbHasHelpThatFitsATerminal) {
    for (const setup::Verb& verb : setup::AllVerbs()) {
        if (verb.IsInternal()) continue;
        const ToolOutput output = RunTool(verb.name.split(u' ') + QStringList{u"--help"_s});
        EXPECT_EQ(output.status, 0);
        EXPECT_TRUE(output.out.startsWith(u"使い方: suite-setup %1"_s.arg(verb.name))) << verb.name.toStdString();
        for (const setup::OptionDefinition& option : verb.options)
            EXPECT_TRUE(output.out.contains(u"\n  %1"_s.arg(option.name))) << output.out.toStdString();
        ExpectShortLines(output.out);
    }
}

TEST(Help, HelpIsShownDespiteOtherErrorsAndTheFirstWordOfAPairShowsAll) {
    const QString help = RunTool({u"history"_s, u"--help"_s}).out;
    EXPECT_EQ(RunTool({u"history"_s, u"a"_s, u"b"_s, u"--stuff"_s, u"--help"_s}).out, help);
    EXPECT_EQ(RunTool({u"--help"_s, u"history"_s}).out, RunTool({u"--help"_s}).out);
    EXPECT_EQ(RunTool({u"registry"_s, u"--help"_s}).out, RunTool({u"registry"_s, u"list"_s, u"--help"_s}).out + u'\n' +
                                                             RunTool({u"registry"_s, u"get"_s, u"--help"_s}).out +
                                                             u'\n' +
                                                             RunTool({u"registry"_s, u"set"_s, u"--help"_s}).out);
}

TEST(Help, UnknownAndInternalVerbsHaveNone) {
    for (const QString& verb : {u"destroy"_s, u"manual-page"_s, u"read-jet-file"_s}) {
        const ToolOutput output = RunTool({verb, u"--help"_s});
        EXPECT_EQ(output.status, 2);
        EXPECT_EQ(output.err.section(u'\n', 0, 0), u"suite-setup: コマンド %1 はありません。"_s.arg(verb));
    }
    EXPECT_EQ(RunTool({u"forms"_s, u"print"_s, u"--help"_s}).err.section(u'\n', 0, 0),
              u"suite-setup: コマンド forms print はありません。"_s);
}

TEST(Help, ShortFormIsTheSameForEveryVerbAndChangesNothing) {
    EXPECT_EQ(RunTool({u"-h"_s}).out, RunTool({u"--help"_s}).out);
    EXPECT_EQ(RunTool({u"forms"_s, u"-h"_s}).out, RunTool({u"forms"_s, u"--help"_s}).out);
    for (const setup::Verb& verb : setup::AllVerbs()) {
        if (verb.IsInternal()) continue;
        const QStringList words = verb.name.split(u' ');
        EXPECT_EQ(RunTool(words + QStringList{u"-h"_s}).out, RunTool(words + QStringList{u"--help"_s}).out)
            << verb.name.toStdString();
    }
    EXPECT_FALSE(QFile::exists(u"-h"_s));
}

TEST(Help, MistypedVerbSuggestsTheRightOne) {
    for (const auto& [typed, text] :
         {std::pair{u"chek"_s, u"コマンド chek はありません。check ではありませんか。"_s},
          std::pair{u"hisotry"_s, u"コマンド hisotry はありません。history ではありませんか。"_s},
          std::pair{u"Upgrade"_s, u"コマンド Upgrade はありません。upgrade ではありませんか。"_s},
          std::pair{u"forms exprot"_s, u"コマンド forms exprot はありません。forms export ではありませんか。"_s},
          std::pair{u"form check"_s, u"コマンド form はありません。forms check ではありませんか。"_s},
          std::pair{u"inti"_s, u"コマンド inti はありません。init ではありませんか。"_s},
          std::pair{u"frobnicate"_s, u"コマンド frobnicate はありません。"_s},
          std::pair{u"x"_s, u"コマンド x はありません。"_s}}) {
        const ToolOutput output = RunTool(typed.split(u' '));
        EXPECT_EQ(output.status, 2);
        EXPECT_EQ(output.err.section(u'\n', 0, 0), u"suite-setup: "_s + text);
    }
}

TEST(Help, GroupAloneListsItsVerbs) {
    const ToolOutput output = RunTool({u"registry"_s});
    EXPECT_EQ(output.status, 2);
    EXPECT_EQ(output.out, QString());
    EXPECT_EQ(output.err,
              u"suite-setup: registry のあとにコマンドの続きを指定してください。\n"
              u"  registry list  レジストリの値を表示する\n"
              u"  registry get  レジストリの値を一つ表示する\n"
              u"  registry set  レジストリに値を一つ書く\n"
              u"使い方は suite-setup --help で表示されます。\n"_s);
}

TEST(Help, TableIsCompleteInBothLanguages) {
    QStringList names;
    for (const setup::Verb& verb : setup::AllVerbs()) {
        EXPECT_FALSE(names.contains(verb.name)) << verb.name.toStdString();
        names.append(verb.name);
        if (verb.IsInternal()) continue;
        QList<setup::Words> texts{verb.summary, verb.description};
        for (const setup::OperandDefinition& operand : verb.operands) texts << operand.name << operand.description;
        for (const setup::OptionDefinition& option : verb.options) texts << option.description;
        for (const setup::Words& words : texts)
            EXPECT_TRUE(!words.japanese.isEmpty() && !words.english.isEmpty()) << verb.name.toStdString();
    }
}
