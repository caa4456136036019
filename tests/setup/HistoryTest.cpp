#include <gtest/gtest.h>

#include <QDir>

#include "setup/HistoryRows.h"
#include "setup/RunTool.h"
#include "setup/TerminalTable.h"
#include "setup/commands/HistoryRuns.h"
#include "support/SampleInstallation.h"

using namespace Qt::StringLiterals;

namespace {

/// Two runs; the older one was killed.
void AddTwoRuns(const SampleFile& file) {
    AddRow(file, u"090000"_s, 1, u"開始 001"_s, u"tester"_s, u""_s);
    AddRow(file, u"090001"_s, 2, u"出力終了 SELECT M担当者.* WHERE 氏名 LIKE ''%山%''"_s);
    AddRow(file, u"100000"_s, 1, u"開始 "_s);
    AddRow(file, u"100005"_s, 2, u"終了"_s);
}

const QString kOlder =
    u"2  2026/11/21 09:00:00  要員名簿照会  tester\n"
    u"番号  日時                 事業所  担当者  摘要\n"
    u"   1  2026/11/21 09:00:00  000             開始 001\n"
    u"   2  2026/11/21 09:00:01  000     00001   出力終了\n"
    u"      SELECT M担当者.* WHERE 氏名 LIKE '%山%'\n"
    u"      （終了の行がありません）\n"_s;
const QString kNewer =
    u"実行 1  2026/11/21 10:00:00  要員名簿照会  tester\n"
    u"番号  日時                 事業所  担当者  摘要\n"
    u"   1  2026/11/21 10:00:00  000     00001   開始 \n"
    u"   2  2026/11/21 10:00:05  000     00001   終了\n"_s;

}  // namespace

TEST(History, ShowsRunsApartAndNewestLast) {
    const SampleInstallation installation({.staff = 1});
    AddTwoRuns(installation.Configuration());
    const ToolOutput output = RunTool({u"history"_s, installation.Root()});
    EXPECT_EQ(output.out.toStdString(), (u"実行 "_s + kOlder + u'\n' + kNewer).toStdString());
    EXPECT_EQ(output.err, QString());
    EXPECT_EQ(output.status, 0);
}

TEST(History, RunCountsFromTheNewest) {
    const SampleInstallation installation({.staff = 1});
    AddTwoRuns(installation.Configuration());
    EXPECT_EQ(RunTool({u"history"_s, installation.Root(), u"--run"_s, u"1"_s}).out.toStdString(), kNewer.toStdString());
    EXPECT_EQ(RunTool({u"history"_s, u"--run=2"_s, installation.Root()}).out.toStdString(),
              (u"実行 "_s + kOlder).toStdString());
    const ToolOutput beyond = RunTool({u"history"_s, installation.Root(), u"--run"_s, u"3"_s});
    EXPECT_EQ(beyond.status, 2);
    EXPECT_TRUE(beyond.err.startsWith(u"suite-setup: 実行は 2 件しかありません。\n"_s));
}

TEST(History, EmptyHistoryIsSaid) {
    const SampleInstallation installation({.staff = 1});
    const ToolOutput output = RunTool({u"history"_s, installation.Root()});
    EXPECT_EQ(output.out, u"履歴はまだありません。\n"_s);
    EXPECT_EQ(output.status, 0);
}

TEST(History, FollowShowsRowsAsTheyAreWritten) {
    const SampleInstallation installation({.staff = 1});
    const SampleFile file = installation.Configuration();
    AddTwoRuns(file);
    QList<std::function<void()>> later{
        [&] { AddRow(file, u"110000"_s, 3, u"エラー 読めません"_s); },
        [&] { AddRow(file, u"110001"_s, 4, u"終了"_s); },
        [&] { AddRow(file, u"120000"_s, 1, u"開始 "_s); },
    };
    const ToolOutput output = RunTool({u"history"_s, installation.Root(), u"--follow"_s, u"--run"_s, u"1"_s}, [&] {
        if (later.isEmpty()) return false;
        later.takeFirst()();
        return true;
    });
    EXPECT_EQ(output.out.toStdString(), (kNewer + u"\n続き  2026/11/21 09:00:00  要員名簿照会  tester\n"
                                                  u"番号  日時                 事業所  担当者  摘要\n"
                                                  u"   3  2026/11/21 11:00:00  000     00001   エラー 読めません\n"
                                                  u"   4  2026/11/21 11:00:01  000     00001   終了\n"
                                                  u"\n新しい実行  2026/11/21 12:00:00  要員名簿照会  tester\n"
                                                  u"番号  日時                 事業所  担当者  摘要\n"
                                                  u"   1  2026/11/21 12:00:00  000     00001   開始 \n"_s)
                                            .toStdString());
}

TEST(History, UserNarrowsTheSharedHistory) {
    const SampleInstallation installation({.staff = 1});
    AddTwoRuns(installation.Configuration());
    AddRow(installation.Configuration(), u"130000"_s, 1, u"開始 "_s, u"suzuki"_s);
    const QString out = RunTool({u"history"_s, installation.Root(), u"--user"_s, u"suzuki"_s}).out;
    EXPECT_TRUE(out.startsWith(u"実行 1  2026/11/21 13:00:00  要員名簿照会  suzuki\n"_s));
    EXPECT_FALSE(out.contains(u"tester"_s));
}

TEST(History, PrivateCopiesAreReadForEveryUserOrForOne) {
    const SampleInstallation installation({.staff = 1, .installKind = 1});
    for (const QString& user : {u"sato"_s, u"abe"_s}) {
        const QString conf = installation.UserFolder(user) + u"/conf"_s;
        ASSERT_TRUE(QDir().mkpath(conf));
        ASSERT_TRUE(QFile::copy(installation.Configuration().Path(), conf + u"/usrcnfg.accdb"_s));
        AddRow(SampleFile(conf + u"/usrcnfg.accdb"_s), user == u"abe"_s ? u"090000"_s : u"080000"_s, 1, u"開始 "_s,
               user);
    }
    AddRow(installation.Configuration(), u"070000"_s, 1, u"開始 "_s, u"nobody"_s);
    const QString all = RunTool({u"history"_s, installation.Root()}).out;
    EXPECT_LT(all.indexOf(u"sato"_s), all.indexOf(u"abe"_s));
    EXPECT_TRUE(all.contains(u"実行 2  2026/11/21 08:00:00  要員名簿照会  sato\n"_s));
    EXPECT_FALSE(all.contains(u"nobody"_s));
    EXPECT_FALSE(RunTool({u"history"_s, installation.Root(), u"--user"_s, u"abe"_s}).out.contains(u"sato"_s));
    for (const QString& user : {u"kato"_s, u"../users/abe"_s})
        EXPECT_EQ(RunTool({u"history"_s, installation.Root(), u"--user"_s, user}).status, 2) << user.toStdString();
}

TEST(History, UnreadableConfigurationIsAFailureAndNotAUsageError) {
    const SampleInstallation installation({.staff = 1});
    QFile file(installation.Configuration().Path());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write("no database at all"), 18);
    file.close();
    const ToolOutput output = RunTool({u"history"_s, installation.Root()});
    EXPECT_EQ(output.status, 1);
    EXPECT_TRUE(output.err.startsWith(u"suite-setup: "_s));
}

TEST(History, ReadingWritesNothing) {
    const SampleInstallation installation({.staff = 1});
    AddTwoRuns(installation.Configuration());
    QFile file(installation.Configuration().Path());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray before = file.readAll();
    EXPECT_EQ(RunTool({u"history"_s, installation.Root()}).status, 0);
    ASSERT_TRUE(file.seek(0));
    EXPECT_EQ(file.readAll(), before);
}

namespace {

struct Step {
    const char16_t* user;
    int counter;
    const char16_t* text;
    int run;
};

QList<int> Sorted(const QList<Step>& steps) {
    setup::RunSorter sorter;
    QList<int> runs;
    for (const Step& step : steps) {
        setup::HistoryRow row;
        row.user = QString::fromUtf16(step.user);
        row.counter = QString::number(step.counter).rightJustified(12, u'0');
        row.text = QString::fromUtf16(step.text);
        runs.append(sorter.Add(row));
    }
    return runs;
}

QList<int> Expected(const QList<Step>& steps) {
    QList<int> runs;
    for (const Step& step : steps) runs.append(step.run);
    return runs;
}

}  // namespace

TEST(RunSorter, UsersWritingIntoEachOtherAreTwoRuns) {
    const QList<Step> steps{{u"a", 1, u"開始 ", 0},
                            {u"b", 1, u"開始 ", 1},
                            {u"a", 2, u"出力開始 印刷", 0},
                            {u"b", 2, u"終了", 1},
                            {u"a", 3, u"終了", 0}};
    EXPECT_EQ(Sorted(steps), Expected(steps));
}

TEST(RunSorter, TwoRunsOfOneUserAreDistinguishedByTheirNumbers) {
    const QList<Step> steps{{u"a", 1, u"開始 ", 0}, {u"a", 2, u"エラー x", 0}, {u"a", 3, u"エラー y", 0},
                            {u"a", 1, u"開始 ", 1}, {u"a", 4, u"終了", 0},     {u"a", 2, u"終了", 1}};
    EXPECT_EQ(Sorted(steps), Expected(steps));
}

TEST(RunSorter, OfRunsThatItContinuesARowBelongsToTheNewest) {
    const QList<Step> steps{
        {u"a", 1, u"開始 ", 0}, {u"a", 1, u"開始 ", 1}, {u"a", 2, u"エラー x", 1}, {u"a", 2, u"エラー y", 0}};
    EXPECT_EQ(Sorted(steps), Expected(steps));
}

TEST(RunSorter, LostRowLeavesAGapInItsRun) {
    const QList<Step> steps{{u"a", 1, u"開始 ", 0}, {u"a", 4, u"エラー x", 0}, {u"a", 5, u"終了", 0}};
    EXPECT_EQ(Sorted(steps), Expected(steps));
}

TEST(RunSorter, RowAfterAnEndOrBeforeABeginningIsASeparateRun) {
    const QList<Step> steps{
        {u"a", 7, u"終了", 0}, {u"a", 1, u"開始 ", 1}, {u"a", 2, u"終了", 1}, {u"a", 3, u"終了", 2}};
    EXPECT_EQ(Sorted(steps), Expected(steps));
}

TEST(TerminalTable, WidthIsWhatATerminalShows) {
    struct {
        const char16_t* text;
        int width;
    } constexpr kCases[] = {{u"", 0},       {u"abc", 3}, {u"要員", 4}, {u"ｶﾞ", 2},   {u"ガ", 2},  {u"ガ", 2},
                            {u"（終）", 6}, {u"　", 2},  {u"𠮷", 2},   {u"－～", 4}, {u"あ1", 3}, {u"￥", 2}};
    for (const auto& test : kCases) {
        const QString text = QString::fromUtf16(test.text);
        EXPECT_EQ(setup::DisplayWidth(text), test.width) << text.toStdString();
    }
    EXPECT_EQ(setup::PadRight(u"部門"_s, 6), u"部門  "_s);
    EXPECT_EQ(setup::PadLeft(u"番号"_s, 3), u"番号"_s);
    EXPECT_EQ(setup::StripControlCharacters(u"a\r\nb\tc"_s), u"a  b c"_s);
}
