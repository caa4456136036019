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

// What a form says, after reading. All lengths are millimetres, all type sizes points.

namespace report {

/// A piece of a text: as it stands, or the name of a column or of a running value (TextPattern.h lists them).
struct TextPiece {
    bool isField = false;
    QString text;
};
using TextPattern = QList<TextPiece>;

/// Along the line: left to right, or top to bottom in vertical writing.
enum class Along { Start, Middle, End, Spread };
/// Across the lines: from the top, or from the right in vertical writing.
enum class Across { Start, Middle, End };
/// What happens to a text that is too long. Whatever still does not fit ends in "…".
enum class Fitting { Shrink, Condense, Wrap, Cut };

struct TextStyle {
    SuiteFace face = SuiteFace::Mincho;
    double points = 9;
    double leastPoints = 5;
    double lineStep = 1.25;  ///< from line to line, in type sizes
    Along along = Along::Start;
    Across across = Across::Start;
    Fitting fitting = Fitting::Shrink;
    bool vertical = false;
    bool kanjiNumerals = false;
};

enum class ElementKind { Text, Line, Frame, Picture, DigitBoxes };

struct FormElement {
    ElementKind kind = ElementKind::Text;
    int line = 0;      ///< of the form's text, for mistakes
    QRectF place;      ///< within the section; of a line its two ends
    TextPattern text;  ///< of a picture its path
    TextStyle style;
    QString onlyWith;  ///< drawn only where this column is filled; empty: always
    double penWidth = 0.2;
    QColor colour = Qt::black;
    QColor fill;          ///< invalid: none
    QList<double> lefts;  ///< left edges of the digit boxes, from place.left()
};

/// Head or foot of a page, or one row. A height of 0 means that there is none.
struct FormSection {
    int line = 0;
    double height = 0;
    QList<FormElement> elements;
};

/// Rows in cells of a sheet instead of one under the other.
struct CellGrid {
    int line = 0;
    int across = 1, down = 1;
    QPointF first;  ///< corner of the first cell, from the corner of the sheet
    double pitchX = 0, pitchY = 0;
    /// Where one row fills several cells, what its columns begin with in each of them; empty: a row, a cell.
    QStringList prefixes;

    int CellsPerRow() const { return prefixes.isEmpty() ? 1 : static_cast<int>(prefixes.size()); }
};

struct EraStart {
    QDate day;
    QString name;
};

struct FormDefinition {
    QSizeF page;
    QMarginsF margins;
    QPointF offset;  ///< everything is moved by this: what the printer is off by
    QString table;   ///< linked table; empty: that of the form's name
    QStringList order;
    QList<EraStart> eras;
    FormSection head, detail, foot;
    QColor stripe;  ///< behind every second row; invalid: none
    std::optional<CellGrid> grid;
};

}  // namespace report
