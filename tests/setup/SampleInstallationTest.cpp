#include "support/SampleInstallation.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace Qt::StringLiterals;

TEST(SampleInstallation, CopyNamesItsOwnGeneralDatabase) {
    const SampleInstallation one, other;
    EXPECT_NE(one.Root(), other.Root());
    for (const SampleInstallation* installation : {&one, &other})
        EXPECT_EQ(installation->Configuration().Value(u"SELECT データソース名 FROM データベース定義"_s),
                  installation->Root() + u"/data/gnrdb.accdb"_s);
}

TEST(SampleInstallation, ChangeInOneCopyDoesNotReachTheNext) {
    const SampleInstallation one;
    one.ClearStaff();
    EXPECT_EQ(one.General().Value(u"SELECT count(*) FROM M担当者"_s), u"0"_s);
    EXPECT_EQ(SampleInstallation().General().Value(u"SELECT count(*) FROM M担当者"_s), u"40"_s);
}

TEST(SampleInstallation, RowsDistinguishNullFromEmptyText) {
    const SampleInstallation installation;
    installation.ClearStaff();
    installation.AddStaff(u"00007"_s, {{u"氏名"_s, u"O'Hara"_s}, {u"退社日付"_s, u""_s}});
    const QList<QStringList> rows = installation.General().Rows(u"SELECT コード,氏名,退社日付,カナ FROM M担当者"_s);
    ASSERT_EQ(rows.size(), 1);
    EXPECT_EQ(rows[0].first(2), (QStringList{u"00007"_s, u"O'Hara"_s}));
    EXPECT_TRUE(rows[0][2].isEmpty() && !rows[0][2].isNull());
    EXPECT_TRUE(rows[0][3].isNull());
}

TEST(SampleInstallation, DefinitionTakesNullAndText) {
    const SampleInstallation installation;
    installation.SetDefinition(u"db"_s, u"A "_s);
    installation.SetDefinition(u"ユーザーID"_s, QString());
    const QStringList row = installation.Configuration().Rows(u"SELECT db,ユーザーID FROM データベース定義"_s).first();
    EXPECT_EQ(row[0], u"A "_s);
    EXPECT_TRUE(row[1].isNull());
}

TEST(SampleInstallation, WrongStatementIsNotOverlooked) {
    EXPECT_THROW(SampleInstallation().General().Execute(u"DELETE FROM M無い"_s), std::runtime_error);
}
