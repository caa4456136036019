#pragma once

#include <QColor>
#include <QDate>
#include <QList>
#include <QMarginsF>
#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QStringList>
#include <optional>

#include "screen/fonts/Fonts.h"

// Parsed template. Lengths are in millimetres, font sizes in points.

namespace report {

/// Part of a text: literal text, or the name of a column or built-in field (see TemplateValues.h).
struct TextPiece {
    bool isField = false;
    QString text;
    QString before, after;  ///< of a field: text next to it, omitted if the field is empty
};
using TextPattern = QList<TextPiece>;

/// Alignment along the line: from the left, or from the top in vertical writing. Spread distributes the glyphs over the
/// whole length.
enum class Along { Start, Middle, End, Spread };
/// Alignment across the lines: from the top, or from the right in vertical writing.
enum class Across { Start, Middle, End };
/// How text that is too long for its box is fitted: Shrink by a smaller font, down to leastPoints; Condense by narrower
/// glyphs first, down to half their width; Wrap by several lines, then by a smaller font; CondenseWrap by slightly
/// narrower glyphs, then by several lines, then as Condense; Cut not at all. If it still does not fit, it is truncated
/// with "…".
enum class Fitting { Shrink, Condense, Wrap, CondenseWrap, Cut };

struct TextStyle {
    SuiteFace face = SuiteFace::Mincho;
    double points = 9;
    double leastPoints = 5;
    double lineStep = 1.25;  ///< line spacing in em
    int mostLines = 0;       ///< 0: as many as fit into the box
    Along along = Along::Start;
    Across across = Across::Start;
    Fitting fitting = Fitting::Shrink;
    bool vertical = false;
    bool kanjiNumerals = false;
};

/// DigitBoxes: the digits of a text one by one in boxes, as for a postal code.
enum class ElementKind { Text, Line, Frame, Picture, DigitBoxes };

struct TemplateElement {
    ElementKind kind = ElementKind::Text;
    int line = 0;      ///< line number in the template, for error messages
    QRectF place;      ///< relative to the section; for a line its end points
    TextPattern text;  ///< for a picture its path
    TextStyle style;
    QString onlyWith;     ///< drawn only if this column is not empty; empty: always
    QString onlyWithout;  ///< drawn only if this column is empty; empty: always
    /// Begins after the last line of the preceding text of the section if that line extends into this box.
    bool follows = false;
    double penWidth = 0.2;
    QColor colour = Qt::black;
    QColor fill;          ///< of a frame; for digit boxes the colour of their frames; invalid: none
    QList<double> lefts;  ///< left edges of the digit boxes, relative to place.left()
};

/// Page header, page footer or one row. Height 0: not present.
struct TemplateSection {
    int line = 0;
    double height = 0;
    QList<TemplateElement> elements;
};

/// Rows in a grid of cells, as on a label sheet, instead of one below the other.
struct CellGrid {
    int line = 0;
    int across = 1, down = 1;
    QPointF first;  ///< top left of the first cell, relative to the page
    double pitchX = 0, pitchY = 0;
    /// Column prefix of each cell, if one row fills several cells; empty: one cell for each row.
    QStringList prefixes;

    int CellsPerRow() const { return prefixes.isEmpty() ? 1 : static_cast<int>(prefixes.size()); }
};

/// A Japanese era and its first day.
struct EraStart {
    QDate day;
    QString name;
};

struct TemplateDefinition {
    QSizeF page;
    QMarginsF margins;
    QPointF offset;     ///< added to all positions, to correct the printer's offset
    QString table;      ///< linked table; empty: the one with the template's name
    QStringList order;  ///< columns to sort by; empty: table order
    QList<EraStart> eras;
    TemplateSection head, detail, foot;
    QColor stripe;  ///< background of every second row; invalid: none
    std::optional<CellGrid> grid;
};

// Limits on templates. Far above any practical template; they bound time and memory for a page.
inline constexpr qsizetype kMostTemplateText = 1'000'000;  ///< characters of a template
inline constexpr qsizetype kMostTemplateLines = 10'000;
inline constexpr int kMostElements = 1'000;     ///< of a template
inline constexpr int kMostCellsOfPage = 2'000;  ///< rows on a page, or cells if a row fills several
inline constexpr int kMostElementsOfPage = 100'000;
inline constexpr qsizetype kMostDigitBoxes = 100;     ///< of one element
inline constexpr qsizetype kMostCharacters = 20'000;  ///< of a single text; longer text is truncated with "…"
inline constexpr double kLeastPoints = 0.5;
inline constexpr double kLeastLineStep = 0.1;

}  // namespace report
