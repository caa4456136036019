#pragma once

#include <hb.h>

#include <QHash>
#include <QList>
#include <QPointF>
#include <QRawFont>
#include <QRectF>
#include <QString>
#include <array>
#include <memory>

#include "screen/fonts/Fonts.h"

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

  private:
    QRawFont raw_;
    std::unique_ptr<hb_font_t, HarfBuzzRelease> shaper_;
    double unitsPerEm_ = 0;
};

/// A positioned glyph. Positions are in em from the beginning of the line: horizontal text from the left end of the
/// baseline, vertical text from the middle of the top edge.
struct ShapedGlyph {
    const FontFace* face = nullptr;
    quint32 glyph = 0;  ///< index in the font
    QPointF at;
    bool turned = false;   ///< rotated by 90 degrees about `at`, its middle
    qsizetype textAt = 0;  ///< index of the character in the text, in UTF-16 code units
};

/// A line of text as glyphs. Valid as long as the FontSet that shaped it.
struct ShapedText {
    QList<ShapedGlyph> glyphs;
    double length = 0;  ///< in em
    /// Length of the text up to each UTF-16 code unit, in em; one more entry than code units.
    QList<double> lengthUpTo;
};

/// The fonts of a report with their fallback fonts, and text shaping with a cache. Characters without a glyph in any
/// font are replaced by "〓", as is usual in Japanese printing. Must be destroyed before the application object.
class FontSet {
  public:
    FontSet();
    ~FontSet();
    FontSet(const FontSet&) = delete;
    FontSet& operator=(const FontSet&) = delete;

    /// The text with every character that no font has replaced by "〓".
    QString Printable(const QString& text, SuiteFace face);
    /// Shapes one line of printable text without line ends. Cached.
    std::shared_ptr<const ShapedText> Shape(const QString& text, SuiteFace face, bool vertical);
    /// Bounding box of the ink of horizontal text relative to the left end of its baseline, in em.
    QRectF InkOf(const ShapedText& text) const;
    /// False if no installed font has Japanese glyphs.
    bool HasJapanese();

  private:
    /// The font of the face, or the first fallback font with the character; null if no font has it.
    const FontFace* FaceFor(char32_t character, SuiteFace face);
    const FontFace* OwnFont(SuiteFace face);
    FontFace* Load(const QString& family);
    std::shared_ptr<const ShapedText> ShapeNow(const QString& text, SuiteFace face, bool vertical);

    QHash<QString, std::shared_ptr<FontFace>> fonts_;
    std::array<const FontFace*, 4> own_{};
    QHash<QString, std::shared_ptr<const ShapedText>> shaped_;
    qsizetype cachedCharacters_ = 0;  ///< number of characters in the cache
};

}  // namespace report
