#include "report-host/render/FontFace.h"

#include <QByteArray>

namespace report {

namespace {

hb_blob_t* TableOf(hb_face_t*, hb_tag_t tag, void* raw) {
    char name[5] = {};
    hb_tag_to_string(tag, name);
    auto* bytes = new QByteArray(static_cast<QRawFont*>(raw)->fontTable(name));
    return hb_blob_create(bytes->constData(), static_cast<unsigned>(bytes->size()), HB_MEMORY_MODE_READONLY, bytes,
                          [](void* held) { delete static_cast<QByteArray*>(held); });
}

}  // namespace

FontFace::FontFace(const QRawFont& raw) : raw_(raw) {
    hb_face_t* face =
        hb_face_create_for_tables(TableOf, new QRawFont(raw), [](void* held) { delete static_cast<QRawFont*>(held); });
    shaper_.reset(hb_font_create(face));
    unitsPerEm_ = hb_face_get_upem(face);
    hb_face_destroy(face);
}

quint32 FontFace::GlyphOf(char32_t character) const {
    hb_codepoint_t glyph = 0;
    return hb_font_get_nominal_glyph(shaper_.get(), character, &glyph) ? glyph : 0;
}

bool FontFace::HasVariant(char32_t character, char32_t selector) const {
    hb_codepoint_t glyph = 0;
    return hb_font_get_variation_glyph(shaper_.get(), character, selector, &glyph) && glyph != 0;
}

}  // namespace report
