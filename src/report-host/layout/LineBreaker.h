#pragma once

#include <QList>
#include <QString>
#include <functional>
#include <memory>

#include "report-host/render/FontFace.h"

class QTextBoundaryFinder;

namespace report {

/// A line of a paragraph, without the blanks at its end. Positions are in UTF-16 code units.
struct LineRange {
    qsizetype begin = 0, end = 0;
    double indent = 0;  ///< in em
};

/// Breaks a shaped paragraph into lines by the Japanese rules, but neither within a number nor within a Latin word.
/// Lengths are in em.
class LineBreaker {
  public:
    LineBreaker(const QString& paragraph, std::shared_ptr<const ShapedText> shaped);

    const QString& Text() const { return text_; }
    double Length() const { return shaped_->length; }
    /// Length of the longest part without a break opportunity, including the indentation.
    double LongestWord() const { return longestWord_; }

    /// Breaks the paragraph; at least one line. A part that is longer than a line is broken at any character.
    /// `lengthOf`: available length of a line, numbered from 0.
    QList<LineRange> Lines(const std::function<double(qsizetype line)>& lengthOf) const;
    /// A line as glyphs.
    std::shared_ptr<const ShapedText> Line(const LineRange& range) const;
    /// The text from the beginning of a line to the end of the paragraph, with the indentation.
    QString TextFrom(const LineRange& range) const;

  private:
    /// A position where a line may end, and the end of its last character that is no blank.
    struct Break {
        qsizetype at, textEnd;
    };

    qsizetype TextEnd(qsizetype begin, qsizetype end) const;
    double LengthBetween(qsizetype begin, qsizetype end) const;
    Break LastBreak(qsizetype begin, double available, qsizetype& next) const;
    /// `characters`: finds the graphemes of the text; created here if it is not valid.
    Break BreakInWord(QTextBoundaryFinder& characters, qsizetype begin, double available) const;

    QString text_;
    std::shared_ptr<const ShapedText> shaped_;
    QList<Break> breaks_;
    qsizetype indentEnd_ = 0;
    double longestWord_ = 0;
};

}  // namespace report
