#include <algorithm>

#include "inquiry/StaffSearchTest.h"
#include "platform/RuntimeError.h"

using namespace Qt::StringLiterals;

namespace {
using StaffRow = StaffSearchTest;
using RowDates = StaffSearchTest;
using RowStamps = StaffSearchTest;
using LastView = StaffSearchTest;

class ReversedPins : public platform::PinCipherObject {
  public:
    QString ClearText(const QString& stored) override {
        QString clear = stored;
        std::reverse(clear.begin(), clear.end());
        return clear;
    }
};

StaffDatabase::Row ViewOf(const QString& key, const QString& date, const QString& time, const QString& kind) {
    return {{u"担当者コード"_s, u"00009"_s},
            {u"閲覧情報"_s, u"要員台帳更新"_s},
            {u"伝票事業所コード"_s, u""_s},
            {u"伝票番号基準日付"_s, u""_s},
            {u"伝票No"_s, u""_s},
            {u"キー項目"_s, key},
            {u"閲覧日付"_s, date},
            {u"閲覧時刻"_s, time},
            {u"閲覧区分"_s, kind}};
}
}  // namespace

TEST_F(StaffRow, TakesEveryFieldFromItsColumn) {
    platform::Services().pins = std::make_unique<ReversedPins>();
    database.AddStaff(u"00001"_s, {{u"氏名"_s, u"山田"_s},
                                   {u"カナ"_s, u"ﾔﾏﾀﾞ"_s},
                                   {u"性別区分"_s, u"1"_s},
                                   {u"暗証番号"_s, u"ABC1"_s},
                                   {u"郵便番号"_s, u"100-0001"_s},
                                   {u"住所A"_s, u"東京都"_s},
                                   {u"住所B"_s, u"千代田区"_s},
                                   {u"住所C"_s, u"一号館"_s},
                                   {u"電話"_s, u"03-1"_s},
                                   {u"携帯電話"_s, u"090-1"_s},
                                   {u"EMAIL"_s, u"y@example.jp"_s},
                                   {u"事業所コード"_s, u"001"_s},
                                   {u"部門コード"_s, u"010"_s},
                                   {u"セクションコード"_s, u"001"_s},
                                   {u"役職コード"_s, u"10"_s},
                                   {u"社員区分"_s, u"2"_s},
                                   {u"生年月日"_s, u"19650403"_s},
                                   {u"入社日付"_s, u"19890107"_s},
                                   {u"退社日付"_s, u"20990331"_s},
                                   {u"担当者メモ"_s, u"英語"_s},
                                   {u"登録日付"_s, u"20240401 090000"_s},
                                   {u"更新日付"_s, u"20251028 181559"_s}});
    Search();
    QStringList cells;
    for (int field = 0; field < kStaffTextCount; ++field) cells << Cell(static_cast<StaffText>(field));
    EXPECT_EQ(
        cells.join(u'|'),
        u"1|00001|山田|ﾔﾏﾀﾞ|女|1CBA|100-0001|東京都|千代田区|一号館|03-1|090-1|y@example.jp|東京本社|総務部|一課|部長"
        u"|在籍|パート|昭和|40|04|03|昭和|64|01|07|令和|81|03|31|英語|2024/04/01 09:00:00|2025/10/28 18:15:59"
        u"|001|010|001|10|19650403|19890107|20990331"_s);
}

TEST_F(StaffRow, NullsInEveryColumnLeaveEmptyFields) {
    database.AddStaff(u"00001"_s, {{u"氏名"_s, QString()}});
    Search();
    ASSERT_EQ(Globals().LastRow, 0);
    for (int field = 0; field < kStaffTextCount; ++field) {
        const auto text = static_cast<StaffText>(field);
        if (text == StaffText::行No || text == StaffText::担当者コード || text == StaffText::性別区分名 ||
            text == StaffText::在籍区分名 || text == StaffText::社員区分名)
            continue;
        EXPECT_EQ(Cell(text), QString()) << "field " << field;
    }
}

TEST_F(StaffRow, ANullOfAddressAHidesAddressB) {
    database.AddStaff(u"00001"_s, {{u"住所B"_s, u"千代田区"_s}, {u"住所C"_s, u"一号館"_s}});
    Search();
    EXPECT_EQ(Cell(StaffText::住所B), QString());
    EXPECT_EQ(Cell(StaffText::住所C), u"一号館"_s);
}

TEST_F(StaffRow, NullOfAddressBWithAnAddressAThrows) {
    database.AddStaff(u"00001"_s, {{u"住所A"_s, u"東京都"_s}});
    try {
        Search();
        FAIL() << "nothing was thrown";
    } catch (const platform::RuntimeError& error) {
        EXPECT_EQ(error.Number(), platform::kInvalidUseOfNull);
    }
    // The failed load must leave no lock that blocks other programs.
    EXPECT_NO_THROW(database.General(u"UPDATE M担当者 SET 住所B = ''"_s));
}

TEST_F(StaffRow, AMissingColumnThrowsForEveryRow) {
    database.AddStaff(u"00001"_s);
    database::Recordset record;
    record.Open(u"SELECT コード FROM M担当者"_s, Globals().MainConnection);
    LoadedStaff staff(record.Rows(), 1, StaffLookups());
    EXPECT_THROW(staff.Prepare(0), platform::RuntimeError);
    EXPECT_THROW(staff.Prepare(0), platform::RuntimeError);
}

TEST_F(RowDates, WithoutADateTheFourFieldsAreEmpty) {
    database.AddStaff(u"00001"_s, {{u"生年月日"_s, u""_s}, {u"入社日付"_s, u"20190501"_s}});
    Search();
    EXPECT_EQ(Cell(StaffText::生年月日年号) + Cell(StaffText::生年月日年) + Cell(StaffText::生年月日月) +
                  Cell(StaffText::生年月日日),
              QString());
    EXPECT_EQ(Cell(StaffText::入社日付年号) + Cell(StaffText::入社日付年), u"令和01"_s);
}

TEST_F(RowDates, BeforeTheFirstEraTheWesternYearIsSplit) {
    database.General(u"DELETE FROM K年号区分 WHERE 開始日付 > '' AND 開始日付 < '19890108'"_s);
    database.AddStaff(u"00001"_s, {{u"生年月日"_s, u"19650403"_s}});
    Search();
    EXPECT_EQ(Cell(StaffText::生年月日年号), u"19"_s);
    EXPECT_EQ(Cell(StaffText::生年月日年), u"65"_s);
    EXPECT_EQ(Cell(StaffText::生年月日月), u"04"_s);
    EXPECT_EQ(Cell(StaffText::生年月日日), u"03"_s);
}

TEST_F(RowDates, BeforeTheFirstEraWithoutTheCatchAllRowEraAndYearAreEmpty) {
    database.General(u"DELETE FROM K年号区分 WHERE 開始日付 < '19890108'"_s);
    database.AddStaff(u"00001"_s, {{u"生年月日"_s, u"19650403"_s}});
    Search();
    EXPECT_EQ(Cell(StaffText::生年月日年号), QString());
    EXPECT_EQ(Cell(StaffText::生年月日年), QString());
    EXPECT_EQ(Cell(StaffText::生年月日月), u"04"_s);
    EXPECT_EQ(Cell(StaffText::生年月日日), u"03"_s);
}

TEST_F(RowDates, ALongEraNameIsCutToTwoCharacters) {
    database.General(u"INSERT INTO K年号区分 VALUES ('20500101', '新時代')"_s);
    database.AddStaff(u"00001"_s, {{u"退社日付"_s, u"20991231"_s}});
    Search();
    EXPECT_EQ(Cell(StaffText::退社日付年号), u"新時"_s);
    EXPECT_EQ(Cell(StaffText::退社日付年), u"50"_s);
}

TEST_F(RowDates, AShortDateIsCutWhereItEnds) {
    database.AddStaff(u"00001"_s, {{u"入社日付"_s, u"20190"_s}});
    Search();
    EXPECT_EQ(Cell(StaffText::入社日付月), u"0"_s);
    EXPECT_EQ(Cell(StaffText::入社日付日), QString());
    EXPECT_EQ(Cell(StaffText::入社日付), u"20190"_s);
}

TEST_F(RowDates, AMissingEraTableLeavesOneErrorRowForEachLookUp) {
    database.General(u"DROP TABLE K年号区分"_s);
    database.OpenConnections();
    database.AddStaff(u"00001"_s, {{u"生年月日"_s, u"19650403"_s}});
    Search();
    EXPECT_EQ(Cell(StaffText::生年月日年号) + Cell(StaffText::生年月日年), QString());
    EXPECT_EQ(database.History().size(), 3);
}

TEST_F(RowStamps, AreCutByPosition) {
    database.AddStaff(u"00001"_s, {{u"登録日付"_s, u"abcdefghijklmnop"_s}, {u"更新日付"_s, u"20240401"_s}});
    Search();
    EXPECT_EQ(Cell(StaffText::登録日付), u"abcd/ef/gh jk:lm:no"_s);
    EXPECT_EQ(Cell(StaffText::更新日付), u"2024/04/01 ::"_s);
}

TEST_F(RowStamps, EmptyTextAndNullShowNothing) {
    database.AddStaff(u"00001"_s, {{u"登録日付"_s, u""_s}, {u"更新日付"_s, QString()}});
    Search();
    EXPECT_EQ(Cell(StaffText::登録日付), QString());
    EXPECT_EQ(Cell(StaffText::更新日付), QString());
}

TEST_F(LastView, WithoutALaunchingMemberThereIsNoQuery) {
    database.General(u"DROP TABLE T閲覧"_s);
    database.OpenConnections();
    database.AddStaff(u"00001"_s);
    Search();
    EXPECT_EQ(Rows().閲覧区分[0], -2);
    EXPECT_EQ(database.History().size(), 1);
}

TEST_F(LastView, IsTheNewestEntryOfTheLaunchingMember) {
    Globals().Staff.LaunchingStaffCode = u"00009"_s;
    for (const QString& code : {u"00001"_s, u"00002"_s, u"00003"_s, u"00004"_s}) database.AddStaff(code);
    database.Insert(u"T閲覧"_s, ViewOf(u"00001"_s, u"20250101"_s, u"101010"_s, u"1"_s));
    database.Insert(u"T閲覧"_s, ViewOf(u"00001"_s, u"20250102"_s, u"090000"_s, u"0"_s));
    database.Insert(u"T閲覧"_s, ViewOf(u"00002"_s, u"20250101"_s, u"090000"_s, u"0"_s));
    database.Insert(u"T閲覧"_s, ViewOf(u"00002"_s, u"20250101"_s, u"090001"_s, u"3"_s));
    StaffDatabase::Row ofAnotherViewer = ViewOf(u"00003"_s, u"20250101"_s, u"090001"_s, u"3"_s);
    ofAnotherViewer[0].second = u"00008"_s;
    database.Insert(u"T閲覧"_s, ofAnotherViewer);
    StaffDatabase::Row ofAVoucher = ViewOf(u"00004"_s, u"20250101"_s, u"090001"_s, u"3"_s);
    ofAVoucher[4].second = u"77"_s;
    database.Insert(u"T閲覧"_s, ofAVoucher);
    Conditions().DisplayOrder = 0;
    Search();
    EXPECT_EQ(Rows().閲覧区分[0], 0);
    EXPECT_EQ(Rows().閲覧区分[1], 3);
    EXPECT_EQ(Rows().閲覧区分[2], -1);
    EXPECT_EQ(Rows().閲覧区分[3], -1);
}

// Digits are equal on every engine; with another key the engine decides for each row.
TEST_F(LastView, AnotherKeyInTheLogChangesNothing) {
    Globals().Staff.LaunchingStaffCode = u"00009"_s;
    for (const QString& code : {u"00001"_s, u"00002"_s}) database.AddStaff(code);
    database.Insert(u"T閲覧"_s, ViewOf(u"00002"_s, u"20250101"_s, u"101010"_s, u"1"_s));
    database.Insert(u"T閲覧"_s, ViewOf(u"０００01"_s, u"20250102"_s, u"090000"_s, u"2"_s));
    Conditions().DisplayOrder = 0;
    Search();
    EXPECT_EQ(Rows().閲覧区分[0], -1);
    EXPECT_EQ(Rows().閲覧区分[1], 1);
}

TEST_F(LastView, AMissingLogLeavesOneErrorRowForEachRow) {
    Globals().Staff.LaunchingStaffCode = u"00009"_s;
    for (const QString& code : {u"00001"_s, u"00002"_s}) database.AddStaff(code);
    database.General(u"DROP TABLE T閲覧"_s);
    database.OpenConnections();
    Search();
    EXPECT_EQ(Rows().閲覧区分[0], -1);
    EXPECT_EQ(Rows().閲覧区分[1], -1);
    EXPECT_EQ(database.History().size(), 3);
}

TEST_F(RowDates, AnEraThatBeginsWithOtherCharactersIsComparedByTheEngine) {
    database.General(u"INSERT INTO K年号区分 VALUES ('2050010x', '謎代')"_s);
    database.AddStaff(u"00001"_s, {{u"入社日付"_s, u"20190501"_s}, {u"退社日付"_s, u"20991231"_s}});
    Search();
    EXPECT_EQ(Cell(StaffText::入社日付年号) + Cell(StaffText::入社日付年), u"令和01"_s);
    EXPECT_EQ(Cell(StaffText::退社日付年号) + Cell(StaffText::退社日付年), u"謎代50"_s);
}

TEST_F(RowDates, ADateWithOtherCharactersIsComparedByTheEngine) {
    database.AddStaff(u"00001"_s, {{u"入社日付"_s, u"2019050a"_s}});
    Search();
    EXPECT_EQ(Cell(StaffText::入社日付年号) + Cell(StaffText::入社日付年), u"令和01"_s);
    EXPECT_EQ(Cell(StaffText::入社日付日), u"0a"_s);
}

TEST_F(LastView, LeavesNoStatementInTheHistory) {
    Globals().Staff.LaunchingStaffCode = u"00009"_s;
    EXPECT_EQ(GetLastViewKind(u"要員台帳更新"_s, {}, {}, {}, u"00001"_s), -1);
    EXPECT_TRUE(database.History().isEmpty());
}

TEST_F(LastView, FailedQueryCountsAsNoEntryAndIsLogged) {
    Globals().Staff.LaunchingStaffCode = u"00009"_s;
    database.General(u"DROP TABLE T閲覧"_s);
    database.OpenConnections();
    EXPECT_EQ(GetLastViewKind(u"a"_s, u"b"_s, u"c"_s, u"d"_s, u"e"_s), -1);
    ASSERT_EQ(database.History().size(), 1);
    EXPECT_TRUE(database.History()[0].endsWith(
        u"SELECT TOP 1 [T閲覧].[閲覧日付],[T閲覧].[閲覧時刻],[T閲覧].[閲覧区分] FROM [T閲覧]"
        u" WHERE [T閲覧].[担当者コード] = ''00009'' AND [T閲覧].[閲覧情報] = ''a''"
        u" AND [T閲覧].[伝票事業所コード] = ''b'' AND [T閲覧].[伝票番号基準日付] = ''c''"
        u" AND [T閲覧].[伝票No] = ''d'' AND [T閲覧].[キー項目] = ''e''"
        u" ORDER BY [T閲覧].[閲覧日付] DESC, [T閲覧].[閲覧時刻] DESC"_s));
}

TEST_F(LastView, ANullKindOfAnEntryIsZero) {
    Globals().Staff.LaunchingStaffCode = u"00009"_s;
    database.Insert(u"T閲覧"_s, ViewOf(u"00001"_s, u"20250101"_s, u"101010"_s, QString()));
    EXPECT_EQ(GetLastViewKind(u"要員台帳更新"_s, u""_s, u""_s, u""_s, u"00001"_s), 0);
}
