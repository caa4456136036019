#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

#include "setup/RunTool.h"
#include "support/SampleInstallation.h"
#include "support/SamplePins.h"

using namespace Qt::StringLiterals;

namespace {

/// Wrong arguments and the expected messages.
const QString kWrongArguments = QStringLiteral(
    uR"(-> コマンドを指定してください。
destroy /nowhere -> コマンド destroy はありません。
init -> インストール先のフォルダを指定してください。
init a b -> 引数 b が余分です。
init a --stuff -> オプション --stuff は使えません。
init a --follow -> オプション --follow は使えません。
init a --staff -> オプション --staff の値がありません。
init a --staff --replace -> オプション --staff の値がありません。
init a --replace=yes -> オプション --replace に値は付けられません。
init a --staff 0 -> オプション --staff には 1 から 99999 までの整数を指定してください。
init a --staff 100000 -> オプション --staff には 1 から 99999 までの整数を指定してください。
init a --staff many -> オプション --staff には 1 から 99999 までの整数を指定してください。
init a --kind xls -> オプション --kind には accdb、mdb のどれかを指定してください。
init a --install-kind 2 -> オプション --install-kind には 0、1 のどれかを指定してください。
seal-pins -> インストール先のフォルダを指定してください。
seal-pins /nowhere -> /nowhere にインストールがありません。
seal-pins a --pin -> オプション --pin は使えません。
history /nowhere -> /nowhere にインストールがありません。
history a --run 0 -> オプション --run には 1 から 2147483647 までの整数を指定してください。)");

}  // namespace

TEST(Commands, WrongArgumentsAreRefusedWithAClearText) {
    for (const QString& line : kWrongArguments.split(u'\n')) {
        const qsizetype arrow = line.indexOf(u"-> "_s);
        const ToolOutput output = RunTool(line.left(arrow).split(u' ', Qt::SkipEmptyParts));
        EXPECT_EQ(output.status, 2) << line.toStdString();
        EXPECT_EQ(output.err,
                  u"suite-setup: "_s + line.mid(arrow + 3) + u"\n使い方は suite-setup --help で表示されます。\n"_s);
        EXPECT_EQ(output.out, QString());
    }
}

TEST(Commands, HelpNamesEveryVerb) {
    const ToolOutput output = RunTool({u"--help"_s});
    EXPECT_EQ(output.status, 0);
    for (const QString& word :
         {u"init"_s,        u"history"_s,   u"--staff"_s,   u"--seed"_s,       u"--kind"_s,       u"--install-kind"_s,
          u"--pin"_s,       u"--replace"_s, u"seal-pins"_s, u"printer"_s,      u"--to-folder"_s,  u"registry list"_s,
          u"--follow"_s,    u"--run"_s,     u"--user"_s,    u"forms export"_s, u"forms import"_s, u"forms use"_s,
          u"forms check"_s, u"forms pdf"_s, u"--folder"_s,  u"--out"_s})
        EXPECT_TRUE(output.out.contains(word)) << word.toStdString();
}

TEST(Commands, InitHandsItsOptionsOn) {
    const QTemporaryDir folder;
    const QString root = folder.filePath(u"suite"_s);
    const ToolOutput output =
        RunTool({u"init"_s, u"--staff=5"_s, root, u"--kind"_s, u"mdb"_s, u"--install-kind"_s, u"1"_s});
    EXPECT_EQ(output.status, 0) << output.err.toStdString();
    EXPECT_EQ(output.out, root + u" に要員 5 名のインストールを作りました。\n"_s);
    EXPECT_EQ(SampleFile(root + u"/data/gnrdb.mdb"_s).Value(u"SELECT count(*) FROM M担当者"_s), u"5"_s);
    EXPECT_EQ(SampleFile(root + u"/conf/usrcnfg.mdb"_s).Value(u"SELECT インストール区分 FROM 動作環境定義"_s), u"1"_s);
    EXPECT_EQ(RunTool({u"init"_s, root}).status, 2);
    EXPECT_EQ(RunTool({u"init"_s, root, u"--replace"_s}).status, 0);
    EXPECT_EQ(SampleFile(root + u"/data/gnrdb.accdb"_s).Value(u"SELECT count(*) FROM M担当者"_s), u"300"_s);
}

TEST(Commands, InitWithPinsPrintsPeopleToTryThemWith) {
    const QTemporaryDir folder;
    const QString root = folder.filePath(u"suite"_s);
    const ToolOutput output = RunTool({u"init"_s, root, u"--staff"_s, u"20"_s, u"--pin"_s});
    ASSERT_EQ(output.status, 0) << output.err.toStdString();
    const QStringList lines = output.out.split(u'\n');
    ASSERT_EQ(lines.size(), 8);
    EXPECT_EQ(lines[1], u"起動すると暗証番号を尋ねます。次の要員で試せます。"_s);
    EXPECT_EQ(lines[2], u"  コード  ログインID          暗証番号  権限"_s);
    const SamplePins pins(root);
    const QStringList remarks = {u"すべて許可"_s, u"印刷だけ不許可"_s, u"処理分類 3 のプログラムだけ許可"_s,
                                 u"本社の要員（運用事業所コードが 001 のときだけ）"_s};
    const QList<QStringList> people =
        SampleFile(root + u"/data/gnrdb.accdb"_s).Rows(u"SELECT コード, ログインID, 暗証番号 FROM M担当者 LIMIT 4"_s);
    for (int i = 0; i < 4; ++i) {
        EXPECT_FALSE(people[i][1].isEmpty());
        EXPECT_EQ(lines[3 + i], u"  "_s + people[i][0].leftJustified(8) + people[i][1].leftJustified(20) +
                                    pins.Opened(people[i][2]).leftJustified(10) + remarks[i]);
    }
}

TEST(Commands, FailureOnTheWayIsDistinguishedFromAUsageError) {
    const ToolOutput output = RunTool({u"init"_s, u"/proc/no/suite"_s});
    EXPECT_EQ(output.status, 1);
    EXPECT_EQ(output.err, u"suite-setup: フォルダ /proc/no を作成できません。\n"_s);
}
