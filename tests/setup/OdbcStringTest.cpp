#include "setup/schema/GeneralDatabase.h"

#include <gtest/gtest.h>

#include "setup/UsageError.h"

using namespace Qt::StringLiterals;
using setup::DefinitionOf;

namespace {

const QString kBraced = u"{p}}{ w};"_s;

QString RefusalOf(const QString& text) {
    try {
        DefinitionOf(text);
    } catch (const setup::UsageError& refusal) {
        return refusal.Description();
    }
    return u"taken"_s;
}

}  // namespace

TEST(OdbcString, ADriverGivesTheDialectOfServerAndDatabase) {
    const GeneralDatabaseDefinition row = DefinitionOf(
        u" driver = PostgreSQL Unicode ;SERVER=db.example;Port=5433;Database=suite;Uid=me;Pwd="_s + kBraced);
    EXPECT_EQ(row.db, u"S"_s);
    EXPECT_EQ(row.プロバイダ名, u"PostgreSQL Unicode"_s);
    EXPECT_EQ(row.サーバー名, u"db.example:5433"_s);
    EXPECT_EQ(row.データベース名, u"suite"_s);
    EXPECT_EQ(row.ユーザーID, u"me"_s);
    EXPECT_EQ(row.パスワード, u"p}{ w"_s);
    EXPECT_EQ(row.データソース名, u""_s);
    EXPECT_EQ(DefinitionOf(u"Driver={x};Host=h;DB=d"_s).サーバー名, u"h"_s);
}

TEST(OdbcString, ADataSourceGivesTheDialectOfDataSources) {
    const GeneralDatabaseDefinition row = DefinitionOf(u"DSN=人事;UID=me"_s);
    EXPECT_EQ(row.db, u"O"_s);
    EXPECT_EQ(row.プロバイダ名, u"MSDASQL"_s);
    EXPECT_EQ(row.データソース名, u"人事"_s);
    EXPECT_EQ(row.ユーザーID, u"me"_s);
    EXPECT_EQ(row.サーバー名, u""_s);
}

TEST(OdbcString, WhatTheRowHasNoPlaceForIsRefused) {
    EXPECT_EQ(RefusalOf(u"Driver=x;Server=s;Database=d;SSLmode=require"_s),
              u"接続文字列の「sslmode」は定義に入れられません。データソースに設定し、DSN= で指定してください。"_s);
    EXPECT_EQ(RefusalOf(u"Server=s;Database=d"_s),
              u"接続文字列には Driver と DSN のどちらか一方を指定してください。"_s);
    EXPECT_EQ(RefusalOf(u"Driver=x;DSN=y"_s), u"接続文字列には Driver と DSN のどちらか一方を指定してください。"_s);
    EXPECT_EQ(RefusalOf(u"DSN=y;Database=d"_s), u"DSN= と一緒に指定できるのは UID と PWD だけです。"_s);
    EXPECT_EQ(RefusalOf(u"Driver=x;Server=s"_s), u"接続文字列に Server と Database を指定してください。"_s);
    EXPECT_EQ(RefusalOf(u"Driver=x;Server"_s), u"接続文字列の「Server」に「=」がありません。"_s);
    EXPECT_EQ(RefusalOf(u"Driver={x;Server=s"_s), u"接続文字列の「{」が閉じていません。"_s);
    EXPECT_EQ(RefusalOf(u"DSN=x;PWD={a;b}"_s),
              u"接続文字列の「pwd」の値に「;」を含めたり、引用符で始めたりはできません。"_s);
    EXPECT_EQ(RefusalOf(u""_s), u"接続文字列には Driver と DSN のどちらか一方を指定してください。"_s);
}

TEST(OdbcString, FullWidthBlanksBelongToNamesAndPasswords) {
    const GeneralDatabaseDefinition row = DefinitionOf(u"DSN= 　人事　 ;UID=me;PWD=　秘密　"_s);
    EXPECT_EQ(row.データソース名, u"　人事　"_s);
    EXPECT_EQ(row.パスワード, u"　秘密　"_s);
    EXPECT_EQ(RefusalOf(u"　DSN=x"_s),
              u"接続文字列の「　dsn」は定義に入れられません。データソースに設定し、DSN= で指定してください。"_s);
}
