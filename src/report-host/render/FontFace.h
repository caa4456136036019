#pragma once

#include <hb.h>

#include <QList>
#include <QPointF>
#include <QRawFont>
#include <QString>
#include <memory>

// A font, and lines of text as its glyphs.

namespace report {

struct HarfBuzzRelease {
    void operator()(hb_font_t* font) const noexcept { hb_font_destroy(font); }
    void operator()(hb_buffer_t* buffer) const noexcept { hb_buffer_destroy(buffer); }
};

/// A font as QRawFont for painting and as HarfBuzz font for shaping.
class FontFace {
  public:
    explicit FontFace(const QRawFont& raw);

    /// Pixel size of the QRawFont; painting scales from it.
    static constexpr double kPixels = 100;

    const QRawFont& Raw() const { return raw_; }
    hb_font_t* Shaper() const { return shaper_.get(); }
    double UnitsPerEm() const { return unitsPerEm_; }
    /// Index of the character's glyph; 0 if the font has none.
    quint32 GlyphOf(char32_t character) const;
    /// True if the font has the variant of the character that the variation selector stands for.
    bool HasVariant(char32_t character, char32_t selector) const;

  private:
    QRawFont raw_;
    std::unique_ptr<hb_font_t, HarfBuzzRelease> shaper_;
    double unitsPerEm_ = 0;
};

/// Height of the em square above the baseline in Japanese fonts, in em.
inline constexpr double kAboveBaseline = 0.88;
/// Printed instead of a character that no font has, as is usual in Japanese printing.
inline constexpr char16_t kMissingMark = u'〓';

/// A positioned glyph. Positions are in em from the beginning of the line: horizontal text from the left end of the
/// baseline, vertical text from the middle of the top edge.
struct ShapedGlyph {
    const FontFace* face = nullptr;
    quint32 glyph = 0;     ///< index in the font
    QPointF at;            ///< origin of the glyph
    bool rotated = false;  ///< rotated by 90 degrees about `at`
    double stretch = 1;    ///< scaling of its width
    int cell = 0;          ///< glyphs of a cell are not spaced out
    qsizetype textAt = 0;  ///< index of the character in the text, in UTF-16 code units
};

/// A line of text as glyphs. Valid as long as the FontSet that shaped it.
struct ShapedText {
    QString text;
    bool vertical = false;
    QList<ShapedGlyph> glyphs;
    int cells = 0;
    double length = 0;  ///< in em
    /// Length of the text up to each UTF-16 code unit, in em; one more entry than code units.
    QList<double> lengthUpTo;
};

}  // namespace report
