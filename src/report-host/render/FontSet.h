#pragma once

#include <QHash>
#include <QList>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <array>
#include <memory>

#include "screen/fonts/Fonts.h"

namespace report {

class FontFace;

/// A glyph at its place, in type sizes, from the beginning of its line: in horizontal writing the left end of the
/// baseline, in vertical writing the middle of the upper edge.
struct ShapedGlyph {
    const FontFace* face = nullptr;
    quint32 glyph = 0;
    QPointF at;
    bool turned = false;  ///< drawn turned by a right angle about `at`, its middle
    qsizetype textAt = 0;
};

struct ShapedText {
    QList<ShapedGlyph> glyphs;
    double length = 0;  ///< in type sizes
    /// How long the text up to each of its characters is; one entry more than characters.
    QList<double> lengthUpTo;
};

/// The faces of a report with the fonts that stand in for characters that they lack, and the shaping of texts. A
/// character that no font has becomes "〓", as printers have always marked it. It must go before the application
/// object does.
class FontSet {
  public:
    FontSet();
    ~FontSet();
    FontSet(const FontSet&) = delete;
    FontSet& operator=(const FontSet&) = delete;

    /// The text with "〓" for every character that no font has.
    QString Printable(const QString& text, SuiteFace face);
    /// One line of printable text, without line ends. Equal texts are shaped once.
    std::shared_ptr<const ShapedText> Shape(const QString& text, SuiteFace face, bool vertical);
    /// What a horizontal text covers with ink, from the left end of its baseline, in type sizes.
    QRectF InkOf(const ShapedText& text) const;
    /// False where no font on this machine writes Japanese.
    bool HasJapanese();

  private:
    /// The font of the face, or the first that stands in for it; none where no font has the character.
    const FontFace* FaceFor(char32_t character, SuiteFace face);
    const FontFace* OwnFont(SuiteFace face);
    FontFace* Load(const QString& family);
    std::shared_ptr<const ShapedText> ShapeNow(const QString& text, SuiteFace face, bool vertical);

    QHash<QString, std::shared_ptr<FontFace>> fonts_;
    std::array<const FontFace*, 4> own_{};
    QHash<QString, std::shared_ptr<const ShapedText>> shaped_;
    qsizetype remembered_ = 0;  ///< characters of the texts in `shaped_`
};

}  // namespace report
