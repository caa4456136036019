#include "database/collation/LikePattern.h"

#include <algorithm>

#include "database/collation/TextFolding.h"

namespace database {

// Compiles the pattern from folded characters.
class LikePattern::Reader {
  public:
    Reader(LikePattern& pattern, QByteArrayView utf8, std::optional<char32_t> escape)
        : pattern_(pattern), escape_(escape) {
        for (FoldedReader reader(utf8); !reader.AtEnd();) characters_.push_back(reader.Next());
    }

    bool Read() {
        pattern_.segments_.push_back({0, 0});
        while (at_ < characters_.size()) {
            const char32_t character = characters_[at_++];
            if (escape_ && character == *escape_ && at_ < characters_.size()) {
                Add({Element::Kind::Character, characters_[at_++], 0, 0});
            } else if (character == U'%') {
                pattern_.segments_.push_back({pattern_.elements_.size(), 0});
            } else if (character == U'_') {
                Add({Element::Kind::Any, 0, 0, 0});
            } else if (character != U'[') {
                Add({Element::Kind::Character, character, 0, 0});
            } else if (!ReadList()) {
                return false;
            }
        }
        return true;
    }

  private:
    void Add(const Element& element) {
        pattern_.elements_.push_back(element);
        ++pattern_.segments_.back().count;
    }

    // "[]" matches the empty string; "[!]" matches "!".
    bool ReadList() {
        const auto begin = characters_.begin() + static_cast<std::ptrdiff_t>(at_);
        const auto close = std::find(begin, characters_.end(), U']');
        if (close == characters_.end()) return false;
        const std::vector<char32_t> list(begin, close);
        at_ += list.size() + 1;
        if (list.empty()) return true;
        const bool other = list.front() == U'!' && list.size() > 1;
        const auto first = static_cast<quint32>(pattern_.ranges_.size());
        AddRanges(list, other ? 1 : 0);
        const auto count = static_cast<quint32>(pattern_.ranges_.size()) - first;
        Add({other ? Element::Kind::OtherThanList : Element::Kind::List, 0, first, count});
        return true;
    }

    void AddRanges(const std::vector<char32_t>& list, size_t at) {
        while (at < list.size()) {
            const bool range = at + 2 < list.size() && list[at + 1] == U'-';
            pattern_.ranges_.push_back({list[at], range ? list[at + 2] : list[at]});
            at += range ? 3 : 1;
        }
    }

    LikePattern& pattern_;
    std::optional<char32_t> escape_;
    std::vector<char32_t> characters_;
    size_t at_ = 0;
};

std::optional<LikePattern> LikePattern::Compile(QByteArrayView utf8, std::optional<char32_t> escape) {
    LikePattern pattern;
    if (!Reader(pattern, utf8, escape).Read()) return std::nullopt;
    return pattern;
}

bool LikePattern::Fits(const Element& element, char32_t character) const {
    if (element.kind == Element::Kind::Character) return element.character == character;
    if (element.kind == Element::Kind::Any) return true;
    const auto begin = ranges_.begin() + static_cast<std::ptrdiff_t>(element.first);
    const bool listed = std::any_of(begin, begin + static_cast<std::ptrdiff_t>(element.count),
                                    [&](Range range) { return range.first <= character && character <= range.last; });
    return listed == (element.kind == Element::Kind::List);
}

bool LikePattern::FitsAt(const Segment& segment, const char32_t* text) const {
    for (size_t i = 0; i < segment.count; ++i)
        if (!Fits(elements_[segment.first + i], text[i])) return false;
    return true;
}

// Finds the segment's first match in [from, to) and moves `from` past it. Note: `from` may be null for an empty text,
// which an empty segment must still match.
bool LikePattern::Find(const Segment& segment, const char32_t*& from, const char32_t* to) const {
    for (; to - from >= static_cast<std::ptrdiff_t>(segment.count); ++from) {
        if (!FitsAt(segment, from)) continue;
        from += segment.count;
        return true;
    }
    return false;
}

// The first and last segment are anchored. For the others the leftmost match is always best, so no backtracking.
bool LikePattern::Matches(QByteArrayView utf8) const {
    thread_local std::vector<char32_t> folded;
    folded.clear();
    for (FoldedReader reader(utf8); !reader.AtEnd();) folded.push_back(reader.Next());
    const char32_t* from = folded.data();
    const char32_t* to = from + folded.size();

    const Segment& head = segments_.front();
    const Segment& tail = segments_.back();
    if (segments_.size() == 1) return head.count == folded.size() && FitsAt(head, from);
    if (head.count + tail.count > folded.size()) return false;
    if (!FitsAt(head, from) || !FitsAt(tail, to - tail.count)) return false;
    from += head.count;
    to -= tail.count;
    for (size_t i = 1; i + 1 < segments_.size(); ++i)
        if (!Find(segments_[i], from, to)) return false;
    return true;
}

}  // namespace database
