#include "screen/Fonts.h"

#include <QApplication>
#include <QPalette>
#include <QStyleFactory>

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

QPalette BusinessPalette() {
    const QColor face(0xF0, 0xEE, 0xE9);
    QPalette palette(face);
    palette.setColor(QPalette::Window, face);
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Text, Qt::black);
    palette.setColor(QPalette::WindowText, Qt::black);
    palette.setColor(QPalette::ButtonText, Qt::black);
    palette.setColor(QPalette::Highlight, QColor(0x31, 0x6A, 0xC5));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(0x80, 0x80, 0x80));
    palette.setColor(QPalette::Disabled, QPalette::Base, QColor(0xE4, 0xE2, 0xDD));
    return palette;
}

}  // namespace

QFont SuiteFont(SuiteFace face, double points) {
    NameSubstitutes();
    QFont font(FaceOf(face).name);
    font.setPixelSize(qRound(points * 96.0 / 72.0));
    font.setStyleStrategy(QFont::PreferAntialias);
    return font;
}

void ApplySuiteLook(QApplication& application) {
    application.setStyle(QStyleFactory::create(u"Fusion"_s));
    application.setPalette(BusinessPalette());
    application.setFont(SuiteFont(SuiteFace::PGothic, 10));
}
