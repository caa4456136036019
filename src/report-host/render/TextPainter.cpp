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
            if (glyph.face != current_.face || glyph.turned != current_.turned || glyph.stretch != current_.stretch)
                Flush();
            current_ = glyph;
            indexes_.append(glyph.glyph);
            places_.append(glyph.turned ? QPointF(at.y(), -at.x()) : QPointF(at.x() / glyph.stretch, at.y()));
        }
        Flush();
    }

  private:
    void Flush() {
        if (indexes_.isEmpty()) return;
        QGlyphRun run;
        run.setRawFont(current_.face->Raw());
        run.setGlyphIndexes(std::exchange(indexes_, {}));
        run.setPositions(std::exchange(places_, {}));
        const bool isPlain = !current_.turned && current_.stretch == 1;
        if (isPlain) return painter_.drawGlyphRun(QPointF(), run);
        painter_.save();
        if (current_.turned) painter_.rotate(90);
        painter_.scale(current_.stretch, 1);
        painter_.drawGlyphRun(QPointF(), run);
        painter_.restore();
    }

    QPainter& painter_;
    ShapedGlyph current_;  ///< properties of the pending glyphs
    QList<quint32> indexes_;
    QList<QPointF> places_;
};

/// Offset of content of size `used` in a box. Content that is too large starts at 0.
template <typename Alignment>
double Offset(Alignment alignment, double room, double used) {
    const double left = std::max(0.0, room - used);
    return alignment == Alignment::Middle ? left / 2 : alignment == Alignment::End ? left : 0;
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
    const bool vertical = style.vertical;
    const double room = vertical ? place.height() : place.width(), depth = vertical ? place.width() : place.height();
    const double step = text.size * style.lineStep;
    const double used = text.size + step * static_cast<double>(text.lines.size() - 1);
    const double across = Offset(style.across, depth, used);
    QRectF last;
    for (qsizetype i = 0; i < text.lines.size(); ++i) {
        const ShapedText& line = *text.lines[i];
        const double length = line.length * text.size * text.stretch;
        const double deep = across + step * static_cast<double>(i);
        const double along = Offset(style.along, room, length);
        const bool spread = style.along == Along::Spread && line.cells > 1 && length < room;
        const double gap = spread ? (room - length) / (text.size * text.stretch * (line.cells - 1)) : 0;
        const double scale = text.size / FontFace::kPixels;
        painter.save();
        if (vertical) {
            painter.translate(place.right() - deep - text.size / 2, place.top() + along);
            painter.scale(scale, scale * text.stretch);
        } else {
            painter.translate(place.left() + along, place.top() + deep + kAboveBaseline * text.size);
            painter.scale(scale * text.stretch, scale);
        }
        RunPainter(painter).Paint(line, gap, vertical);
        painter.restore();
        last = vertical ? QRectF(place.right() - deep - text.size, place.top() + along, text.size, length)
                        : QRectF(place.left() + along, place.top() + deep, length, text.size);
    }
    return last;
}

}  // namespace report
