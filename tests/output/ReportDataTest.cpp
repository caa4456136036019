#include "output/ReportData.h"

#include "support/OutputFixture.h"

using namespace Qt::StringLiterals;
using enum StaffText;

namespace {

class ReportData : public OutputTest {
  protected:
    ReportData() {
        AddEras();
        OpenReportDatabase();
    }
    QStringList Codes() const { return WorkColumn(u"コード"_s); }
};

}  // namespace

TEST_F(ReportData, EveryColumnTakesItsFieldOfTheRow) {
    Globals().OfficeCount = 1;
    Globals().Environment.OperatingOfficeCode = u"001"_s;
    Globals().Office.名称 = u"東京本社"_s;
    QHash<StaffText, QString> fields;
    for (int field = 0; field < kStaffTextCount; ++field)
        fields.insert(static_cast<StaffText>(field), u"f%1"_s.arg(field));
    fields[生年月日] = u"19650403"_s;
    fields[入社日付] = u"19890108"_s;
    fields[退社日付] = u"19261224"_s;
    AddRow(fields);
    EXPECT_TRUE(BuildReportData());
    const auto was = [&](const QString& column, StaffText field) { return column + u'=' + fields[field]; };
    EXPECT_EQ(WorkRows(u"要員名簿照会"_s), QList<QStringList>{QStringList({u"運用事業所コード=001"_s,
                                                                           u"運用事業所名=東京本社"_s,
                                                                           u"選択条件=表示順：所属コード順"_s,
                                                                           was(u"コード"_s, 担当者コード),
                                                                           was(u"氏名"_s, 担当者名),
                                                                           was(u"カナ"_s, カナ),
                                                                           was(u"性別区分名"_s, 性別区分名),
                                                                           was(u"郵便番号"_s, 郵便番号),
                                                                           was(u"住所A"_s, 住所A),
                                                                           was(u"住所B"_s, 住所B),
                                                                           was(u"住所C"_s, 住所C),
                                                                           was(u"電話"_s, 電話),
                                                                           was(u"携帯電話"_s, 携帯電話),
                                                                           was(u"EMAIL"_s, EMAIL),
                                                                           was(u"事業所名"_s, 所属事業所名),
                                                                           was(u"部門名"_s, 部門名),
                                                                           was(u"セクション名"_s, セクション名),
                                                                           was(u"役職名"_s, 役職名),
                                                                           was(u"在籍区分名"_s, 在籍区分名),
                                                                           was(u"社員区分名"_s, 社員区分名),
                                                                           u"生年月日=19650403"_s,
                                                                           u"入社日付=19890108"_s,
                                                                           u"退社日付=19261224"_s,
                                                                           was(u"事業所コード"_s, 事業所コード),
                                                                           was(u"部門コード"_s, 部門コード),
                                                                           was(u"セクションコード"_s, セクションコード),
                                                                           was(u"役職コード"_s, 役職コード),
                                                                           u"表示生年月日=昭和40年04月03日"_s,
                                                                           u"表示入社日付=平成01年01月08日"_s,
                                                                           u"表示退社日付=1926年12月24日"_s,
                                                                           was(u"担当者メモ"_s, 担当者メモ),
                                                                           was(u"登録日付"_s, 登録日付),
                                                                           was(u"更新日付"_s, 更新日付)})});
}

TEST_F(ReportData, AnEmptyDateIsWrittenEmptyAndItsEraStaysUnwritten) {
    AddRow({{担当者コード, u"00001"_s}, {入社日付, u"19890108"_s}});
    EXPECT_TRUE(BuildReportData());
    EXPECT_EQ(WorkColumn(u"退社日付"_s), QStringList{QString(u""_s)});
    EXPECT_EQ(WorkColumn(u"表示退社日付"_s), QStringList{u"(null)"_s});
    EXPECT_EQ(WorkColumn(u"表示入社日付"_s), QStringList{u"平成01年01月08日"_s});
}

TEST_F(ReportData, AnEraThatIsNotThereIsWrittenEmpty) {
    installation.General().Execute(u"DELETE FROM K年号区分"_s);
    AddRow({{生年月日, u"19650403"_s}});
    EXPECT_TRUE(BuildReportData());
    EXPECT_EQ(WorkColumn(u"表示生年月日"_s), QStringList{QString(u""_s)});
}

TEST_F(ReportData, ALongNameOfAnEraIsWrittenWholeThoughTheScreenCutsIt) {
    installation.General().Execute(u"INSERT INTO K年号区分 (開始日付, 名称) VALUES ('20500101', '新元号名')"_s);
    AddRow({{退社日付, u"20500102"_s},
            {退社日付年号, u"新元"_s},
            {退社日付年, u"01"_s},
            {退社日付月, u"01"_s},
            {退社日付日, u"02"_s}});
    EXPECT_TRUE(BuildReportData());
    EXPECT_EQ(WorkColumn(u"表示退社日付"_s), QStringList{u"新元号名01年01月02日"_s});
}

TEST_F(ReportData, WithoutOfficesTheirColumnsStayUnwrittenForEveryRow) {
    Globals().OfficeCount = 0;
    AddRows(2);
    EXPECT_TRUE(BuildReportData());
    EXPECT_EQ(WorkColumn(u"運用事業所コード"_s), QStringList({u"(null)"_s, u"(null)"_s}));
    EXPECT_EQ(WorkColumn(u"運用事業所名"_s), QStringList({u"(null)"_s, u"(null)"_s}));
}

TEST_F(ReportData, AnEmptyListEmptiesTheTableAndGivesFalse) {
    AddRows(3);
    EXPECT_TRUE(BuildReportData());
    Globals().LastRow = -1;
    EXPECT_FALSE(BuildReportData());
    EXPECT_TRUE(Codes().isEmpty());
    EXPECT_FALSE(Globals().ReportRecordset.IsOpen());
    EXPECT_TRUE(ErrorRows().isEmpty());
}

TEST_F(ReportData, RowsWithoutAMarkCountAsIfTheyWereNotThere) {
    AddRow({{担当者コード, u"00001"_s}}, false);
    EXPECT_FALSE(BuildReportData());
    AddRow({{担当者コード, u"00002"_s}});
    AddRow({{担当者コード, u"00003"_s}}, false);
    EXPECT_TRUE(BuildReportData());
    EXPECT_EQ(Codes(), QStringList{u"00002"_s});
}

TEST_F(ReportData, RowsOfWhichNoneIsMarkedEmptyTheTableAndGiveNothing) {
    AddRow({{担当者コード, u"00001"_s}});
    AddRow({{担当者コード, u"00002"_s}});
    EXPECT_TRUE(BuildReportData());
    ASSERT_EQ(Codes().size(), 2);
    Globals().Rows.出力対象[0] = Globals().Rows.出力対象[1] = 0;
    EXPECT_FALSE(BuildReportData());
    EXPECT_EQ(Codes(), QStringList());
    EXPECT_FALSE(Globals().ReportRecordset.IsOpen());
    EXPECT_TRUE(ErrorRows().isEmpty());
}

TEST_F(ReportData, TheMarkIsExactlyOne) {
    const auto row = static_cast<size_t>(AddRow({{担当者コード, u"00001"_s}}));
    for (const qint16 mark : {-1, 2}) {
        Globals().Rows.出力対象[row] = mark;
        EXPECT_FALSE(BuildReportData()) << mark;
    }
}

TEST_F(ReportData, RowsKeepTheListsOrder) {
    for (const QString& code : {u"00009"_s, u"00002"_s, u"00005"_s}) AddRow({{担当者コード, code}});
    EXPECT_TRUE(BuildReportData());
    EXPECT_EQ(Codes(), QStringList({u"00009"_s, u"00002"_s, u"00005"_s}));
}

TEST_F(ReportData, ASecondOutputReplacesTheFirst) {
    AddRows(3);
    EXPECT_TRUE(BuildReportData());
    EXPECT_TRUE(BuildReportData());
    EXPECT_EQ(Codes(), QStringList({u"00001"_s, u"00002"_s, u"00003"_s}));
}

TEST_F(ReportData, SelectionTextIsBuiltForEveryRow) {
    AddRows(5);
    Globals().Flags.NameListGiven = true;
    const DescribedSelection window(u"wnd担当者名複数指定"_s, u"検索担当者名：山,川"_s);
    EXPECT_TRUE(BuildReportData());
    EXPECT_EQ(window.asked, 5);
    EXPECT_EQ(WorkColumn(u"選択条件"_s), QStringList(5, u"検索担当者名：山,川  表示順：所属コード順"_s));
}

TEST_F(ReportData, TheAnswerIsWhatTheTableHoldsAndNotWhatWasAdded) {
    AddRows(1);
    installation.Report().Execute(
        u"CREATE TRIGGER t AFTER INSERT ON 要員名簿照会 BEGIN DELETE FROM 要員名簿照会; END"_s);
    EXPECT_FALSE(BuildReportData());
}

TEST_F(ReportData, ValuesArriveAsTheyAre) {
    const QString value = u"a,\"b\"\r\n'c' %"_s + QChar(u'\0') + u"𠮷 "_s;
    AddRow({{担当者メモ, value}});
    EXPECT_TRUE(BuildReportData());
    database::Recordset& record = Globals().ReportRecordset;
    ASSERT_TRUE(OpenReportReadOnly(record, u"SELECT * FROM 要員名簿照会"_s));
    EXPECT_EQ(record[u"担当者メモ"].Text(), value);
}

TEST_F(ReportData, FurtherColumnsOfATableKeepTheirDefaults) {
    installation.Report().Execute(
        u"ALTER TABLE 要員名簿照会 ADD COLUMN 備考 TEXT;"
        u"ALTER TABLE 要員名簿照会 ADD COLUMN 版 TEXT NOT NULL DEFAULT 'A'"_s);
    AddRows(1);
    EXPECT_TRUE(BuildReportData());
    EXPECT_EQ(WorkColumn(u"備考"_s), QStringList{u"(null)"_s});
    EXPECT_EQ(WorkColumn(u"版"_s), QStringList{u"A"_s});
}

TEST_F(ReportData, MissingColumnThrows) {
    installation.Report().Execute(u"ALTER TABLE 要員名簿照会 DROP COLUMN 更新日付"_s);
    AddRows(2);
    const Failure failure = FailureOf(BuildReportData);
    EXPECT_EQ(failure.number, platform::kItemNotFound);
    EXPECT_TRUE(failure.description.contains(u"更新日付"_s));
    EXPECT_TRUE(Codes().isEmpty());
    EXPECT_TRUE(ErrorRows().isEmpty());
}

TEST_F(ReportData, RejectedRecordThrowsAndEarlierOnesStay) {
    installation.Report().Execute(
        u"CREATE TRIGGER t BEFORE INSERT ON 要員名簿照会 WHEN new.コード = '00003'"
        u" BEGIN SELECT RAISE(ABORT, 'refused'); END"_s);
    AddRows(4);
    EXPECT_EQ(FailureOf(BuildReportData).description, u"refused"_s);
    EXPECT_EQ(Codes(), QStringList({u"00001"_s, u"00002"_s}));
}

TEST_F(ReportData, MissingTableThrowsAndIsLogged) {
    installation.Report().Execute(u"DROP TABLE 要員名簿照会"_s);
    AddRows(1);
    EXPECT_EQ(FailureOf(BuildReportData).number, database::kObjectClosed);
    EXPECT_EQ(ErrorRows(), QStringList({u"エラー DELETE FROM 要員名簿照会no such table: 要員名簿照会"_s,
                                        u"エラー SELECT * FROM 要員名簿照会no such table: 要員名簿照会"_s}));
}

TEST_F(ReportData, MissingTableThrowsWithoutRows) {
    installation.Report().Execute(u"DROP TABLE 要員名簿照会"_s);
    EXPECT_EQ(FailureOf(BuildReportData).number, database::kObjectClosed);
    EXPECT_EQ(ErrorRows().size(), 3);
}
