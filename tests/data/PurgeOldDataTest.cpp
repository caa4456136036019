#include "data/Recordsets.h"

#include "data/DataFixture.h"

using namespace Qt::StringLiterals;

namespace {
class Purge : public WithConnections {
  protected:
    void Stamp(const QString& table, const QString& column, const QStringList& stamps) {
        for (const QString& stamp : stamps)
            installation.Configuration().Execute(u"INSERT INTO "_s + table + u" ("_s + column + u") VALUES ('"_s +
                                                 stamp + u"')"_s);
    }
    QStringList Left(const QString& table, const QString& column) {
        QStringList stamps;
        for (const QStringList& row :
             installation.Configuration().Rows(u"SELECT "_s + column + u" FROM "_s + table + u" ORDER BY 1"_s))
            stamps.append(row.first());
        return stamps;
    }
};
}  // namespace

TEST_F(Purge, ARowStampedEqualToTheLimitIsDeleted) {
    Stamp(u"プログラム稼動履歴"_s, u"実行日付"_s,
          {u"20200101 000000"_s, u"20260521 093014"_s, u"20260521 093015"_s, u"20260521 093016"_s});
    PurgeOldData();
    EXPECT_EQ(Left(u"プログラム稼動履歴"_s, u"実行日付"_s), QStringList{u"20260521 093016"_s});
}

TEST_F(Purge, MessagesAndClipboardsAreKeptForThreeDays) {
    const QStringList stamps = {u"20261118 093014"_s, u"20261118 093015"_s, u"20261118 093016"_s, u"20261121 000000"_s};
    const QStringList kept = {u"20261118 093016"_s, u"20261121 000000"_s};
    const QList<QStringList> tables = {{u"プログラム連携情報"_s, u"発信日時"_s},
                                       {u"プログラムクリップボード"_s, u"貼付日時"_s},
                                       {u"プログラムクリップボード明細"_s, u"貼付日時"_s}};
    for (const QStringList& table : tables) Stamp(table[0], table[1], stamps);
    PurgeOldData();
    for (const QStringList& table : tables) EXPECT_EQ(Left(table[0], table[1]), kept) << table[0].toStdString();
}

TEST_F(Purge, AStampInAnotherFormIsNotFoundWhereItsTextIsAfterTheLimit) {
    const QList<QStringList> columns = {{u"プログラム稼動履歴"_s, u"実行日付"_s},
                                        {u"プログラム連携情報"_s, u"発信日時"_s}};
    for (const QStringList& column : columns) {
        Stamp(column[0], column[1], {u"R08/01/01 00:00:00"_s, u"2026/11/21 09:00:00"_s, u"20200101 000000"_s});
        PurgeOldData();
        // A slash sorts before any digit, so timestamps of that format are deleted at once, whatever their date is.
        EXPECT_EQ(Left(column[0], column[1]), QStringList{u"R08/01/01 00:00:00"_s}) << column[0].toStdString();
    }
}

TEST_F(Purge, SixCalendarMonthsEndOnTheLastDayOfAShortMonth) {
    services.clock.now = QDateTime(QDate(2026, 8, 31), QTime(12, 0));
    Stamp(u"プログラム稼動履歴"_s, u"実行日付"_s, {u"20260228 120000"_s, u"20260228 120001"_s});
    PurgeOldData();
    EXPECT_EQ(Left(u"プログラム稼動履歴"_s, u"実行日付"_s), QStringList{u"20260228 120001"_s});
}

TEST_F(Purge, AFailedProbeRaisesAndLeavesARowButNotForTheHistory) {
    installation.Configuration().Execute(u"DROP TABLE プログラム連携情報"_s);
    EXPECT_THROW(PurgeOldData(), database::DatabaseError);
    ASSERT_EQ(History().size(), 1);
    EXPECT_TRUE(
        History().first().endsWith(u"SELECT * FROM プログラム連携情報 WHERE 発信日時 <= ''20261118 093015''"_s));
    installation.Configuration().Execute(u"DROP TABLE プログラム稼動履歴"_s);
    EXPECT_THROW(PurgeOldData(), database::DatabaseError);
    EXPECT_EQ(Globals().ProcCounter, 1);
}
