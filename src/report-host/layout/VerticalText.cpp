#include "report-host/layout/VerticalText.h"

#include <algorithm>

#include "text/mod文字変換.h"

using namespace Qt::StringLiterals;

namespace report {

namespace {

constexpr QStringView kKanjiNumerals = u"〇一二三四五六七八九";
constexpr QStringView kDashes = u"-－−‐–—―─";
constexpr QStringView kVowelMarks = u"ーｰ";  // often typed instead of the dash of a number
constexpr qsizetype kMostSideBySide = 3;

enum class Script { Letter, Digit, Sign, Blank, Other };

QChar Narrow(QChar c) {
    if (c >= QChar(0xFF01) && c <= QChar(0xFF5E)) return QChar(c.unicode() - 0xFEE0);
    if (kDashes.contains(c)) return u'-';
    return c == QChar(0x3000) ? QChar(u' ') : c;
}

Script ScriptOf(QChar wide) {
    const char16_t c = Narrow(wide).unicode();
    if (c == u' ') return Script::Blank;
    if (c >= u'0' && c <= u'9') return Script::Digit;
    const bool isAscii = (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z');
    const bool isAccented = (c >= 0xC0 && c <= 0x24F && c != 0xD7 && c != 0xF7) || (c >= 0x1E00 && c <= 0x1EFF);
    if (isAscii || isAccented || (c >= 0x300 && c <= 0x36F)) return Script::Letter;
    return (c > u' ' && c < 0x7F) || c == 0x2019 ? Script::Sign : Script::Other;
}

bool IsNumeral(QChar c) { return ScriptOf(c) == Script::Digit || kKanjiNumerals.contains(c); }
bool IsWordPart(QChar c) { return ScriptOf(c) == Script::Letter || IsNumeral(c); }

bool HasWord(QStringView text) {
    for (qsizetype i = 1; i < text.size(); ++i)
        if (ScriptOf(text[i - 1]) == Script::Letter && ScriptOf(text[i]) == Script::Letter) return true;
    return false;
}

struct Phrase {
    qsizetype begin = 0, end = 0;
};

/// Finds the Latin phrases of a text: words separated by blanks and signs, at least one of them with two letters.
class PhraseFinder {
  public:
    explicit PhraseFinder(const QString& text) : text_(text) {}

    QList<Phrase> Find() const {
        QList<Phrase> phrases;
        for (qsizetype at = 0; at < text_.size();) {
            qsizetype end = at;
            while (end < text_.size() && ScriptOf(text_[end]) != Script::Other) ++end;
            const Phrase phrase = Trimmed(at, end);
            if (HasWord(View(phrase))) phrases.append(phrase);
            at = end + 1;
        }
        return phrases;
    }

  private:
    QStringView View(const Phrase& phrase) const {
        return QStringView(text_).mid(phrase.begin, std::max<qsizetype>(0, phrase.end - phrase.begin));
    }

    bool IsJapanese(qsizetype at) const {
        if (at < 0 || at >= text_.size() || text_[at] == u'\n') return false;
        const Script script = ScriptOf(text_[at]);
        return script == Script::Other || script == Script::Sign;
    }

    /// Omits blanks and signs at the ends, and numbers that belong to the Japanese text next to them: "梅田1-2 ABC".
    Phrase Trimmed(qsizetype begin, qsizetype end) const {
        for (bool isShorter = true; isShorter;) {
            const qsizetype length = end - begin;
            while (begin < end && IsOuterSign({begin, end}, begin)) ++begin;
            while (begin < end && IsOuterSign({begin, end}, end - 1)) --end;
            const QStringView all = View({begin, end});
            const qsizetype first = Chunk(all.begin(), all.end());
            if (IsJapanese(begin - 1) && !HasWord(all.left(first))) begin += first;
            const qsizetype last = Chunk(all.rbegin(), all.rend());
            if (begin < end && IsJapanese(end) && !HasWord(all.right(last))) end = std::max(begin, end - last);
            isShorter = end - begin < length && begin < end;
        }
        return {begin, end};
    }

    template <typename Iterator>
    static qsizetype Chunk(Iterator begin, Iterator end) {
        return std::find_if(begin, end, [](QChar c) { return ScriptOf(c) == Script::Blank; }) - begin;
    }

    bool IsOuterSign(const Phrase& phrase, qsizetype at) const {
        const Script script = ScriptOf(text_[at]);
        if (script != Script::Sign) return script == Script::Blank;
        const QChar c = Narrow(text_[at]);
        const auto contains = [&](char16_t sign, char16_t wide) {
            return View(phrase).contains(sign) || View(phrase).contains(wide);
        };
        if (c == u'.') return at == phrase.begin || !IsWordPart(text_[at - 1]);
        if (c == u')') return !contains(u'(', u'（');
        if (c == u'(') return !contains(u')', u'）');
        return true;
    }

    const QString& text_;
};

/// Converts the text between the Latin phrases.
class VerticalWriter {
  public:
    explicit VerticalWriter(const QString& text) : text_(text) {}

    QString Write() {
        qsizetype at = 0;
        for (const Phrase& phrase : PhraseFinder(text_).Find()) {
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
            const qsizetype after =
                std::max(at + 1, qsizetype(std::find_if_not(compound.begin() + at, compound.end(), isWord) -
                                           compound.begin()));
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

bool IsNarrow(QChar c) { return c < QChar(0x2000) || c == QChar(0x2019); }

}  // namespace

bool IsLatinLetter(QChar c) { return ScriptOf(c) == Script::Letter; }

bool IsLatinText(const QString& text) {
    return std::all_of(text.begin(), text.end(),
                       [](QChar c) { return IsNarrow(c) && ScriptOf(c) != Script::Other; });
}

bool MayBreakBetween(QChar before, QChar after) {
    const auto isPart = [](QChar c) { return IsWordPart(c) || kDashes.contains(c); };
    if (isPart(before) && isPart(after)) return false;
    const auto isLatin = [](QChar c) {
        return IsNarrow(c) && ScriptOf(c) != Script::Other && ScriptOf(c) != Script::Blank;
    };
    return !isLatin(before) || !isLatin(after);
}

QString ToVerticalText(const QString& text) { return VerticalWriter(text).Write(); }

QString ToKanjiNumerals(const QString& text) {
    QString changed = text;
    const QList<Phrase> phrases = PhraseFinder(text).Find();
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
