#include "report-host/layout/TextLayout.h"

#include <QTextBoundaryFinder>
#include <algorithm>
#include <optional>

#include "report-host/layout/LineBreaker.h"
#include "report-host/layout/VerticalText.h"
#include "report-host/template/TemplateDefinition.h"

using namespace Qt::StringLiterals;

namespace report {

namespace {

constexpr double kSlack = 1e-6;
constexpr double kSmallerStep = 0.97;
constexpr double kNarrowestRotated = 0.75;     // Latin letters are narrow already
constexpr double kReadable = 0.8;              // narrower text is wrapped where it can be
constexpr double kNarrowestLetter = 1.0 / 16;  // in em; a lower bound for common letters
constexpr double kWidestLetter = 4;
constexpr qsizetype kFewCharacters = 100;  // shaped in any case; costs little

/// Cuts the text to `most` UTF-16 code units plus "…", without splitting a surrogate pair.
QString Bounded(const QString& text, qsizetype most) {
    if (text.size() <= most) return text;
    const qsizetype whole = text[most - 1].isHighSurrogate() ? most - 1 : most;
    return text.left(whole) + u'…';
}

bool IsBlank(const QString& text) {
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c == u' ' || c == QChar(0x3000); });
}

bool IsMostlyRotated(const ShapedText& text) {
    const auto rotated =
        std::count_if(text.glyphs.begin(), text.glyphs.end(), [](const ShapedGlyph& glyph) { return glyph.rotated; });
    return 2 * rotated > text.glyphs.size();
}

class Fitter {
  public:
    Fitter(FontSet& fonts, const TextStyle& style, const TextBox& box)
        : fonts_(fonts),
          style_(style),
          box_(box),
          size_(std::min(style.points * kMillimetresPerPoint, box.depth)),
          least_(std::min(style.leastPoints * kMillimetresPerPoint, size_)) {}

    /// Upper bound for the number of characters that fit. Longer text is truncated before shaping, which is slow.
    qsizetype Capacity() const {
        const double letter = least_ * kNarrowestLetter * LeastStretch();
        const double lines = Wraps() ? static_cast<double>(LinesAt(least_)) : 1;
        const double most = std::min(lines * box_.length / letter, static_cast<double>(kMostCharacters));
        return std::max(kFewCharacters, static_cast<qsizetype>(most));
    }

    FittedText Fit(const QString& text) {
        if (style_.fitting == Fitting::Wrap) return Wrap(text);
        const QString line = OneLine(text);
        const auto shaped = Shape(line);
        const double natural = shaped->length;
        if (natural * size_ <= box_.length + kSlack) return {size_, 1, {shaped}};
        if (style_.fitting == Fitting::Cut) return {size_, 1, {Cut(line, box_.length / size_)}};
        const double needed = box_.length / (natural * size_);
        if (style_.fitting == Fitting::CondenseWrap)
            return needed >= kReadable ? FittedText{size_, needed, {shaped}} : Wrap(line);
        const double least = std::max(LeastStretch(), IsMostlyRotated(*shaped) ? kNarrowestRotated : 0);
        const double stretch = std::max(least, std::min(1.0, needed));
        const double size = std::min(size_, box_.length / (natural * stretch));
        if (size >= least_) return {size, stretch, {shaped}};
        return {least_, stretch, {Cut(line, box_.length / (least_ * stretch))}};
    }

  private:
    bool Wraps() const { return style_.fitting == Fitting::Wrap || style_.fitting == Fitting::CondenseWrap; }
    double LeastStretch() const {
        return style_.fitting == Fitting::Condense || style_.fitting == Fitting::CondenseWrap ? kNarrowest : 1;
    }

    std::shared_ptr<const ShapedText> Shape(const QString& text) {
        return fonts_.Shape(text, style_.face, style_.vertical);
    }

    static QString OneLine(QString text) {
        text.remove(u'\r');
        return text.replace(u'\n', u' ');
    }

    /// The longest prefix of whole graphemes that fits together with "…". `length`: in em.
    std::shared_ptr<const ShapedText> Cut(const QString& line, double length) {
        const QString sign = u"…"_s;
        const double available = length - Shape(sign)->length;
        const auto whole = Shape(line);
        QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, line);
        qsizetype end = 0, next = 0;
        while ((next = characters.toNextBoundary()) > 0 && whole->lengthUpTo[next] <= available + kSlack) end = next;
        return Shape(line.left(end) + sign);
    }

    void ReadParagraphs(const QString& text) {
        QStringList paragraphs = QString(text).remove(u'\r').split(u'\n');
        // An address without a building may be as large as if the line of the building did not exist.
        while (style_.across == Across::Start && paragraphs.size() > 1 && IsBlank(paragraphs.last()))
            paragraphs.removeLast();
        for (const QString& paragraph : paragraphs) breakers_.append(LineBreaker(paragraph, Shape(paragraph)));
    }

    FittedText Wrap(const QString& text) {
        ReadParagraphs(text);
        double size = size_, stretch = 1;
        while (true) {
            if (std::optional<FittedText> fitted = Try(size, stretch)) return *fitted;
            if (stretch > LeastStretch())
                stretch = std::max(LeastStretch(), stretch * kSmallerStep);
            else if (size > least_)
                size = std::max(least_, size * kSmallerStep);
            else
                return Truncated();
        }
    }

    /// Lines with their paragraphs.
    struct PlacedLine {
        qsizetype paragraph;
        LineRange range;
    };

    QList<PlacedLine> Lines(double size, double stretch) const {
        const qsizetype last = LinesAt(size) - 1;
        QList<PlacedLine> lines;
        for (qsizetype i = 0; i < breakers_.size(); ++i) {
            const auto length = [&, first = lines.size()](qsizetype line) {
                const bool isReserved = first + line == last && last > 0;
                return (box_.length - (isReserved ? box_.reserved : 0)) / (size * stretch);
            };
            for (const LineRange& range : breakers_[i].Lines(length)) lines.append({i, range});
        }
        return lines;
    }

    /// The whole text in this size, without a break inside a word if a smaller size can avoid that.
    std::optional<FittedText> Try(double size, double stretch) const {
        double longest = 0;
        for (const LineBreaker& breaker : breakers_) longest = std::max(longest, breaker.LongestWord());
        const bool canKeepWords = longest * least_ * LeastStretch() <= box_.length;
        if (canKeepWords && longest * size * stretch > box_.length + kSlack) return std::nullopt;
        if (LeastLines(size * stretch) > LinesAt(size)) return std::nullopt;
        const QList<PlacedLine> lines = Lines(size, stretch);
        if (lines.size() > LinesAt(size)) return std::nullopt;
        FittedText fitted{size, stretch, {}};
        for (const PlacedLine& line : lines) fitted.lines.append(breakers_[line.paragraph].Line(line.range));
        return fitted;
    }

    FittedText Truncated() {
        const double stretch = LeastStretch();
        const QList<PlacedLine> lines = Lines(least_, stretch);
        const qsizetype most = LinesAt(least_);
        FittedText fitted{least_, stretch, {}};
        for (const PlacedLine& line : lines.first(most - 1))
            fitted.lines.append(breakers_[line.paragraph].Line(line.range));
        const PlacedLine& last = lines[most - 1];
        QString rest = breakers_[last.paragraph].TextFrom(last.range);
        for (qsizetype i = last.paragraph + 1; i < breakers_.size(); ++i) rest += breakers_[i].Text();
        const double reserved = most > 1 ? box_.reserved : 0;
        fitted.lines.append(Cut(rest, (box_.length - reserved) / (least_ * stretch)));
        return fitted;
    }

    qsizetype LinesAt(double size) const {
        const int fitting = 1 + static_cast<int>((box_.depth - size + kSlack) / (size * style_.lineStep));
        return std::max(1, style_.mostLines > 0 ? std::min(style_.mostLines, fitting) : fitting);
    }

    /// Lower bound for the number of lines, found without computing line breaks.
    qsizetype LeastLines(double em) const {
        const double available = std::max(box_.length / em, kWidestLetter) + kSlack;
        qsizetype least = 0;
        for (const LineBreaker& breaker : breakers_)
            least += std::max<qsizetype>(1, static_cast<qsizetype>(breaker.Length() / available));
        return least;
    }

    FontSet& fonts_;
    const TextStyle& style_;
    TextBox box_;
    double size_, least_;
    QList<LineBreaker> breakers_;
};

}  // namespace

FittedText FitText(FontSet& fonts, const QString& text, const TextStyle& style, const TextBox& box) {
    Fitter fitter(fonts, style, box);
    const QString bounded = Bounded(text, fitter.Capacity());
    QString written = style.kanjiNumerals ? ToKanjiNumerals(bounded) : bounded;
    if (style.vertical) written = ToVerticalText(written);
    return fitter.Fit(fonts.Printable(written, style.face));
}

}  // namespace report
