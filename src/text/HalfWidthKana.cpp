#include "text/HalfWidthKana.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace {

constexpr char16_t kVoicedMark = u'ﾞ';
constexpr char16_t kSemiVoicedMark = u'ﾟ';

QHash<QChar, QString> MakeTable() {
    const QString full =
        u"アイウエオカキクケコサシスセソタチツテトナニヌネノハヒフヘホマミムメモヤユヨラリルレロワヲン"
        "ァィゥェォッャュョー・「」。、゛゜"_s;
    const QString half =
        u"ｱｲｳｴｵｶｷｸｹｺｻｼｽｾｿﾀﾁﾂﾃﾄﾅﾆﾇﾈﾉﾊﾋﾌﾍﾎﾏﾐﾑﾒﾓﾔﾕﾖﾗﾘﾙﾚﾛﾜｦﾝ"
        "ｧｨｩｪｫｯｬｭｮｰ･｢｣｡､ﾞﾟ"_s;
    QHash<QChar, QString> table;
    for (qsizetype i = 0; i < full.size(); ++i) table.insert(full[i], QString(half[i]));
    const QString voiced = u"ガギグゲゴザジズゼゾダヂヅデドバビブベボヴ"_s;
    const QString base = u"ｶｷｸｹｺｻｼｽｾｿﾀﾁﾂﾃﾄﾊﾋﾌﾍﾎｳ"_s;
    for (qsizetype i = 0; i < voiced.size(); ++i) table.insert(voiced[i], QString(base[i]) + QChar(kVoicedMark));
    const QString semiVoiced = u"パピプペポ"_s;
    for (qsizetype i = 0; i < semiVoiced.size(); ++i)
        table.insert(semiVoiced[i], QString(QChar(u"ﾊﾋﾌﾍﾎ"[i])) + QChar(kSemiVoicedMark));
    return table;
}

/// Hiragana lie 0x60 below the katakana of the same sound.
QChar Katakana(QChar sign) {
    const bool hiragana = sign.unicode() >= 0x3041 && sign.unicode() <= 0x3096;
    return hiragana ? QChar(sign.unicode() + 0x60) : sign;
}

}  // namespace

QString ToHalfWidthKana(const QString& text) {
    static const QHash<QChar, QString> table = MakeTable();
    QString half;
    for (const QChar sign : text) {
        const auto found = table.constFind(Katakana(sign));
        half += found == table.constEnd() ? QString(sign) : *found;
    }
    return half;
}
