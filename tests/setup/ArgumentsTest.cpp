#include "setup/commands/Arguments.h"

#include <gtest/gtest.h>

#include "setup/UsageError.h"
#include "setup/commands/VerbTable.h"
#include "support/PrintText.h"

using namespace Qt::StringLiterals;
using setup::Arguments;

namespace option = setup::option;

namespace {

/// A verb with an installation, an operand that may be left out, two options with values and a flag.
setup::Verb SomeVerb() {
    return {.name = u"some verb"_s,
            .operands = {setup::InstallationOperand(), {.name = {u"帳票名"_s, u"REPORT"_s}}},
            .options = {{.name = option::kUser, .value = {u"利用者"_s, u"USER"_s}},
                        {.name = option::kOdbc, .value = {u"接続文字列"_s, u"STRING"_s}},
                        {.name = option::kReplace}},
            .run = nullptr};
}

Arguments Parse(const QStringList& words) { return Arguments(SomeVerb(), words); }

QString ErrorOf(const QStringList& words) {
    try {
        Parse(words);
        return u"none"_s;
    } catch (const setup::UsageError& error) {
        return error.Description();
    }
}

}  // namespace

TEST(Arguments, ValueIsTheNextArgumentOrFollowsAnEqualsSign) {
    EXPECT_EQ(Parse({u"a"_s, u"--user"_s, u"sato"_s}).Value(option::kUser), u"sato"_s);
    EXPECT_EQ(Parse({u"--user=sato"_s, u"a"_s}).Value(option::kUser), u"sato"_s);
    EXPECT_EQ(Parse({u"a"_s, u"--odbc=Driver=X;PWD=--y"_s}).Value(option::kOdbc), u"Driver=X;PWD=--y"_s);
    EXPECT_EQ(Parse({u"a"_s, u"--user="_s}).Value(option::kUser, u"x"_s), QString());
    EXPECT_EQ(Parse({u"a"_s, u"--user"_s, u"-"_s}).Value(option::kUser), u"-"_s);
    EXPECT_EQ(Parse({u"a"_s, u"--user=--odbc"_s}).Value(option::kUser), u"--odbc"_s);
    EXPECT_FALSE(Parse({u"a"_s}).Has(option::kUser));
}

TEST(Arguments, LastValueOfARepeatedOptionCounts) {
    const Arguments arguments =
        Parse({u"a"_s, u"--user"_s, u"sato"_s, u"--replace"_s, u"--user=ito"_s, u"--replace"_s});
    EXPECT_EQ(arguments.Value(option::kUser), u"ito"_s);
    EXPECT_TRUE(arguments.Has(option::kReplace));
    EXPECT_EQ(arguments.Installation(), u"a"_s);
    EXPECT_EQ(arguments.Operand(1), QString());
}

TEST(Arguments, EverythingAfterTwoDashesIsAnOperand) {
    const Arguments arguments = Parse({u"--user"_s, u"sato"_s, u"--"_s, u"-a"_s, u"--replace"_s});
    EXPECT_EQ(arguments.Installation(), u"-a"_s);
    EXPECT_EQ(arguments.Operand(1), u"--replace"_s);
    EXPECT_FALSE(arguments.Has(option::kReplace));
    EXPECT_EQ(arguments.Value(option::kUser), u"sato"_s);
    EXPECT_EQ(Parse({u"--"_s, u"--help"_s}).Installation(), u"--help"_s);
}

TEST(Arguments, ErrorsAreNamed) {
    EXPECT_EQ(ErrorOf({u"a"_s, u"--stuff"_s}), u"オプション --stuff は使えません。"_s);
    EXPECT_EQ(ErrorOf({u"a"_s, u"--stuff=1"_s}), u"オプション --stuff は使えません。"_s);
    EXPECT_EQ(ErrorOf({u"a"_s, u"--follow"_s}), u"オプション --follow は使えません。"_s);
    EXPECT_EQ(ErrorOf({u"a"_s, u"-u"_s}), u"オプション -u は使えません。"_s);
    EXPECT_EQ(ErrorOf({u"a"_s, u"-user"_s, u"x"_s}), u"オプション -u は使えません。"_s);
    EXPECT_EQ(ErrorOf({u"a"_s, u"--user"_s}), u"オプション --user の値がありません。"_s);
    EXPECT_EQ(ErrorOf({u"a"_s, u"--user"_s, u"--replace"_s}), u"オプション --user の値がありません。"_s);
    EXPECT_EQ(ErrorOf({u"a"_s, u"--user"_s, u"--"_s, u"b"_s}), u"オプション --user の値がありません。"_s);
    EXPECT_EQ(ErrorOf({u"a"_s, u"--replace=yes"_s}), u"オプション --replace に値は付けられません。"_s);
    EXPECT_EQ(ErrorOf({u"a"_s, u"b"_s, u"c"_s}), u"引数 c が余分です。"_s);
    EXPECT_EQ(ErrorOf({u"--replace"_s}), u"インストール先のフォルダを指定してください。"_s);
}

TEST(Arguments, EmptyInstallationIsNotTheWorkingFolder) {
    EXPECT_EQ(ErrorOf({u""_s}), u"インストール先のフォルダを指定してください。"_s);
    EXPECT_EQ(ErrorOf({u""_s, u"b"_s}), u"インストール先のフォルダを指定してください。"_s);
    EXPECT_EQ(ErrorOf({u"a"_s, u""_s}), u"none"_s);
}
