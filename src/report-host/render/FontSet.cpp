#include "report-host/render/FontSet.h"

#include <QGlyphRun>
#include <QStringList>
#include <QTextLayout>
#include <utility>

#include "report-host/layout/VerticalText.h"
#include "report-host/render/LineShaper.h"

using namespace Qt::StringLiterals;

namespace report {

namespace {

constexpr qsizetype kMostRemembered = 100'000;  // characters in the cache

// Fallback fonts for rare characters in names, such as the variant form of 吉.
const QStringList kRareCharacters{u"HanaMinA"_s, u"HanaMinB"_s};

QRawFont RawFont(const QString& family) {
    QFont font(family);
    font.setPixelSize(static_cast<int>(FontFace::kPixels));
    font.setHintingPreference(QFont::PreferNoHinting);
    return QRawFont::fromFont(font);
}

bool IsSelector(char32_t c) { return (c >= 0xFE00 && c <= 0xFE0F) || (c >= 0xE0100 && c <= 0xE01EF); }

/// True for combining characters and variation selectors, which use the font of the preceding character.
bool IsJoiner(char32_t c) { return QChar::isMark(c) || IsSelector(c) || c == 0x200D; }

/// The face for Latin text of several words.
SuiteFace Proportional(SuiteFace face) {
    return face == SuiteFace::Mincho ? SuiteFace::PMincho : face == SuiteFace::Gothic ? SuiteFace::PGothic : face;
}

}  // namespace

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

const FontFace* FontSet::FaceFor(char32_t character, char32_t selector, SuiteFace face) {
    const auto has = [&](const FontFace* font) {
        return selector == 0 ? font->GlyphOf(character) != 0 : font->HasVariant(character, selector);
    };
    const FontFace* own = OwnFont(face);
    if (has(own)) return own;
    for (const QString& family : kRareCharacters) {
        const FontFace* font = Load(family);
        if (has(font)) return font;
    }
    const FontFace* font = SystemFont(character);
    return font && has(font) ? font : nullptr;
}

const FontFace* FontSet::SystemFont(char32_t character) {
    if (const auto known = systemFonts_.constFind(character); known != systemFonts_.constEnd()) return *known;
    QFont base = SuiteFont(SuiteFace::Mincho, 10);
    base.setPixelSize(static_cast<int>(FontFace::kPixels));
    base.setHintingPreference(QFont::PreferNoHinting);
    QTextLayout layout(QString::fromUcs4(&character, 1), base);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    const FontFace*& found = systemFonts_[character];
    for (const QGlyphRun& run : layout.glyphRuns()) {
        std::shared_ptr<FontFace>& font = fonts_[run.rawFont().familyName() + u'/' + run.rawFont().styleName()];
        if (!font) font = std::make_shared<FontFace>(run.rawFont());
        if (font->GlyphOf(character) != 0) found = font.get();
    }
    return found;
}

bool FontSet::HasJapanese() {
    return FaceFor(kMissingMark, 0, SuiteFace::Mincho) && FaceFor(U'あ', 0, SuiteFace::Mincho);
}

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
        printable += QChar::fromUcs4(
            IsJoiner(character) || character < U' ' || FaceFor(character, 0, face) ? character : kMissingMark);
    return printable;
}

QStringList FontSet::MissingCharacters(const QString& text) {
    QStringList missing;
    const QList<uint> characters = text.toUcs4();
    for (qsizetype i = 0; i < characters.size(); ++i) {
        const char32_t character = characters[i];
        if (IsJoiner(character) || character < U' ') continue;
        const char32_t next = i + 1 < characters.size() ? characters[i + 1] : 0;
        const char32_t selector = IsSelector(next) ? next : 0;
        if (FaceFor(character, selector, SuiteFace::Mincho)) continue;
        const QString name = QString::fromUcs4(&character, 1) + QString::fromUcs4(&selector, selector ? 1 : 0);
        if (!missing.contains(name)) missing.append(name);
    }
    return missing;
}

std::shared_ptr<const ShapedText> FontSet::ShapeNow(const QString& text, SuiteFace face, bool vertical) {
    const auto shaped = std::make_shared<ShapedText>();
    LineShaper shaper(text, vertical, *shaped);
    const QList<VerticalRun> runs =
        vertical ? VerticalRunsOf(text) : QList<VerticalRun>{{RunMode::Upright, 0, text.size()}};
    for (const VerticalRun& run : runs)
        ShapeRun(shaper, text, run, run.mode == RunMode::Rotated ? Proportional(face) : face);
    shaper.Finish();
    return shaped;
}

void FontSet::ShapeRun(LineShaper& shaper, const QString& text, const VerticalRun& run, SuiteFace face) {
    const QList<uint> characters = QStringView(text).mid(run.begin, run.end - run.begin).toUcs4();
    const FontFace* font = nullptr;
    qsizetype begin = run.begin, at = run.begin;
    for (qsizetype i = 0; i < characters.size(); ++i) {
        const char32_t character = characters[i];
        const char32_t next = i + 1 < characters.size() ? characters[i + 1] : 0;
        const FontFace* own = IsJoiner(character) ? font : nullptr;
        if (!own && IsSelector(next)) own = FaceFor(character, next, face);
        if (!own) own = FaceFor(character, 0, face);
        if (!own) own = OwnFont(face);
        if (font && own != font) shaper.Add(*font, std::exchange(begin, at), at, run);
        font = own;
        at += QChar::fromUcs4(character).size();
    }
    if (font) shaper.Add(*font, begin, run.end, run);
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
