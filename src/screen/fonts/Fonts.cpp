#include "screen/fonts/Fonts.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

struct Face {
    QString name;
    QStringList substitutes;
};

const Face& FaceOf(SuiteFace face) {
    static const Face faces[] = {
        {u"ＭＳ 明朝"_s, {u"IPAMincho"_s, u"IPA明朝"_s, u"Noto Serif CJK JP"_s}},
        {u"ＭＳ Ｐ明朝"_s, {u"IPAPMincho"_s, u"IPA P明朝"_s, u"Noto Serif CJK JP"_s}},
        {u"ＭＳ ゴシック"_s, {u"IPAGothic"_s, u"IPAゴシック"_s, u"Noto Sans Mono CJK JP"_s}},
        {u"ＭＳ Ｐゴシック"_s, {u"IPAPGothic"_s, u"IPA Pゴシック"_s, u"Noto Sans CJK JP"_s}},
    };
    return faces[static_cast<int>(face)];
}

void NameSubstitutes() {
    for (const SuiteFace face : {SuiteFace::Mincho, SuiteFace::PMincho, SuiteFace::Gothic, SuiteFace::PGothic})
        QFont::insertSubstitutions(FaceOf(face).name, FaceOf(face).substitutes);
}

}  // namespace

QFont SuiteFont(SuiteFace face, double points) {
    NameSubstitutes();
    QFont font(FaceOf(face).name);
    font.setPixelSize(qRound(points * 96.0 / 72.0));
    font.setStyleStrategy(QFont::PreferAntialias);
    return font;
}
