#include "report-host/render/FontSet.h"

#include <QByteArray>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace report {

namespace {

hb_blob_t* TableOf(hb_face_t*, hb_tag_t tag, void* raw) {
    char name[5] = {};
    hb_tag_to_string(tag, name);
    auto* bytes = new QByteArray(static_cast<QRawFont*>(raw)->fontTable(name));
    return hb_blob_create(bytes->constData(), static_cast<unsigned>(bytes->size()), HB_MEMORY_MODE_READONLY, bytes,
                          [](void* held) { delete static_cast<QByteArray*>(held); });
}

constexpr char32_t kMissing = U'〓';
constexpr qsizetype kMostRemembered = 100'000;  // characters in the cache

// Fallback fonts for rare characters in names, such as the variant form of 吉.
const QStringList kRareCharacters{u"HanaMinA"_s, u"HanaMinB"_s};

QRawFont RawFont(const QString& family) {
    QFont font(family);
    font.setPixelSize(static_cast<int>(FontFace::kPixels));
    font.setHintingPreference(QFont::PreferNoHinting);
    return QRawFont::fromFont(font);
}

/// True for combining characters and variation selectors, which use the font of the preceding character.
bool IsJoiner(char32_t c) { return QChar::isMark(c) || (c >= 0xE0100 && c <= 0xE01EF) || c == 0x200D; }

/// Characters that are rotated in vertical text; some fonts lack vertical glyphs for them.
bool LiesAlongTheLine(char32_t c) {
    static const std::u32string_view signs = U"－−‐–—―…‥～〜＝＜＞｜：；";
    return signs.find(c) != std::u32string_view::npos;
}

/// A run of text in one font.
struct Stretch {
    const FontFace* face;
    qsizetype begin, end;
};

class LineShaper {
  public:
    LineShaper(const QString& text, bool vertical, ShapedText& shaped)
        : text_(text), vertical_(vertical), shaped_(shaped), buffer_(hb_buffer_create()) {}

    void Add(const Stretch& stretch) {
        hb_buffer_t* buffer = buffer_.get();
        hb_buffer_reset(buffer);
        hb_buffer_add_utf16(buffer, reinterpret_cast<const uint16_t*>(text_.utf16()), static_cast<int>(text_.size()),
                            static_cast<unsigned>(stretch.begin), static_cast<int>(stretch.end - stretch.begin));
        hb_buffer_set_direction(buffer, vertical_ ? HB_DIRECTION_TTB : HB_DIRECTION_LTR);
        hb_buffer_set_script(buffer, HB_SCRIPT_HAN);
        hb_buffer_set_language(buffer, hb_language_from_string("ja", -1));
        hb_shape(stretch.face->Shaper(), buffer, nullptr, 0);
        unsigned count = 0;
        const hb_glyph_info_t* infos = hb_buffer_get_glyph_infos(buffer, &count);
        const hb_glyph_position_t* positions = hb_buffer_get_glyph_positions(buffer, &count);
        for (unsigned i = 0; i < count; ++i) AddGlyph(*stretch.face, infos[i], positions[i]);
    }

    /// Code units without their own glyph get the position of the next one with a glyph.
    void Finish() {
        shaped_.lengthUpTo.append(shaped_.length);
        for (qsizetype i = shaped_.lengthUpTo.size() - 2; i >= 0; --i)
            if (shaped_.lengthUpTo[i] < 0) shaped_.lengthUpTo[i] = shaped_.lengthUpTo[i + 1];
    }

  private:
    void AddGlyph(const FontFace& face, const hb_glyph_info_t& info, const hb_glyph_position_t& position) {
        const double em = face.UnitsPerEm(), at = shaped_.length;
        const double advance = (vertical_ ? -position.y_advance : position.x_advance) / em;
        const QPointF offset(position.x_offset / em, -position.y_offset / em);
        const QPointF place = offset + (vertical_ ? QPointF(0, at) : QPointF(at, 0));
        ShapedGlyph glyph{&face, info.codepoint, place, false, static_cast<qsizetype>(info.cluster)};
        const char32_t character = text_[glyph.textAt].unicode();
        if (vertical_ && LiesAlongTheLine(character) && face.GlyphOf(character) == info.codepoint) {
            glyph.turned = true;
            glyph.at = {0, at + advance / 2};
        }
        shaped_.glyphs.append(glyph);
        double& upTo = shaped_.lengthUpTo[glyph.textAt];
        if (upTo < 0) upTo = at;
        shaped_.length += advance;
    }

    const QString& text_;
    bool vertical_;
    ShapedText& shaped_;
    std::unique_ptr<hb_buffer_t, HarfBuzzRelease> buffer_;
};

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

FontSet::FontSet() = default;
FontSet::~FontSet() = default;

FontFace* FontSet::Load(const QString& family) {
    std::shared_ptr<FontFace>& font = fonts_[family];
    if (!font) font = std::make_shared<FontFace>(RawFont(family));
    return font.get();
}

const FontFace* FontSet::OwnFont(SuiteFace face) {
    const FontFace*& own = own_[static_cast<size_t>(face)];
    if (!own) own = Load(SuiteFont(face, 10).family());
    return own;
}

const FontFace* FontSet::FaceFor(char32_t character, SuiteFace face) {
    const FontFace* own = OwnFont(face);
    if (own->GlyphOf(character) != 0) return own;
    for (const QString& family : kRareCharacters) {
        const FontFace* font = Load(family);
        if (font->GlyphOf(character) != 0) return font;
    }
    return nullptr;
}

bool FontSet::HasJapanese() { return FaceFor(kMissing, SuiteFace::Mincho) && FaceFor(U'あ', SuiteFace::Mincho); }

std::shared_ptr<const ShapedText> FontSet::Shape(const QString& text, SuiteFace face, bool vertical) {
    const QString key = QChar(static_cast<char16_t>(2 * static_cast<int>(face) + vertical)) + text;
    if (const auto known = shaped_.constFind(key); known != shaped_.constEnd()) return *known;
    if (cachedCharacters_ > kMostRemembered) {
        shaped_.clear();
        cachedCharacters_ = 0;
    }
    cachedCharacters_ += key.size();
    return shaped_[key] = ShapeNow(text, face, vertical);
}

QString FontSet::Printable(const QString& text, SuiteFace face) {
    QString printable;
    for (const char32_t character : text.toUcs4())
        printable +=
            QChar::fromUcs4(IsJoiner(character) || character < U' ' || FaceFor(character, face) ? character : kMissing);
    return printable;
}

std::shared_ptr<const ShapedText> FontSet::ShapeNow(const QString& text, SuiteFace face, bool vertical) {
    QList<Stretch> stretches;
    qsizetype at = 0;
    for (const char32_t character : text.toUcs4()) {
        const FontFace* font = stretches.isEmpty() ? nullptr : stretches.last().face;
        const FontFace* own = IsJoiner(character) && font ? font : FaceFor(character, face);
        if (!own) own = OwnFont(face);
        if (own != font) stretches.append({own, at, at});
        at += QChar::fromUcs4(character).size();
        stretches.last().end = at;
    }
    const auto shaped = std::make_shared<ShapedText>();
    shaped->lengthUpTo.fill(-1, text.size());
    LineShaper shaper(text, vertical, *shaped);
    for (const Stretch& stretch : stretches) shaper.Add(stretch);
    shaper.Finish();
    return shaped;
}

QRectF FontSet::InkOf(const ShapedText& text) const {
    QRectF ink;
    for (const ShapedGlyph& glyph : text.glyphs) {
        hb_glyph_extents_t box;
        if (!hb_font_get_glyph_extents(glyph.face->Shaper(), glyph.glyph, &box)) continue;
        const double em = glyph.face->UnitsPerEm();
        ink |= QRectF(glyph.at.x() + box.x_bearing / em, glyph.at.y() - box.y_bearing / em, box.width / em,
                      -box.height / em);
    }
    return ink;
}

}  // namespace report
