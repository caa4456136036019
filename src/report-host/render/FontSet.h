#pragma once

#include <QHash>
#include <QRectF>
#include <QString>
#include <array>
#include <memory>

#include "report-host/render/FontFace.h"
#include "screen/fonts/Fonts.h"

namespace report {

class LineShaper;
struct VerticalRun;

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
