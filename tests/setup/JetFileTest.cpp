// Reads the database files in the formats Jet 3, Jet 4 and ACE that tests/setup/jet/write-jet-files generates.

#include "setup/storage/JetFile.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "platform/RuntimeError.h"
#include "support/FileBytes.h"

using namespace Qt::StringLiterals;

namespace {

const QString kFiles = QStringLiteral(SUITE_SOURCES) + u"/tests/setup/jet/"_s;

QList<QStringList> RowsOf(const setup::ForeignTables& file, const QString& table) {
    QList<QStringList> rows;
    file.ReadRows(table, [&](const QStringList& row) { rows.append(row); });
    return rows;
}

/// Values of one column.
QStringList Values(const setup::ForeignTables& file, const QString& table, const QString& column) {
    const qsizetype index = file.Columns(table).indexOf(column);
    QStringList values;
    for (const QStringList& row : RowsOf(file, table)) values.append(row.value(index));
    return values;
}

class JetFiles : public testing::TestWithParam<const char16_t*> {
  protected:
    QString Path() const { return kFiles + QString::fromUtf16(GetParam()); }
    setup::JetFile file{Path()};
};

INSTANTIATE_TEST_SUITE_P(Of, JetFiles, testing::Values(u"general97.mdb", u"general.mdb", u"general.accdb"),
                         [](const auto& file) {
                             QString name = QString::fromUtf16(file.param);
                             return name.replace(u'.', u'_').toStdString();
                         });

}  // namespace

TEST_P(JetFiles, TablesAreListedWithoutThoseOfTheSystem) {
    EXPECT_EQ(file.Tables().join(u' '),
              u"M担当者 Mユーザ M事業所 M部門 Mセクション M役職 M他業務連携 K性別区分 K在籍区分 K社員区分"
              u" K稼動状況区分 K年号区分 担当者別操作許可プログラム T閲覧"_s);
}

TEST_P(JetFiles, RowsHaveMoreColumnsThanATableOfWhichColumnsWereDeleted) {
    EXPECT_EQ(file.Columns(u"M役職"_s), (QStringList{u"コード"_s, u"名称"_s}));
    EXPECT_EQ(RowsOf(file, u"M役職"_s),
              (QList<QStringList>{{u"10"_s, u"取締役"_s}, {u"20"_s, u"部長"_s}, {u"30"_s, QString()}}));
}

TEST_P(JetFiles, ColumnsThatWereAddedLaterAreNullInOlderRows) {
    const QList<QStringList> rows = RowsOf(file, u"M部門"_s);
    const QString branch = GetParam() == std::u16string_view(u"general97.mdb") ? u"吉野支店"_s : u"𠮷野支店"_s;
    EXPECT_EQ(file.Columns(u"M部門"_s), (QStringList{u"コード"_s, u"名称"_s, u"稼動状況区分"_s, u"設立"_s, u"兼務"_s}));
    EXPECT_EQ(rows, (QList<QStringList>{{u"010"_s, u"総務部"_s, QString(), QString(), u"0"_s},
                                        {u"020"_s, u""_s, QString(), QString(), u"0"_s},
                                        {u"030"_s, QString(), QString(), QString(), u"0"_s},
                                        {u"040"_s, u"営業部"_s, u"0"_s, QString(), u"0"_s},
                                        {u"050"_s, branch, u""_s, u"20000101"_s, u"1"_s},
                                        {u"060"_s, u"it's"_s, QString(), QString(), u"0"_s}}));
}

TEST_P(JetFiles, DeletedRowsStayAwayAndMovedOnesAreReadOnce) {
    QStringList codes = Values(file, u"Mセクション"_s, u"コード"_s);
    codes.sort();
    EXPECT_EQ(codes, (QStringList{u"001"_s, u"003"_s, u"004"_s}));
}

TEST_P(JetFiles, NumbersAreDigitsAndDatesHaveTheirTimeOnlyAfterMidnight) {
    EXPECT_EQ(Values(file, u"M担当者"_s, u"アクセス権限"_s), (QStringList{u"9"_s, u"1"_s, u"-1"_s, QString(), u"0"_s}));
    EXPECT_EQ(Values(file, u"M担当者"_s, u"入社日付"_s),
              (QStringList{u"20000401"_s, u"20160401 120000"_s, QString(), u"18991229"_s, u"19000101"_s}));
}

TEST_P(JetFiles, MemosAreReadFromTheRowFromAPageAndFromAChainOfPages) {
    EXPECT_EQ(Values(file, u"M担当者"_s, u"担当者メモ"_s), (QStringList{u"短い"_s, u"長い備考。"_s.repeated(900), u""_s,
                                                                        QString(), u"改行\r\nあり"_s.repeated(40)}));
}

TEST_P(JetFiles, RowsOfManyPagesComeInTheOrderInWhichTheyWereWritten) {
    const QStringList numbers = Values(file, u"T閲覧"_s, u"キー項目"_s);
    ASSERT_EQ(numbers.size(), 300);
    for (int i = 0; i < 300; ++i) EXPECT_EQ(numbers[i], u"%1"_s.arg(i, 8, 10, QChar(u'0')));
    const QList<QStringList> rows = RowsOf(file, u"T閲覧"_s);
    EXPECT_EQ(rows[0], (QStringList{u"00001"_s, u"要員"_s, u"001"_s, QString(), u""_s, u"00000000"_s, u"20260401"_s,
                                    u"000000"_s, u"1"_s}));
}
