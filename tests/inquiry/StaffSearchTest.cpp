#include "inquiry/StaffSearchTest.h"

using namespace Qt::StringLiterals;

namespace {
using StaffSearch = StaffSearchTest;
using StaffReload = StaffSearchTest;

/// The history row of a statement: quotes are doubled.
QString HistoryEntry(const QString& statement) { return u"出力終了 "_s + QString(statement).replace(u"'"_s, u"''"_s); }

QString Codes(const QString& first) { return u"コード = '"_s + first + u'\''; }
}  // namespace

TEST_F(StaffSearch, FillsTheStoreInOrderAndLogsTheStatement) {
    database.AddStaff(u"00002"_s, {{u"事業所コード"_s, u"001"_s}});
    database.AddStaff(u"00001"_s, {{u"事業所コード"_s, u"002"_s}});
    Search();
    EXPECT_EQ(Found(), (QStringList{u"00002"_s, u"00001"_s}));
    EXPECT_EQ(Found(StaffText::行No), (QStringList{u"1"_s, u"2"_s}));
    EXPECT_EQ(Rows().出力対象[0], 1);
    EXPECT_EQ(Rows().出力対象[1], 1);
    EXPECT_EQ(Rows().出力対象[2], 0);
    EXPECT_EQ(database.History(), QStringList{HistoryEntry(BuildStaffStatement())});
}

TEST_F(StaffSearch, WithoutRowsLeavesItsStatementInTheHistoryToo) {
    Search();
    EXPECT_EQ(Globals().LastRow, -1);
    EXPECT_EQ(database.History(), QStringList{HistoryEntry(BuildStaffStatement())});
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(StaffSearch, ByTelephoneFailsQuietlyWithAnEmptyListAndOneErrorRow) {
    database.AddStaff(u"00001"_s, {{u"電話"_s, u"03-1111-2222"_s}});
    Conditions().SearchPhone = u"03"_s;
    Search();
    EXPECT_EQ(Globals().LastRow, -1);
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
    const QStringList history = database.History();
    ASSERT_EQ(history.size(), 1);
    EXPECT_TRUE(history[0].startsWith(u"エラー "_s));
    EXPECT_TRUE(history[0].endsWith(HistoryEntry(BuildStaffStatement()).mid(5)));
}

TEST_F(StaffSearch, ByAListOfTelephonesWorks) {
    database.AddStaff(u"00001"_s, {{u"電話"_s, u"03-1111-2222"_s}});
    database.AddStaff(u"00002"_s, {{u"電話"_s, u"06-1111-2222"_s}});
    const FakeSelection window(u"wnd担当者電話複数指定"_s, {u"03-"_s, u"045-"_s}, true);
    Globals().Flags.PhoneListGiven = true;
    Search();
    EXPECT_EQ(Found(), QStringList{u"00001"_s});
}

TEST_F(StaffSearch, ClassTablesDropRowsSilently) {
    database.AddStaff(u"00001"_s);
    database.AddStaff(u"00002"_s, {{u"性別区分"_s, u"7"_s}});
    database.AddStaff(u"00003"_s, {{u"社員区分"_s, QString()}});
    database.AddStaff(u"00004"_s, {{u"在籍区分"_s, u"7"_s}});
    Conditions().EnrolmentKind = 9;
    Search();
    EXPECT_EQ(Found(), QStringList{u"00001"_s});
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(StaffSearch, StaffWithoutOfficeDepartmentSectionOrPositionStay) {
    database.AddStaff(u"00001"_s, {{u"事業所コード"_s, u"777"_s},
                                   {u"部門コード"_s, u""_s},
                                   {u"セクションコード"_s, QString()},
                                   {u"役職コード"_s, u"99"_s}});
    database.AddStaff(u"00002"_s, {{u"事業所コード"_s, u"001"_s},
                                   {u"部門コード"_s, u"020"_s},
                                   {u"セクションコード"_s, u"002"_s},
                                   {u"役職コード"_s, u"10"_s}});
    Conditions().DisplayOrder = 0;
    Search();
    EXPECT_EQ(Found(), (QStringList{u"00001"_s, u"00002"_s}));
    EXPECT_EQ(Found(StaffText::所属事業所名), (QStringList{QString(), u"東京本社"_s}));
    EXPECT_EQ(Found(StaffText::部門名), (QStringList{QString(), u"営業部"_s}));
    EXPECT_EQ(Found(StaffText::セクション名), (QStringList{QString(), u"二課"_s}));
    EXPECT_EQ(Found(StaffText::役職名), (QStringList{QString(), u"部長"_s}));
    EXPECT_EQ(Found(StaffText::部門コード), (QStringList{QString(), u"020"_s}));
}

TEST_F(StaffSearch, AMissingClassTableEndsEmptyWithAnErrorRow) {
    database.AddStaff(u"00001"_s);
    database.General(u"DROP TABLE K性別区分"_s);
    database.OpenConnections();
    Search();
    EXPECT_EQ(Globals().LastRow, -1);
    ASSERT_EQ(database.History().size(), 1);
    EXPECT_TRUE(database.History()[0].startsWith(u"エラー "_s));
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(StaffSearch, AnEmptyClassTableDropsEverybody) {
    database.AddStaff(u"00001"_s);
    database.General(u"DELETE FROM K社員区分"_s);
    Search();
    EXPECT_EQ(Globals().LastRow, -1);
    EXPECT_EQ(database.History(), QStringList{HistoryEntry(BuildStaffStatement())});
}

TEST_F(StaffSearch, AnEmptyEndFindsNothing) {
    database.AddStaff(u"00001"_s, {{u"役職コード"_s, u"10"_s}});
    Conditions().PositionTo.clear();
    Search();
    EXPECT_EQ(Globals().LastRow, -1);
    EXPECT_EQ(database.History().size(), 1);
}

TEST_F(StaffSearch, AnUnknownDisplayOrderIsNoFailure) {
    database.AddStaff(u"00001"_s);
    Conditions().DisplayOrder = 7;
    Search();
    EXPECT_EQ(Found(), QStringList{u"00001"_s});
}

TEST_F(StaffSearch, WithoutAConnectionEndsEmptyAndLeavesAnErrorRow) {
    database.AddStaff(u"00001"_s);
    Globals().MainConnection.Close();
    Search();
    EXPECT_EQ(Globals().LastRow, -1);
    ASSERT_EQ(database.History().size(), 1);
    EXPECT_TRUE(database.History()[0].startsWith(u"エラー "_s));
}

TEST_F(StaffSearch, KeepsLoadingIfAHandlerClosesTheConnections) {
    for (int i = 1; i <= 20; ++i) database.AddStaff(u"000"_s + QString::number(10 + i));
    Globals().Staff.LaunchingStaffCode = u"00001"_s;
    const WhenEventsPass close([] {
        Globals().MainConnection.Close();
        Globals().ConfigConnection.Close();
    });
    Search();
    EXPECT_EQ(Globals().LastRow, 19);
    EXPECT_EQ(Cell(StaffText::担当者名, 19), u"氏名00030"_s);
    EXPECT_EQ(Rows().閲覧区分[19], -1);
}

namespace {
struct TextCase {
    const char* name;
    QString text, hit, miss;
};
void PrintTo(const TextCase& text, std::ostream* out) { *out << text.name; }
class StaffSearchByText : public StaffSearchTest, public ::testing::WithParamInterface<TextCase> {};
}  // namespace

TEST_P(StaffSearchByText, FindsWhatHoldsIt) {
    database.AddStaff(u"00001"_s, {{u"氏名"_s, GetParam().hit}});
    database.AddStaff(u"00002"_s, {{u"氏名"_s, GetParam().miss}});
    Conditions().SearchName = GetParam().text;
    Search();
    EXPECT_EQ(Found(), QStringList{u"00001"_s});
    EXPECT_EQ(database.History(), QStringList{HistoryEntry(BuildStaffStatement())});
}

INSTANTIATE_TEST_SUITE_P(Of, StaffSearchByText,
                         ::testing::Values(TextCase{"Quote", u"O'H"_s, u"Mary O'Hara"_s, u"Mary OHara"_s},
                                           TextCase{"PercentAsWildcard", u"山%郎"_s, u"山田太郎"_s, u"太郎山田"_s},
                                           TextCase{"UnderscoreAsWildcard", u"山_太"_s, u"山田太郎"_s, u"山太郎"_s},
                                           TextCase{"ListAsWildcard", u"[田中]村"_s, u"中村"_s, u"木村"_s},
                                           TextCase{"KanaOfAnyType", u"やまだ"_s, u"ヤマダ"_s, u"ヤマタ"_s},
                                           TextCase{"HalfWidthKana", u"ﾔﾏﾀﾞ"_s, u"やまだ"_s, u"やまた"_s},
                                           TextCase{"LettersOfAnyWidthAndCase", u"ｓａｔｏ"_s, u"SATO"_s, u"SAITO"_s},
                                           TextCase{"SurrogatePair", u"𠮷"_s, u"𠮷野"_s, u"吉野"_s},
                                           TextCase{"TenThousandCharacters", QString(10'000, u'山'),
                                                    QString(10'000, u'山'), QString(9'999, u'山')}),
                         [](const auto& set) { return std::string(set.param.name); });

TEST_F(StaffReload, ReadsTheRowAgainAndSetsTheTickAgain) {
    database.AddStaff(u"00001"_s, {{u"カナ"_s, u"ｱ"_s}});
    database.AddStaff(u"00002"_s);
    Conditions().DisplayOrder = 0;
    Search();
    Rows().出力対象[0] = 0;
    database.General(u"UPDATE M担当者 SET 氏名 = '新姓', カナ = NULL WHERE "_s + Codes(u"00001"_s));
    ReloadStaffRow(0);
    EXPECT_EQ(Cell(StaffText::担当者名), u"新姓"_s);
    EXPECT_EQ(Cell(StaffText::カナ), QString());
    EXPECT_EQ(Rows().出力対象[0], 1);
    EXPECT_EQ(Cell(StaffText::担当者名, 1), u"氏名00002"_s);
    EXPECT_EQ(form.Item(u"担当者名"_s, 0).Text(), u"新姓"_s);
}

TEST_F(StaffReload, ComesBackEvenIfItNoLongerMeetsTheConditions) {
    database.AddStaff(u"00001"_s);
    Search();
    database.General(u"UPDATE M担当者 SET 在籍区分 = '1'"_s);
    ReloadStaffRow(0);
    EXPECT_EQ(Found(), QStringList{u"00001"_s});
    EXPECT_EQ(Cell(StaffText::在籍区分名), u"退職"_s);
}

TEST_F(StaffReload, LeavesItsStatementInTheHistory) {
    database.AddStaff(u"00001"_s);
    Search();
    ReloadStaffRow(0);
    ASSERT_EQ(database.History().size(), 2);
    const QString head = HistoryEntry(BuildStaffStatement().section(u" WHERE "_s, 0, 0));
    EXPECT_EQ(database.History()[1], head + u" WHERE M担当者.コード = ''00001''"_s);
}

TEST_F(StaffReload, RemovesADeletedMemberAndKeepsTheGapInTheNumbers) {
    for (const QString& code : {u"00001"_s, u"00002"_s, u"00003"_s})
        database.AddStaff(code, {{u"EMAIL"_s, code + u"@a"_s}});
    Conditions().DisplayOrder = 0;
    Search();
    database.General(u"DELETE FROM M担当者 WHERE "_s + Codes(u"00002"_s));
    ReloadStaffRow(1);
    EXPECT_EQ(Found(), (QStringList{u"00001"_s, u"00003"_s}));
    EXPECT_EQ(Found(StaffText::行No), (QStringList{u"1"_s, u"3"_s}));
    EXPECT_EQ(Found(StaffText::EMAIL), (QStringList{u"00001@a"_s, QString()}));
    EXPECT_EQ(form.Item(u"担当者コード"_s, 1).Text(), u"00003"_s);
    EXPECT_EQ(form.Item(u"担当者コード"_s, 2).Text(), QString());
}

TEST_F(StaffReload, AFailedReadRemovesTheRowLikeADeletedOne) {
    database.AddStaff(u"00001"_s);
    database.AddStaff(u"00002"_s);
    Conditions().DisplayOrder = 0;
    Search();
    Globals().MainConnection.Close();
    ReloadStaffRow(0);
    EXPECT_EQ(Found(), QStringList{u"00002"_s});
    EXPECT_TRUE(database.History().last().startsWith(u"エラー "_s));
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

TEST_F(StaffReload, TheCodeGoesInUnquotedSoAQuoteInItRemovesTheRow) {
    database.AddStaff(u"0'001"_s);
    Search();
    ASSERT_EQ(Found(), QStringList{u"0'001"_s});
    ReloadStaffRow(0);
    EXPECT_EQ(Globals().LastRow, -1);
}
