#include "text/mod文字変換.h"

#include <QStringView>
#include <array>

namespace {

/// A run of rules: source `n` of `units` UTF-16 units gives character `n` of `results`.
struct RuleGroup {
    QStringView sources;
    QStringView results;
    qsizetype units;
};

// The order is the meaning: the first rule that matches wins, so the marks stand before the plain kana, and the
// second rule for "-" is shadowed by the signs. "'" and "\" have results of their own.
constexpr std::array kRules = {
    RuleGroup{u"0123456789", u"０１２３４５６７８９", 1},
    RuleGroup{u"ABCDEFGHIJKLMNOPQRSTUVWXYZ", u"ＡＢＣＤＥＦＧＨＩＪＫＬＭＮＯＰＱＲＳＴＵＶＷＸＹＺ", 1},
    RuleGroup{u"abcdefghijklmnopqrstuvwxyz", u"ａｂｃｄｅｆｇｈｉｊｋｌｍｎｏｐｑｒｓｔｕｖｗｘｙｚ", 1},
    RuleGroup{u"!#$%&'()=~|\\-+*[]@:;.,/?<>{}",
              u"！＃＄％＆\u2019（）＝\uFF5E｜\uFFE5\uFF0D＋＊［］＠：；．，／？＜＞｛｝", 1},
    RuleGroup{u"ｰ", u"ー", 1},
    RuleGroup{u"-", u"\u2015", 1},
    RuleGroup{u"_", u"＿", 1},
    RuleGroup{u"ｳﾞｶﾞｷﾞｸﾞｹﾞｺﾞｻﾞｼﾞｽﾞｾﾞｿﾞﾀﾞﾁﾞﾂﾞﾃﾞﾄﾞﾊﾞﾋﾞﾌﾞﾍﾞﾎﾞ", u"ヴガギグゲゴザジズゼゾダヂヅデドバビブベボ", 2},
    RuleGroup{u"ﾊﾟﾋﾟﾌﾟﾍﾟﾎﾟ", u"パピプペポ", 2},
    RuleGroup{u"ｱｲｳｴｵｶｷｸｹｺｻｼｽｾｿﾀﾁﾂﾃﾄﾅﾆﾇﾈﾉﾊﾋﾌﾍﾎﾏﾐﾑﾒﾓﾔﾕﾖﾗﾘﾙﾚﾛﾜｦﾝ",
              u"アイウエオカキクケコサシスセソタチツテトナニヌネノハヒフヘホマミムメモヤユヨラリルレロワヲン", 1},
    RuleGroup{u"ｧｨｩｪｫｯｬｭｮ", u"ァィゥェォッャュョ", 1},
};

constexpr bool EverySourceHasItsResult() {
    for (const RuleGroup& group : kRules)
        if (group.sources.size() != group.results.size() * group.units) return false;
    return true;
}
static_assert(EverySourceHasItsResult());

/// Index of the source that stands at the head of `rest`, -1 without one.
qsizetype FindSource(const RuleGroup& group, QStringView rest) {
    if (rest.size() < group.units) return -1;
    const QStringView head = rest.first(group.units);
    for (qsizetype i = 0; i < group.results.size(); ++i)
        if (group.sources.mid(i * group.units, group.units) == head) return i;
    return -1;
}

/// Appends what the head of `rest` becomes and gives the number of units that it took.
qsizetype ConvertHead(QStringView rest, QString& result) {
    for (const RuleGroup& group : kRules) {
        const qsizetype found = FindSource(group, rest);
        if (found < 0) continue;
        result.append(group.results[found]);
        return group.units;
    }
    result.append(rest.front());
    return 1;
}

}  // namespace

QString ToFullWidth(const QString& text) {
    QString result;
    result.reserve(text.size());
    QStringView rest = text;
    while (!rest.isEmpty()) rest = rest.sliced(ConvertHead(rest, result));
    return result;
}
