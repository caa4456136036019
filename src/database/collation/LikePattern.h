#pragma once

#include <QByteArrayView>
#include <optional>
#include <vector>

namespace database {

/// A pattern of LIKE as the suite's desktop engine reads it: "%" stands for any characters, "_" for one, [list]
/// for one of the list and [!list] for one not in it, with ranges a-z; compared in folded form (TextFolding).
/// "*" and "?" are ordinary characters. Time grows with the lengths of pattern and text, never exponentially.
class LikePattern {
  public:
    /// None for a pattern whose "[" is not closed. `escape` makes the character behind it an ordinary one.
    static std::optional<LikePattern> Compile(QByteArrayView utf8, std::optional<char32_t> escape = std::nullopt);

    bool Matches(QByteArrayView utf8) const;

    struct Range {
        char32_t first, last;
    };
    /// One character of the text. Lists lie in Ranges() from `first` on.
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
    /// At least one; between each two stands a "%".
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

}  // namespace database
