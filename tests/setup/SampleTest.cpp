#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QRegularExpression>
#include <QTemporaryDir>

#include "setup/sample/Sample.h"
#include "setup/storage/Installer.h"
#include "support/SampleInstallation.h"
#include "support/SamplePins.h"

using namespace Qt::StringLiterals;

namespace {

const QString kReference = QString::fromUtf16(setup::kReferenceDay);

/// A sample of the default size, shared by all read-only tests.
const SampleInstallation& Usual() {
    static const SampleInstallation installation({.staff = 300});
    return installation;
}
const SampleFile& General() { return Usual().General(); }

/// Rows of M担当者 with decrypted PINs: the ciphertext of a PIN differs every time.
QList<QStringList> People(const QString& root, int count) {
    const SamplePins pins(root);
    const SampleFile general(root + u"/data/gnrdb.accdb"_s);
    QList<QStringList> rows =
        general.Rows(u"SELECT 暗証番号, * FROM M担当者 ORDER BY コード LIMIT "_s + QString::number(count));
    for (QStringList& row : rows) {
        const QString sealed = row.takeFirst();
        row.replaceInStrings(sealed, pins.Opened(sealed));
    }
    return rows;
}

QString MatchingAll(const QString& column, const QString& pattern) {
    const QRegularExpression form(QRegularExpression::anchoredPattern(pattern));
    for (const QStringList& row : General().Rows(u"SELECT \"%1\" FROM M担当者"_s.arg(column)))
        if (!form.match(row.first()).hasMatch()) return row.first();
    return {};
}

int Count(const QString& where) { return General().Value(u"SELECT count(*) FROM M担当者 WHERE "_s + where).toInt(); }

QString Everything(quint64 seed, int staff) {
    const QTemporaryDir folder;
    setup::InstallationRequest request;
    request.folder = folder.filePath(u"suite"_s);
    request.seed = seed;
    request.staff = staff;
    const QString root = setup::MakeInstallation(request);
    const SampleFile general(root + u"/data/gnrdb.accdb"_s);
    QString all;
    for (const QStringList& row : People(root, staff)) all += row.join(u'|') + u'\n';
    for (const QString& table : {u"T閲覧"_s, u"担当者別操作許可プログラム"_s})
        for (const QStringList& row : general.Rows(u"SELECT * FROM "_s + table)) all += row.join(u'|') + u'\n';
    return all;
}

}  // namespace

TEST(Sample, SameSeedGivesTheSameRowsAndAnotherSeedOthers) {
    const QString first = Everything(7, 50);
    EXPECT_EQ(first, Everything(7, 50));
    EXPECT_NE(first, Everything(8, 50));
}

TEST(Sample, ReferencePersonIsTheSameOnEveryMachine) {
    EXPECT_EQ(General()
                  .Rows(u"SELECT コード,氏名,カナ,郵便番号,住所A,住所B,電話 FROM M担当者 WHERE コード = '00002'"_s)
                  .first(),
              (QStringList{u"00002"_s, u"松尾　德男"_s, u"ﾏﾂｵ ﾉﾘｵ"_s, u"920-0853"_s, u"石川県金沢市"_s,
                           u"本町５－７－２"_s, u"076-717-2566"_s}));
}

TEST(Sample, LargerSampleBeginsWithThePeopleOfASmallerOne) {
    const SampleInstallation small({.staff = 40});
    EXPECT_EQ(People(small.Root(), 40), People(Usual().Root(), 40));
}

TEST(Sample, CodesHaveFiveDigitsAndPostalCodesTheirHyphen) {
    EXPECT_EQ(MatchingAll(u"コード"_s, u"[0-9]{5}"_s), QString());
    EXPECT_EQ(MatchingAll(u"郵便番号"_s, u"[0-9]{3}-[0-9]{4}"_s), QString());
}

TEST(Sample, TelephonesHaveTenDigitsInThreeGroups) {
    EXPECT_EQ(MatchingAll(u"電話"_s, u"0[0-9]{1,3}-[2-9][0-9]{1,3}-[0-9]{4}"_s), QString());
    for (const QStringList& row : General().Rows(u"SELECT 電話 FROM M担当者"_s)) EXPECT_EQ(row.first().size(), 12);
    EXPECT_EQ(Count(u"住所A LIKE '東京都港区%' AND 電話 NOT LIKE '03-%'"_s), 0);
}

TEST(Sample, KanaAreHalfWidthWithVoicedMarksOfTheirOwn) {
    EXPECT_EQ(MatchingAll(u"カナ"_s, u"[ｦ-ﾟ]+ [ｦ-ﾟ]+"_s), QString());
    EXPECT_GT(Count(u"カナ LIKE '%ﾞ%'"_s), 0);
    EXPECT_EQ(Count(u"氏名 LIKE '山田　%' AND カナ NOT LIKE 'ﾔﾏﾀﾞ %'"_s), 0);
    EXPECT_EQ(MatchingAll(u"氏名"_s, u"[^ ]+　[^ ]+"_s), QString());
}

TEST(Sample, PinsAreFourOrMoreCapitalsAndDigits) {
    const SamplePins pins(Usual().Root());
    const QRegularExpression form(u"^[A-Z0-9]{4,6}$"_s);
    for (const QStringList& row : General().Rows(u"SELECT 暗証番号 FROM M担当者"_s))
        EXPECT_TRUE(form.match(pins.Opened(row.first())).hasMatch()) << row.first().toStdString();
}

TEST(Sample, PinsAreStoredSealedInEveryColumn) {
    const SamplePins pins(Usual().Root());
    const QString sql =
        u"SELECT 暗証番号 FROM M担当者 UNION ALL SELECT 特権暗証番号 FROM Mユーザ UNION ALL"
        u" SELECT システム特権暗証番号 FROM Mユーザ UNION ALL SELECT 特権暗証番号 FROM M事業所"_s;
    const QList<QStringList> rows = General().Rows(sql);
    EXPECT_EQ(rows.size(), 300 + 2 + 7);
    for (const QStringList& row : rows) EXPECT_GE(pins.Opened(row.first()).size(), 4) << row.first().toStdString();
    EXPECT_EQ(pins.Opened(General().Value(u"SELECT 特権暗証番号 FROM M事業所 WHERE コード = '001'"_s)), u"HONSHA01"_s);
}

TEST(Sample, PinsAreRequiredOnlyIfTheCompanyAsksForThem) {
    EXPECT_EQ(General().Rows(u"SELECT 暗証番号有無 FROM Mユーザ UNION SELECT 暗証番号有無 FROM M事業所"_s),
              (QList<QStringList>{{u"0"_s}}));
}

TEST(Sample, SecondAndThirdAddressLineAreNeverNullBesideAFilledFirst) {
    EXPECT_EQ(Count(u"住所A <> '' AND (住所B IS NULL OR 住所C IS NULL)"_s), 0);
    EXPECT_GT(Count(u"住所C = ''"_s), 0);
    EXPECT_GT(Count(u"住所C <> ''"_s), 0);
}

TEST(Sample, SomePeopleHaveNoDepartmentOrOneThatIsGone) {
    EXPECT_GT(Count(u"部門コード IS NULL"_s), 0);
    EXPECT_GT(Count(u"部門コード = ''"_s), 0);
    EXPECT_GT(Count(u"部門コード <> '' AND 部門コード NOT IN (SELECT コード FROM M部門)"_s), 0);
    EXPECT_GT(Count(u"役職コード <> '' AND 役職コード NOT IN (SELECT コード FROM M役職)"_s), 0);
}

TEST(Sample, SomePeopleHaveLeftAndSomeWillLeave) {
    EXPECT_GT(Count(u"在籍区分 = '1' AND 退社日付 <= '%1'"_s.arg(kReference)), 10);
    EXPECT_GT(Count(u"在籍区分 = '1' AND 退社日付 > '%1'"_s.arg(kReference)), 2);
    EXPECT_GT(Count(u"退社日付 = '20991231'"_s), 0);
    EXPECT_EQ(Count(u"在籍区分 = '0' AND 退社日付 <> ''"_s), 0);
    EXPECT_EQ(Count(u"退社日付 <> '' AND 退社日付 <= 入社日付"_s), 0);
}

TEST(Sample, BirthsReachBackToTheOldErasAndMostPeopleJoinedInApril) {
    const SampleInstallation large({.staff = 2000});
    const QString born = u"SELECT count(*) FROM M担当者 WHERE 生年月日 BETWEEN '%1' AND '%2'"_s;
    EXPECT_GT(large.General().Value(born.arg(u"18680125"_s, u"19120729"_s)).toInt(), 0);
    EXPECT_GT(large.General().Value(born.arg(u"19120730"_s, u"19261224"_s)).toInt(), 0);
    EXPECT_GT(Count(u"入社日付 LIKE '____0401'"_s), 200);
    EXPECT_GT(Count(u"生年月日 = ''"_s), 0);
}

TEST(Sample, StampsAreInTheSuitesFormAndNeverBeforeJoining) {
    const QRegularExpression form(u"^[0-9]{8} [0-2][0-9][0-5][0-9][0-5][0-9]$"_s);
    for (const QStringList& row : General().Rows(u"SELECT 登録日付 FROM M担当者 WHERE 登録日付 <> '' UNION ALL"
                                                 u" SELECT 更新日付 FROM M担当者 WHERE 更新日付 <> ''"_s))
        EXPECT_TRUE(form.match(row.first()).hasMatch()) << row.first().toStdString();
    EXPECT_EQ(Count(u"登録日付 < 入社日付 AND 登録日付 <> ''"_s), 0);
    EXPECT_EQ(Count(u"更新日付 < 登録日付"_s), 0);
}

TEST(Sample, ErasHoldTheCatchAllRowWithAnEmptyStart) {
    const QList<QStringList> eras = General().Rows(u"SELECT 開始日付, 名称 FROM K年号区分 ORDER BY 開始日付"_s);
    EXPECT_EQ(eras, (QList<QStringList>{{u""_s, u"西暦"_s},
                                        {u"18680125"_s, u"明治"_s},
                                        {u"19120730"_s, u"大正"_s},
                                        {u"19261225"_s, u"昭和"_s},
                                        {u"19890108"_s, u"平成"_s},
                                        {u"20190501"_s, u"令和"_s}}));
    EXPECT_FALSE(eras[0][0].isNull());
}

TEST(Sample, ClassesAreNumberedFromZeroWithoutAGap) {
    for (const QString& table : {u"K性別区分"_s, u"K在籍区分"_s, u"K社員区分"_s, u"K稼動状況区分"_s}) {
        const QList<QStringList> rows = General().Rows(u"SELECT 区分 FROM %1 ORDER BY 区分"_s.arg(table));
        ASSERT_GE(rows.size(), 2);
        for (int i = 0; i < rows.size(); ++i) EXPECT_EQ(rows[i].first(), QString::number(i)) << table.toStdString();
    }
    EXPECT_EQ(Count(u"性別区分 NOT IN (SELECT 区分 FROM K性別区分) OR 在籍区分 NOT IN (SELECT 区分 FROM K在籍区分)"
                    u" OR 社員区分 NOT IN (SELECT 区分 FROM K社員区分)"_s),
              0);
}

TEST(Sample, DepartmentsAndSectionsHaveBothStatuses) {
    for (const QString& table : {u"M部門"_s, u"Mセクション"_s})
        EXPECT_EQ(General().Rows(u"SELECT DISTINCT 稼動状況区分 FROM %1 ORDER BY 1"_s.arg(table)),
                  (QList<QStringList>{{u"0"_s}, {u"1"_s}}));
}

TEST(Sample, OfficesHoldTheCompanyAsAWholeAndSeveralReal) {
    EXPECT_EQ(General().Value(u"SELECT 名称 FROM M事業所 WHERE コード = '000'"_s), u"全社"_s);
    EXPECT_EQ(General().Value(u"SELECT count(*) FROM M事業所 WHERE コード <> '000'"_s), u"6"_s);
    EXPECT_EQ(General().Value(u"SELECT 名称 FROM Mユーザ WHERE ID = '0001'"_s), u"見本商事株式会社"_s);
}

TEST(Sample, ViewLogHoldsBothKindsForAThirdOfTheStaff) {
    const QString seen =
        u"SELECT count(DISTINCT キー項目) FROM T閲覧 WHERE 担当者コード = '00001' AND 閲覧情報 ="
        u" '要員台帳更新' AND 伝票事業所コード = '' AND 伝票番号基準日付 = '' AND 伝票No = ''"_s;
    EXPECT_NEAR(General().Value(seen).toInt(), 100, 25);
    for (const QString& kind : {u"0"_s, u"1"_s})
        EXPECT_GT(General().Value(u"SELECT count(*) FROM T閲覧 WHERE 閲覧区分 = '%1'"_s.arg(kind)).toInt(), 20);
    EXPECT_GT(General().Value(u"SELECT count(DISTINCT 担当者コード) FROM T閲覧"_s).toInt(), 1);
}

TEST(Sample, LaunchingStaffMemberMayDoEverything) {
    const QStringList row =
        General()
            .Rows(
                u"SELECT 在籍区分, 処理分類1操作許可, 操作許可, 印刷許可, テキスト出力許可 FROM M担当者"
                u" WHERE コード = '00001'"_s)
            .first();
    EXPECT_EQ(row, QStringList(5, u"0"_s));
    EXPECT_EQ(General().Value(u"SELECT count(*) FROM 担当者別操作許可プログラム WHERE 担当者コード = '00001'"_s),
              u"0"_s);
    EXPECT_GT(General().Value(u"SELECT count(*) FROM 担当者別操作許可プログラム"_s).toInt(), 5);
    EXPECT_GT(Count(u"操作許可 <> '0' OR 印刷許可 <> '0'"_s), 0);
}

TEST(Sample, LargeSampleTakesSeconds) {
    QElapsedTimer timer;
    timer.start();
    const SampleInstallation large({.staff = 33000});
    EXPECT_EQ(large.General().Value(u"SELECT count(*) FROM M担当者"_s), u"33000"_s);
    EXPECT_EQ(large.General().Value(u"SELECT max(コード) FROM M担当者"_s), u"33000"_s);
    EXPECT_LT(timer.elapsed(), 30000);
}
