#include "report-host/layout/VerticalText.h"

#include <algorithm>

#include "report-host/layout/LatinText.h"
#include "text/mod文字変換.h"

using namespace Qt::StringLiterals;

namespace report {

namespace {

constexpr QStringView kVowelMarks = u"ーｰ";  // often typed instead of the dash of a number
constexpr QStringView kCounters = u"号番丁階室棟";
constexpr qsizetype kMostSideBySide = 3;

/// Converts the text between the Latin phrases.
class VerticalWriter {
  public:
    explicit VerticalWriter(const QString& text) : text_(text) {}

    QString Write() {
        qsizetype at = 0;
        for (const LatinPhrase& phrase : LatinPhrasesOf(text_)) {
            WriteJapanese(at, phrase.begin);
            for (at = phrase.begin; at < phrase.end; ++at) out_ += Narrow(text_[at]);
        }
        WriteJapanese(at, text_.size());
        return out_;
    }

  private:
    void WriteJapanese(qsizetype begin, qsizetype end) {
        qsizetype plain = begin;
        for (qsizetype at = begin; at < end;) {
            const qsizetype after = EndOfCompound(at, end);
            if (after == at) {
                ++at;
                continue;
            }
            WritePlain(plain, at);
            WriteCompound(at, after);
            at = plain = after;
        }
        WritePlain(plain, end);
    }

    bool IsJoint(qsizetype at, qsizetype begin, qsizetype end) const {
        if (at <= begin || at + 1 >= end) return false;
        const QChar c = text_[at], before = text_[at - 1], after = text_[at + 1];
        if (kVowelMarks.contains(c)) return IsNumeral(before) && IsNumeral(after);
        if (kDashes.contains(c)) return IsWordPart(before) && IsWordPart(after);
        const QChar narrow = Narrow(c);
        return (narrow == u'.' || narrow == u',') && ScriptOf(before) == Script::Digit &&
               ScriptOf(after) == Script::Digit;
    }

    /// End of the letters, numerals and joints from `at` on.
    qsizetype EndOfCompound(qsizetype at, qsizetype end) const {
        qsizetype after = at;
        while (after < end && (IsWordPart(text_[after]) || IsJoint(after, at, end))) ++after;
        return after;
    }

    void WriteCompound(qsizetype begin, qsizetype end) {
        const QStringView compound = QStringView(text_).mid(begin, end - begin);
        const auto isWord = [](QChar c) { return ScriptOf(c) == Script::Letter || ScriptOf(c) == Script::Digit; };
        bool isLong = false;
        for (qsizetype at = 0; at < compound.size(); ++at) {
            const qsizetype after = std::find_if_not(compound.begin() + at, compound.end(), isWord) - compound.begin();
            isLong |= after - at > kMostSideBySide || Narrow(compound[at]) == u'.' || Narrow(compound[at]) == u',';
        }
        for (qsizetype at = 0; at < compound.size();) {
            const qsizetype after = std::max(
                at + 1, qsizetype(std::find_if_not(compound.begin() + at, compound.end(), isWord) - compound.begin()));
            for (const qsizetype length = after - at; at < after; ++at)
                out_ += isLong || (length > 1 && isWord(compound[at])) ? NarrowJoint(compound[at]) : Wide(compound[at]);
        }
    }

    static bool IsDash(QChar c) { return kDashes.contains(c) || kVowelMarks.contains(c); }
    static QChar NarrowJoint(QChar c) { return IsDash(c) ? QChar(u'-') : Narrow(c); }
    static QChar Wide(QChar c) {
        if (IsDash(c)) return u'－';
        return c > u' ' && c < QChar(0x7F) ? QChar(c.unicode() + 0xFEE0) : c;
    }

    void WritePlain(qsizetype begin, qsizetype end) {
        // ToFullWidth leaves these unchanged.
        static constexpr QStringView kNarrow = u"^`｡｢｣､･", kWide = u"＾｀。「」、・";
        for (QChar c : ToFullWidth(text_.mid(begin, end - begin))) {
            if (const qsizetype at = kNarrow.indexOf(c); at >= 0) c = kWide[at];
            if (c == u'"' || c == u'＂') c = (isQuoted_ = !isQuoted_) ? u'〝' : u'〟';
            if (c == u'“') c = u'〝';
            if (c == u'”') c = u'〟';
            out_ += c;
        }
    }

    const QString& text_;
    QString out_;
    bool isQuoted_ = false;
};

}  // namespace

bool MayBreakBetween(QChar before, QChar after) {
    const auto isPart = [](QChar c) { return IsWordPart(c) || kDashes.contains(c); };
    if (isPart(before) && isPart(after)) return false;
    if (IsNumeral(before) && kCounters.contains(after)) return false;
    if (before == u'号' && after == u'室') return false;
    const auto isLatin = [](QChar c) {
        return IsNarrow(c) && ScriptOf(c) != Script::Other && ScriptOf(c) != Script::Blank;
    };
    return !isLatin(before) || !isLatin(after);
}

QString ToVerticalText(const QString& text) { return VerticalWriter(text).Write(); }

QString ToKanjiNumerals(const QString& text) {
    QString changed = text;
    const QList<LatinPhrase> phrases = LatinPhrasesOf(text);
    auto phrase = phrases.begin();
    for (qsizetype i = 0; i < text.size(); ++i) {
        while (phrase != phrases.end() && phrase->end <= i) ++phrase;
        const bool isInPhrase = phrase != phrases.end() && phrase->begin <= i;
        const QChar c = Narrow(text[i]);
        if (!isInPhrase && c >= u'0' && c <= u'9') changed[i] = kKanjiNumerals[c.unicode() - u'0'];
    }
    return changed;
}

QList<VerticalRun> VerticalRunsOf(const QString& text) {
    QList<VerticalRun> runs;
    const auto add = [&runs](RunMode mode, qsizetype begin, qsizetype end) {
        if (begin < end) runs.append({mode, begin, end});
    };
    const auto isPart = [](QChar c) { return IsNarrow(c) && ScriptOf(c) != Script::Other; };
    qsizetype upright = 0;
    for (qsizetype at = 0; at < text.size();) {
        qsizetype end = std::find_if_not(text.begin() + at, text.end(), isPart) - text.begin();
        const qsizetype next = std::max(end, at + 1);
        while (at < end && text[at] == u' ') ++at;
        while (at < end && text[end - 1] == u' ') --end;
        if (at < end) {
            const QStringView run = QStringView(text).mid(at, end - at);
            const bool isWord = std::all_of(run.begin(), run.end(), [](QChar c) { return IsWordPart(c); });
            add(RunMode::Upright, upright, at);
            add(isWord && run.size() <= kMostSideBySide ? RunMode::SideBySide : RunMode::Rotated, at, end);
            upright = end;
        }
        at = next;
    }
    add(RunMode::Upright, upright, text.size());
    return runs;
}

}  // namespace report
