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

class LineShaper;
struct VerticalRun;

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
    bool turned = false;   ///< rotated by 90 degrees about `at`
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

/// The fonts of a report with their fallback fonts, and text shaping with a cache. Must be destroyed before the
/// application object.
class FontSet {
  public:
    FontSet();
    ~FontSet();
    FontSet(const FontSet&) = delete;
    FontSet& operator=(const FontSet&) = delete;

    /// The text with every character that no installed font has replaced by kMissingMark. A variation selector that no
    /// font supports is kept: the character is printed in its usual form.
    QString Printable(const QString& text, SuiteFace face);
    /// The characters of a text that no installed font has, each once, in the order of the text; a variant that no font
    /// has as character and variation selector.
    QStringList MissingCharacters(const QString& text);
    /// Shapes one line of printable text without line ends. Cached.
    std::shared_ptr<const ShapedText> Shape(const QString& text, SuiteFace face, bool vertical);
    /// Bounding box of the ink of horizontal text relative to the left end of its baseline, in em.
    QRectF InkOf(const ShapedText& text) const;
    /// False if no installed font has Japanese glyphs.
    bool HasJapanese();

  private:
    /// The font of the face, or the first other one with the character; null if no font has it. `selector`: variation
    /// selector; a font without this variant is as one without the character. 0: none.
    const FontFace* FaceFor(char32_t character, char32_t selector, SuiteFace face);
    /// The font that the system chooses for a character; null if it has none.
    const FontFace* SystemFont(char32_t character);
    const FontFace* OwnFont(SuiteFace face);
    FontFace* Load(const QString& family);
    std::shared_ptr<const ShapedText> ShapeNow(const QString& text, SuiteFace face, bool vertical);
    void ShapeRun(LineShaper& shaper, const QString& text, const VerticalRun& run, SuiteFace face);

    QHash<QString, std::shared_ptr<FontFace>> fonts_;
    std::array<const FontFace*, 4> own_{};
    QHash<char32_t, const FontFace*> systemFonts_;
    QHash<QString, std::shared_ptr<const ShapedText>> shaped_;
    qsizetype cachedCharacters_ = 0;  ///< number of characters in the cache
};

}  // namespace report
