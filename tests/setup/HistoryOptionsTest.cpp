// Command history: what its options choose and how it shows them.

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QTemporaryDir>

#include "setup/HistoryRows.h"
#include "setup/RunTool.h"
#include "setup/commands/HistoryText.h"
#include "support/FileBytes.h"

namespace {

/// Three runs: of tester with an error on the 20th, of suzuki without a start row and of tester on the 21st.
class HistoryOptions : public testing::Test {
  protected:
    HistoryOptions() {
        const SampleFile& file = installation.Configuration();
        AddRow(file, u"20261120 090000"_s, 1, u"開始 001 \"x\""_s, u"tester"_s, u""_s);
        AddRow(file, u"20261120 090001"_s, 2,
               u"エラー no such table: M部門SELECT * FROM M部門 WHERE コード = ''010''"_s);
        AddRow(file, u"20261120 090002"_s, 3, u"終了"_s);
        AddRow(file, u"20261121 080000"_s, 7, u"出力開始 印刷"_s, u"suzuki"_s);
        AddRow(file, u"20261121 093000"_s, 1, u"開始 "_s);
        AddRow(file, u"20261121 093001"_s, 2, u"終了"_s);
    }
    QString History(const QStringList& options) const {
        const ToolOutput output = RunTool(QStringList{u"history"_s, installation.Root()} + options);
        EXPECT_EQ(output.status, 0) << output.err.toStdString();
        return output.out;
    }
    /// Numbers of the runs in an output.
    QStringList Runs(const QStringList& options) const {
        QStringList numbers;
        for (const QString& line : History(options).split(u'\n'))
            if (line.startsWith(u"実行 "_s)) numbers.append(line.section(u' ', 1, 1));
        return numbers;
    }

    SampleInstallation installation{{.staff = 1}};
};

}  // namespace

TEST_F(HistoryOptions, ErrorsAreShownAloneWithTheirStatement) {
    EXPECT_EQ(History({u"--errors"_s}),
              u"実行 3  2026/11/20 09:00:00  要員名簿照会  tester\n"
              u"番号  日時                 事業所  担当者  摘要\n"
              u"   2  2026/11/20 09:00:01  000     00001   エラー no such table: M部門\n"
              u"      SELECT * FROM M部門 WHERE コード = '010'\n"_s);
    EXPECT_EQ(History({u"--errors"_s, u"--user"_s, u"suzuki"_s}), u"当てはまる履歴はありません。\n"_s);
}

TEST_F(HistoryOptions, RunsAreChosenByTheTimesOfTheirRows) {
    EXPECT_EQ(Runs({}), (QStringList{u"3"_s, u"2"_s, u"1"_s}));
    EXPECT_EQ(Runs({u"--since"_s, u"2026-11-21"_s}), (QStringList{u"2"_s, u"1"_s}));
    EXPECT_EQ(Runs({u"--until"_s, u"2026/11/20"_s}), QStringList{u"3"_s});
    EXPECT_EQ(Runs({u"--since"_s, u"20261121 0800"_s, u"--until"_s, u"2026-11-21T09:29:59"_s}), QStringList{u"2"_s});
    EXPECT_EQ(Runs({u"--since"_s, u"2026-11-20 09:00:02"_s, u"--until"_s, u"2026-11-20 09:00:02"_s}),
              QStringList{u"3"_s});
    EXPECT_EQ(Runs({u"--since"_s, u"2026-11-22"_s}), QStringList());
    EXPECT_EQ(Runs({u"--since"_s, u"2026-11-20 09:00:02"_s, u"--errors"_s}), QStringList());
}

TEST_F(HistoryOptions, RunsOfAllUsersAreOneTable) {
    EXPECT_EQ(History({u"--short"_s}),
              u"実行  開始                 終了                 利用者  プログラム    行  エラー  起動コマンド\n"
              u"   3  2026/11/20 09:00:00  2026/11/20 09:00:02  tester  要員名簿照会  3   1       001 \"x\"\n"
              u"   2  2026/11/21 08:00:00  （なし）             suzuki  要員名簿照会  1   0       "
              u"（開始の行がありません）\n"
              u"   1  2026/11/21 09:30:00  2026/11/21 09:30:01  tester  要員名簿照会  2   0       \n"_s);
    EXPECT_EQ(History({u"--short"_s, u"--since"_s, u"2026-11-22"_s}), u"当てはまる履歴はありません。\n"_s);
}

TEST_F(HistoryOptions, RowsAreWrittenToACsvFile) {
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"history.csv"_s);
    WriteBytes(file, "old");
    EXPECT_EQ(History({u"--csv"_s, file, u"--until"_s, u"2026-11-20"_s}),
              u"%1 に 3 行を書き込みました。\n"_s.arg(file));
    const QString text =
        QChar(0xFEFF) +
        u"\"実行\",\"日時\",\"プログラム\",\"利用者\",\"番号\",\"事業所\",\"担当者\",\"摘要\",\"SQL\"\r\n"
        u"\"3\",\"2026/11/20 09:00:00\",\"要員名簿照会\",\"tester\",\"1\",\"000\",\"\",\"開始 001 \"\"x\"\"\",\"\"\r\n"
        u"\"3\",\"2026/11/20 09:00:01\",\"要員名簿照会\",\"tester\",\"2\",\"000\",\"00001\","
        u"\"エラー no such table: M部門\",\"SELECT * FROM M部門 WHERE コード = '010'\"\r\n"
        u"\"3\",\"2026/11/20 09:00:02\",\"要員名簿照会\",\"tester\",\"3\",\"000\",\"00001\",\"終了\",\"\"\r\n"_s;
    EXPECT_EQ(ReadBytes(file), text.toUtf8());
    EXPECT_EQ(RunTool({u"history"_s, installation.Root(), u"--csv"_s, u"/nowhere/history.csv"_s}).status, 1);
}

TEST_F(HistoryOptions, FollowShowsErrorsOnlyIfAskedTo) {
    int round = 0;
    const ToolOutput output = RunTool({u"history"_s, installation.Root(), u"--follow"_s, u"--errors"_s}, [&] {
        if (++round > 1) return false;
        AddRow(installation.Configuration(), u"100000"_s, 1, u"開始 "_s);
        AddRow(installation.Configuration(), u"100001"_s, 2, u"エラー 読めません"_s);
        return true;
    });
    EXPECT_TRUE(
        output.out.endsWith(u"\n続き  2026/11/21 10:00:00  要員名簿照会  tester\n"
                            u"番号  日時                 事業所  担当者  摘要\n"
                            u"   2  2026/11/21 10:00:01  000     00001   エラー 読めません\n"_s))
        << output.out.toStdString();
}

TEST_F(HistoryOptions, InvalidTimesAndFormsAreRefused) {
    for (const QString& time : {u"yesterday"_s, u"2026-13-01"_s, u"2026-11"_s, u"2026-11-21 25:00"_s, u""_s,
                                u"２０２６１１２１"_s, u"2026112109305"_s})
        for (const QString& name : {u"--since"_s, u"--until"_s}) {
            const ToolOutput output = RunTool({u"history"_s, installation.Root(), name + u'=' + time});
            EXPECT_EQ(output.status, 2) << time.toStdString();
            EXPECT_EQ(
                output.err.section(u'\n', 0, 0),
                u"suite-setup: オプション %1 には 2026-11-21 か \"2026-11-21 09:30\" の形で日時を指定してください。"_s
                    .arg(name));
        }
    EXPECT_EQ(RunTool({u"history"_s, installation.Root(), u"--short"_s, u"--follow"_s}).err.section(u'\n', 0, 0),
              u"suite-setup: --short、--csv、--follow は一つだけ指定してください。"_s);
}

TEST_F(HistoryOptions, UnknownUserIsRefused) {
    EXPECT_EQ(RunTool({u"history"_s, installation.Root(), u"--user"_s, u"no-such-user"_s}).err.section(u'\n', 0, 0),
              u"suite-setup: 利用者 no-such-user はいません。"_s);
    EXPECT_EQ(History({u"--user"_s, u"nobody"_s}), u"履歴はまだありません。\n"_s) << "an account without rows";
}

TEST(HistoryText, StatementIsSeparatedFromWhatPrecedesIt) {
    const auto parts = [](const QString& text) {
        setup::HistoryRow row;
        row.text = text;
        const setup::HistoryText found = setup::PartsOf(row);
        return QStringList{found.head, found.statement};
    };
    EXPECT_EQ(parts(u"出力終了 UPDATE 動作環境定義 SET 起動担当者コード = ''00001''"_s),
              (QStringList{u"出力終了"_s, u"UPDATE 動作環境定義 SET 起動担当者コード = '00001'"_s}));
    EXPECT_EQ(parts(u"エラー 失敗INSERT INTO a SELECT 1"_s),
              (QStringList{u"エラー 失敗"_s, u"INSERT INTO a SELECT 1"_s}));
    EXPECT_EQ(parts(u"エラー DB_OPEN ERROR-1 x"_s), (QStringList{u"エラー DB_OPEN ERROR-1 x"_s, QString()}));
    EXPECT_EQ(parts(u"出力終了 印刷"_s), (QStringList{u"出力終了 印刷"_s, QString()}));
    EXPECT_EQ(parts(u"開始 SELECT "_s), (QStringList{u"開始 SELECT "_s, QString()}));
}

/// With a search through all open runs for every row this would take minutes.
TEST(RunSorter, ManyKilledRunsAreSortedQuickly) {
    setup::RunSorter sorter;
    QElapsedTimer time;
    time.start();
    for (int run = 0; run < 50000; ++run)
        for (const auto& [counter, text] : {std::pair{1, u"開始 "_s}, std::pair{2, u"エラー x"_s}}) {
            setup::HistoryRow row;
            row.user = u"a"_s;
            row.counter = QString::number(counter).rightJustified(12, u'0');
            row.text = text;
            EXPECT_EQ(sorter.Add(row), run);
        }
    EXPECT_LT(time.elapsed(), 20000);
}
