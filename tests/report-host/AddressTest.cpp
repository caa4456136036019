#include "report-host/ReportFixture.h"

using namespace Qt::StringLiterals;

// Addresses of recipients and senders as they are read back from the printed pages.

namespace {

/// An address of 60 characters.
const QString kSixty =
    u"東京都千代田区丸の内西新宿南池袋北千住上野毛下高井戸江古田吉祥寺国分寺立川府中調布町田八王子青梅福生羽村昭島日野多摩稲城"_s;

/// Text of the words within a box, line by line.
QString TextWithin(const PdfFile& pdf, int page, const QRectF& box) {
    QString text;
    for (const PdfWord& word : pdf.Words())
        if (word.page == page && box.contains(word.place.center())) text += word.text;
    return text;
}

/// Number of different lines of the words within a box.
qsizetype LinesWithin(const PdfFile& pdf, int page, const QRectF& box) {
    QList<double> lines;
    for (const PdfWord& word : pdf.Words()) {
        const double line = word.place.center().y();
        const bool known =
            std::any_of(lines.begin(), lines.end(), [line](double other) { return std::abs(other - line) < 0.5; });
        if (word.page == page && box.contains(word.place.center()) && !known) lines.append(line);
    }
    return lines.size();
}

}  // namespace

class SenderTest : public ReportTest, public testing::WithParamInterface<QString> {};

TEST_P(SenderTest, AddressOfSixtyCharactersIsWholeInAtMostThreeLinesOfTheEnvelope) {
    for (const qsizetype cut : {60, 40, 20}) {
        installation.Report().Execute(u"DELETE FROM "_s + kEnvelope);
        WorkRow row = Recipient();
        row[u"ユーザ住所A"_s] = QString();
        row[u"事業所名称"_s] = u"支店"_s;
        row[GetParam() + u"郵便番号"_s] = u"100-0005"_s;
        row[GetParam() + u"住所A"_s] = kSixty.left(cut / 2);
        row[GetParam() + u"住所B"_s] = kSixty.mid(cut / 2, cut - cut / 2);
        row[GetParam() + u"住所C"_s] = kSixty.mid(cut);
        AddRow(kEnvelope, row);
        const PdfFile pdf = Pdf(kEnvelope);
        QRectF place;
        for (const PdfWord& word : pdf.Words())
            if (word.place.top() > 160 && word.text.size() > 2 && kSixty.contains(word.text)) place |= word.place;
        EXPECT_GE(place.left(), 34 - 0.1);
        EXPECT_LE(place.right(), 110 + 0.1);
        EXPECT_EQ(TextWithin(pdf, 0, place), kSixty) << cut;
        EXPECT_LE(LinesWithin(pdf, 0, place), 3) << cut;
    }
}

TEST_P(SenderTest, AddressWithoutPostalCodeIsPrinted) {
    WorkRow row = Recipient();
    row[u"事業所名称"_s] = u"支店"_s;
    row[GetParam() + u"郵便番号"_s] = QString();
    row[GetParam() + u"住所A"_s] = u"札幌市中央区"_s;
    AddRow(kEnvelope, row);
    const QList<PdfWord> found = Pdf(kEnvelope).Find(0, u"札幌市中央区"_s);
    ASSERT_EQ(found.size(), 1);
    EXPECT_NEAR(found[0].place.left(), 34, 0.2) << "no gap for the missing code";
}

INSTANTIATE_TEST_SUITE_P(Envelope, SenderTest, testing::Values(u"ユーザ"_s, u"事業所"_s));

TEST_F(ReportTest, PostcardShowsASenderOfSixtyCharactersWhole) {
    WorkRow row = Recipient();
    row[u"ユーザ住所A"_s] = kSixty.left(20);
    row[u"ユーザ住所B"_s] = kSixty.mid(20, 20);
    row[u"ユーザ住所C"_s] = kSixty.mid(40);
    AddRow(kPostcard, row);
    const QString text = TextWithin(Pdf(kPostcard), 0, QRectF(16, 77, 15, 63));
    for (const QChar c : kSixty) EXPECT_TRUE(text.contains(c)) << QString(c).toStdString();
    EXPECT_FALSE(text.contains(u'…'));
}

class ForeignCodeTest : public ReportTest, public testing::WithParamInterface<QString> {};

TEST_P(ForeignCodeTest, CodeOfAnotherLengthIsTextBelowTheEmptyBoxes) {
    struct Boxes {
        QString report;
        QRectF all;
    };
    for (const auto& [report, boxes] : {Boxes{kPostcard, {44.3, 12, 47.7, 8}}, Boxes{kEnvelope, {64.3, 12, 47.7, 8}}}) {
        WorkRow row = Recipient();
        row[u"郵便番号"_s] = GetParam();
        AddRow(report, row);
        const PdfFile pdf = Pdf(report);
        const QImage page = pdf.Picture(0);
        EXPECT_TRUE(InkWithin(page, boxes).isEmpty()) << report.toStdString();
        EXPECT_EQ(TextWithin(pdf, 0, QRectF(boxes.left(), 20.1, boxes.width(), 4.6)), QString(GetParam()).remove(u' '))
            << report.toStdString();
        const QRectF ink = InkWithin(page, {boxes.left(), 20, boxes.width(), 5});
        EXPECT_FALSE(ink.isEmpty());
        EXPECT_GE(ink.top(), 20.2);
    }
}

INSTANTIATE_TEST_SUITE_P(MailPieces, ForeignCodeTest,
                         testing::Values(u"SW1A 1AA"_s, u"D-10115"_s, u"94043"_s, u"94043-1351"_s, u"1234567-A"_s,
                                         u"1010021 Japan"_s));

TEST_F(ReportTest, LabelWithoutPostalCodeHasNoGap) {
    for (const QString& code : {u"100-0005"_s, QString()})
        AddRow(kLabels, {{u"行番号"_s, code.isEmpty() ? u"000002"_s : u"000001"_s},
                         {u"A列名称B"_s, u"氏名 様"_s},
                         {u"A列郵便番号"_s, code},
                         {u"A列住所A"_s, u"札幌市中央区"_s}});
    const PdfFile pdf = Pdf(kLabels);
    const QList<PdfWord> codes = pdf.Find(0, u"〒"_s), found = pdf.Find(0, u"札幌市中央区"_s);
    ASSERT_EQ(codes.size(), 1);
    ASSERT_EQ(found.size(), 2);
    EXPECT_NEAR(found[1].place.top() - found[0].place.top(), 42.3 - 5.2, 0.05);
}

TEST_F(ReportTest, ListRowWithoutPostalCodeHasNoGap) {
    AddRow(kList, {{u"コード"_s, u"1"_s}, {u"住所A"_s, u"札幌市中央区"_s}, {u"住所C"_s, u"緑荘"_s}});
    AddRow(kList, {{u"コード"_s, u"2"_s}, {u"郵便番号"_s, u"100-0005"_s}, {u"住所A"_s, u"札幌市中央区"_s}});
    const PdfFile pdf = Pdf(kList);
    EXPECT_NEAR(pdf.Find(0, u"札幌市中央区"_s).first().place.left(), 95, 0.1);
    EXPECT_NEAR(pdf.Find(0, u"100-0005"_s).first().place.left(), 95, 0.1);
}

TEST_F(ReportTest, LatinPartsOfAnAddressAreSeparatedByABlank) {
    struct Case {
        QString first, second, printed;
    };
    for (const Case& c : {Case{u"1600 Amphitheatre"_s, u"Mountain View"_s, u"1600 Amphitheatre Mountain View"_s},
                          {u"12"_s, u"Main Street"_s, u"12 Main Street"_s},
                          {u"5 Avenue "_s, u"Foch"_s, u"5 Avenue Foch"_s},
                          {u"Tokyo"_s, u"千代田区"_s, u"Tokyo千代田区"_s},
                          {u"大阪市北区"_s, u"Umeda 5"_s, u"大阪市北区Umeda 5"_s},
                          {u"12"_s, u"34"_s, u"1234"_s}}) {
        installation.Report().Execute(u"DELETE FROM "_s + kLabels);
        AddRow(kLabels, {{u"行番号"_s, u"000001"_s}, {u"A列住所A"_s, c.first}, {u"A列住所B"_s, c.second}});
        EXPECT_EQ(Pdf(kLabels).Text(0), c.printed);
    }
}

TEST_F(ReportTest, EmptyPartOfALatinAddressDoesNotJoinItsNeighbours) {
    SetTemplate(kList, u"用紙 100x50\n明細 高さ=50\n文字 5,5 90x5 \"[住所A][住所B][住所C]\""_s);
    AddRow(kList, {{u"コード"_s, u"1"_s}, {u"住所A"_s, u"Main Street"_s}, {u"住所C"_s, u"Springfield"_s}});
    EXPECT_EQ(Pdf(kList).Text(0), u"Main Street Springfield"_s);
}

TEST_F(ReportTest, LongAddressOfTheListWrapsBeforeItIsCondensedBelowEightyPercent) {
    WorkRow row{{u"コード"_s, u"1"_s}, {u"EMAIL"_s, u"taro.yamada@example.co.jp"_s}, {u"郵便番号"_s, u"100-0005"_s}};
    row[u"住所A"_s] = kSixty.left(36);
    AddRow(kList, row);
    const PdfFile pdf = Pdf(kList);
    const QRectF column(95, 40.4, 75, 7);
    EXPECT_EQ(TextWithin(pdf, 0, column.adjusted(0, 0, 0, -3.4)).left(8), u"100-0005"_s);
    EXPECT_EQ(LinesWithin(pdf, 0, column), 2);
    EXPECT_EQ(TextWithin(pdf, 0, column).remove(u"100-0005"_s).remove(u"taro.yamada@example.co.jp"_s), row[u"住所A"_s]);
    const QRectF mail = pdf.Find(0, u"taro.yamada@example.co.jp"_s).first().place;
    double last = 0, narrowest = 100;
    for (const PdfWord& word : pdf.Words()) {
        if (word.text.size() < 2 || !row[u"住所A"_s].contains(word.text)) continue;
        narrowest = std::min(narrowest, word.place.width() / static_cast<double>(word.text.size()));
        if (std::abs(word.place.center().y() - mail.center().y()) < 1) last = word.place.right();
    }
    EXPECT_GE(narrowest, 0.8 * 8 * 25.4 / 72 - 0.02);
    EXPECT_GT(last, 95);
    EXPECT_GT(mail.left(), last + 0.5) << "the mail address follows the address";
    EXPECT_LE(mail.right(), 170.1);
}

TEST_F(ReportTest, LatinNameOnMailIsTurnedAndWhole) {
    WorkRow row = Recipient();
    row[u"名称B"_s] = u"Christopher Montgomery 様"_s;
    row[u"住所A"_s] = u"1600 Amphitheatre Parkway"_s;
    row[u"住所B"_s] = u"Mountain View, California"_s;
    row[u"住所C"_s] = u"Building 43"_s;
    for (const QString& report : {kEnvelope, kPostcard}) {
        AddRow(report, row);
        const PdfFile pdf = Pdf(report);
        for (const QString& word : {u"Christopher"_s, u"Montgomery"_s, u"1600"_s, u"Amphitheatre"_s, u"Parkway"_s,
                                    u"Mountain"_s, u"California"_s, u"Building"_s}) {
            const QList<PdfWord> found = pdf.Find(0, word);
            ASSERT_EQ(found.size(), 1) << word.toStdString() << " on " << report.toStdString();
            EXPECT_GT(found[0].place.height(), found[0].place.width()) << word.toStdString();
        }
    }
}

TEST_F(ReportTest, TemplatesOfAnOlderVersionAreReadAsBefore) {
    SetTemplate(
        kEnvelope,
        u"用紙 長形3号\n書体 明朝 10\n明細 高さ=235\n"
        u"  文字 34,193.4 76x3.6 \"〒[ユーザ郵便番号]　[ユーザ住所A][ユーザ住所B]\" 大きさ=9 ただし=ユーザ郵便番号\n"
        u"  文字 34,197.6 76x3.6 \"[ユーザ住所C]\" 大きさ=9\n"
        u"  文字 34,201.8 76x3.6 \"[名称B]\" 収め=長体 行寄せ=末尾\n"_s);
    WorkRow row = Recipient();
    row[u"ユーザ住所B"_s] = u"丸の内１－８－３"_s;
    row[u"ユーザ住所C"_s] = u"見本ビル"_s;
    AddRow(kEnvelope, row);
    const PdfFile pdf = Pdf(kEnvelope);
    EXPECT_EQ(pdf.Words().size(), 6);
    for (const QString& word : {u"〒100-0005"_s, u"東京都千代田区丸の内１－８－３"_s, u"見本ビル"_s, u"佐藤"_s})
        EXPECT_EQ(pdf.Find(0, word).size(), 1) << word.toStdString();
    EXPECT_NEAR(pdf.Find(0, u"見本ビル"_s).first().place.left(), 34, 0.1);
}

TEST_F(ReportTest, WordSideBySideIsSpacedOutAsOneCharacter) {
    SetTemplate(kList, u"用紙 50x120\n明細 高さ=120\n文字 20,10 10x100 \"[氏名]\" 縦書き 寄せ=均等 大きさ=20"_s);
    AddRow(kList, {{u"コード"_s, u"1"_s}, {u"氏名"_s, u"東12西"_s}});
    const PdfFile pdf = Pdf(kList);
    const QRectF number = pdf.Find(0, u"12"_s).value(0).place;
    EXPECT_NEAR(number.center().x(), 25, 4);
    EXPECT_NEAR(number.center().y(), 60, 1);
    EXPECT_NEAR(pdf.Find(0, u"西"_s).first().place.bottom(), 110, 1);
}
