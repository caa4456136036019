#pragma once

#include <QByteArrayView>
#include <QString>
#include <optional>
#include <vector>

namespace database {

/// A compiled LIKE pattern with the wildcards of the suite's desktop engine: "%" matches any characters, "_" one,
/// [list] one of the list, [!list] one not in it, with ranges a-z; "*" and "?" are literals. Compares folded
/// characters (TextFolding). No backtracking: the time is at most proportional to the product of both lengths.
class LikePattern {
  public:
    /// Empty if a "[" is not closed. `escape` makes the next character of the pattern a literal.
    static std::optional<LikePattern> Compile(QByteArrayView utf8, std::optional<char32_t> escape = std::nullopt);

    bool Matches(QByteArrayView utf8) const;

    struct Range {
        char32_t first, last;
    };
    /// Matches one character. A list is Ranges()[first] to Ranges()[first + count - 1].
    struct Element {
        enum class Kind : quint8 { Character, Any, List, OtherThanList } kind;
        char32_t character;
        quint32 first, count;
    };
    /// Elements between two "%".
    struct Segment {
        size_t first, count;
    };
    const std::vector<Element>& Elements() const { return elements_; }
    const std::vector<Range>& Ranges() const { return ranges_; }
    /// At least one; "%" separates adjacent segments.
    const std::vector<Segment>& Segments() const { return segments_; }

  private:
    class Reader;
    bool Fits(const Element& element, char32_t character) const;
    bool FitsAt(const Segment& segment, const char32_t* text) const;
    bool Find(const Segment& segment, const char32_t*& from, const char32_t* to) const;

    std::vector<Element> elements_;
    std::vector<Range> ranges_;
    std::vector<Segment> segments_;
};

// Translation of a LIKE pattern of the suite for server engines. The results are not yet quoted as SQL literals.

/// For the server's LIKE, without an escape character, over folded text. Empty if the pattern needs more than "%" and
/// "_".
std::optional<QString> FoldedLikeText(const LikePattern& pattern);

/// PostgreSQL regular expression over folded text.
QString FoldedExpression(const LikePattern& pattern);

/// Perl-compatible regular expression over text as it is stored: each character becomes a class of all characters that
/// fold to it, a voiced kana also the kana followed by its mark. No backtracking, as in LikePattern.
QString StoredExpression(const LikePattern& pattern);

}  // namespace database
