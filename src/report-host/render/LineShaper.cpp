#include "report-host/render/LineShaper.h"

#include <algorithm>
#include <vector>

namespace report {

namespace {

// Signs that are rotated in vertical text; some fonts lack vertical glyphs for them.
constexpr std::u32string_view kRotatedSigns = U"－−‐–—―…‥～〜＝＜＞｜：；";

/// The vertical glyph of "〓" is rotated in some fonts, and then looks like another character.
std::vector<hb_feature_t> UprightMarks(const QString& text, qsizetype begin, qsizetype end) {
    std::vector<hb_feature_t> features;
    for (qsizetype at = text.indexOf(kMissingMark, begin); at >= 0 && at < end; at = text.indexOf(kMissingMark, at + 1))
        for (const hb_tag_t tag : {HB_TAG('v', 'e', 'r', 't'), HB_TAG('v', 'r', 't', '2')})
            features.push_back({tag, 0, static_cast<unsigned>(at), static_cast<unsigned>(at) + 1});
    return features;
}

ShapedGlyph GlyphFrom(const FontFace& face, const hb_glyph_info_t& info) {
    ShapedGlyph glyph;
    glyph.face = &face;
    glyph.glyph = info.codepoint;
    glyph.textAt = static_cast<qsizetype>(info.cluster);
    return glyph;
}

}  // namespace

LineShaper::LineShaper(const QString& text, bool vertical, ShapedText& shaped)
    : text_(text), vertical_(vertical), shaped_(shaped), buffer_(hb_buffer_create()) {
    shaped_.text = text;
    shaped_.vertical = vertical;
    shaped_.lengthUpTo.fill(-1, text.size());
}

void LineShaper::Add(const FontFace& face, qsizetype begin, qsizetype end, const VerticalRun& run) {
    if (begin == run.begin) StartRun(run);
    const bool isLevel = !vertical_ || run.mode != RunMode::Upright;
    hb_buffer_t* buffer = buffer_.get();
    hb_buffer_reset(buffer);
    hb_buffer_add_utf16(buffer, reinterpret_cast<const uint16_t*>(text_.utf16()), static_cast<int>(text_.size()),
                        static_cast<unsigned>(begin), static_cast<int>(end - begin));
    hb_buffer_set_direction(buffer, isLevel ? HB_DIRECTION_LTR : HB_DIRECTION_TTB);
    hb_buffer_set_script(buffer, HB_SCRIPT_HAN);
    hb_buffer_set_language(buffer, hb_language_from_string("ja", -1));
    const std::vector<hb_feature_t> features = isLevel ? std::vector<hb_feature_t>() : UprightMarks(text_, begin, end);
    hb_shape(face.Shaper(), buffer, features.data(), static_cast<unsigned>(features.size()));
    unsigned count = 0;
    const hb_glyph_info_t* infos = hb_buffer_get_glyph_infos(buffer, &count);
    const hb_glyph_position_t* positions = hb_buffer_get_glyph_positions(buffer, &count);
    for (unsigned i = 0; i < count; ++i)
        if (isLevel)
            AddLevel(face, infos[i], positions[i]);
        else
            AddUpright(face, infos[i], positions[i]);
    if (end == run.end) EndRun();
}

void LineShaper::Finish() {
    shaped_.lengthUpTo.append(shaped_.length);
    // Code units without their own glyph get the position of the next one with a glyph.
    for (qsizetype i = shaped_.lengthUpTo.size() - 2; i >= 0; --i)
        if (shaped_.lengthUpTo[i] < 0) shaped_.lengthUpTo[i] = shaped_.lengthUpTo[i + 1];
}

void LineShaper::StartRun(const VerticalRun& run) {
    run_ = run;
    firstGlyph_ = shaped_.glyphs.size();
    runWidth_ = 0;
    if (vertical_ && run.mode == RunMode::SideBySide) ++shaped_.cells;
}

void LineShaper::EndRun() {
    if (!vertical_ || run_.mode != RunMode::SideBySide) return;
    const double stretch = std::min(1.0, 1 / runWidth_);
    for (qsizetype i = firstGlyph_; i < shaped_.glyphs.size(); ++i) {
        ShapedGlyph& glyph = shaped_.glyphs[i];
        glyph.at.rx() = (glyph.at.x() - runWidth_ / 2) * stretch;
        glyph.stretch = stretch;
    }
    shaped_.length += 1;
}

void LineShaper::Append(const ShapedGlyph& glyph, double advance) {
    shaped_.glyphs.append(glyph);
    double& upTo = shaped_.lengthUpTo[glyph.textAt];
    if (upTo < 0) upTo = shaped_.length;
    shaped_.length += advance;
}

void LineShaper::AddUpright(const FontFace& face, const hb_glyph_info_t& info, const hb_glyph_position_t& position) {
    const double em = face.UnitsPerEm(), at = shaped_.length, advance = -position.y_advance / em;
    ShapedGlyph glyph = GlyphFrom(face, info);
    glyph.at = QPointF(position.x_offset / em, at - position.y_offset / em);
    const char32_t character = text_[glyph.textAt].unicode();
    if (kRotatedSigns.find(character) != std::u32string_view::npos && face.GlyphOf(character) == info.codepoint) {
        glyph.rotated = true;
        glyph.at = QPointF(0.5 - kAboveBaseline, at + advance / 2 - 0.5);
    }
    glyph.cell = shaped_.cells++;
    Append(glyph, advance);
}

void LineShaper::AddLevel(const FontFace& face, const hb_glyph_info_t& info, const hb_glyph_position_t& position) {
    const double em = face.UnitsPerEm(), at = shaped_.length, advance = position.x_advance / em;
    const QPointF offset(position.x_offset / em, -position.y_offset / em);
    ShapedGlyph glyph = GlyphFrom(face, info);
    if (vertical_ && run_.mode == RunMode::SideBySide) {
        glyph.at = QPointF(runWidth_, at + kAboveBaseline) + offset;
        glyph.cell = shaped_.cells - 1;
        runWidth_ += advance;
        return Append(glyph, 0);
    }
    glyph.rotated = vertical_;
    // Rotated by 90 degrees, "up" is to the right.
    glyph.at = vertical_ ? QPointF(0.5 - kAboveBaseline - offset.y(), at + offset.x()) : QPointF(at, 0) + offset;
    glyph.cell = shaped_.cells++;
    Append(glyph, advance);
}

}  // namespace report
