// Part of ElementPainter.h: DrawFitted and DrawLine.

#include "report-host/render/ElementPainter.h"

#include <QGlyphRun>
#include <QPainter>
#include <utility>

#include "report-host/render/FontSet.h"

namespace report {

namespace {

/// Batches consecutive glyphs of one font, orientation and width into one call of the painter.
class RunPainter {
  public:
    explicit RunPainter(QPainter& painter) : painter_(painter) {}

    void Paint(const ShapedText& line, double spread, bool vertical) {
        for (const ShapedGlyph& glyph : line.glyphs) {
            const double moved = spread * glyph.cell;
            const QPointF at = (glyph.at + (vertical ? QPointF(0, moved) : QPointF(moved, 0))) * FontFace::kPixels;
            if (current_ && !IsAlike(glyph, *current_)) Flush();
            current_ = &glyph;
            indexes_.append(glyph.glyph);
            places_.append(glyph.rotated ? QPointF(at.y(), -at.x()) : QPointF(at.x() / glyph.stretch, at.y()));
        }
        Flush();
    }

  private:
    static bool IsAlike(const ShapedGlyph& a, const ShapedGlyph& b) {
        return a.face == b.face && a.rotated == b.rotated && a.stretch == b.stretch;
    }

    void Flush() {
        if (indexes_.isEmpty()) return;
        QGlyphRun run;
        run.setRawFont(current_->face->Raw());
        run.setGlyphIndexes(std::exchange(indexes_, {}));
        run.setPositions(std::exchange(places_, {}));
        const bool isPlain = !current_->rotated && current_->stretch == 1;
        if (isPlain) return painter_.drawGlyphRun(QPointF(), run);
        painter_.save();
        if (current_->rotated) painter_.rotate(90);
        painter_.scale(current_->stretch, 1);
        painter_.drawGlyphRun(QPointF(), run);
        painter_.restore();
    }

    QPainter& painter_;
    const ShapedGlyph* current_ = nullptr;  ///< the last of the pending glyphs
    QList<quint32> indexes_;
    QList<QPointF> places_;
};

/// Offset of content of size `used` in a box. Content that is too large starts at 0.
template <typename Alignment>
double Offset(Alignment alignment, double available, double used) {
    const double left = std::max(0.0, available - used);
    return alignment == Alignment::Middle ? left / 2 : alignment == Alignment::End ? left : 0;
}

/// Where a line is drawn and how it is scaled.
struct LinePlace {
    QRectF box;
    double size, stretch;
    double gap;  ///< between the cells, in em
};

void DrawLineIn(QPainter& painter, const ShapedText& line, const LinePlace& place) {
    const double scale = place.size / FontFace::kPixels;
    painter.save();
    if (line.vertical) {
        painter.translate(place.box.center().x(), place.box.top());
        painter.scale(scale, scale * place.stretch);
    } else {
        painter.translate(place.box.left(), place.box.top() + kAboveBaseline * place.size);
        painter.scale(scale * place.stretch, scale);
    }
    RunPainter(painter).Paint(line, place.gap, line.vertical);
    painter.restore();
}

}  // namespace

void DrawLine(QPainter& painter, const ShapedText& line, QPointF origin, double size) {
    painter.save();
    painter.translate(origin);
    painter.scale(size / FontFace::kPixels, size / FontFace::kPixels);
    RunPainter(painter).Paint(line, 0, false);
    painter.restore();
}

QRectF DrawFitted(QPainter& painter, const FittedText& text, const TextStyle& style, const QRectF& place) {
    const QSizeF available = style.vertical ? place.size().transposed() : place.size();
    const double step = text.size * style.lineStep, em = text.size * text.stretch;
    const double used = text.size + step * static_cast<double>(text.lines.size() - 1);
    const double across = Offset(style.across, available.height(), used);
    QRectF box;
    for (qsizetype i = 0; i < text.lines.size(); ++i) {
        const ShapedText& line = *text.lines[i];
        const double length = line.length * em, deep = across + step * static_cast<double>(i);
        const double along = Offset(style.along, available.width(), length);
        box = style.vertical ? QRectF(place.right() - deep - text.size, place.top() + along, text.size, length)
                             : QRectF(place.left() + along, place.top() + deep, length, text.size);
        const bool isSpread = style.along == Along::Spread && line.cells > 1 && length < available.width();
        const double gap = isSpread ? (available.width() - length) / (em * (line.cells - 1)) : 0;
        DrawLineIn(painter, line, {box, text.size, text.stretch, gap});
    }
    return box;
}

}  // namespace report
