#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

#include "setup/RunTool.h"
#include "support/SampleInstallation.h"
#include "support/SamplePins.h"

using namespace Qt::StringLiterals;

namespace {

struct WrongArguments {
    const char16_t* words;
    const char16_t* message;
};

class WrongArgumentsTest : public testing::TestWithParam<WrongArguments> {};

}  // namespace

TEST_P(WrongArgumentsTest, AreRefusedWithAClearText) {
    const ToolOutput output = RunTool(QString::fromUtf16(GetParam().words).split(u' ', Qt::SkipEmptyParts));
    EXPECT_EQ(output.status, 2);
    EXPECT_EQ(output.err.toStdString(), (u"suite-setup: "_s + QString::fromUtf16(GetParam().message) +
                                         u"\n使い方は suite-setup --help で表示されます。\n"_s)
                                            .toStdString());
    EXPECT_EQ(output.out, QString());
}

INSTANTIATE_TEST_SUITE_P(
    Commands, WrongArgumentsTest,
    testing::Values(
        WrongArguments{u"", u"コマンドを指定してください。"},
        WrongArguments{u"destroy /nowhere", u"コマンド destroy はありません。"},
        WrongArguments{u"init", u"インストール先のフォルダを指定してください。"},
        WrongArguments{u"init a b", u"引数 b が余分です。"},
        WrongArguments{u"init a --stuff", u"オプション --stuff は使えません。"},
        WrongArguments{u"init a --follow", u"オプション --follow は使えません。"},
        WrongArguments{u"init a --staff", u"オプション --staff の値がありません。"},
        WrongArguments{u"init a --staff --replace", u"オプション --staff の値がありません。"},
        WrongArguments{u"init a --replace=yes", u"オプション --replace に値は付けられません。"},
        WrongArguments{u"init a --staff 0", u"オプション --staff には 1 から 99999 までの整数を指定してください。"},
        WrongArguments{u"init a --staff 100000",
                       u"オプション --staff には 1 から 99999 までの整数を指定してください。"},
        WrongArguments{u"init a --staff many", u"オプション --staff には 1 から 99999 までの整数を指定してください。"},
        WrongArguments{u"init a --kind xls", u"オプション --kind には accdb、mdb のどれかを指定してください。"},
        WrongArguments{u"init a --install-kind 2", u"オプション --install-kind には 0、1 のどれかを指定してください。"},
        WrongArguments{u"seal-pins", u"インストール先のフォルダを指定してください。"},
        WrongArguments{u"seal-pins /nowhere", u"/nowhere にインストールがありません。"},
        WrongArguments{u"seal-pins a --pin", u"オプション --pin は使えません。"},
        WrongArguments{u"history /nowhere", u"/nowhere にインストールがありません。"},
        WrongArguments{u"history a --run 0",
                       u"オプション --run には 1 から 2147483647 までの整数を指定してください。"}));

TEST(Commands, HelpNamesEveryVerb) {
    const ToolOutput output = RunTool({u"--help"_s});
    EXPECT_EQ(output.status, 0);
    for (const QString& word :
         {u"init"_s, u"history"_s, u"--staff"_s, u"--seed"_s, u"--kind"_s, u"--install-kind"_s, u"--pin"_s,
          u"--replace"_s, u"seal-pins"_s, u"--follow"_s, u"--run"_s, u"--user"_s, u"forms export"_s, u"forms import"_s,
          u"forms check"_s, u"forms pdf"_s, u"--folder"_s, u"--out"_s})
        EXPECT_TRUE(output.out.contains(word)) << word.toStdString();
    EXPECT_EQ(RunTool({u"history"_s, u"--help"_s}).out, output.out);
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

TEST(Commands, FailureOnTheWayIsToldApartFromARefusal) {
    const ToolOutput output = RunTool({u"init"_s, u"/proc/no/suite"_s});
    EXPECT_EQ(output.status, 1);
    EXPECT_EQ(output.err, u"suite-setup: フォルダ /proc/no を作成できません。\n"_s);
}
