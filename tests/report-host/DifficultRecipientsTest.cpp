#include <QFile>

#include "report-host/ReportFixture.h"
#include "report-host/layout/TextLayout.h"
#include "report-host/layout/VerticalText.h"
#include "report-host/render/ElementPainter.h"
#include "report-host/template/TemplateFile.h"
#include "report-host/template/TemplateParser.h"

using namespace Qt::StringLiterals;
using namespace report;

// Forty recipients with names and addresses that are difficult to lay out, on every report and ready-made template.

namespace {

QList<WorkRow> Recipients() {
    QFile file(QStringLiteral(SUITE_SOURCES "/tests/report-host/difficult-recipients.tsv"));
    if (!file.open(QIODevice::ReadOnly)) return {};
    const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    const QStringList names = lines[0].split(u'\t');
    QList<WorkRow> rows;
    for (const QString& line : lines.mid(1)) {
        const QStringList values = line.split(u'\t');
        WorkRow row{{u"ユーザ名称"_s, u"見本商事株式会社"_s}, {u"事業所名称"_s, u"大阪支店"_s}};
        for (qsizetype i = 0; i < names.size(); ++i) row.insert(names[i], values.value(i));
        row.insert(u"名称B"_s, row[u"氏名"_s] + u" 様"_s);
        for (const QString& sender : {u"ユーザ"_s, u"事業所"_s}) {
            row.insert(sender + u"郵便番号"_s, rows.size() % 2 == 0 ? u"100-0005"_s : QString());
            row.insert(sender + u"住所A"_s, u"東京都千代田区丸の内一丁目八番三号丸の内トラスト"_s);
            row.insert(sender + u"住所B"_s, u"タワー北館東京駅日本橋口前"_s);
            row.insert(sender + u"住所C"_s, u"二十七階二七〇一号室　総務部　文書管理課"_s);
        }
        rows.append(row);
    }
    return rows;
}

FieldText FieldsOf(const WorkRow& row) {
    return [&row](const QString& name) { return name == u"改行" ? QString(u'\n') : row.value(name); };
}

bool IsBlank(QChar c) { return c == u' ' || c == QChar(0x3000) || c == u'\n'; }
QString WithoutBlanks(QString text) { return text.removeIf(IsBlank); }

/// Letters and digits of any width, kanji numerals, and the dashes between them.
bool IsWordPart(QChar c) {
    return c.isDigit() || u"〇一二三四五六七八九-－−‐–—―"_s.contains(c) || c.script() == QChar::Script_Latin;
}

/// Checks a text element with one recipient.
class ElementCheck {
  public:
    ElementCheck(FontSet& fonts, const TemplateElement& element, const QString& text)
        : element_(element), style_(element.style) {
        const QSizeF size = style_.vertical ? element.place.size().transposed() : element.place.size();
        length_ = size.width();
        depth_ = size.height();
        fitted_ = FitText(fonts, text, style_, {length_, depth_});
        written_ = style_.kanjiNumerals ? ToKanjiNumerals(text) : text;
        if (style_.vertical) written_ = ToVerticalText(written_);
        written_ = fonts.Printable(written_, style_.face);
    }

    void Run() {
        IsInItsBox();
        IsWholeWithoutBrokenWords();
        HasUniformDashes();
        const bool isWord = std::all_of(written_.begin(), written_.end(), IsWordPart);
        if (style_.fitting == Fitting::CondenseWrap && fitted_.stretch < 0.8 && !isWord) {
            EXPECT_EQ(fitted_.lines.size(), 2);
        }
    }

  private:
    void IsInItsBox() {
        const auto lines = static_cast<double>(fitted_.lines.size());
        EXPECT_LE(fitted_.size * (1 + (lines - 1) * style_.lineStep), depth_ + 1e-6);
        EXPECT_GE(fitted_.size, style_.leastPoints * kMillimetresPerPoint - 1e-6);
        if (style_.mostLines > 0) {
            EXPECT_LE(fitted_.lines.size(), style_.mostLines);
        }
        for (const auto& line : fitted_.lines) EXPECT_LE(line->length * fitted_.size * fitted_.stretch, length_ + 1e-4);
    }

    void IsWholeWithoutBrokenWords() {
        QString lines;
        qsizetype at = 0;
        for (qsizetype i = 0; i < fitted_.lines.size(); ++i) {
            const QString line = fitted_.lines[i]->text;
            const qsizetype begin = SkipBlanks(at);
            if (i > 0 && begin == at && at < written_.size()) {
                EXPECT_FALSE(IsWordPart(written_[at - 1]) && IsWordPart(written_[at])) << written_.toStdString();
            }
            lines += line;
            at = begin;
            for (const QChar c : WithoutBlanks(line)) at = SkipBlanks(at) + (c.isNull() ? 0 : 1);
        }
        EXPECT_EQ(WithoutBlanks(lines), WithoutBlanks(written_));
    }

    qsizetype SkipBlanks(qsizetype at) const {
        while (at < written_.size() && (IsBlank(written_[at]))) ++at;
        return at;
    }

    void HasUniformDashes() {
        if (!style_.kanjiNumerals || !style_.vertical) return;
        for (const auto& line : fitted_.lines)
            for (const ShapedGlyph& glyph : line->glyphs) {
                const QChar c = line->text[glyph.textAt];
                const bool isNumber =
                    glyph.textAt > 0 && u"〇一二三四五六七八九"_s.contains(line->text[glyph.textAt - 1]);
                if (isNumber) {
                    EXPECT_FALSE(u"-−‐–—―"_s.contains(c)) << line->text.toStdString();
                }
                if (c == u'－') {
                    EXPECT_TRUE(glyph.rotated);
                }
                if (c == u'〓') {
                    EXPECT_FALSE(glyph.rotated);
                }
            }
    }

    const TemplateElement& element_;
    const TextStyle& style_;
    double length_ = 0, depth_ = 0;
    FittedText fitted_;
    QString written_;
};

class DifficultRecipientsTest : public ReportTest, public testing::WithParamInterface<int> {
  protected:
    /// The four standard templates are those of the list and of three of the ready-made ones.
    static ReadyTemplate Form() {
        return GetParam() < 0 ? ReadyTemplate{QString(), kList} : ReadyTemplates()[GetParam()];
    }
};

}  // namespace

TEST_P(DifficultRecipientsTest, EveryTextIsWholeInItsBoxWithoutBrokenWords) {
    FontSet fonts;
    const TemplateDefinition form = ParseTemplate(Form().Text()).definition;
    const QList<WorkRow> recipients = Recipients();
    ASSERT_EQ(recipients.size(), 40);
    int checked = 0;
    for (const WorkRow& row : recipients)
        for (const TemplateElement& element : form.detail.elements) {
            if (element.kind != ElementKind::Text) continue;
            const QString text = Expand(element.text, FieldsOf(row));
            if (text.isEmpty()) continue;
            SCOPED_TRACE((row[u"コード"_s] + u" line %1: "_s.arg(element.line) + text).toStdString());
            ElementCheck(fonts, element, text).Run();
            ++checked;
        }
    EXPECT_GE(checked, 40 * 3);
}

TEST_P(DifficultRecipientsTest, EveryPieceIsPrintedInsideThePageWithNothingCut) {
    const ReadyTemplate form = Form();
    SetTemplate(form.report, form.Text());
    const QList<WorkRow> recipients = Recipients();
    const auto columns = installation.Report().Rows(u"SELECT name FROM pragma_table_info('%1')"_s.arg(form.report));
    for (qsizetype i = 0; i < recipients.size(); i += form.report == kLabels ? 2 : 1) {
        WorkRow row{{u"行番号"_s, u"%1"_s.arg(i / 2 + 1, 6, 10, QChar(u'0'))}};
        for (const QStringList& column : columns)
            for (const QString& prefix : {QString(), u"A列"_s, u"B列"_s})
                if (const QString name = column[0].mid(prefix.size());
                    column[0].startsWith(prefix) && recipients[i].contains(name))
                    row.insert(column[0], recipients[prefix == u"B列"_s ? i + 1 : i][name]);
        if (form.report != kLabels) row.remove(u"行番号"_s);
        AddRow(form.report, row);
    }
    const PdfFile pdf = Pdf(form.report);
    EXPECT_EQ(pdf.Pages(), form.report == kList ? 2 : form.report == kLabels ? 4 : 40);
    const QRectF page(QPointF(), Prepare(form.report)->PageMillimetres());
    for (const PdfWord& word : pdf.Words()) {
        EXPECT_TRUE(page.contains(word.place)) << word.text.toStdString();
        EXPECT_FALSE(word.text.contains(u'…')) << word.text.toStdString();
    }
    for (const PdfFile::Font& font : pdf.Fonts()) EXPECT_TRUE(font.embedded) << font.name.toStdString();
}

INSTANTIATE_TEST_SUITE_P(AllForms, DifficultRecipientsTest, testing::Range(-1, 9));
