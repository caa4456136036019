#include "report-host/template/TextPattern.h"

#include <algorithm>

#include "report-host/template/TemplateError.h"

using namespace Qt::StringLiterals;

namespace report {

namespace {

void AddLiteral(TextPattern& pattern, QStringView text) {
    if (text.isEmpty()) return;
    if (!pattern.isEmpty() && !pattern.last().isField)
        pattern.last().text += text;
    else
        pattern.append({false, text.toString()});
}

}  // namespace

TextPattern ReadPattern(const QString& text) {
    TextPattern pattern;
    qsizetype at = 0;
    while (at < text.size()) {
        const qsizetype open = text.indexOf(u'[', at);
        if (open < 0) break;
        AddLiteral(pattern, QStringView(text).mid(at, open - at));
        if (text.mid(open, 2) == u"[["_s) {
            AddLiteral(pattern, u"[");
            at = open + 2;
            continue;
        }
        const qsizetype close = text.indexOf(u']', open);
        if (close < 0) throw TemplateError{0, u"「[」が「]」で閉じていません。"_s};
        if (close == open + 1) throw TemplateError{0, u"「[]」の中に列の名前がありません。"_s};
        pattern.append({true, text.mid(open + 1, close - open - 1)});
        at = close + 1;
    }
    AddLiteral(pattern, QStringView(text).mid(at));
    return pattern;
}

bool IsRunningValue(const QString& name) {
    return std::find(std::begin(kRunningValues), std::end(kRunningValues), QStringView(name)) !=
           std::end(kRunningValues);
}

}  // namespace report
