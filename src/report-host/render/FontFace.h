#pragma once

#include <hb.h>

#include <QRawFont>
#include <memory>

namespace report {

struct HarfBuzzRelease {
    void operator()(hb_font_t* font) const noexcept { hb_font_destroy(font); }
    void operator()(hb_buffer_t* buffer) const noexcept { hb_buffer_destroy(buffer); }
};

/// One font as the painter and as the shaper know it.
class FontFace {
  public:
    explicit FontFace(const QRawFont& raw);

    /// Pixels a type size in which the painter holds the font; whoever draws scales from there.
    static constexpr double kPixels = 100;

    const QRawFont& Raw() const { return raw_; }
    hb_font_t* Shaper() const { return shaper_.get(); }
    double UnitsPerEm() const { return unitsPerEm_; }
    /// 0 where the font lacks the character.
    quint32 GlyphOf(char32_t character) const;

  private:
    QRawFont raw_;
    std::unique_ptr<hb_font_t, HarfBuzzRelease> shaper_;
    double unitsPerEm_ = 0;
};

}  // namespace report
