#include "platform/database/OrderRewrite.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

namespace platform {
namespace {

/// One item of an ORDER BY that is a column.
struct Item {
    size_t first, behind;  // of the column's name
    bool asText, descending;
};

bool EndsItem(const Level& level, size_t at) {
    return at >= level.size() || level[at].IsSign(u",") || level[at].IsSign(u";") || level[at].Is(u"LIMIT");
}

bool IsDirection(const Level& level, size_t at) {
    return at < level.size() && (level[at].Is(u"ASC") || level[at].Is(u"DESC"));
}

// None where it is an expression.
std::optional<Item> ItemAt(const Level& level, size_t first, const TextRules& rules) {
    if (first >= level.size() || !level[first].IsName()) return std::nullopt;
    const size_t behind = EndOfName(level, first);
    if (!EndsItem(level, behind + (IsDirection(level, behind) ? 1 : 0))) return std::nullopt;
    return Item{first, behind, IsColumnOf(rules.sortedAsText, level[behind - 1]),
                IsDirection(level, behind) && level[behind].Is(u"DESC")};
}

size_t NextItem(const Level& level, size_t at) {
    while (at < level.size() && !level[at].IsSign(u",")) ++at;
    return at + 1;
}

bool IsOrder(const Level& level, size_t at) {
    return at + 1 < level.size() && level[at].Is(u"ORDER") && level[at + 1].Is(u"BY");
}

void AdaptItem(Level& level, Item item, const EngineDifferences& engine) {
    if (item.asText && !engine.orderFunction.isEmpty()) {
        WrapInFunction(level, item.first, item.behind, engine.orderFunction);
        item.behind = item.first + 2;
    } else if (item.asText && !engine.textCollation.isEmpty()) {
        InsertCollation(level, item.behind, engine.textCollation);
        item.behind += 2;
    }
    if (!engine.nullsSortLast) return;
    const size_t end = item.behind + (IsDirection(level, item.behind) ? 1 : 0);
    const std::array<Piece, 2> words = {MakeWord(QStringLiteral("NULLS")),
                                        MakeWord(item.descending ? QStringLiteral("LAST") : QStringLiteral("FIRST"))};
    level.insert(level.begin() + static_cast<std::ptrdiff_t>(end), words.begin(), words.end());
}

// Rows that are put together, or of which some are left out, can't have further columns.
bool ChangesRows(const Level& level) {
    constexpr std::array<QStringView, 5> kWords = {u"DISTINCT", u"GROUP", u"UNION", u"EXCEPT", u"INTERSECT"};
    return std::any_of(level.begin(), level.end(), [&](const Piece& piece) {
        return std::any_of(kWords.begin(), kWords.end(), [&](QStringView word) { return piece.Is(word); });
    });
}

// A bare name may be the heading of a column, which is none of a table.
bool IsHeading(const Level& level, const Item& item) {
    if (item.behind - item.first > 1) return false;
    for (size_t i = 1; i < item.first; ++i)
        if (level[i - 1].Is(u"AS") && level[i].IsName() && NameOf(level[i]) == NameOf(level[item.first])) return true;
    return false;
}

std::vector<Item> ItemsOf(const Level& level, size_t order, const TextRules& rules) {
    std::vector<Item> items;
    for (size_t at = order + 2; at < level.size(); at = NextItem(level, at)) {
        const std::optional<Item> item = ItemAt(level, at, rules);
        if (!item || IsHeading(level, *item)) return {};
        items.push_back(*item);
    }
    return items;
}

}  // namespace

void AdaptOrder(Level& level, const EngineDifferences& engine, const TextRules& rules) {
    for (size_t i = 0; i + 1 < level.size(); ++i) {
        if (!IsOrder(level, i)) continue;
        for (size_t at = i + 2; at < level.size(); at = NextItem(level, at))
            if (const std::optional<Item> item = ItemAt(level, at, rules)) AdaptItem(level, *item, engine);
    }
}

void TakeOrder(Level& level, const TextRules& rules, AdaptedStatement& adapted) {
    size_t order = 0, from = 0;
    while (order < level.size() && !IsOrder(level, order)) ++order;
    while (from < level.size() && !level[from].Is(u"FROM")) ++from;
    if (order >= level.size() || from >= order || !level.front().Is(u"SELECT") || ChangesRows(level)) return;
    const std::vector<Item> items = ItemsOf(level, order, rules);
    if (std::none_of(items.begin(), items.end(), [](const Item& item) { return item.asText; })) return;
    Level keys;
    for (const Item& item : items) {
        keys.push_back({{TokenKind::Sign, QString(), QStringLiteral(",")}, false, {}, {}});
        keys.insert(keys.end(), level.begin() + static_cast<std::ptrdiff_t>(item.first),
                    level.begin() + static_cast<std::ptrdiff_t>(item.behind));
        adapted.order.append({item.asText, item.descending});
    }
    size_t end = order;
    while (end < level.size() && !level[end].IsSign(u";")) ++end;
    level.erase(level.begin() + static_cast<std::ptrdiff_t>(order), level.begin() + static_cast<std::ptrdiff_t>(end));
    level.insert(level.begin() + static_cast<std::ptrdiff_t>(from), std::make_move_iterator(keys.begin()),
                 std::make_move_iterator(keys.end()));
    if (const std::optional<Piece> top = TakeTop(level)) adapted.limit = top->token.text.toInt();
}

}  // namespace platform
