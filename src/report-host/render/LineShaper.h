#pragma once

#include <hb.h>

#include <QString>
#include <memory>

#include "report-host/layout/VerticalText.h"
#include "report-host/render/FontFace.h"

namespace report {

/// Shapes a line run by run and appends the glyphs to a ShapedText.
class LineShaper {
  public:
    /// `text` and `shaped` must outlive the object.
    LineShaper(const QString& text, bool vertical, ShapedText& shaped);

    /// Shapes a part of the text that is in one font and one run. `run`: of a vertical line the run that contains it.
    void Add(const FontFace& face, qsizetype begin, qsizetype end, const VerticalRun& run);
    /// To be called after the last part.
    void Finish();

  private:
    void StartRun(const VerticalRun& run);
    void EndRun();
    void AddUpright(const FontFace& face, const hb_glyph_info_t& info, const hb_glyph_position_t& position);
    void AddLevel(const FontFace& face, const hb_glyph_info_t& info, const hb_glyph_position_t& position);
    void Append(const ShapedGlyph& glyph, double advance);

    const QString& text_;
    bool vertical_;
    ShapedText& shaped_;
    VerticalRun run_;
    qsizetype firstGlyph_ = 0;  ///< of the current run
    double runWidth_ = 0;       ///< of the current run if it is set side by side, in em
    std::unique_ptr<hb_buffer_t, HarfBuzzRelease> buffer_;
};

}  // namespace report
