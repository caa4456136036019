#include "registration/StaffStore.h"

#include "data/DataFixture.h"

using namespace Qt::StringLiterals;

namespace {

/// The staff member 00007 with a value in every item, as another program writes it.
class StaffStoreTest : public WithConnections {
  protected:
    StaffStoreTest() {
        Globals().ProgramId = u"要員台帳更新"_s;
        QString columns = u"コード, 登録日付, 暗証番号"_s, values = u"'00007', '20050401 090000', 'S1:x'"_s;
        for (size_t i = 0; i < kStaffItemCount; ++i) {
            columns += u", "_s + kStaffItems[i].column.toString();
            values += u", '旧%1'"_s.arg(i);
        }
        Run(u"DELETE FROM T閲覧; INSERT INTO M担当者 (%1) VALUES (%2)"_s.arg(columns, values));
        EXPECT_TRUE(store.Open());
        EXPECT_EQ(store.Load(u"00007"_s, before), StoreOutcome::Done);
        for (size_t i = 0; i < kStaffItemCount; ++i) entered[i] = u"新%1'"_s.arg(i);
    }

    void Run(const QString& sql) const { installation.General().Execute(sql); }
    QString Value(const QString& column) const {
        return installation.General().Value(u"SELECT %1 FROM M担当者 WHERE コード = '00007'"_s.arg(column));
    }
    QList<QStringList> Views() const { return installation.General().Rows(u"SELECT * FROM T閲覧 ORDER BY rowid"_s); }
    QStringList Items() const {
        QStringList texts;
        for (const StaffItem& item : kStaffItems) texts << Value(item.column.toString());
        return texts;
    }
    static QStringList List(const StaffValues& values) { return {values.begin(), values.end()}; }
    void ExpectNothingWritten() const {
        EXPECT_EQ(Items(), List(before.values));
        EXPECT_EQ(Value(u"更新日付"_s), QString());
        EXPECT_EQ(Views(), QList<QStringList>());
    }

    StaffStore store;
    StaffRecord before;
    StaffValues entered;
};

}  // namespace

TEST_F(StaffStoreTest, SavesEveryItemTheStampAndTheLogEntryAndNothingElse) {
    EXPECT_EQ(store.Save(before, entered), StoreOutcome::Done);
    EXPECT_EQ(Items(), List(entered));
    EXPECT_EQ(Value(u"更新日付"_s), u"20261121 093015"_s);
    EXPECT_EQ(Value(u"登録日付"_s), u"20050401 090000"_s);
    EXPECT_EQ(Value(u"暗証番号"_s), u"S1:x"_s);
    EXPECT_EQ(Value(u"アクセス権限"_s), QString());
    EXPECT_EQ(Views(), (QList<QStringList>{{u"00001"_s, u"要員台帳更新"_s, u""_s, u""_s, u""_s, u"00007"_s,
                                            u"20261121"_s, u"093015"_s, u"1"_s}}));
    EXPECT_EQ(installation.General().Value(u"SELECT 氏名 FROM M担当者 WHERE コード = '00001'"_s), u"山田　太郎"_s);
}

TEST_F(StaffStoreTest, NullsBecomeEmptyTextsSinceReadersDoNotAskForThem) {
    Run(u"UPDATE M担当者 SET 住所A = NULL, 住所B = NULL, 退社日付 = NULL WHERE コード = '00007'"_s);
    ASSERT_EQ(store.Load(u"00007"_s, before), StoreOutcome::Done);
    entered = before.values;
    EXPECT_EQ(store.Save(before, entered), StoreOutcome::Done);
    for (const QString& column : {u"住所A"_s, u"住所B"_s, u"退社日付"_s}) {
        EXPECT_EQ(Value(column), u""_s);
        EXPECT_FALSE(Value(column).isNull()) << column.toStdString();
    }
}

TEST_F(StaffStoreTest, LookingLeavesAnEntryOfADifferentKind) {
    store.LogView(u"00007"_s, ViewKind::Viewed);
    EXPECT_EQ(Views(), (QList<QStringList>{{u"00001"_s, u"要員台帳更新"_s, u""_s, u""_s, u""_s, u"00007"_s,
                                            u"20261121"_s, u"093015"_s, u"0"_s}}));
}

TEST_F(StaffStoreTest, NoKnownUserLeavesNoEntryAndSavesAllTheSame) {
    Globals().Staff.LaunchingStaffCode.clear();
    store.LogView(u"00007"_s, ViewKind::Viewed);
    EXPECT_EQ(store.Save(before, entered), StoreOutcome::Done);
    EXPECT_EQ(Views(), QList<QStringList>());
    EXPECT_EQ(Value(u"氏名"_s), entered.front());
}

TEST_F(StaffStoreTest, AChangeOfAnyItemByAnotherProgramIsNoticedAndNotOverwritten) {
    QStringList columns = {u"登録日付"_s, u"更新日付"_s};
    for (const StaffItem& item : kStaffItems) columns << item.column.toString();
    for (const QString& column : columns) {
        const QString old = Value(column);
        Run(u"UPDATE M担当者 SET %1 = '他' WHERE コード = '00007'"_s.arg(column));
        EXPECT_EQ(store.Save(before, entered), StoreOutcome::Changed) << column.toStdString();
        EXPECT_EQ(store.Delete(before), StoreOutcome::Changed) << column.toStdString();
        EXPECT_EQ(Value(column), u"他"_s);
        Run(u"UPDATE M担当者 SET %1 = %2 WHERE コード = '00007'"_s.arg(column, SqlLiteral(old)));
        ExpectNothingWritten();
    }
}

TEST_F(StaffStoreTest, ADeletionByAnotherProgramIsNoticed) {
    Run(u"DELETE FROM M担当者 WHERE コード = '00007'"_s);
    EXPECT_EQ(store.Save(before, entered), StoreOutcome::Gone);
    EXPECT_EQ(store.Delete(before), StoreOutcome::Gone);
    EXPECT_EQ(Views(), QList<QStringList>());
    EXPECT_EQ(store.Load(u"00007"_s, before), StoreOutcome::Gone);
}

TEST_F(StaffStoreTest, ASaveWhoseLogEntryFailsWritesNothingAtAll) {
    Run(u"ALTER TABLE T閲覧 RENAME TO 別"_s);
    EXPECT_EQ(store.Save(before, entered), StoreOutcome::Failed);
    Run(u"ALTER TABLE 別 RENAME TO T閲覧"_s);
    ExpectNothingWritten();
    ASSERT_EQ(History().size(), 1);
    EXPECT_TRUE(History().first().startsWith(u"エラー "_s));
    EXPECT_TRUE(History().first().contains(u"INSERT INTO T閲覧 ("_s)) << History().first().toStdString();
}

TEST_F(StaffStoreTest, AFailedReadIsNotTakenForAMissingPerson) {
    Run(u"DROP TABLE M担当者"_s);
    EXPECT_EQ(store.Load(u"00007"_s, before), StoreOutcome::Failed);
    EXPECT_EQ(before.担当者コード, u"00007"_s) << "what was read before stays";
    EXPECT_EQ(History(), QStringList{u"エラー no such table: M担当者SELECT * FROM M担当者 WHERE コード = ''00007''"_s});
}

TEST_F(StaffStoreTest, AFailedLookLeavesItsStatementInTheHistory) {
    Run(u"DROP TABLE T閲覧"_s);
    store.LogView(u"00007"_s, ViewKind::Viewed);
    ASSERT_EQ(History().size(), 1);
    EXPECT_TRUE(History().first().contains(u"INSERT INTO T閲覧 ("_s)) << History().first().toStdString();
}

TEST_F(StaffStoreTest, DeletionTakesThePersonalRightsAlongAndThoseOnly) {
    Run(u"DELETE FROM 担当者別操作許可プログラム;"
        u"INSERT INTO 担当者別操作許可プログラム (担当者コード, 業務メニュ, プログラムID) VALUES"
        u" ('00007', 'm', 'a'), ('00007', 'm', 'b'), ('00001', 'm', 'a')"_s);
    EXPECT_EQ(store.Delete(before), StoreOutcome::Done);
    EXPECT_EQ(installation.General().Rows(u"SELECT コード FROM M担当者"_s), (QList<QStringList>{{u"00001"_s}}));
    EXPECT_EQ(installation.General().Rows(u"SELECT 担当者コード, プログラムID FROM 担当者別操作許可プログラム"_s),
              (QList<QStringList>{{u"00001"_s, u"a"_s}}));
    EXPECT_EQ(Views(), QList<QStringList>());
}

TEST_F(StaffStoreTest, AFailedDeletionDeletesNothing) {
    Run(u"INSERT INTO 担当者別操作許可プログラム (担当者コード, 業務メニュ, プログラムID) VALUES ('00007', 'm', 'a');"
        u"CREATE TRIGGER 拒否 BEFORE DELETE ON M担当者 BEGIN SELECT RAISE(ABORT, '拒否'); END"_s);
    EXPECT_EQ(store.Delete(before), StoreOutcome::Failed);
    ExpectNothingWritten();
    EXPECT_EQ(
        installation.General().Value(u"SELECT COUNT(*) FROM 担当者別操作許可プログラム WHERE 担当者コード = '00007'"_s),
        u"1"_s);
}

TEST_F(StaffStoreTest, ACodeWithQuotesIsAPersonLikeAnyOther) {
    Run(u"UPDATE M担当者 SET コード = '0''1' WHERE コード = '00007'"_s);
    ASSERT_EQ(store.Load(u"0'1"_s, before), StoreOutcome::Done);
    EXPECT_EQ(store.Save(before, entered), StoreOutcome::Done);
    EXPECT_EQ(Views().first().at(5), u"0'1"_s);
}

TEST_F(StaffStoreTest, AMissingGeneralDatabaseIsRefusedWithARow) {
    Globals().GeneralDatabase.データソース名 += u".none"_s;
    StaffStore none;
    EXPECT_FALSE(none.Open());
    ASSERT_EQ(History().size(), 1);
    EXPECT_TRUE(History().first().startsWith(u"エラー DB_OPEN ERROR"_s));
    Globals().GeneralDatabase.db = u"A "_s;
    EXPECT_FALSE(none.Open());
}
