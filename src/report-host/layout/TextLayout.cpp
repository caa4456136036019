#include "report-host/layout/TextLayout.h"

#include <QTextBoundaryFinder>
#include <algorithm>

#include "report-host/template/TemplateDefinition.h"
#include "text/mod文字変換.h"

using namespace Qt::StringLiterals;

namespace report {

namespace {

constexpr double kSlack = 1e-6;
constexpr double kSmallerStep = 0.97;
constexpr double kNarrowestLetter = 1.0 / 16;  // in em; a lower bound for common letters
constexpr double kWidestLetter = 4;
constexpr qsizetype kFewCharacters = 100;  // shaped in any case; costs little

bool IsOfNumber(QChar c) {
    static constexpr QStringView kSigns = u"0123456789０１２３４５６７８９〇一二三四五六七八九-－";
    return kSigns.contains(c);
}

/// The last break opportunity after `begin` with the text up to it no longer than `limit`; `begin` if there is none.
/// With `wholeNumbers`, no break within a number, such as in an address.
qsizetype LastWithin(QTextBoundaryFinder& places, const ShapedText& shaped, qsizetype begin, double limit,
                     bool wholeNumbers) {
    const QString text = places.string();
    qsizetype end = begin, next = begin;
    places.setPosition(begin);
    while ((next = places.toNextBoundary()) > 0 && shaped.lengthUpTo[next] <= limit) {
        const bool inNumber =
            wholeNumbers && next < text.size() && IsOfNumber(text[next - 1]) && IsOfNumber(text[next]);
        if (!inNumber) end = next;
    }
    return end;
}

/// Cuts the text to `most` UTF-16 code units plus "…", without splitting a surrogate pair.
QString Bounded(const QString& text, qsizetype most) {
    if (text.size() <= most) return text;
    const qsizetype whole = text[most - 1].isHighSurrogate() ? most - 1 : most;
    return text.left(whole) + u'…';
}

class Fitter {
  public:
    Fitter(FontSet& fonts, const TextStyle& style, double length, double depth)
        : fonts_(fonts),
          style_(style),
          length_(length),
          depth_(depth),
          size_(std::min(style.points * kMillimetresPerPoint, depth)),
          least_(std::min(style.leastPoints * kMillimetresPerPoint, size_)) {}

    /// Upper bound for the number of characters that fit. Longer text is truncated before shaping, which is slow.
    qsizetype Capacity() const {
        const bool wraps = style_.fitting == Fitting::Wrap, narrows = style_.fitting == Fitting::Condense;
        const double letter = least_ * kNarrowestLetter * (narrows ? kNarrowest : 1);
        const double lines = wraps ? static_cast<double>(LinesAt(least_)) : 1;
        const double most = std::min(lines * length_ / letter, static_cast<double>(kMostCharacters));
        return std::max(kFewCharacters, static_cast<qsizetype>(most));
    }

    FittedText Fit(const QString& text) {
        if (style_.fitting == Fitting::Wrap) return Wrap(text);
        const QString line = OneLine(text);
        const auto shaped = Shape(line);
        const double natural = shaped->length;
        if (natural * size_ <= length_ + kSlack) return {size_, 1, {shaped}};
        if (style_.fitting == Fitting::Cut) return {size_, 1, {Cut(line, size_)}};
        const double stretch =
            style_.fitting == Fitting::Condense ? std::max(kNarrowest, length_ / (natural * size_)) : 1;
        const double size = std::min(size_, length_ / (natural * stretch));
        if (size >= least_) return {size, stretch, {shaped}};
        return {least_, stretch, {Cut(line, least_ * stretch)}};
    }

  private:
    std::shared_ptr<const ShapedText> Shape(const QString& text) {
        return fonts_.Shape(text, style_.face, style_.vertical);
    }

    static QString OneLine(QString text) {
        text.remove(u'\r');
        return text.replace(u'\n', u' ');
    }

    /// The longest prefix of whole graphemes that fits together with "…".
    std::shared_ptr<const ShapedText> Cut(const QString& line, double size) {
        const QString sign = u"…"_s;
        const double available = length_ / size - Shape(sign)->length;
        const auto whole = Shape(line);
        QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, line);
        qsizetype end = 0, next = 0;
        while ((next = characters.toNextBoundary()) > 0 && whole->lengthUpTo[next] <= available + kSlack) end = next;
        return Shape(line.left(end) + sign);
    }

    FittedText Wrap(const QString& text) {
        const QStringList paragraphs = QString(text).remove(u'\r').split(u'\n');
        QList<double> lengths;
        for (const QString& paragraph : paragraphs) lengths.append(Shape(paragraph)->length);
        for (double size = size_; size > least_; size = std::max(least_, size * kSmallerStep)) {
            if (LeastLines(lengths, size) > LinesAt(size)) continue;
            const QStringList lines = Lines(paragraphs, size);
            if (lines.size() <= LinesAt(size)) return Shaped(lines, size);
        }
        QStringList lines = Lines(paragraphs, least_);
        const qsizetype most = LinesAt(least_);
        if (lines.size() <= most) return Shaped(lines, least_);
        const QString rest = lines.mid(most - 1).join(QString());
        FittedText fitted = Shaped(lines.first(most - 1), least_);
        fitted.lines.append(Cut(rest, least_));
        return fitted;
    }

    FittedText Shaped(const QStringList& lines, double size) {
        FittedText fitted{size, 1, {}};
        for (const QString& line : lines) fitted.lines.append(Shape(line));
        return fitted;
    }

    qsizetype LinesAt(double size) const {
        return std::max(1, 1 + static_cast<int>((depth_ - size + kSlack) / (size * style_.lineStep)));
    }

    /// Lower bound for the number of lines, found without computing line breaks.
    qsizetype LeastLines(const QList<double>& paragraphs, double size) const {
        const double available = std::max(length_ / size, kWidestLetter) + kSlack;
        qsizetype least = 0;
        for (const double length : paragraphs)
            least += std::max<qsizetype>(1, static_cast<qsizetype>(length / available));
        return least;
    }

    QStringList Lines(const QStringList& paragraphs, double size) {
        QStringList lines;
        for (const QString& paragraph : paragraphs) BreakInto(lines, paragraph, size);
        return lines;
    }

    /// Breaks lines by the Japanese rules; a word longer than a line is broken at any character.
    void BreakInto(QStringList& lines, const QString& paragraph, double size) {
        const auto shaped = Shape(paragraph);
        const double available = length_ / size + kSlack;
        QTextBoundaryFinder words(QTextBoundaryFinder::Line, paragraph);
        QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, paragraph);
        qsizetype begin = 0;
        while (begin < paragraph.size() && shaped->length - shaped->lengthUpTo[begin] > available) {
            const double limit = shaped->lengthUpTo[begin] + available;
            qsizetype end = LastWithin(words, *shaped, begin, limit, true);
            if (end == begin) end = LastWithin(characters, *shaped, begin, limit, false);
            if (end == begin) {
                characters.setPosition(begin);
                end = characters.toNextBoundary();
            }
            lines.append(paragraph.mid(begin, end - begin));
            begin = end;
        }
        if (begin < paragraph.size() || paragraph.isEmpty()) lines.append(paragraph.mid(begin));
    }

    FontSet& fonts_;
    const TextStyle& style_;
    double length_, depth_, size_, least_;
};

}  // namespace

FittedText FitText(FontSet& fonts, const QString& text, const TextStyle& style, double length, double depth) {
    Fitter fitter(fonts, style, length, depth);
    const QString bounded = Bounded(text, fitter.Capacity());
    QString written = style.kanjiNumerals ? ToKanjiNumerals(bounded) : bounded;
    if (style.vertical) written = ToVerticalText(written);
    return fitter.Fit(fonts.Printable(written, style.face));
}

QString ToVerticalText(const QString& text) {
    QString wide = ToFullWidth(text);
    // ToFullWidth leaves these unchanged.
    static constexpr QStringView kNarrow = u"\"^`｡｢｣､･", kWide = u"＂＾｀。「」、・";
    for (QChar& c : wide)
        if (const qsizetype at = kNarrow.indexOf(c); at >= 0) c = kWide[at];
    return wide;
}

QString ToKanjiNumerals(const QString& text) {
    static constexpr QStringView kNumerals = u"〇一二三四五六七八九";
    QString changed = text;
    for (QChar& c : changed) {
        const char16_t u = c.unicode();
        if (u >= u'0' && u <= u'9')
            c = kNumerals[u - u'0'];
        else if (u >= u'０' && u <= u'９')
            c = kNumerals[u - u'０'];
    }
    return changed;
}

}  // namespace report
