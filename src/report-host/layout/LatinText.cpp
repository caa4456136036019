#include "report-host/layout/LatinText.h"

#include <algorithm>

namespace report {

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

bool IsNarrow(QChar c) { return c < QChar(0x2000) || c == QChar(0x2019); }

bool IsLatinLetter(QChar c) { return ScriptOf(c) == Script::Letter; }

bool IsLatinText(const QString& text) {
    return std::all_of(text.begin(), text.end(), [](QChar c) { return IsNarrow(c) && ScriptOf(c) != Script::Other; });
}

namespace {

bool HasWord(QStringView text) {
    for (qsizetype i = 1; i < text.size(); ++i)
        if (ScriptOf(text[i - 1]) == Script::Letter && ScriptOf(text[i]) == Script::Letter) return true;
    return false;
}

class PhraseFinder {
  public:
    explicit PhraseFinder(const QString& text) : text_(text) {}

    QList<LatinPhrase> Find() const {
        QList<LatinPhrase> phrases;
        for (qsizetype at = 0; at < text_.size();) {
            qsizetype end = at;
            while (end < text_.size() && ScriptOf(text_[end]) != Script::Other) ++end;
            const LatinPhrase phrase = Trimmed(at, end);
            if (HasWord(View(phrase))) phrases.append(phrase);
            at = end + 1;
        }
        return phrases;
    }

  private:
    QStringView View(const LatinPhrase& phrase) const {
        return QStringView(text_).mid(phrase.begin, std::max<qsizetype>(0, phrase.end - phrase.begin));
    }

    bool IsJapanese(qsizetype at) const {
        if (at < 0 || at >= text_.size() || text_[at] == u'\n') return false;
        const Script script = ScriptOf(text_[at]);
        return script == Script::Other || script == Script::Sign;
    }

    /// Omits blanks and signs at the ends, and numbers that belong to the Japanese text next to them: "梅田1-2 ABC".
    LatinPhrase Trimmed(qsizetype begin, qsizetype end) const {
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

    bool IsOuterSign(const LatinPhrase& phrase, qsizetype at) const {
        const Script script = ScriptOf(text_[at]);
        if (script != Script::Sign) return script == Script::Blank;
        const QChar c = Narrow(text_[at]);
        const auto contains = [&](char16_t sign, char16_t wide) {
            return View(phrase).contains(sign) || View(phrase).contains(wide);
        };
        if (c == u'.') return at == phrase.begin || !IsWordPart(text_[at - 1]);
        const bool isEnclosed = Narrow(text_[phrase.begin]) == u'(' && Narrow(text_[phrase.end - 1]) == u')';
        if (isEnclosed) return true;
        if (c == u')') return !contains(u'(', u'（');
        if (c == u'(') return !contains(u')', u'）');
        return true;
    }

    const QString& text_;
};

}  // namespace

QList<LatinPhrase> LatinPhrasesOf(const QString& text) { return PhraseFinder(text).Find(); }

}  // namespace report
