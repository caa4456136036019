#include "text/mod文字変換.h"

#include <QHash>
#include <QStringView>
#include <array>

using namespace Qt::StringLiterals;

namespace {

/// A run of rules: source `n` of `units` UTF-16 units gives character `n` of `results`.
struct RuleGroup {
    QStringView sources;
    QStringView results;
    qsizetype units;
};

// The first matching rule wins: kana with marks come before plain kana, and the second rule for "-" is unreachable. "'"
// and "\" do not map to their full-width forms.
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

/// Index of the source at the beginning of `rest`; -1 without one.
qsizetype FindSource(const RuleGroup& group, QStringView rest) {
    if (rest.size() < group.units) return -1;
    const QStringView head = rest.first(group.units);
    for (qsizetype i = 0; i < group.results.size(); ++i)
        if (group.sources.mid(i * group.units, group.units) == head) return i;
    return -1;
}

/// Appends the converted beginning of `rest`; returns the number of units consumed.
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

constexpr char16_t kVoicedMark = u'ﾞ';
constexpr char16_t kSemiVoicedMark = u'ﾟ';

QHash<QChar, QString> MakeHalfWidthTable() {
    const QString full =
        u"アイウエオカキクケコサシスセソタチツテトナニヌネノハヒフヘホマミムメモヤユヨラリルレロワヲン"
        "ァィゥェォッャュョー・「」。、゛゜\u3099\u309A"_s;
    const QString half =
        u"ｱｲｳｴｵｶｷｸｹｺｻｼｽｾｿﾀﾁﾂﾃﾄﾅﾆﾇﾈﾉﾊﾋﾌﾍﾎﾏﾐﾑﾒﾓﾔﾕﾖﾗﾘﾙﾚﾛﾜｦﾝ"
        "ｧｨｩｪｫｯｬｭｮｰ･｢｣｡､ﾞﾟﾞﾟ"_s;
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

/// Hiragana code points are 0x60 below the corresponding katakana.
QChar Katakana(QChar character) {
    const bool hiragana = character.unicode() >= 0x3041 && character.unicode() <= 0x3096;
    return hiragana ? QChar(character.unicode() + 0x60) : character;
}

constexpr QStringView kDashes = u"\u2010\u2011\u2012\u2013\u2014\u2015\u2212\u2500ー";
constexpr QStringView kOtherFullWidth = u"\u3000￥「」‘’“”\u301C";
constexpr QStringView kTheirHalfWidth = u" \\｢｣''\"\"~";
static_assert(kOtherFullWidth.size() == kTheirHalfWidth.size());

/// `before`: the converted character before it.
QChar HalfWidthOf(QChar character, QChar before) {
    constexpr char16_t kFirst = u'！', kLast = u'～';  // same order as "!" to "~"
    const char16_t code = character.unicode();
    if (code >= kFirst && code <= kLast) return QChar(code - kFirst + u'!');
    if (kDashes.contains(character)) return u'-';
    if (code == u'ｰ' && before >= u'0' && before <= u'9') return u'-';
    const auto other = kOtherFullWidth.indexOf(character);
    return other < 0 ? character : kTheirHalfWidth[other];
}

}  // namespace

QString ToFullWidth(const QString& text) {
    QString result;
    result.reserve(text.size());
    QStringView rest = text;
    while (!rest.isEmpty()) rest = rest.sliced(ConvertHead(rest, result));
    return result;
}

QString ToHalfWidthKana(const QString& text) {
    static const QHash<QChar, QString> table = MakeHalfWidthTable();
    QString half;
    for (const QChar character : text) {
        const auto found = table.constFind(Katakana(character));
        half += found == table.constEnd() ? QString(character) : *found;
    }
    return half;
}

QString ToHalfWidth(const QString& text) {
    QString half;
    half.reserve(text.size());
    for (const QChar character : text) half += HalfWidthOf(character, half.isEmpty() ? QChar() : half.back());
    return half;
}

QString ComposeKana(const QString& text) {
    QString composed;
    composed.reserve(text.size());
    for (const QChar character : text) {
        const bool mark = character == u'\u3099' || character == u'\u309A';
        // Not for the whole text: normalisation replaces some kanji of names by others.
        const QString joined = mark && !composed.isEmpty()
                                   ? (composed.back() + QString(character)).normalized(QString::NormalizationForm_C)
                                   : QString();
        if (joined.size() == 1)
            composed.back() = joined.front();
        else
            composed += character;
    }
    return composed;
}
