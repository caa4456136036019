#include "report-host/layout/VerticalText.h"

#include "text/mod文字変換.h"

namespace report {

QString ToVerticalText(const QString& text) {
    QString wide = ToFullWidth(text);
    // ToFullWidth leaves these unchanged.
    static constexpr QStringView kNarrow = u"\"^`｡｢｣､･", kWide = u"＂＾｀。「」、・";
    for (QChar& c : wide)
        if (const qsizetype at = kNarrow.indexOf(c); at >= 0) c = kWide[at];
    return wide;
}

QString ToKanjiNumerals(const QString& text) {
    static constexpr QStringView kNumerals = u"〇一二三四五六七八九";
    QString changed = text;
    for (QChar& c : changed) {
        const char16_t u = c.unicode();
        if (u >= u'0' && u <= u'9')
            c = kNumerals[u - u'0'];
        else if (u >= u'０' && u <= u'９')
            c = kNumerals[u - u'０'];
    }
    return changed;
}

}  // namespace report
