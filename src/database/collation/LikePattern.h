#pragma once

#include <QByteArrayView>
#include <QString>
#include <optional>
#include <vector>

namespace database {

/// A compiled LIKE pattern with the suite's wildcards: "%" matches any characters, "_" one, [list] one of the list,
/// [!list] one not in it, with ranges such as a-z; "[]" matches the empty text, "[!]" a "!"; "*" and "?" are literals.
/// Compares folded characters (TextFolding.h). No backtracking: the time is at most proportional to the product of both
/// lengths.
class LikePattern {
  public:
    /// nullopt if a "[" is not closed. `escape` (folded) makes the next character of the pattern a literal.
    static std::optional<LikePattern> Compile(QByteArrayView utf8, std::optional<char32_t> escape = std::nullopt);

    /// True if the pattern matches the whole text.
    bool Matches(QByteArrayView utf8) const;

    // The compiled pattern, for the translations below.

    /// Folded characters from `first` to `last`, both included.
    struct Range {
        char32_t first, last;
    };
    /// Matches one character. A list is Ranges()[first] to Ranges()[first + count - 1].
    struct Element {
        enum class Kind : quint8 { Character, Any, List, OtherThanList } kind;
        char32_t character;
        quint32 first, count;
    };
    /// The elements between two "%", before the first or after the last: `count` of Elements() from index `first` on.
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

// Translations of a pattern for servers, to be quoted as SQL literals by the caller. The first two are for text that
// the server has folded (PostgresFoldingFunction).

/// Pattern for the server's LIKE with ESCAPE ''. nullopt if a list, or a literal "%" or "_", cannot be expressed.
std::optional<QString> FoldedLikeText(const LikePattern& pattern);

/// PostgreSQL regular expression.
QString FoldedExpression(const LikePattern& pattern);

/// Perl-compatible regular expression for text as it is stored: each character becomes a class of all characters that
/// fold to it, a voiced kana also the kana followed by its mark. No backtracking, as in LikePattern.
QString StoredExpression(const LikePattern& pattern);

}  // namespace database
