#include "output/ReportData.h"

#include "support/OutputFixture.h"

using namespace Qt::StringLiterals;
using enum StaffText;

namespace {

const QString kEnvelopes = u"要員名簿照会封筒"_s, kPostcards = u"要員名簿照会はがき"_s,
              kLabels = u"要員名簿照会宛名ラベル"_s;

class MailPieces : public OutputTest {
  protected:
    MailPieces() {
        installation.General().Execute(
            u"DELETE FROM M事業所;"
            u"INSERT INTO M事業所 (コード, 名称, 郵便番号, 住所A, 住所B, 住所C, 電話, FAX) VALUES"
            u" ('001', '本社', '100-0001', 'A1', 'B1', 'C1', '03-1', '03-9'),"
            u" ('002', '支店', '530-0001', 'A2', 'B2', 'C2', '06-1', '06-9')"_s);
        CompanyRecord& company = Globals().Company;
        company.名称 = u"株式会社大和"_s;
        company.郵便番号 = u"999-9999"_s;
        company.住所A = u"CA"_s;
        company.住所B = u"CB"_s;
        company.住所C = u"CC"_s;
        company.電話 = u"00-1"_s;
        company.FAX = u"00-9"_s;
        company.写真フォルダ = u"/photo"_s;
        OfficeRecord& office = Globals().Office;
        office.名称 = u"営業所"_s;
        office.郵便番号 = u"460-0001"_s;
        office.住所A = u"A3"_s;
        office.住所B = u"B3"_s;
        office.住所C = u"C3"_s;
        office.電話 = u"052-1"_s;
        office.FAX = u"052-9"_s;
        OpenReportDatabase();
    }

    void AddPerson() {
        AddRow({{担当者コード, u"00001"_s},
                {担当者名, u"山田　太郎"_s},
                {郵便番号, u"105-0004"_s},
                {住所A, u"東京都"_s},
                {住所B, u"港区"_s},
                {住所C, u"新橋"_s}});
    }
    QStringList Recipient(const QString& side = {}) const {
        QStringList columns;
        for (const QString& column : {u"コード=00001"_s, u"名称A="_s, u"名称B=山田　太郎 様"_s, u"郵便番号=105-0004"_s,
                                      u"住所A=東京都"_s, u"住所B=港区"_s, u"住所C=新橋"_s, u"御中=様"_s})
            columns << side + column;
        return columns;
    }
    static QStringList Sorted(QStringList texts) {
        texts.sort();
        return texts;
    }
    QStringList OnlyRow(const QString& table) const {
        const QList<QStringList> rows = WorkRows(table);
        EXPECT_EQ(rows.size(), 1);
        return rows.isEmpty() ? QStringList() : Sorted(rows.first());
    }
    /// Second sender of an envelope as "name=value" for each written column.
    QStringList SecondSender(const QString& scope, int offices) {
        Globals().ScopeOfficeCode = scope;
        Globals().OfficeCount = offices;
        EXPECT_TRUE(BuildEnvelopeData());
        return OnlyRow(kEnvelopes).filter(u"事業所"_s);
    }
    QString Logo() const { return WorkColumn(u"ユーザ会社ロゴfile"_s, kEnvelopes).value(0); }
};

const QStringList kBranchTwo = {u"事業所FAX=06-9"_s, u"事業所住所A=A2"_s,  u"事業所住所B=B2"_s,
                                u"事業所住所C=C2"_s, u"事業所名称=支店"_s, u"事業所郵便番号=530-0001"_s,
                                u"事業所電話=06-1"_s};
const QStringList kOwnBranch = {u"事業所FAX=052-9"_s, u"事業所住所A=A3"_s,    u"事業所住所B=B3"_s,
                                u"事業所住所C=C3"_s,  u"事業所名称=営業所"_s, u"事業所郵便番号=460-0001"_s,
                                u"事業所電話=052-1"_s};

struct LabelCase {
    int labels;
    int records;
    QStringList left, right;  // codes by record, "-" if not written
};
void PrintTo(const LabelCase& row, std::ostream* out) { *out << row.labels << " labels"; }
class LabelSheet : public OutputTest, public testing::WithParamInterface<LabelCase> {};

}  // namespace

TEST_F(MailPieces, EnvelopeHasTheAddressOfTheFirstOffice) {
    AddPerson();
    EXPECT_TRUE(BuildEnvelopeData());
    EXPECT_EQ(OnlyRow(kEnvelopes),
              Sorted(Recipient() + QStringList{u"ユーザ名称=株式会社大和"_s,
                                               u"ユーザ会社ロゴfile="_s + installation.ProgramFolder() + u"/空白.jpg"_s,
                                               u"ユーザ郵便番号=100-0001"_s, u"ユーザ住所A=A1"_s, u"ユーザ住所B=B1"_s,
                                               u"ユーザ住所C=C1"_s, u"ユーザ電話=03-1"_s, u"ユーザFAX=03-9"_s}));
    EXPECT_FALSE(Globals().ReportRecordset.IsOpen());
    EXPECT_TRUE(ErrorRows().isEmpty());
}

TEST_F(MailPieces, SheetIsPaddedByEmptyRecords) {
    const auto left = [this](const QString& number) { return Sorted(Recipient(u"A列"_s) + QStringList{number}); };
    const auto blank = [](const QList<QStringList>& rows) {
        for (int row = 1; row < 6; ++row)
            EXPECT_EQ(rows.value(row), QStringList{u"行番号=%1"_s.arg(row + 1, 6, 10, QChar(u'0'))});
    };
    AddPerson();
    EXPECT_TRUE(BuildLabelData());
    QList<QStringList> rows = WorkRows(kLabels);
    ASSERT_EQ(rows.size(), 6);
    EXPECT_EQ(Sorted(rows.first()), left(u"行番号=000001"_s));
    blank(rows);
    AddPerson();
    EXPECT_TRUE(BuildLabelData());
    rows = WorkRows(kLabels);
    ASSERT_EQ(rows.size(), 6);
    EXPECT_EQ(Sorted(rows.first()), Sorted(left(u"行番号=000001"_s) + Recipient(u"B列"_s)));
    blank(rows);
    for (int person = 2; person < 13; ++person) AddPerson();
    EXPECT_TRUE(BuildLabelData());
    rows = WorkRows(kLabels);
    ASSERT_EQ(rows.size(), 7);
    EXPECT_EQ(Sorted(rows.last()), left(u"行番号=000007"_s));
}

TEST_F(MailPieces, PostcardHasTheCompanysAddressAndNoLogo) {
    AddPerson();
    EXPECT_TRUE(BuildPostcardData());
    EXPECT_EQ(OnlyRow(kPostcards),
              Sorted(Recipient() + QStringList{u"ユーザ名称=株式会社大和"_s, u"ユーザ郵便番号=999-9999"_s,
                                               u"ユーザ住所A=CA"_s, u"ユーザ住所B=CB"_s, u"ユーザ住所C=CC"_s,
                                               u"ユーザ電話=00-1"_s, u"ユーザFAX=00-9"_s}));
}

TEST_F(MailPieces, HonorificFollowsTheNameAndHasAColumn) {
    AddRow({{担当者名, QString()}});
    EXPECT_TRUE(BuildPostcardData());
    EXPECT_EQ(WorkColumn(u"名称B"_s, kPostcards), QStringList{u" 様"_s});
    EXPECT_EQ(WorkColumn(u"御中"_s, kPostcards), QStringList{u"様"_s});
    EXPECT_EQ(WorkColumn(u"名称A"_s, kPostcards), QStringList{QString(u""_s)});
}

TEST_F(MailPieces, ALogoTakesThePlaceOfTheBlankPicture) {
    AddPerson();
    EXPECT_TRUE(BuildEnvelopeData());
    EXPECT_EQ(Logo(), installation.ProgramFolder() + u"/空白.jpg"_s);
    Globals().Company.会社ロゴfile = u"logo.png"_s;
    EXPECT_TRUE(BuildEnvelopeData());
    EXPECT_EQ(Logo(), u"/photo/会社ロゴ/logo.png"_s);
}

TEST_F(MailPieces, TheSecondSenderFollowsOfficeAndNumberOfOffices) {
    AddPerson();
    const QStringList none;
    EXPECT_EQ(SecondSender(u"000"_s, 0), none);
    EXPECT_EQ(SecondSender(u"001"_s, 1), none);
    EXPECT_EQ(SecondSender(u"003"_s, 1), none);
    EXPECT_EQ(SecondSender(u"000"_s, 2), kBranchTwo);
    EXPECT_EQ(SecondSender(u"001"_s, 2), kBranchTwo);
    EXPECT_EQ(SecondSender(u"002"_s, 2), kBranchTwo);
    EXPECT_EQ(SecondSender(u"000"_s, 3), none);
    EXPECT_EQ(SecondSender(u"001"_s, 3), none);
    EXPECT_EQ(SecondSender(u"003"_s, 3), kOwnBranch);
    EXPECT_EQ(SecondSender(QString(), 4), kOwnBranch);
}

TEST_F(MailPieces, SendersOfficeIsReadForEachPiece) {
    AddPerson();
    Globals().OutputOffice.郵便番号 = u"old"_s;
    EXPECT_TRUE(BuildEnvelopeData());
    EXPECT_EQ(Globals().OutputOffice.名称, u"本社"_s);
    installation.General().Execute(u"UPDATE M事業所 SET 住所A = 'moved' WHERE コード = '001'"_s);
    Globals().OfficeCount = 2;
    EXPECT_TRUE(BuildEnvelopeData());
    EXPECT_EQ(WorkColumn(u"ユーザ住所A"_s, kEnvelopes), QStringList{u"moved"_s});
    EXPECT_EQ(Globals().OutputOffice.名称, u"支店"_s);
}

TEST_F(MailPieces, EachOfTwoOfficesIsReadForEveryEnvelope) {
    AddRows(3);
    Globals().OfficeCount = 2;
    EXPECT_TRUE(BuildEnvelopeData());
    EXPECT_EQ(WorkColumn(u"ユーザ住所A"_s, kEnvelopes), QStringList({u"A1"_s, u"A1"_s, u"A1"_s}));
    EXPECT_EQ(WorkColumn(u"事業所住所A"_s, kEnvelopes), QStringList({u"A2"_s, u"A2"_s, u"A2"_s}));
}

TEST_F(MailPieces, AMissingColumnIsLeftOutAndTheRestGoesOn) {
    AddRows(2);
    for (const QString& table : {kEnvelopes, kPostcards})
        installation.Report().Execute(
            u"ALTER TABLE %1 DROP COLUMN 名称B; ALTER TABLE %1 DROP COLUMN ユーザ名称"_s.arg(table));
    EXPECT_TRUE(BuildEnvelopeData());
    EXPECT_TRUE(BuildPostcardData());
    EXPECT_EQ(WorkColumn(u"御中"_s, kEnvelopes), QStringList({u"様"_s, u"様"_s}));
    EXPECT_EQ(WorkColumn(u"ユーザFAX"_s, kPostcards), QStringList({u"00-9"_s, u"00-9"_s}));
}

TEST_F(MailPieces, MissingTableGivesFalseButThrowsForLabels) {
    AddRows(1);
    for (const QString& table : {kEnvelopes, kPostcards, kLabels})
        installation.Report().Execute(u"DROP TABLE "_s + table);
    EXPECT_FALSE(BuildEnvelopeData());
    EXPECT_FALSE(BuildPostcardData());
    EXPECT_EQ(FailureOf(BuildLabelData).number, database::kObjectClosed);
}

TEST_F(MailPieces, MissingColumnOfLabelsThrows) {
    AddRows(1);
    installation.Report().Execute(u"ALTER TABLE 要員名簿照会宛名ラベル DROP COLUMN A列御中"_s);
    EXPECT_EQ(FailureOf(BuildLabelData).number, platform::kItemNotFound);
}

TEST_F(MailPieces, WithoutMarkedRowsEachGivesFalseAndItsTableIsEmpty) {
    AddRows(2);
    for (const auto build : {BuildEnvelopeData, BuildPostcardData, BuildLabelData}) EXPECT_TRUE(build());
    Globals().Rows.出力対象[0] = Globals().Rows.出力対象[1] = 0;
    for (const auto build : {BuildEnvelopeData, BuildPostcardData, BuildLabelData}) EXPECT_FALSE(build());
    for (const QString& table : {kEnvelopes, kPostcards, kLabels}) EXPECT_TRUE(WorkRows(table).isEmpty());
}

TEST_F(MailPieces, ALabelRecordHoldsTwoPeopleSideBySide) {
    AddPerson();
    AddPerson();
    EXPECT_TRUE(BuildLabelData());
    EXPECT_EQ(Sorted(WorkRows(kLabels).first()),
              Sorted(Recipient(u"A列"_s) + Recipient(u"B列"_s) + QStringList{u"行番号=000001"_s}));
}

TEST_P(LabelSheet, IsNumberedAndFilledUpToOneSheetAndNoFurther) {
    OpenReportDatabase();
    AddRows(GetParam().labels);
    EXPECT_EQ(BuildLabelData(), GetParam().records > 0);
    QStringList numbers;
    for (int record = 1; record <= GetParam().records; ++record) numbers << u"%1"_s.arg(record, 6, 10, QChar(u'0'));
    EXPECT_EQ(WorkColumn(u"行番号"_s, kLabels), numbers);
    const auto codes = [this](const QString& column) {
        QStringList values;
        for (const QString& value : WorkColumn(column, kLabels))
            values << (value == u"(null)"_s ? u"-"_s : value.right(2));
        return values;
    };
    EXPECT_EQ(codes(u"A列コード"_s), GetParam().left);
    EXPECT_EQ(codes(u"B列コード"_s), GetParam().right);
    EXPECT_EQ(codes(u"B列御中"_s).count(u"-"_s), GetParam().right.count(u"-"_s));
}

INSTANTIATE_TEST_SUITE_P(
    Of, LabelSheet,
    testing::Values(LabelCase{0, 0, {}, {}},
                    LabelCase{1, 6, u"01 - - - - -"_s.split(u' '), u"- - - - - -"_s.split(u' ')},
                    LabelCase{2, 6, u"01 - - - - -"_s.split(u' '), u"02 - - - - -"_s.split(u' ')},
                    LabelCase{3, 6, u"01 03 - - - -"_s.split(u' '), u"02 - - - - -"_s.split(u' ')},
                    LabelCase{11, 6, u"01 03 05 07 09 11"_s.split(u' '), u"02 04 06 08 10 -"_s.split(u' ')},
                    LabelCase{12, 6, u"01 03 05 07 09 11"_s.split(u' '), u"02 04 06 08 10 12"_s.split(u' ')},
                    LabelCase{13, 7, u"01 03 05 07 09 11 13"_s.split(u' '), u"02 04 06 08 10 12 -"_s.split(u' ')},
                    LabelCase{14, 7, u"01 03 05 07 09 11 13"_s.split(u' '), u"02 04 06 08 10 12 14"_s.split(u' ')}));
