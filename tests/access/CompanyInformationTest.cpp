#include "access/CompanyFixture.h"

using namespace Qt::StringLiterals;

namespace {

using CompanyInformation = WithCompany;

void ExpectTrade(const CompanyRecord& c, const QHash<QString, QString>& n) {
    EXPECT_HOLDS(c, n, 決算月);
    EXPECT_HOLDS(c, n, 決算日);
    EXPECT_HOLDS(c, n, 締日区分);
    EXPECT_HOLDS(c, n, 締日);
    EXPECT_HOLDS(c, n, 決済方法);
    EXPECT_HOLDS(c, n, 決済月);
    EXPECT_HOLDS(c, n, 決済日);
    EXPECT_HOLDS(c, n, 現金決済金額);
    EXPECT_HOLDS(c, n, 手形サイト);
    EXPECT_HOLDS(c, n, 売上金額丸め方法);
    EXPECT_HOLDS(c, n, 仕入金額丸め方法);
    EXPECT_HOLDS(c, n, 在庫評価方法);
    EXPECT_HOLDS(c, n, 売上単価少数以下桁数);
    EXPECT_HOLDS(c, n, 売上数量少数以下桁数);
    EXPECT_HOLDS(c, n, 仕入単価少数以下桁数);
    EXPECT_HOLDS(c, n, 仕入数量少数以下桁数);
    EXPECT_HOLDS(c, n, 在庫単価少数以下桁数);
    EXPECT_HOLDS(c, n, 在庫数量少数以下桁数);
    EXPECT_HOLDS(c, n, 重量少数以下桁数);
    EXPECT_HOLDS(c, n, 得意先単価自動更新区分);
    EXPECT_HOLDS(c, n, 納品先単価自動更新区分);
    EXPECT_HOLDS(c, n, 仕入先単価自動更新区分);
}

void ExpectUpkeep(const CompanyRecord& c, const QHash<QString, QString>& n) {
    EXPECT_HOLDS(c, n, ID);
    EXPECT_HOLDS(c, n, 会社ロゴfile);
    EXPECT_HOLDS(c, n, 社印file);
    EXPECT_HOLDS(c, n, 写真フォルダ);
    EXPECT_HOLDS(c, n, ドキュメントフォルダ);
    EXPECT_HOLDS(c, n, 明細保存月数);
    EXPECT_HOLDS(c, n, 統計保存年数);
    EXPECT_HOLDS(c, n, 整理実施可能日自);
    EXPECT_HOLDS(c, n, 整理実施可能日至);
    EXPECT_HOLDS(c, n, 整理実施可能時刻);
    EXPECT_HOLDS(c, n, 明細整理実行日);
    EXPECT_HOLDS(c, n, 統計整理実行日);
    EXPECT_HOLDS(c, n, 伝票番号管理区分);
    EXPECT_HOLDS(c, n, 登録日付);
    EXPECT_HOLDS(c, n, 更新日付);
    EXPECT_EQ(c.システム特権暗証番号, u"clear:"_s + n[u"システム特権暗証番号"_s]);
}

}  // namespace

TEST_F(CompanyInformation, EveryColumnGoesIntoItsFieldAndPinsGoThroughTheCipher) {
    platform::Services().pins = std::make_unique<MarkingPins>();
    const QHash<QString, QString> numbers = NumberColumns(u"Mユーザ"_s, u"ID"_s, u"0001"_s);
    EXPECT_TRUE(LoadCompanyInfo());
    ExpectCommonColumns(Globals().Company, numbers);
    ExpectTrade(Globals().Company, numbers);
    ExpectUpkeep(Globals().Company, numbers);
    EXPECT_EQ(QString::number(Globals().PinRequired), numbers[u"暗証番号有無"_s]);
}

TEST_F(CompanyInformation, AnAmountKeepsItsFraction) {
    Company(u"現金決済金額 = '1234567.89'"_s);
    EXPECT_TRUE(LoadCompanyInfo());
    EXPECT_EQ(Globals().Company.現金決済金額, 1234567.89);
}

TEST_F(CompanyInformation, NullsEverywhereLoadAsEmptyFields) {
    EXPECT_TRUE(LoadCompanyInfo());
    EXPECT_EQ(Globals().Company.ID, u"0001"_s);
    EXPECT_EQ(Globals().Company.名称, QString());
    EXPECT_EQ(Globals().Company.現金決済金額, 0);
    EXPECT_EQ(Globals().Company.特権暗証番号, QString());
    EXPECT_EQ(Globals().PinRequired, 0);
    EXPECT_EQ(Globals().Office.コード, u"000"_s);
    EXPECT_EQ(Globals().Office.名称, QString());
    EXPECT_TRUE(History().isEmpty());
}

TEST_F(CompanyInformation, ANullLeavesItsFieldAsItWasAndAsksNoCipher) {
    platform::Services().pins = std::make_unique<MarkingPins>();
    Globals().Company.名称 = u"前"_s;
    Globals().Company.決算月 = 3;
    Globals().Company.現金決済金額 = 0.5;
    Globals().Company.特権暗証番号 = u"前"_s;
    EXPECT_TRUE(LoadCompanyInfo());
    EXPECT_EQ(Globals().Company.名称, u"前"_s);
    EXPECT_EQ(Globals().Company.決算月, 3);
    EXPECT_EQ(Globals().Company.現金決済金額, 0.5);
    EXPECT_EQ(Globals().Company.特権暗証番号, u"前"_s);
}

TEST_F(CompanyInformation, WithoutItsRowTheResultIsFalseAndTheOfficeIsLoadedAllTheSame) {
    General(u"UPDATE Mユーザ SET ID = '0002', 名称 = '別会社'"_s);
    Office(u"000"_s, u"名称 = '全社'"_s);
    EXPECT_FALSE(LoadCompanyInfo());
    EXPECT_EQ(Globals().Company.名称, QString());
    EXPECT_EQ(Globals().Office.名称, u"全社"_s);
    EXPECT_EQ(Globals().OfficeCount, 1);
}

TEST_F(CompanyInformation, OfficesAreCountedWithoutTheWholeCompany) {
    Globals().OfficeCount = 7;
    General(u"INSERT INTO M事業所 (コード) VALUES ('002'), ('003')"_s);
    LoadCompanyInfo();
    EXPECT_EQ(Globals().OfficeCount, 3);
    General(u"DELETE FROM M事業所 WHERE コード <> '000'"_s);
    LoadCompanyInfo();
    EXPECT_EQ(Globals().OfficeCount, 0);
}

TEST_F(CompanyInformation, SlotsThreeAndFourHoldTheSamePartner) {
    General(
        u"INSERT INTO M他業務連携 (コード, 業務名) VALUES ('002', '会計'), ('003', '販売'), ('004', '給与'),"
        u" ('005', '勤怠'), ('006', '他')"_s);
    LoadPartnerLinks();
    const auto& names = Globals().PartnerLinks.業務名;
    EXPECT_EQ(QStringList(names.begin(), names.end()),
              (QStringList{u"販売"_s, u"会計"_s, u"給与"_s, u"勤怠"_s, u"勤怠"_s, {}, {}, {}, {}, {}}));
}

TEST_F(CompanyInformation, EveryPartnerColumnGoesIntoTheArrayOfItsName) {
    General(u"INSERT INTO M他業務連携 (コード) VALUES ('002')"_s);
    const QHash<QString, QString> n = NumberColumns(u"M他業務連携"_s, u"コード"_s, u"002"_s);
    LoadPartnerLinks();
    const PartnerLinkTable& p = Globals().PartnerLinks;
    EXPECT_EQ(AsText(p.連携有無区分[1]), n[u"連携有無区分"_s]);
#define EXPECT_SLOT(field) EXPECT_EQ(AsText(p.field[1]), n[QStringLiteral(#field)]) << #field
    EXPECT_SLOT(業務名);
    EXPECT_SLOT(連携DB);
    EXPECT_SLOT(連携DBMW);
    EXPECT_SLOT(連携データソース名);
    EXPECT_SLOT(連携ドライバ名);
    EXPECT_SLOT(連携接続文字列);
    EXPECT_SLOT(連携データベース名);
    EXPECT_SLOT(連携サーバー名);
    EXPECT_SLOT(連携ユーザーID);
    EXPECT_SLOT(連携パスワード);
    EXPECT_SLOT(連携アプリフォルダ);
    EXPECT_SLOT(顧客更新有無区分);
    EXPECT_SLOT(得意先更新有無区分);
    EXPECT_SLOT(納品先更新有無区分);
    EXPECT_SLOT(仕入先更新有無区分);
    EXPECT_SLOT(メーカ更新有無区分);
    EXPECT_SLOT(対応先更新有無区分);
    EXPECT_SLOT(商品更新有無区分);
    EXPECT_SLOT(社員更新有無区分);
#undef EXPECT_SLOT
}

TEST_F(CompanyInformation, AMissingPartnerLeavesItsSlotEmpty) {
    LoadPartnerLinks();
    EXPECT_EQ(Globals().PartnerLinks.業務名[0], QString());
    EXPECT_EQ(Globals().PartnerLinks.連携有無区分[0], 0);
    EXPECT_TRUE(History().isEmpty());
}

TEST_F(CompanyInformation, AFailedReadRaisesAndLeavesItsStatementInTheHistory) {
    struct Case {
        QString table, statement;
    };
    for (const Case& c : {Case{u"M他業務連携"_s, u"SELECT TOP 1 * FROM M他業務連携 WHERE コード = '003'"_s},
                          Case{u"M事業所"_s, u"SELECT * FROM M事業所 WHERE コード = '001'"_s},
                          Case{u"Mユーザ"_s, u"SELECT * FROM Mユーザ WHERE ID = '0001'"_s}}) {
        Operate(u"001"_s);
        General(u"DROP TABLE "_s + c.table);
        const Failure failure = FailureOf([] { LoadCompanyInfo(); });
        EXPECT_EQ(failure.number, database::kObjectClosed);
        EXPECT_EQ(History().last(), FailedRow(c.statement));
        EXPECT_EQ(Globals().Environment.OperatingOfficeCode, u"001"_s);
        EXPECT_EQ(StoredOffice(), u"001"_s);
    }
    EXPECT_EQ(History().size(), 3);
}

TEST_F(CompanyInformation, AColumnThatIsMissingRaises) {
    General(u"ALTER TABLE Mユーザ DROP COLUMN FAX"_s);
    EXPECT_EQ(FailureOf([] { LoadCompanyInfo(); }).number, platform::kItemNotFound);
}

TEST_F(CompanyInformation, AFailedCountRaisesAndLeavesItsStatementInTheHistory) {
    // The view only fails on rows other than "000", so only the COUNT statement is affected.
    General(
        u"ALTER TABLE M事業所 RENAME TO 元; CREATE VIEW M事業所 AS SELECT 元.* FROM 元"
        u" WHERE コード = '000' OR json('{') IS NULL"_s);
    EXPECT_THROW(LoadCompanyInfo(), database::DatabaseError);
    EXPECT_EQ(History(), QStringList{FailedRow(u"SELECT COUNT(*) AS 事業所件数 FROM M事業所 WHERE コード <> '000'"_s)});
}
