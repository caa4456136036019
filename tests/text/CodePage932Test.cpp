#include "text/CodePage932.h"

#include <gtest/gtest.h>

#include <QList>

using namespace Qt::StringLiterals;

namespace {

QByteArray BytesOf(QStringView text) { return Encode932(text).bytes.toHex(' ').toUpper(); }

struct Form {
    QString text;
    QByteArray bytes;
};

const QList<Form> kForms = {
    {u"A"_s, "41"},     {u"~"_s, "7E"},     {u"\\"_s, "5C"},    {u"ｱ"_s, "B1"},         {u"ﾞ"_s, "DE"},
    {u"あ"_s, "82 A0"}, {u"亜"_s, "88 9F"}, {u"～"_s, "81 60"}, {u"－"_s, "81 7C"},     {u"―"_s, "81 5C"},
    {u"∥"_s, "81 61"},  {u"￢"_s, "81 CA"}, {u"￠"_s, "81 91"}, {u"￡"_s, "81 92"},     {u"￥"_s, "81 8F"},
    {u"①"_s, "87 40"},  {u"㈱"_s, "87 8A"}, {u"Ⅰ"_s, "87 54"},  {u"髙"_s, "FB FC"},     {u"﨑"_s, "FA B1"},
    {u"德"_s, "FA BA"}, {u"表"_s, "95 5C"}, {u"　"_s, "81 40"}, {u"\uE000"_s, "F0 40"},
};

}  // namespace

TEST(CodePage932, CharactersHaveTheBytesOfWindows) {
    for (const Form& form : kForms) EXPECT_EQ(BytesOf(form.text), form.bytes) << form.text.toStdString();
}

TEST(CodePage932, BytesComeBackAsTheSameCharacters) {
    for (const Form& form : kForms)
        EXPECT_EQ(Decode932(QByteArray::fromHex(form.bytes)), form.text) << form.bytes.toStdString();
}

TEST(CodePage932, EveryCharacterWithAFormComesBackAsItself) {
    int forms = 0;
    for (char32_t code = 0; code < 0x10000; ++code) {
        if (QChar::isSurrogate(code)) continue;
        const QString text(QChar(static_cast<char16_t>(code)));
        const Encoded932 encoded = Encode932(text);
        if (encoded.lost > 0) continue;
        ++forms;
        ASSERT_EQ(Decode932(encoded.bytes), text) << std::hex << static_cast<unsigned>(code);
    }
    // 128 ASCII, 63 half-width kana, 7,326 characters of two bytes, 1,880 user-defined ones.
    EXPECT_EQ(forms, 9397);
}

TEST(CodePage932, DecodesBothCodesOfADuplicateCharacter) {
    EXPECT_EQ(Decode932(QByteArray::fromHex("EEE0")), u"髙"_s);
    EXPECT_EQ(Decode932(QByteArray::fromHex("ED95")), u"﨑"_s);
    EXPECT_EQ(Decode932(QByteArray::fromHex("ED9E")), u"德"_s);
    EXPECT_EQ(Decode932(QByteArray::fromHex("FA4A")), u"Ⅰ"_s);
}

TEST(CodePage932, CharactersOfOtherTablesHaveNoForm) {
    for (const QString& text :
         {u"鷗"_s, u"€"_s, u"é"_s, u"¢"_s, u"£"_s, u"¥"_s, u"¬"_s, u"—"_s, u"‖"_s, u"‾"_s, u"−"_s, u"〜"_s}) {
        const Encoded932 encoded = Encode932(text);
        EXPECT_EQ(encoded.bytes, "?") << text.toStdString();
        EXPECT_EQ(encoded.lost, 1) << text.toStdString();
        EXPECT_EQ(ByteLength932(text), 1) << text.toStdString();
    }
}

TEST(CodePage932, ASurrogatePairBecomesTwoSubstitutes) {
    for (const QString& text : {u"𠮷"_s, u"😀"_s}) {
        EXPECT_EQ(Encode932(text).bytes, "??");
        EXPECT_EQ(Encode932(text).lost, 2);
        EXPECT_EQ(ByteLength932(text), 2);
    }
}

TEST(CodePage932, AQuestionMarkOfTheTextIsNotLost) {
    const Encoded932 encoded = Encode932(u"?𠮷?");
    EXPECT_EQ(encoded.bytes, "????");
    EXPECT_EQ(encoded.lost, 2);
}

TEST(CodePage932, TextIsAppendedAfterTheBytesThatAreThere) {
    QByteArray bytes("ab");
    EXPECT_EQ(AppendEncoded932(u"山c", bytes), 0);
    EXPECT_EQ(AppendEncoded932(u"€d", bytes), 1);
    EXPECT_EQ(bytes.toHex(' ').toUpper(), "61 62 8E 52 63 3F 64");
}

TEST(CodePage932, LengthCountsFullWidthTwiceAndHalfWidthOnce) {
    EXPECT_EQ(ByteLength932(u""), 0);
    EXPECT_EQ(ByteLength932(u"ABC 123"), 7);
    EXPECT_EQ(ByteLength932(u"ﾔﾏﾀﾞ"), 4);
    EXPECT_EQ(ByteLength932(u"山田太郎"), 8);
    EXPECT_EQ(ByteLength932(u"ＡＢ C　髙"), 10);
}

TEST(CodePage932, LengthIsTheLengthOfTheBytes) {
    const QString text = u"髙﨑德 ①㈱Ⅰ ～－― ｶﾞ 𠮷鷗€é 🙂"_s;
    EXPECT_EQ(ByteLength932(text), Encode932(text).bytes.size());
}

TEST(CodePage932, BytesThatAreNoCharacterAreMarked) {
    EXPECT_EQ(Decode932(QByteArray::fromHex("80")), u"\uFFFD"_s);
    EXPECT_EQ(Decode932(QByteArray::fromHex("4181")), u"A\uFFFD"_s);
    EXPECT_EQ(Decode932(QByteArray::fromHex("813041")), u"\uFFFD0A"_s);
}
