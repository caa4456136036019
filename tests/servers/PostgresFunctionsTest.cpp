// Compares the functions of the schema with the tables that they are generated from.

#include <gtest/gtest.h>

#include <QRandomGenerator>

#include "database/collation/TextFolding.h"
#include "support/SampleInstallation.h"
#include "support/ServerDatabase.h"

using namespace Qt::StringLiterals;

namespace {

const QString kAlphabet = u"ｱｶｻﾊﾋｳﾞﾟｰ゛゜゙゚がぱヴゝヽ亜山鷗髙①㈱Ⅷaｂ'\\%_-１9ー　 ａＡЖжΩωßİK神𠮷👩豈"_s;

/// Short texts of characters that interact in names, and of arbitrary ones; the seed is fixed.
QStringList RandomTexts(int count) {
    QRandomGenerator random(20261121);
    const QList<uint> alphabet = kAlphabet.toUcs4();
    QStringList texts;
    for (int i = 0; i < count; ++i) {
        QString text = u""_s;
        for (int length = random.bounded(9); length > 0; --length) {
            char32_t sign = alphabet[random.bounded(alphabet.size())];
            if (random.bounded(8) == 0) sign = static_cast<char32_t>(random.bounded(0x20, 0xFFFE));
            if (!QChar::isSurrogate(sign)) text += QString::fromUcs4(&sign, 1);
        }
        texts.append(text);
    }
    return texts;
}

QString Folded(const QString& text) {
    const QByteArray utf8 = text.toUtf8();
    QString folded = u""_s;
    for (database::FoldedReader reader(utf8); !reader.AtEnd();) {
        const char32_t sign = reader.Next();
        folded += QString::fromUcs4(&sign, 1);
    }
    return folded;
}

class PostgresText : public testing::Test {
  protected:
    void SetUp() override {
        if (ServerDatabase::Engine() != u"PostgreSQL"_s) GTEST_SKIP() << "only PostgreSQL has functions of the schema";
        server.Run(u"CREATE TABLE texts (stored text COLLATE \"C\")"_s);
        QStringList rows;
        for (const QString& text : RandomTexts(3000)) rows.append(u'(' + SqlLiteral(text) + u')');
        server.Run(u"INSERT INTO texts VALUES "_s + rows.join(u','));
    }

    ServerDatabase server;
};

}  // namespace

TEST_F(PostgresText, FoldsEveryTextAsThePatternsAreFolded) {
    for (const QStringList& row : server.Rows(u"SELECT stored, suite_fold(stored) FROM texts"_s))
        ASSERT_EQ(row[1], Folded(row[0])) << row[0].toStdString();
}

TEST_F(PostgresText, OrdersEveryTextAsTheDesktopEngineDoes) {
    const QList<QStringList> rows = server.Rows(u"SELECT stored FROM texts ORDER BY suite_order(stored)"_s);
    ASSERT_EQ(rows.size(), 3000);
    for (qsizetype i = 1; i < rows.size(); ++i)
        ASSERT_LE(database::CompareTexts(rows[i - 1][0].toUtf8(), rows[i][0].toUtf8()), 0)
            << rows[i - 1][0].toStdString() << " / " << rows[i][0].toStdString();
}

TEST_F(PostgresText, KeysAreEqualWhereTheTextsCountAsEqual) {
    const QList<QStringList> rows =
        server.Rows(u"SELECT stored, encode(suite_order(stored), 'hex') FROM texts ORDER BY suite_order(stored)"_s);
    for (qsizetype i = 1; i < rows.size(); ++i) {
        const bool equal = database::CompareTexts(rows[i - 1][0].toUtf8(), rows[i][0].toUtf8()) == 0;
        ASSERT_EQ(rows[i - 1][1] == rows[i][1], equal)
            << rows[i - 1][0].toStdString() << " / " << rows[i][0].toStdString();
    }
}

// A restore and the server's own maintenance run with an empty search path.
TEST_F(PostgresText, GivesTheSameWithoutASearchPath) {
    const QString keys =
        u"SELECT %1suite_fold(stored), encode(%1suite_order(stored), 'hex') FROM public.texts ORDER BY stored"_s;
    const QList<QStringList> expected = server.Rows(keys.arg(QString()));
    server.Run(u"SET search_path = ''"_s);
    EXPECT_EQ(server.Rows(keys.arg(u"public."_s)), expected);
}
