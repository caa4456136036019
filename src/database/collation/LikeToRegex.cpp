// Part of LikePattern.h: FoldedLikeText, FoldedExpression and StoredExpression: translations for servers, to
// patterns over folded text and to regular expressions.

#include "database/collation/LikePattern.h"

#include <QHash>
#include <algorithm>
#include <vector>

#include "database/collation/TextFolding.h"
#include "platform/Utf8Text.h"

namespace database {
namespace {

using Element = LikePattern::Element;

// Only ASCII punctuation may be escaped: a backslash before a letter or digit has a meaning in the regex.
QString Escaped(char32_t character) {
    const bool special =
        character < 0x80 && character > 0x20 && !QChar(static_cast<char16_t>(character)).isLetterOrNumber();
    return special ? u'\\' + platform::TextOfCharacter(character) : platform::TextOfCharacter(character);
}

// Body of a [list] character class.
QString ClassOf(const std::vector<LikePattern::Range>& ranges) {
    QString text;
    for (const auto& [first, last] : ranges) {
        text += Escaped(first);
        if (last > first + 1) text += u'-';
        if (last > first) text += Escaped(last);
    }
    return text;
}

std::vector<LikePattern::Range> RangesOf(const LikePattern& pattern, const Element& element) {
    std::vector<LikePattern::Range> ranges;
    for (quint32 i = 0; i < element.count; ++i) {
        const LikePattern::Range range = pattern.Ranges()[element.first + i];
        if (range.first <= range.last) ranges.push_back(range);
    }
    return ranges;
}

const QString kAnything = QStringLiteral("(?:.|\\n)");
const QString kNothing = QStringLiteral("(?!(?:))");

QString FoldedElement(const LikePattern& pattern, const Element& element) {
    if (element.kind == Element::Kind::Character) return Escaped(element.character);
    if (element.kind == Element::Kind::Any) return kAnything;
    const bool other = element.kind == Element::Kind::OtherThanList;
    const QString inside = ClassOf(RangesOf(pattern, element));
    if (inside.isEmpty()) return other ? kAnything : kNothing;
    return (other ? QStringLiteral("[^") : QStringLiteral("[")) + inside + u']';
}

// Inverse of the folding table.
class Unfolding {
  public:
    Unfolding() {
        const auto& folded = FoldingTable();
        for (size_t unit = 0; unit < folded.size(); ++unit) {
            if (QChar::isSurrogate(static_cast<char32_t>(unit))) continue;
            stored_[folded[unit]].push_back(static_cast<char16_t>(unit));
        }
        for (const char32_t mark : {kVoicingMark, kSemiVoicingMark})
            for (const QChar kana : VoiceableKana(mark)) voiced_[Voiced(kana.unicode(), mark)] = {kana.unicode(), mark};
    }

    const std::vector<char16_t>& Stored(char32_t folded) const {
        static const std::vector<char16_t> none;
        const auto found = stored_.constFind(folded);
        return found == stored_.cend() ? none : *found;
    }
    struct Pair {
        char32_t kana = 0, mark = 0;
    };
    /// The kana and the mark that compose to `folded`; zeros if there are none.
    Pair PairOf(char32_t folded) const { return voiced_.value(folded); }

  private:
    QHash<char32_t, std::vector<char16_t>> stored_;
    QHash<char32_t, Pair> voiced_;
};

const Unfolding& Unfolded() {
    static const Unfolding table;
    return table;
}

QString StoredClass(QStringView folded) {
    std::vector<LikePattern::Range> ranges;
    for (const QChar unit : folded)
        for (const char16_t stored : Unfolded().Stored(unit.unicode())) ranges.push_back({stored, stored});
    return u'[' + ClassOf(ranges) + u']';
}

QString MarkClass(char32_t mark) { return StoredClass(platform::TextOfCharacter(mark)); }

// One stored character, including a mark that composes with it. Atomic, so that the mark is not split off.
const QString& AnyStored() {
    static const QString text = [] {
        const auto pair = [](char32_t mark) { return StoredClass(VoiceableKana(mark)) + MarkClass(mark); };
        return QStringLiteral("(?>") + pair(kVoicingMark) + u'|' + pair(kSemiVoicingMark) + QStringLiteral("|.)");
    }();
    return text;
}

// A kana must not match if the mark after it would compose to another kana.
QString NotVoiced(char32_t folded) {
    QString text;
    for (const char32_t mark : {kVoicingMark, kSemiVoicingMark})
        if (Voiced(folded, mark) != 0) text += QStringLiteral("(?!") + MarkClass(mark) + u')';
    return text;
}

// A mark must not match if it composes with the kana before it.
QString NotTaken(char32_t folded) {
    if (folded != kVoicingMark && folded != kSemiVoicingMark) return {};
    return QStringLiteral("(?<!") + StoredClass(VoiceableKana(folded)) + u')';
}

QString StoredCharacter(char32_t folded) {
    const std::vector<char16_t>& stored = Unfolded().Stored(folded);
    const auto [kana, mark] = Unfolded().PairOf(folded);
    if (stored.size() <= 1 && kana == 0 && NotVoiced(folded).isEmpty() && NotTaken(folded).isEmpty())
        return Escaped(folded);
    const QString alone = NotTaken(folded) + StoredClass(platform::TextOfCharacter(folded)) + NotVoiced(folded);
    if (kana == 0) return alone;
    const QString pair = StoredClass(platform::TextOfCharacter(kana)) + MarkClass(mark);
    return QStringLiteral("(?:") + alone + u'|' + pair + u')';
}

// Characters beyond the basic plane fold to themselves: those in `ranges`, or with `other` all except those.
std::vector<LikePattern::Range> BeyondBasicPlane(std::vector<LikePattern::Range> ranges, bool other) {
    constexpr char32_t kFirst = 0x10000, kLast = 0x10FFFF;
    std::sort(ranges.begin(), ranges.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<LikePattern::Range> found;
    char32_t next = kFirst;
    for (const auto& [first, last] : ranges) {
        if (last < kFirst) continue;
        const char32_t begin = std::max(first, kFirst);
        if (!other) found.push_back({begin, last});
        if (other && begin > next) found.push_back({next, begin - 1});
        next = std::max(next, static_cast<char32_t>(last + 1));
    }
    if (other && next <= kLast) found.push_back({next, kLast});
    return found;
}

// All stored characters that the list matches, grouped by the lookaround they need.
QString StoredList(const LikePattern& pattern, const Element& element) {
    const std::vector<LikePattern::Range> ranges = RangesOf(pattern, element);
    const bool other = element.kind == Element::Kind::OtherThanList;
    const auto listed = [&](char32_t folded) {
        for (const auto& [first, last] : ranges)
            if (first <= folded && folded <= last) return !other;
        return other;
    };
    std::vector<LikePattern::Range> plain;
    QString special;
    const auto& table = FoldingTable();
    for (char32_t unit = 1; unit < table.size(); ++unit) {
        const char32_t folded = table[unit];
        if (QChar::isSurrogate(unit) || !listed(folded)) continue;
        if (NotVoiced(folded).isEmpty() && NotTaken(folded).isEmpty()) {
            if (!plain.empty() && plain.back().last + 1 == unit)
                plain.back().last = unit;
            else
                plain.push_back({unit, unit});
        }
    }
    for (const LikePattern::Range& range : BeyondBasicPlane(ranges, other)) plain.push_back(range);
    for (const char32_t mark : {kVoicingMark, kSemiVoicingMark}) {
        if (listed(mark)) special += u'|' + StoredCharacter(mark);
        for (const QChar kana : VoiceableKana(mark)) {
            const char32_t whole = Voiced(kana.unicode(), mark);
            if (listed(kana.unicode())) special += u'|' + StoredCharacter(kana.unicode());
            if (listed(whole))
                special += u'|' + StoredClass(platform::TextOfCharacter(kana.unicode())) + MarkClass(mark);
        }
    }
    if (plain.empty() && special.isEmpty()) return kNothing;
    const QString first = plain.empty() ? kNothing : u'[' + ClassOf(plain) + u']';
    return QStringLiteral("(?:") + first + special + u')';
}

QString StoredElement(const LikePattern& pattern, const Element& element) {
    if (element.kind == Element::Kind::Any) return AnyStored();
    if (element.kind == Element::Kind::Character) return StoredCharacter(element.character);
    return StoredList(pattern, element);
}

using ElementText = QString (*)(const LikePattern&, const Element&);

QString SegmentText(const LikePattern& pattern, const LikePattern::Segment& segment, ElementText text) {
    QString all;
    for (size_t i = 0; i < segment.count; ++i) all += text(pattern, pattern.Elements()[segment.first + i]);
    return all;
}

}  // namespace

std::optional<QString> FoldedLikeText(const LikePattern& pattern) {
    QString text;
    for (size_t segment = 0; segment < pattern.Segments().size(); ++segment) {
        if (segment > 0) text += u'%';
        const auto [first, count] = pattern.Segments()[segment];
        for (size_t i = first; i < first + count; ++i) {
            const Element& element = pattern.Elements()[i];
            const bool any = element.kind == Element::Kind::Any;
            const bool wildcard = element.character == U'%' || element.character == U'_';
            if (!any && (element.kind != Element::Kind::Character || wildcard)) return std::nullopt;
            text += any ? QStringLiteral("_") : platform::TextOfCharacter(element.character);
        }
    }
    return text;
}

QString FoldedExpression(const LikePattern& pattern) {
    QString text;
    for (const LikePattern::Segment& segment : pattern.Segments()) {
        if (!text.isEmpty()) text += QStringLiteral("(?:.|\\n)*");
        if (text.isEmpty()) text = u'^';
        text += SegmentText(pattern, segment, &FoldedElement);
    }
    return text + u'$';
}

// The leftmost match of a segment between the ends is always best, hence the atomic group "(?>" against backtracking.
QString StoredExpression(const LikePattern& pattern) {
    const auto& segments = pattern.Segments();
    QString text = QStringLiteral("(?s)^") + SegmentText(pattern, segments.front(), &StoredElement);
    for (size_t i = 1; i + 1 < segments.size(); ++i)
        text += QStringLiteral("(?>.*?") + SegmentText(pattern, segments[i], &StoredElement) + u')';
    if (segments.size() == 1) return text + QStringLiteral("\\z");
    const QString tail = SegmentText(pattern, segments.back(), &StoredElement);
    return tail.isEmpty() ? text : text + QStringLiteral(".*") + tail + QStringLiteral("\\z");
}

}  // namespace database
