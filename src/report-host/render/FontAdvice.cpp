#include "report-host/render/FontAdvice.h"

#include <QFontDatabase>

using namespace Qt::StringLiterals;

namespace report {

namespace {

bool IsPrivate(char32_t c) { return QChar::category(c) == QChar::Other_PrivateUse; }

QString FontFor(const QString& character) {
    const char32_t first = character.toUcs4().value(0);
    const bool isKanji = QChar::script(first) == QChar::Script_Han;
    if (IsPrivate(first)) return u"外字の書体"_s;
    if (isKanji && !QFontDatabase::hasFamily(u"HanaMinA"_s)) return u"花園明朝 (fonts-hanazono)"_s;
    if (isKanji) return u"その漢字を持つ書体"_s;
    return QChar::script(first) == QChar::Script_Hangul ? u"Noto CJK (fonts-noto-cjk)"_s : u"Noto (fonts-noto-core)"_s;
}

}  // namespace

QString NameOfCharacter(const QString& character) {
    QStringList points;
    for (const char32_t point : character.toUcs4())
        points.append(u"U+"_s + QString::number(point, 16).toUpper().rightJustified(4, u'0'));
    const bool isPrivate = IsPrivate(character.toUcs4().value(0));
    return (isPrivate ? QString() : u"「%1」"_s.arg(character)) + points.join(u' ');
}

QString FontsToInstall(const QStringList& characters) {
    QStringList fonts;
    for (const QString& character : characters)
        if (const QString font = FontFor(character); !fonts.contains(font)) fonts.append(font);
    return fonts.join(u'、');
}

}  // namespace report
