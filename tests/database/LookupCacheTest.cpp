#include "database/odbc/LookupCache.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace database;

namespace {

/// A fake server with one table of two or three columns that logs its queries.
class LookupCacheTest : public testing::Test {
  protected:
    std::shared_ptr<ResultTable> Serve(const QString& sql) {
        asked.append(sql);
        auto columns = std::make_shared<ColumnSet>();
        for (const QString& name : {u"開始日付"_s, u"名称"_s}) columns->Add(name, type);
        auto rows = std::make_shared<ResultTable>(columns);
        for (const auto& [date, name] : table) {
            rows->BeginRow();
            rows->AppendText(date.toUtf8());
            rows->AppendText(name.toUtf8());
        }
        return rows;
    }

    /// Result from the cache, or "-" if the server must be queried.
    QString Ask(const QString& sql) {
        lifted.Lift(sql);
        const auto rows = copies.Find(sql, lifted);
        if (rows == nullptr) return u"-"_s;
        return rows->RowCount() == 0 ? u"none"_s : rows->Text(0, 1);
    }
    static QString Era(const QString& date) {
        return u"SELECT TOP 1 * FROM K年号区分 WHERE 開始日付 <= '"_s + date + u"' ORDER BY 開始日付 DESC"_s;
    }
    void AskOften(int times = 16) {
        for (int i = 0; i < times; ++i) Ask(Era(QString::number(20200101 + i)));
    }

    QList<std::pair<QString, QString>> table = {
        {u""_s, u"西暦"_s}, {u"19890108"_s, u"平成"_s}, {u"20190501"_s, u"令和"_s}};
    QString type = u"TEXT"_s;
    QStringList asked;
    ParameterisedStatement lifted;
    LookupCache copies{TextRules(), [this](const QString& sql) { return Serve(sql); }};
};

}  // namespace

TEST_F(LookupCacheTest, TheFirstLookUpsGoToTheServerAndTheNextOnesToACopyOfAllItsRows) {
    for (int i = 0; i < 15; ++i) EXPECT_EQ(Ask(Era(QString::number(20200101 + i))), u"-"_s);
    EXPECT_EQ(asked, QStringList());
    EXPECT_EQ(Ask(Era(u"20200201"_s)), u"令和"_s);
    EXPECT_EQ(asked, QStringList{u"SELECT TOP 257 * FROM [K年号区分]"_s});
    EXPECT_EQ(Ask(Era(u"20190430"_s)), u"平成"_s);
    EXPECT_EQ(Ask(Era(u"18"_s)), u"西暦"_s);
    EXPECT_EQ(asked.size(), 1);
}

TEST_F(LookupCacheTest, TermsThatNeverChangedNarrowTheCopyAndAreNotAnsweredOtherwise) {
    const auto look = [](const QString& kind, const QString& date) {
        return u"SELECT 開始日付,[名称] FROM [K年号区分] WHERE [K年号区分].[名称] = '"_s + kind +
               u"' AND 開始日付 = '"_s + date + u'\'';
    };
    table = {{u"1"_s, u"x'y"_s}, {u"2"_s, u"x'y"_s}};
    for (int i = 0; i < 16; ++i) Ask(look(u"x''y"_s, QString::number(i)));
    EXPECT_EQ(asked, QStringList{u"SELECT TOP 257 * FROM [K年号区分] WHERE [名称] = 'x''y'"_s});
    EXPECT_EQ(Ask(look(u"x''y"_s, u"2"_s)), u"x'y"_s);
    EXPECT_EQ(Ask(look(u"x''y"_s, u"3"_s)), u"none"_s);
    EXPECT_EQ(Ask(look(u"z"_s, u"2"_s)), u"-"_s);
}

TEST_F(LookupCacheTest, ATableWithMoreRowsIsTriedAgainWhenMoreLookUpsHaveCome) {
    for (int i = 0; i < 300; ++i) table.append({QString::number(20300000 + i), u"後"_s});
    AskOften(63);
    EXPECT_EQ(asked.size(), 1);
    EXPECT_EQ(Ask(Era(u"20200201"_s)), u"令和"_s);
    EXPECT_EQ(asked, (QStringList{u"SELECT TOP 257 * FROM [K年号区分]"_s, u"SELECT TOP 1025 * FROM [K年号区分]"_s}));
}

TEST_F(LookupCacheTest, ValuesThatAreNoDigitsGoToTheServer) {
    AskOften();
    for (const QString& date : {u"2020-01-01"_s, u"あ"_s, u"２０"_s, u"2020 "_s}) EXPECT_EQ(Ask(Era(date)), u"-"_s);
    EXPECT_EQ(Ask(Era(u""_s)), u"西暦"_s);
}

TEST_F(LookupCacheTest, RowsThatAnEngineMightCompareOtherwiseAreNotCopied) {
    table.append({u"A1"_s, u"文字"_s});
    AskOften(100);
    EXPECT_EQ(Ask(Era(u"20200201"_s)), u"-"_s);
    EXPECT_EQ(asked.size(), 1);
}

TEST_F(LookupCacheTest, ColumnsThatAreNoTextsAreNotCopied) {
    type = u"INTEGER"_s;
    AskOften(100);
    EXPECT_EQ(Ask(Era(u"20200201"_s)), u"-"_s);
}

TEST_F(LookupCacheTest, OtherStatementsAlwaysGoToTheServer) {
    for (const QString& sql :
         {u"SELECT a FROM t, u WHERE t.a = '%1'"_s, u"SELECT a FROM t INNER JOIN u ON t.a = u.a WHERE a = '%1'"_s,
          u"SELECT a FROM t WHERE a = '%1' OR b = '2'"_s, u"SELECT a FROM t WHERE a LIKE '%1'"_s,
          u"SELECT (SELECT 1) FROM t WHERE a = '%1'"_s, u"SELECT a FROM t WHERE a = '%1' GROUP BY a"_s,
          u"SELECT a FROM (SELECT a FROM u) AS t WHERE a = '%1'"_s, u"SELECT a FROM t WHERE a = b AND b = '%1'"_s,
          u"SELECT a FROM t WHERE a = '%1' ORDER BY a || b"_s, u"SELECT a FROM t"_s})
        for (int i = 0; i < 70; ++i) EXPECT_EQ(Ask(QString(sql).replace(u"%1"_s, QString::number(i))), u"-"_s);
    EXPECT_EQ(asked, QStringList());
}

TEST_F(LookupCacheTest, WhatWasCopiedEndsWithTheScope) {
    AskOften();
    copies.Forget();
    EXPECT_EQ(Ask(Era(u"20200201"_s)), u"-"_s);
    table[2].second = u"新"_s;
    AskOften(15);
    EXPECT_EQ(Ask(Era(u"20200301"_s)), u"新"_s);
}

// As with a user who has permission for the lookup's columns only. On some engines the error ends the scope.
TEST_F(LookupCacheTest, AFailedFetchLeavesEveryLookUpToTheServerAndIsNotTriedAgain) {
    LookupCache* own = nullptr;
    int fetches = 0;
    LookupCache failing(TextRules(), [&](const QString&) -> std::shared_ptr<ResultTable> {
        ++fetches;
        own->Forget();
        throw DatabaseError(kPermissionDenied, u"no"_s);
    });
    own = &failing;
    for (int i = 0; i < 80; ++i) {
        const QString sql = Era(QString::number(20200101 + i));
        lifted.Lift(sql);
        EXPECT_EQ(failing.Find(sql, lifted), nullptr);
    }
    EXPECT_EQ(fetches, 1);
}
