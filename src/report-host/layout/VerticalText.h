#pragma once

#include <QList>
#include <QString>

// Preparation of text for vertical writing. None of the procedures fails.

namespace report {

/// Converts text for vertical writing. Latin phrases and numbers of more than three digits become half-width, to be
/// rotated; words of two or three letters or digits too, to be set side by side. Everything else becomes full-width.
/// The dashes of house numbers become "－", quotation marks "〝" and "〟".
QString ToVerticalText(const QString& text);

/// Replaces half-width and full-width digits one by one by kanji numerals, as in addresses: "１０階" becomes "一〇階".
/// Digits of a Latin phrase are unchanged: "12 Main Street".
QString ToKanjiNumerals(const QString& text);

/// How a part of a vertical line is set: upright from top to bottom; side by side within one em; or as a horizontal
/// text rotated by 90 degrees.
enum class RunMode { Upright, SideBySide, Rotated };

/// A part of a vertical line; `begin` and `end` in UTF-16 code units.
struct VerticalRun {
    RunMode mode = RunMode::Upright;
    qsizetype begin = 0, end = 0;
};

/// Divides a line that ToVerticalText has converted into runs, without gaps.
QList<VerticalRun> VerticalRunsOf(const QString& text);

/// False if a line break between these two neighbours would divide a number, such as the one of a house, a number and
/// its counter ("二〇五号室"), or a Latin word.
bool MayBreakBetween(QChar before, QChar after);

}  // namespace report
