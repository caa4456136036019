// Part of ElementPainter.h: DrawFitted and DrawLine.

#include "report-host/render/ElementPainter.h"

#include <QGlyphRun>
#include <QPainter>

#include "report-host/render/FontSet.h"

namespace report {

namespace {

// Height of the em square above the baseline in Japanese fonts, in em.
constexpr double kAboveBaseline = 0.88;

/// Batches consecutive glyphs of one font into one call of the painter.
class RunPainter {
  public:
    explicit RunPainter(QPainter& painter) : painter_(painter) {}

    void Paint(const ShapedText& line, double spread, bool vertical) {
        for (qsizetype i = 0; i < line.glyphs.size(); ++i) {
            const ShapedGlyph& glyph = line.glyphs[i];
            const double moved = spread * static_cast<double>(i);
            const QPointF at = (glyph.at + (vertical ? QPointF(0, moved) : QPointF(moved, 0))) * FontFace::kPixels;
            if (glyph.turned) {
                DrawTurned(*glyph.face, glyph.glyph, at);
                continue;
            }
            if (glyph.face != face_) Flush();
            face_ = glyph.face;
            indexes_.append(glyph.glyph);
            places_.append(at);
        }
        Flush();
    }

  private:
    void Flush() {
        if (!indexes_.isEmpty()) Draw(*face_, indexes_, places_);
        indexes_.clear();
        places_.clear();
    }

    void Draw(const FontFace& face, const QList<quint32>& glyphs, const QList<QPointF>& places) {
        QGlyphRun run;
        run.setRawFont(face.Raw());
        run.setGlyphIndexes(glyphs);
        run.setPositions(places);
        painter_.drawGlyphRun(QPointF(), run);
    }

    void DrawTurned(const FontFace& face, quint32 glyph, QPointF middle) {
        constexpr double half = FontFace::kPixels / 2;
        painter_.save();
        painter_.translate(middle);
        painter_.rotate(90);
        Draw(face, {glyph}, {QPointF(-half, kAboveBaseline * FontFace::kPixels - half)});
        painter_.restore();
    }

    QPainter& painter_;
    const FontFace* face_ = nullptr;
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

void DrawFitted(QPainter& painter, const FittedText& text, const TextStyle& style, const QRectF& place) {
    const bool vertical = style.vertical;
    const double room = vertical ? place.height() : place.width(), depth = vertical ? place.width() : place.height();
    const double step = text.size * style.lineStep;
    const double used = text.size + step * static_cast<double>(text.lines.size() - 1);
    const double across = Offset(style.across, depth, used);
    for (qsizetype i = 0; i < text.lines.size(); ++i) {
        const ShapedText& line = *text.lines[i];
        const double length = line.length * text.size * text.stretch;
        const double deep = across + step * static_cast<double>(i);
        const double along = Offset(style.along, room, length);
        const bool spread = style.along == Along::Spread && line.glyphs.size() > 1 && length < room;
        const double gap =
            spread ? (room - length) / (text.size * text.stretch * static_cast<double>(line.glyphs.size() - 1)) : 0;
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
    }
}

}  // namespace report
