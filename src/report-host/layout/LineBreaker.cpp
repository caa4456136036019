#include "report-host/layout/LineBreaker.h"

#include <QTextBoundaryFinder>
#include <algorithm>

#include "report-host/layout/VerticalText.h"

namespace report {

namespace {

constexpr double kSlack = 1e-6;

bool IsBlank(QChar c) { return c == u' ' || c == QChar(0x3000); }

}  // namespace

LineBreaker::LineBreaker(const QString& paragraph, std::shared_ptr<const ShapedText> shaped)
    : text_(paragraph), shaped_(std::move(shaped)) {
    while (indentEnd_ < text_.size() && IsBlank(text_[indentEnd_])) ++indentEnd_;
    QTextBoundaryFinder places(QTextBoundaryFinder::Line, text_);
    places.setPosition(indentEnd_);
    qsizetype begin = indentEnd_;
    for (qsizetype at = places.toNextBoundary(); at > 0; at = places.toNextBoundary()) {
        if (at < text_.size() && !MayBreakBetween(text_[at - 1], text_[at])) continue;
        breaks_.append({at, TextEnd(begin, at)});
        longestWord_ = std::max(longestWord_, LengthBetween(begin, breaks_.last().textEnd));
        begin = at;
    }
    longestWord_ += shaped_->lengthUpTo[indentEnd_];
}

qsizetype LineBreaker::TextEnd(qsizetype begin, qsizetype end) const {
    while (end > begin && IsBlank(text_[end - 1])) --end;
    return end;
}

double LineBreaker::LengthBetween(qsizetype begin, qsizetype end) const {
    return shaped_->lengthUpTo[end] - shaped_->lengthUpTo[begin];
}

/// The last break opportunity that fits; `begin` if there is none. `next`: index of the first one after `begin`.
LineBreaker::Break LineBreaker::LastBreak(qsizetype begin, double available, qsizetype& next) const {
    while (next < breaks_.size() && breaks_[next].at <= begin) ++next;
    Break last{begin, begin};
    for (; next < breaks_.size() && LengthBetween(begin, breaks_[next].textEnd) <= available; ++next)
        last = breaks_[next];
    return last;
}

LineBreaker::Break LineBreaker::BreakInWord(QTextBoundaryFinder& characters, qsizetype begin, double available) const {
    if (!characters.isValid()) characters = QTextBoundaryFinder(QTextBoundaryFinder::Grapheme, text_);
    characters.setPosition(begin);
    qsizetype end = characters.toNextBoundary();
    for (qsizetype next = end; next > 0 && LengthBetween(begin, next) <= available; next = characters.toNextBoundary())
        end = next;
    return {end, end};
}

QList<LineRange> LineBreaker::Lines(const std::function<double(qsizetype line)>& lengthOf) const {
    QList<LineRange> lines;
    QTextBoundaryFinder characters;
    qsizetype begin = 0, next = 0;
    do {
        const double whole = lengthOf(lines.size()) + kSlack, wanted = shaped_->lengthUpTo[indentEnd_];
        const double indent = begin > 0 && wanted < whole / 2 ? wanted : 0;
        Break end{text_.size(), text_.size()};
        if (LengthBetween(begin, text_.size()) > whole - indent) end = LastBreak(begin, whole - indent, next);
        if (end.at == begin && begin < text_.size()) end = BreakInWord(characters, begin, whole - indent);
        lines.append({begin, end.textEnd, indent});
        begin = end.at;
    } while (begin < text_.size());
    return lines;
}

std::shared_ptr<const ShapedText> LineBreaker::Line(const LineRange& range) const {
    if (range.begin == 0 && range.end == text_.size()) return shaped_;
    const auto line = std::make_shared<ShapedText>();
    line->text = text_.mid(range.begin, range.end - range.begin);
    line->vertical = shaped_->vertical;
    const double moved = range.indent - shaped_->lengthUpTo[range.begin];
    const auto isBefore = [](const ShapedGlyph& glyph, qsizetype at) { return glyph.textAt < at; };
    const QList<ShapedGlyph>& glyphs = shaped_->glyphs;
    const auto first = std::lower_bound(glyphs.begin(), glyphs.end(), range.begin, isBefore);
    const auto last = std::lower_bound(first, glyphs.end(), range.end, isBefore);
    for (auto found = first; found != last; ++found) {
        ShapedGlyph glyph = *found;
        glyph.at += line->vertical ? QPointF(0, moved) : QPointF(moved, 0);
        glyph.cell -= first->cell;
        glyph.textAt -= range.begin;
        line->cells = glyph.cell + 1;
        line->glyphs.append(glyph);
    }
    for (qsizetype at = range.begin; at <= range.end; ++at) line->lengthUpTo.append(shaped_->lengthUpTo[at] + moved);
    line->length = line->lengthUpTo.last();
    return line;
}

QString LineBreaker::TextFrom(const LineRange& range) const {
    return (range.indent > 0 ? text_.left(indentEnd_) : QString()) + text_.mid(range.begin);
}

}  // namespace report
