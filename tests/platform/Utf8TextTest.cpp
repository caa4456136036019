#include "platform/Utf8Text.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace platform;

TEST(Utf8Text, LeadingByteOrderMarksAreCharactersOfTheText) {
    for (const QString& text : {u"\uFEFF"_s, u"\uFEFF\uFEFF山"_s, u"a\uFEFF"_s, u"\uFEFFa\uFEFF𠮷"_s, u""_s, u"漢字"_s})
        EXPECT_EQ(TextFromUtf8(text.toUtf8()), text);
    EXPECT_EQ(TextFromLocal8Bit("\xEF\xBB\xBF"), u"\uFEFF"_s);
    EXPECT_EQ(TextFromLocal8Bit("\xEF\xBB\xBF\xEF\xBB\xBF"
                                "a"),
              u"\uFEFF\uFEFFa"_s);
    EXPECT_EQ(TextOfCharacter(0xFEFF), u"\uFEFF"_s);
    EXPECT_EQ(TextOfCharacter(U'𠮷'), u"𠮷"_s);
    EXPECT_EQ(TextFromUtf16(u"\uFEFF名", 2), u"\uFEFF名"_s);
}

TEST(Utf8Text, BytesThatAreNoUtf8BecomeReplacementCharacters) {
    EXPECT_EQ(TextFromUtf8("\xEF\xBB"), QString::fromUtf8("\xEF\xBB"));
    EXPECT_EQ(TextFromUtf8("\xEF\xBB\xBF\xFF"), u"\uFEFF\uFFFD"_s);
}

TEST(Utf8Text, AMissingTextIsNullAndAnEmptyOneIsEmpty) {
    EXPECT_TRUE(TextFromUtf8(QByteArrayView()).isNull());
    EXPECT_FALSE(TextFromUtf8(QByteArrayView("")).isNull());
}
