#include <sys/stat.h>

#include <QFile>
#include <QPainter>

#include <sys/stat.h>

#include "report-host/ReportFixture.h"

using namespace Qt::StringLiterals;

namespace {

const QList<double> kBoxes{44.3, 51.3, 58.3, 65.9, 72.7, 79.5, 86.3};

WorkRow Person() {
    return {{u"運用事業所名"_s, u"本社"_s}, {u"選択条件"_s, u"在籍区分：在籍"_s},
            {u"コード"_s, u"00007"_s},      {u"氏名"_s, u"森鷗外"_s},
            {u"郵便番号"_s, u"100-0005"_s}, {u"住所A"_s, u"東京都千代田区"_s},
            {u"電話"_s, u"03-5555-0100"_s}, {u"表示入社日付"_s, u"平成15年04月01日"_s}};
}

}  // namespace

TEST_F(ReportTest, ListRepeatsHeadingConditionDateAndPageOnEveryPage) {
    AddRows(kList, 50, Person());
    const PdfFile pdf = Pdf(kList);
    ASSERT_EQ(pdf.Pages(), 3);
    for (int page = 0; page < 3; ++page) {
        const QString text = pdf.Text(page);
        for (const QString& part : {u"本社"_s, u"在籍区分：在籍"_s, u"令和08年11月21日 現在"_s, u"郵便番号・住所"_s,
                                    u"50 名"_s, u"%1 / 3 頁"_s.arg(page + 1)})
            EXPECT_TRUE(text.contains(part)) << part.toStdString() << " in " << text.toStdString();
        EXPECT_EQ(pdf.Find(page, u"森鷗外"_s).size(), page < 2 ? 23 : 4);
    }
    EXPECT_EQ(pdf.Find(2, u"00007"_s).size(), 4);
    EXPECT_EQ(pdf.Find(2, u"平成15年04月01日"_s).size(), 4);
}

TEST_F(ReportTest, EverySecondRowOfTheListLiesOnGrey) {
    AddRows(kList, 3, Person());
    const QImage page = Pdf(kList).Picture(0);
    const auto greyAt = [&](double y) {
        return qGray(page.pixel(5 + 10 * PdfFile::kDotsPerMillimetre, qRound(y * PdfFile::kDotsPerMillimetre)));
    };
    const double first = 9 + 31.4 + 6.5;
    EXPECT_EQ(greyAt(first), 255);
    EXPECT_NEAR(greyAt(first + 7), 0xEF, 2);
    EXPECT_EQ(greyAt(first + 14), 255);
}

TEST_F(ReportTest, LongTextOfTheListStaysInItsColumnAndIsNeverCutWithoutASign) {
    WorkRow row = Person();
    row[u"住所B"_s] = QString(300, u'長');
    row[u"氏名"_s] = u"勘解由小路　長次郎左衛門尉太郎"_s;
    AddRow(kList, row);
    const PdfFile pdf = Pdf(kList);
    const QList<PdfWord> address = pdf.Find(0, u"長長"_s);
    ASSERT_EQ(address.size(), 2);
    EXPECT_TRUE(address[1].text.endsWith(u'…')) << address[1].text.toStdString();
    for (const PdfWord& line : address) EXPECT_LE(line.place.right(), 10 + 85 + 75 + 0.1);
    const QList<PdfWord> name = pdf.Find(0, u"長次郎左"_s) + pdf.Find(0, u"衛門尉太郎"_s);
    ASSERT_EQ(name.size(), 2);
    for (const PdfWord& line : name) EXPECT_LE(line.place.right(), 10 + 24 + 33 + 0.1);
}

TEST_F(ReportTest, FormWithoutAnyColumnIsPrintedOnceForEachRow) {
    AddRows(kList, 3, Person());
    SetTemplate(kList, u"用紙 100x100\n明細 高さ=50\n文字 0,0 100x10 \"受付票 [番号]/[件数]\""_s);
    const PdfFile pdf = Pdf(kList);
    ASSERT_EQ(pdf.Pages(), 2);
    EXPECT_EQ(pdf.Text(0), u"受付票 1/3 受付票 2/3"_s);
    EXPECT_EQ(pdf.Text(1), u"受付票 3/3"_s);
}

TEST_F(ReportTest, PictureThatIsAPipeIsLeftOut) {
    const QString pipe = folder.filePath(u"pipe"_s);
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    AddRow(kList, Person());
    SetTemplate(kList, u"用紙 100x100\n明細 高さ=50\n絵 0,0 50x50 \"%1\"\n文字 0,0 100x10 \"後\""_s.arg(pipe));
    EXPECT_EQ(Pdf(kList).Text(0), u"後"_s);
}

TEST_F(ReportTest, EveryReportIsOnItsPaperWithAllFontsEmbedded) {
    AddRow(kList, Person());
    AddRow(kEnvelope, Recipient());
    AddRow(kPostcard, Recipient());
    AddLabels(1);
    const QList<QPair<QString, QSizeF>> papers{
        {kList, {297, 210}}, {kEnvelope, {120, 235}}, {kPostcard, {100, 148}}, {kLabels, {210, 297}}};
    for (const auto& [report, size] : papers) {
        EXPECT_EQ(Prepare(report)->PageMillimetres(), size);
        const PdfFile pdf = Pdf(report);
        const QImage page = pdf.Picture(0);
        EXPECT_NEAR(page.width(), size.width() * PdfFile::kDotsPerMillimetre, 5);
        EXPECT_NEAR(page.height(), size.height() * PdfFile::kDotsPerMillimetre, 5);
        ASSERT_FALSE(pdf.Fonts().isEmpty());
        for (const PdfFile::Font& font : pdf.Fonts()) EXPECT_TRUE(font.embedded) << font.name.toStdString();
    }
}

class PostalCodeTest : public ReportTest, public testing::WithParamInterface<QPair<QString, double>> {};

TEST_P(PostalCodeTest, DigitsStandInTheMiddleOfTheirBoxes) {
    const auto& [report, left] = GetParam();
    WorkRow row = Recipient();
    row[u"郵便番号"_s] = u"123-４５67"_s;
    AddRow(report, row);
    const PdfFile pdf = Pdf(report);
    const QImage page = pdf.Picture(0);
    for (int i = 0; i < 7; ++i) {
        const QRectF box(left + kBoxes[i], 12, 5.7, 8);
        const QRectF ink = InkWithin(page, box);
        ASSERT_FALSE(ink.isEmpty()) << i;
        EXPECT_NEAR(ink.center().x(), box.center().x(), 0.3) << i;
        EXPECT_NEAR(ink.center().y(), box.center().y(), 0.3) << i;
        bool found = false;
        for (const PdfWord& word : pdf.Find(0, QString::number(i + 1)))
            found |= std::abs(word.place.center().x() - box.center().x()) < 1 && box.intersects(word.place);
        EXPECT_TRUE(found) << "digit " << i + 1;
    }
}

INSTANTIATE_TEST_SUITE_P(MailPieces, PostalCodeTest,
                         testing::Values(QPair<QString, double>(kPostcard, 0), QPair<QString, double>(kEnvelope, 20)));

TEST_F(ReportTest, CodeOfMoreDigitsThanBoxesLeavesThemEmpty) {
    WorkRow row = Recipient();
    row[u"郵便番号"_s] = u"530-00011"_s;
    AddRow(kPostcard, row);
    EXPECT_TRUE(InkWithin(Pdf(kPostcard).Picture(0), QRectF(44, 12, 48, 8)).isEmpty());
}

TEST_F(ReportTest, VerticalAddressRunsDownInKanjiNumeralsAndTheSenderCodeStaysArabic) {
    AddRow(kPostcard, Recipient());
    const PdfFile pdf = Pdf(kPostcard);
    const QList<PdfWord> nine = pdf.Find(0, u"九"_s), four = pdf.Find(0, u"四"_s);
    ASSERT_EQ(nine.size(), 1);
    ASSERT_EQ(four.size(), 1);
    EXPECT_NEAR(nine[0].place.center().x(), four[0].place.center().x(), 0.1);
    EXPECT_GT(four[0].place.top(), nine[0].place.bottom());
    EXPECT_TRUE(pdf.Find(0, u"９"_s).isEmpty());
    EXPECT_EQ(pdf.Find(0, u"〒100-0005"_s).size(), 1);
}

TEST_F(ReportTest, LongNameOnMailIsCondensedToFitItsPlace) {
    WorkRow row = Recipient();
    row[u"名称B"_s] = u"勘解由小路　長次郎左衛門尉太郎兵衛 様"_s;
    AddRow(kPostcard, row);
    const QRectF ink = InkWithin(Pdf(kPostcard).Picture(0), QRectF(43, 22, 14, 126));
    EXPECT_GE(ink.top(), 33 - 0.5);
    EXPECT_LE(ink.bottom(), 123 + 0.5);
    EXPECT_GT(ink.height(), 85);
    EXPECT_GT(ink.width(), 7.5);
}

TEST_F(ReportTest, AddressOfTwoHundredCharactersStaysInItsPlaceOnMail) {
    WorkRow row = Recipient();
    row[u"住所B"_s] = QString(200, u'長');
    AddRow(kEnvelope, row);
    AddRow(kPostcard, row);
    struct Place {
        QString report;
        QRectF box, around;  // of the address; and including the empty paper next to it and below
    };
    for (const auto& [report, box, around] :
         {Place{kEnvelope, {82, 26, 28, 130}, {66, 21, 54, 145}}, {kPostcard, {70, 25, 23, 98}, {57, 21, 43, 125}}}) {
        const PdfFile pdf = Pdf(report);
        const QRectF ink = InkWithin(pdf.Picture(0), around);
        EXPECT_TRUE(box.adjusted(-0.2, -0.2, 0.2, 0.2).contains(ink)) << report.toStdString();
        EXPECT_EQ(pdf.Text(0).count(u'長'), 200) << "all of it finds room";
    }
}

// In vertical writing the second line is to the left of the first; the building also begins lower.
TEST_F(ReportTest, BuildingStandsInTheNextLineOfAnAddressOnMail) {
    for (const QString& report : {kEnvelope, kPostcard}) {
        AddRow(report, Recipient());
        const PdfFile pdf = Pdf(report);
        const QRectF street = pdf.Find(0, u"梅"_s).first().place, building = pdf.Find(0, u"荘"_s).first().place;
        const double type = street.width();
        EXPECT_NEAR(street.center().x() - building.center().x(), 1.5 * type, 0.3 * type) << report.toStdString();
    }
}

TEST_F(ReportTest, RareCharactersOfNamesArePrinted) {
    WorkRow row = Recipient();
    row[u"名称B"_s] = u"𠮷野　鷗外 様"_s;
    AddRow(kPostcard, row);
    const PdfFile pdf = Pdf(kPostcard);
    QStringList fonts;
    for (const PdfFile::Font& font : pdf.Fonts()) fonts.append(font.name);
    EXPECT_FALSE(fonts.filter(u"HanaMin"_s).isEmpty()) << fonts.join(u',').toStdString();
    EXPECT_EQ(pdf.Find(0, u"鷗"_s).size(), 1);
    EXPECT_TRUE(pdf.Find(0, u"〓"_s).isEmpty());
}

TEST_F(ReportTest, EnvelopeShowsTheSecondSenderOnlyWhereItIsFilled) {
    AddRow(kEnvelope, Recipient());
    WorkRow row = Recipient();
    row[u"事業所名称"_s] = u"大阪支店"_s;
    row[u"事業所電話"_s] = u"06-5555-0200"_s;
    AddRow(kEnvelope, row);
    const PdfFile pdf = Pdf(kEnvelope);
    ASSERT_EQ(pdf.Pages(), 2);
    EXPECT_EQ(pdf.Find(0, u"見本商事株式会社"_s).size(), 1);
    EXPECT_EQ(pdf.Find(0, u"TEL"_s).size(), 1);
    EXPECT_TRUE(pdf.Find(0, u"FAX"_s).isEmpty());
    EXPECT_EQ(pdf.Find(1, u"大阪支店"_s).size(), 1);
    EXPECT_EQ(pdf.Find(1, u"TEL"_s).size(), 2);
}

TEST_F(ReportTest, LogoIsDrawnAndAMissingOneLeavesItsPlaceEmpty) {
    QImage logo(40, 40, QImage::Format_RGB32);
    logo.fill(Qt::black);
    ASSERT_TRUE(logo.save(folder.filePath(u"logo.png"_s)));
    for (const QString& path : {folder.path() + u"\\logo.png"_s, folder.path() + u"\\none.png"_s}) {
        WorkRow row = Recipient();
        row[u"ユーザ会社ロゴfile"_s] = path;
        AddRow(kEnvelope, row);
    }
    const PdfFile pdf = Pdf(kEnvelope);
    const QRectF place(12, 186, 20, 16);
    const QRectF drawn = InkWithin(pdf.Picture(0), place);
    EXPECT_NEAR(drawn.width(), 16, 0.3);
    EXPECT_NEAR(drawn.center().x(), 22, 0.3);
    EXPECT_TRUE(InkWithin(pdf.Picture(1), place).isEmpty());
    EXPECT_EQ(pdf.Find(1, u"見本商事株式会社"_s).size(), 1);
}

TEST_F(ReportTest, LabelsFillTheirSheetsInPairs) {
    struct Case {
        int labels, pages, onLast;
    };
    for (const Case& c : {Case{1, 1, 1}, Case{2, 1, 2}, Case{12, 1, 12}, Case{13, 2, 1}}) {
        installation.Report().Execute(u"DELETE FROM "_s + kLabels);
        AddLabels(c.labels);
        const PdfFile pdf = Pdf(kLabels);
        EXPECT_EQ(pdf.Pages(), c.pages) << c.labels;
        EXPECT_EQ(pdf.Find(c.pages - 1, u"氏名"_s).size(), c.onLast) << c.labels;
        EXPECT_EQ(pdf.Find(c.pages - 1, u"〒"_s).size(), c.onLast) << "nothing on blank labels";
    }
    const PdfFile pdf = Pdf(kLabels);
    const PdfWord first = pdf.Find(0, u"氏名1"_s).first(), second = pdf.Find(0, u"氏名2"_s).first(),
                  last = pdf.Find(0, u"氏名12"_s).first();
    EXPECT_NEAR(second.place.left() - first.place.left(), 86.4, 0.05);
    EXPECT_NEAR(last.place.top() - second.place.top(), 5 * 42.3, 0.05);
}

TEST_F(ReportTest, LabelsFollowTheirNumberWhateverTheOrderOfTheRows) {
    AddRow(kLabels, {{u"行番号"_s, u"000002"_s}, {u"A列名称B"_s, u"後の人"_s}});
    AddRow(kLabels, {{u"行番号"_s, u"000001"_s}, {u"A列名称B"_s, u"先の人"_s}});
    const PdfFile pdf = Pdf(kLabels);
    EXPECT_LT(pdf.Find(0, u"先の人"_s).first().place.top(), pdf.Find(0, u"後の人"_s).first().place.top());
}

TEST_F(ReportTest, PrinterOffsetMovesTheWholeSheet) {
    AddLabels(1);
    const QRectF before = Pdf(kLabels).Find(0, u"氏名1"_s).first().place;
    ChangeTemplate(kLabels, u"補正 右=0 下=0"_s, u"補正 右=1.5 下=-2"_s);
    const QRectF after = Pdf(kLabels).Find(0, u"氏名1"_s).first().place;
    EXPECT_NEAR(after.left() - before.left(), 1.5, 0.02);
    EXPECT_NEAR(after.top() - before.top(), -2, 0.02);
}

TEST_F(ReportTest, PreviewKeepsItsRowsWhenTheNextOutputEmptiesTheTable) {
    AddRows(kList, 30, Person());
    const auto report = Prepare(kList);
    installation.Report().Execute(u"DELETE FROM "_s + kList);
    EXPECT_EQ(report->PageCount(), 2);
    WritePdf(*report, folder.filePath(u"late.pdf"_s));
    EXPECT_EQ(PdfFile(folder.filePath(u"late.pdf"_s)).Find(1, u"森鷗外"_s).size(), 7);
}

TEST_F(ReportTest, PageIsPaintedOnAScreenAsOnPaper) {
    AddRow(kPostcard, Recipient());
    QImage screen(400, 592, QImage::Format_RGB32);
    screen.fill(Qt::white);
    QPainter painter(&screen);
    painter.scale(4, 4);
    Prepare(kPostcard)->PaintPage(painter, 0);
    painter.end();
    int dark = 0;
    for (int y = 25 * 4; y < 123 * 4; ++y)
        for (int x = 80 * 4; x < 93 * 4; ++x) dark += qGray(screen.pixel(x, y)) < 128;
    EXPECT_GT(dark, 300);
}

TEST_F(ReportTest, FormOfTheirOwnIsPrintedAsWritten) {
    SetTemplate(kList, u"用紙 50x50\n明細 高さ=50\n文字 5,5 40x5 \"[氏名]／[番号]／[[件]\"\n枠 10,20 10x10 塗り=黒"_s);
    AddRow(kList, Person());
    const PdfFile pdf = Pdf(kList);
    EXPECT_EQ(pdf.Text(0), u"森鷗外／1／[件]"_s);
    EXPECT_NEAR(InkWithin(pdf.Picture(0), QRectF(0, 15, 50, 30)).width(), 10.2, 0.3);
}

TEST_F(ReportTest, APictureThatIsNoPlainFileIsLeftOutAtOnce) {
    const QString pipe = folder.filePath(u"logo.png"_s);
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    const QRectF place(12, 186, 20, 16);
    for (const QString& path : {pipe, u"/dev/zero"_s}) {
        WorkRow row = Recipient();
        row[u"ユーザ会社ロゴfile"_s] = path;
        AddRow(kEnvelope, row);
    }
    const PdfFile pdf = Pdf(kEnvelope);
    ASSERT_EQ(pdf.Pages(), 2);
    for (int page = 0; page < 2; ++page) EXPECT_TRUE(InkWithin(pdf.Picture(page), place).isEmpty());
}
