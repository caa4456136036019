#include "setup/storage/TableStream.h"

#include <gtest/gtest.h>

#include "platform/RuntimeError.h"

using namespace Qt::StringLiterals;
using setup::Frame;
using setup::FrameKind;

namespace {

bool Refused(const std::function<void()>& parse) {
    try {
        parse();
    } catch (const platform::RuntimeError&) {
        return true;
    }
    return false;
}

bool BodyRefused(const QByteArray& body) {
    return Refused([&] { setup::ParseFrame(body); });
}

}  // namespace

TEST(TableStream, TextsComeBackAsTheyWereWithNullAndEmptyDistinguished) {
    const Frame row{FrameKind::Row, {u"𠮷野"_s, QString(), u""_s, u"\ufeffa\r\n"_s}};
    const QByteArray bytes = setup::EncodeFrame(row);
    ASSERT_EQ(setup::FrameLength(bytes.first(4)), bytes.size() - 4);
    const Frame back = setup::ParseFrame(bytes.sliced(4));
    EXPECT_EQ(back.kind, FrameKind::Row);
    EXPECT_EQ(back.texts, row.texts);
    EXPECT_TRUE(back.texts[1].isNull());
    EXPECT_FALSE(back.texts[2].isNull());
}

TEST(TableStream, AFrameIsLengthKindAndTextsWithTheirLengths) {
    EXPECT_EQ(setup::EncodeFrame({FrameKind::Row, {u"a"_s, QString()}}),
              QByteArray("\x0a\0\0\0R\1\0\0\0a\xff\xff\xff\xff", 14));
}

TEST(TableStream, LengthsBeyondTheLimitsAreRefused) {
    EXPECT_TRUE(Refused([] { setup::FrameLength(QByteArray("\0\0\0\0", 4)); }));
    EXPECT_TRUE(Refused([] { setup::FrameLength(QByteArray("\1\0\0\4", 4)); }));
    EXPECT_TRUE(Refused([] { setup::FrameLength(QByteArray("\xff\xff\xff\xff", 4)); }));
    EXPECT_TRUE(Refused([] { setup::FrameLength(QByteArray::fromRawData("\1\0\0\0", 3)); }));
    EXPECT_TRUE(Refused([] { setup::FrameLength(QByteArray("\1\0\0\0R", 5)); }));
    EXPECT_EQ(setup::FrameLength(QByteArray("\0\0\0\4", 4)), setup::kLongestFrame);
}

TEST(TableStream, BodiesThatNoEncoderWritesAreRefused) {
    EXPECT_TRUE(BodyRefused(""));
    EXPECT_TRUE(BodyRefused("X"));
    EXPECT_TRUE(BodyRefused(QByteArray("R\1\0\0", 4)));
    EXPECT_TRUE(BodyRefused(QByteArray::fromRawData("R\2\0\0\0ab", 6)));
    EXPECT_TRUE(BodyRefused(QByteArray("R\xfe\xff\xff\xff", 5)));
    EXPECT_TRUE(BodyRefused(QByteArray("R\1\0\0\0\x80", 6)));
    EXPECT_TRUE(BodyRefused(QByteArray("R\3\0\0\0\xed\xa0\x80", 8)));
    EXPECT_TRUE(BodyRefused(QByteArray("R\1\0\0\0\0", 6)));
    EXPECT_FALSE(BodyRefused(QByteArray("R\1\0\0\0a", 6)));
}

TEST(TableStream, TextsOverAMegabyteAreRefused) {
    const QString longest(setup::kLongestText, u'a');
    EXPECT_FALSE(BodyRefused(setup::EncodeFrame({FrameKind::Row, {longest}}).sliced(4)));
    EXPECT_TRUE(BodyRefused(setup::EncodeFrame({FrameKind::Row, {longest + u'a'}}).sliced(4)));
}

TEST(TableStream, AFrameHasAtMostAsManyTextsAsAFileHasTables) {
    QByteArray body = "N" + QByteArray(4 * setup::kMostTables, '\xff');
    EXPECT_EQ(setup::ParseFrame(body).texts.size(), setup::kMostTables);
    EXPECT_TRUE(BodyRefused(body + QByteArray(4, '\xff')));
}

TEST(TableStream, ARowOverTheLongestFrameCannotBeEncoded) {
    const QStringList texts(65, QString(setup::kLongestText, u'a'));
    EXPECT_TRUE(Refused([&] { setup::EncodeFrame({FrameKind::Row, texts}); }));
}

TEST(TableStream, NamesAreCountedAndNotEmpty) {
    EXPECT_EQ(setup::ParseNames({FrameKind::Names, {u"a"_s, u"b"_s}}, 2), (QStringList{u"a"_s, u"b"_s}));
    EXPECT_TRUE(Refused([] { setup::ParseNames({FrameKind::Names, {u"a"_s, u"b"_s}}, 1); }));
    EXPECT_TRUE(Refused([] { setup::ParseNames({FrameKind::Names, {QString()}}, 1); }));
    EXPECT_TRUE(Refused([] { setup::ParseNames({FrameKind::Names, {u""_s}}, 1); }));
    EXPECT_TRUE(Refused([] { setup::ParseNames({FrameKind::Row, {u"a"_s}}, 1); }));
}

TEST(TableStream, CountsAreNumbersFromNull) {
    EXPECT_EQ(setup::ParseCount({FrameKind::End, {u"12"_s}}), 12);
    EXPECT_EQ(setup::ParseCount({FrameKind::End, {u"0"_s}}), 0);
    for (const QString& text : {u"-1"_s, u"x"_s, u""_s, u"99999999999999999999"_s})
        EXPECT_TRUE(Refused([&] { setup::ParseCount({FrameKind::End, {text}}); })) << text.toStdString();
    EXPECT_TRUE(Refused([] { setup::ParseCount({FrameKind::End, {}}); }));
    EXPECT_TRUE(Refused([] { setup::ParseCount({FrameKind::End, {u"1"_s, u"1"_s}}); }));
    EXPECT_TRUE(Refused([] { setup::ParseCount({FrameKind::Names, {u"1"_s}}); }));
}
