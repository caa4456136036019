#pragma once

#include <hb.h>

#include <QRawFont>
#include <memory>

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
    /// 0 if the font has no glyph for the character.
    quint32 GlyphOf(char32_t character) const;

  private:
    QRawFont raw_;
    std::unique_ptr<hb_font_t, HarfBuzzRelease> shaper_;
    double unitsPerEm_ = 0;
};

}  // namespace report
