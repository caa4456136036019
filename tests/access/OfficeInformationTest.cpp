#include "access/CompanyFixture.h"

using namespace Qt::StringLiterals;

namespace {

using OfficeInformation = WithCompany;

const QString kCorrection =
    u"出力終了 UPDATE 動作環境定義 SET  運用事業所コード = ''000'' WHERE 動作環境定義ID = ''001''"_s;

void ExpectOffice(const OfficeRecord& o, const QHash<QString, QString>& n) {
    ExpectCommonColumns(o, n);
    EXPECT_HOLDS(o, n, 登録番号);
    EXPECT_HOLDS(o, n, 地区コード);
}

/// The folders that an office may override.
QStringList Folders(const EstablishmentRecord& r) {
    return {r.総合振込ファイル,   r.基本読込フォルダ,     r.帳票イメージフォルダ, r.その他読込ファイル,
            r.本支店連携フォルダ, r.テキスト出力フォルダ, r.BACKUPフォルダ};
}

}  // namespace

TEST_F(OfficeInformation, EveryColumnGoesIntoItsFieldAndThePinGoesThroughTheCipher) {
    platform::Services().pins = std::make_unique<MarkingPins>();
    Operate(u"001"_s);
    const QHash<QString, QString> numbers = NumberColumns(u"M事業所"_s, u"コード"_s, u"001"_s);
    LoadOfficeInfo();
    EXPECT_EQ(Globals().Office.コード, u"001"_s);
    ExpectOffice(Globals().Office, numbers);
}

TEST_F(OfficeInformation, AnotherOfficeIsReadWithoutItsCodeAndOverridesNothing) {
    platform::Services().pins = std::make_unique<MarkingPins>();
    const QHash<QString, QString> numbers = NumberColumns(u"M事業所"_s, u"コード"_s, u"001"_s);
    LoadOutputOffice(u"001"_s);
    EXPECT_EQ(Globals().OutputOffice.コード, QString());
    ExpectOffice(Globals().OutputOffice, numbers);
    EXPECT_EQ(Globals().Office.名称, QString());
    EXPECT_EQ(Globals().PinRequired, 0);
    EXPECT_EQ(Globals().Environment.OperatingOfficeCode, u"000"_s);
}

TEST_F(OfficeInformation, AnotherOfficeWithoutARowChangesNothingAndOneThatCannotBeReadDoesNotRaise) {
    Globals().OutputOffice.名称 = u"前"_s;
    LoadOutputOffice(u"009"_s);
    EXPECT_TRUE(History().isEmpty());
    LoadOutputOffice(u"0'9"_s);
    EXPECT_EQ(History(), QStringList{FailedRow(u"SELECT * FROM M事業所 WHERE コード = '0'9'"_s)});
    EXPECT_EQ(Globals().OutputOffice.名称, u"前"_s);
}

TEST_F(OfficeInformation, TheOfficesWordOnThePinWinsOverTheCompanys) {
    Operate(u"001"_s);
    Company(u"暗証番号有無 = '1', 更新実行区分 = '1'"_s);
    Office(u"001"_s, u"暗証番号有無 = '0', 更新実行区分 = '2'"_s);
    LoadCompanyInfo();
    EXPECT_EQ(Globals().PinRequired, 0);
    EXPECT_EQ(Globals().Company.更新実行区分, 2);
    EXPECT_EQ(Globals().Company.暗証番号有無, 1);
    Company(u"暗証番号有無 = '0'"_s);
    Office(u"001"_s, u"暗証番号有無 = '1'"_s);
    LoadCompanyInfo();
    EXPECT_EQ(Globals().PinRequired, 1);
}

TEST_F(OfficeInformation, AnOfficeWithoutAWordOnThePinWaivesIt) {
    Operate(u"001"_s);
    Company(u"暗証番号有無 = '1', 更新実行区分 = '1'"_s);
    LoadCompanyInfo();
    EXPECT_EQ(Globals().PinRequired, 0);
    EXPECT_EQ(Globals().Company.更新実行区分, 0);
}

TEST_F(OfficeInformation, TheWholeCompanyOverridesNothing) {
    Company(u"暗証番号有無 = '1', 更新実行区分 = '1', テキスト出力フォルダ = 'company'"_s);
    Office(u"000"_s, u"暗証番号有無 = '0', 更新実行区分 = '2', テキスト出力フォルダ = 'office'"_s);
    LoadCompanyInfo();
    EXPECT_EQ(Globals().PinRequired, 1);
    EXPECT_EQ(Globals().Company.更新実行区分, 1);
    EXPECT_EQ(Globals().Company.テキスト出力フォルダ, u"company"_s);
    EXPECT_EQ(Globals().Office.テキスト出力フォルダ, u"office"_s);
}

TEST_F(OfficeInformation, AnOfficeReplacesTheCompanysFoldersFieldByField) {
    Operate(u"001"_s);
    const QStringList names = {u"総合振込ファイル"_s,   u"基本読込フォルダ"_s,   u"帳票イメージフォルダ"_s,
                               u"その他読込ファイル"_s, u"本支店連携フォルダ"_s, u"テキスト出力フォルダ"_s,
                               u"BACKUPフォルダ"_s};
    for (const QString& name : names) Company(name + u" = 'company'"_s);
    LoadCompanyInfo();
    EXPECT_EQ(Folders(Globals().Company), QStringList(names.size(), u"company"_s));
    for (int own = 0; own < names.size(); ++own) {
        for (const QString& name : names) Office(u"001"_s, name + u" = ''"_s);
        Office(u"001"_s, names[own] + u" = 'office'"_s);
        LoadCompanyInfo();
        QStringList expected(names.size(), u"company"_s);
        expected[own] = u"office"_s;
        EXPECT_EQ(Folders(Globals().Company), expected);
    }
}

TEST_F(OfficeInformation, AnEmptyTextFolderOfTheOfficeLeavesTheCompanys) {
    Operate(u"001"_s);
    Company(u"テキスト出力フォルダ = 'C:\\out'"_s);
    Office(u"001"_s, u"テキスト出力フォルダ = ''"_s);
    LoadCompanyInfo();
    EXPECT_EQ(Globals().Company.テキスト出力フォルダ, u"C:\\out"_s);
    EXPECT_EQ(Globals().Office.テキスト出力フォルダ, QString());
}

TEST_F(OfficeInformation, AVanishedOfficeFallsBackToTheWholeCompanyAndIsCorrectedForTheNextStart) {
    Operate(u"009"_s);
    Office(u"000"_s, u"名称 = '全社', 暗証番号有無 = '0'"_s);
    Company(u"暗証番号有無 = '1'"_s);
    EXPECT_TRUE(LoadCompanyInfo());
    EXPECT_EQ(Globals().Environment.OperatingOfficeCode, u"000"_s);
    EXPECT_EQ(Globals().Office.コード, u"000"_s);
    EXPECT_EQ(Globals().Office.名称, u"全社"_s);
    EXPECT_EQ(Globals().PinRequired, 1);
    EXPECT_EQ(StoredOffice(), u"000"_s);
    EXPECT_EQ(History(), QStringList{kCorrection});
}

TEST_F(OfficeInformation, OnItsOwnTheOfficeFallsBackLikewise) {
    Operate(u"009"_s);
    LoadOfficeInfo();
    EXPECT_EQ(Globals().Office.コード, u"000"_s);
    EXPECT_EQ(StoredOffice(), u"000"_s);
    EXPECT_EQ(History(), QStringList{kCorrection});
}

TEST_F(OfficeInformation, WithoutAnyOfficeRowTheCorrectionRunsTwiceAndTheLoadGoesOn) {
    Operate(u"001"_s);
    General(u"DELETE FROM M事業所"_s);
    EXPECT_TRUE(LoadCompanyInfo());
    EXPECT_EQ(Globals().Environment.OperatingOfficeCode, u"000"_s);
    EXPECT_EQ(Globals().Office.コード, QString());
    EXPECT_EQ(Globals().OfficeCount, 0);
    EXPECT_EQ(StoredOffice(), u"000"_s);
    EXPECT_EQ(History(), QStringList({kCorrection, kCorrection}));
}

TEST_F(OfficeInformation, ACorrectionThatFailsIsNotTested) {
    Operate(u"009"_s);
    installation.Configuration().Execute(u"DROP TABLE 動作環境定義"_s);
    EXPECT_TRUE(LoadCompanyInfo());
    EXPECT_EQ(Globals().Office.コード, u"000"_s);
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
    ASSERT_EQ(History().size(), 1);
    EXPECT_TRUE(History().first().startsWith(u"エラー "_s));
    EXPECT_TRUE(History().first().endsWith(kCorrection.mid(5)));
}

TEST_F(OfficeInformation, AReadThatFailsOnTheWholeCompanyRewritesNothing) {
    Operate(u"009"_s);
    General(
        u"ALTER TABLE M事業所 RENAME TO 元; CREATE VIEW M事業所 AS SELECT コード, json('{' || コード) AS 名称 FROM 元"_s);
    EXPECT_THROW(LoadCompanyInfo(), database::DatabaseError);
    EXPECT_EQ(History(), QStringList{FailedRow(u"SELECT * FROM M事業所 WHERE コード = '000'"_s)});
    EXPECT_EQ(Globals().Environment.OperatingOfficeCode, u"009"_s);
    EXPECT_EQ(StoredOffice(), u"009"_s);
}

TEST_F(OfficeInformation, ACodeWithAQuoteFailsAndRewritesNothing) {
    Operate(u"0'1"_s);
    EXPECT_THROW(LoadCompanyInfo(), database::DatabaseError);
    EXPECT_EQ(StoredOffice(), u"0'1"_s);
    EXPECT_EQ(History().count(kCorrection), 0);
}

TEST_F(OfficeInformation, MakingAnOfficeTheOperatingOneIsKeptAndRecorded) {
    SetOperatingOffice(u"001"_s);
    EXPECT_EQ(Globals().Environment.OperatingOfficeCode, u"001"_s);
    EXPECT_EQ(StoredOffice(), u"001"_s);
    EXPECT_EQ(
        History(),
        QStringList{u"出力終了 UPDATE 動作環境定義 SET  運用事業所コード = ''001'' WHERE 動作環境定義ID = ''001''"_s});
}
