#include "database/sql/Quoting.h"

#include <gtest/gtest.h>

#include "support/PrintText.h"

using namespace Qt::StringLiterals;

TEST(Quoting, LiteralDoublesSingleQuotesAndKeepsTrailingBlanks) {
    EXPECT_EQ(database::TextLiteral(u"O'Hara \"A\"  "), u"'O''Hara \"A\"  '"_s);
    EXPECT_EQ(database::TextLiteral(u"'"), u"''''"_s);
}

TEST(Quoting, NullIsTheEmptyTextUnlessTheColumnTakesNull) {
    EXPECT_EQ(database::TextLiteral(QString()), u"''"_s);
    EXPECT_EQ(database::TextOrNullLiteral(QString()), u"NULL"_s);
    EXPECT_EQ(database::TextOrNullLiteral(u""_s), u"''"_s);
    EXPECT_EQ(database::TextOrNullLiteral(u"NULL"_s), u"'NULL'"_s);
}

TEST(Quoting, NameDoublesDoubleQuotes) {
    EXPECT_EQ(database::QuotedName(u"特\"記'事項"), u"\"特\"\"記'事項\""_s);
    EXPECT_EQ(database::QuotedNames({u"コード"_s, u"a\"b"_s}), u"\"コード\", \"a\"\"b\""_s);
    EXPECT_EQ(database::QuotedNames({}), QString());
}
