#include "database/sql/SelectNames.h"

#include <algorithm>

namespace database {
namespace {

size_t SkipBeforeItems(const NodeList& level, size_t at) {
    while (at < level.size() && (level[at].Is(u"DISTINCT") || level[at].Is(u"ALL"))) ++at;
    const bool top = at + 1 < level.size() && level[at].Is(u"TOP") && !level[at + 1].group &&
                     level[at + 1].token.kind == TokenKind::Number;
    return top ? at + 2 : at;
}

bool EndsItems(const NodeList& level, size_t at) {
    return at >= level.size() || level[at].Is(u"FROM") || EndOfFrom(level, at) == at;
}

// A name after an operand is an alias even without AS.
bool HasPlainAlias(const NodeList& level, size_t first, size_t end) {
    if (end - first < 2 || !level[end - 1].IsName()) return false;
    const Node& before = level[end - 2];
    return before.group || before.IsName() || before.token.kind == TokenKind::Text ||
           before.token.kind == TokenKind::Number;
}

SelectItem ItemOf(const NodeList& level, size_t first, size_t end) {
    SelectItem item{first, end, {}, false};
    item.all = end > first && level[end - 1].IsPunctuation(u"*");
    if (!HasPlainAlias(level, first, end)) return item;
    item.alias = NameOf(level[end - 1]);
    item.end = end - 1;
    if (item.end > first + 1 && level[item.end - 1].Is(u"AS")) --item.end;
    return item;
}

bool HasAll(const NodeList& level) {
    return std::any_of(level.begin(), level.end(), [](const Node& piece) {
        return piece.IsPunctuation(u"*") || (piece.group && HasAll(piece.inside));
    });
}

}  // namespace

std::vector<SelectItem> SelectItemsOf(const NodeList& level, size_t begin) {
    std::vector<SelectItem> items;
    while (begin < level.size() && !level[begin].Is(u"SELECT")) ++begin;
    if (begin >= level.size()) return items;
    size_t first = SkipBeforeItems(level, begin + 1);
    for (size_t at = first; at <= level.size(); ++at) {
        const bool end = EndsItems(level, at);
        if (!end && !level[at].IsPunctuation(u",")) continue;
        items.push_back(ItemOf(level, first, at));
        if (end) break;
        first = at + 1;
    }
    return items;
}

bool IsColumnName(const NodeList& level, size_t first, size_t end) {
    return first < end && level[first].IsName() && level[end - 1].IsName() && EndOfName(level, first) == end;
}

TextNames::TextNames(const NodeList& statement, const TextRules& rules) : listed_(rules.sortedAsText) {
    Collect(statement);
}

bool TextNames::Uses(const NodeList& level, size_t first, size_t end) const {
    for (size_t at = first; at < end; ++at) {
        const Node& piece = level[at];
        if (piece.group && at > first && level[at - 1].Is(u"COUNT")) continue;
        if (piece.group ? Uses(piece.inside, 0, piece.inside.size()) : IsListed(piece) || IsRenamed(piece)) return true;
    }
    return false;
}

// Subqueries first, since outer queries use their names.
void TextNames::Collect(const NodeList& level) {
    for (size_t at = 0; at < level.size(); ++at) {
        if (!level[at].group) continue;
        Collect(level[at].inside);
        CollectColumnList(level, at);
    }
    CollectAliases(level);
}

void TextNames::CollectAliases(const NodeList& level) {
    for (size_t select = 0; select < level.size(); ++select) {
        if (!level[select].Is(u"SELECT")) continue;
        for (const SelectItem& item : SelectItemsOf(level, select))
            if (!item.alias.isEmpty() && Uses(level, item.first, item.end)) Rename(item.alias);
    }
}

void TextNames::Rename(const QString& name) {
    if (!listed_.contains(name, Qt::CaseInsensitive)) renamed_.append(name);
}

// "(SELECT ...) AS t (a, b)" renames the columns of the subquery.
void TextNames::CollectColumnList(const NodeList& level, size_t query) {
    const NodeList& inside = level[query].inside;
    if (inside.empty() || !inside.front().Is(u"SELECT")) return;
    if (!HasAll(inside) && !Uses(inside, 0, inside.size())) return;
    size_t at = query + 1;
    if (at < level.size() && level[at].Is(u"AS")) ++at;
    if (at + 1 >= level.size() || !level[at].IsName() || !level[at + 1].group) return;
    for (const Node& piece : level[at + 1].inside)
        if (piece.IsName()) Rename(NameOf(piece));
}

}  // namespace database
