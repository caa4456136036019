// Part of Rewriters.h: AdaptOrder and TakeOrder.

#include "database/sql/Rewriters.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "database/sql/SelectNames.h"

namespace database {
namespace {

std::ptrdiff_t Offset(size_t place) { return static_cast<std::ptrdiff_t>(place); }

bool IsDirection(const NodeList& level, size_t at) {
    return at < level.size() && (level[at].Is(u"ASC") || level[at].Is(u"DESC"));
}

size_t NextItem(const NodeList& level, size_t at) {
    while (at < level.size() && !level[at].IsPunctuation(u",")) ++at;
    return at + 1;
}

bool EndsItem(const NodeList& level, size_t at) {
    return at >= level.size() || level[at].IsPunctuation(u",") || level[at].IsPunctuation(u";") ||
           level[at].Is(u"LIMIT");
}

void GiveCollations(NodeList& level, size_t order, const QString& collation, const TextRules& rules) {
    for (size_t at = order + 2; at < level.size(); at = NextItem(level, at)) {
        if (!level[at].IsName()) continue;
        const size_t end = EndOfName(level, at);
        const bool column = EndsItem(level, end + (IsDirection(level, end) ? 1 : 0));
        if (column && IsColumnOf(rules.sortedAsText, level[end - 1])) InsertCollation(level, end, collation);
    }
}

bool HasWord(const NodeList& level, QStringView word) {
    return std::any_of(level.begin(), level.end(), [&](const Node& piece) { return piece.Is(word); });
}

void PlaceNulls(NodeList& level, const OrderItem& item) {
    const std::array<Node, 2> words = {MakeWord(QStringLiteral("NULLS")),
                                       MakeWord(item.descending ? QStringLiteral("LAST") : QStringLiteral("FIRST"))};
    level.insert(level.begin() + Offset(item.end), words.begin(), words.end());
}

void SortByFunction(NodeList& level, const OrderItem& item, const QString& function) {
    NodeList key = item.column;
    key.front().token.leadingTrivia = level[item.first].token.leadingTrivia;
    WrapInFunction(key, 0, key.size(), function);
    const auto place = level.erase(level.begin() + Offset(item.first), level.begin() + Offset(item.expressionEnd));
    level.insert(place, std::make_move_iterator(key.begin()), std::make_move_iterator(key.end()));
}

// Backwards, since edits change the indexes of later items.
void AdaptItems(NodeList& level, const std::vector<OrderItem>& items, const SqlDialect& engine) {
    for (auto item = items.rbegin(); item != items.rend(); ++item) {
        if (engine.nullsSortLast && !item->placesNulls) PlaceNulls(level, *item);
        if (!item->asText) continue;
        if (engine.orderFunction.isEmpty() || HasWord(level, u"DISTINCT")) RefuseOrder();
        SortByFunction(level, *item, engine.orderFunction);
    }
}

// DISTINCT and GROUP BY do not allow additional columns for sort keys.
bool ChangesRows(const NodeList& level) { return HasWord(level, u"DISTINCT") || HasWord(level, u"GROUP"); }

void AddKeys(NodeList& level, size_t from, const std::vector<OrderItem>& items, AdaptedStatement& adapted) {
    NodeList keys;
    for (const OrderItem& item : items) {
        if (item.column.empty()) RefuseOrder();
        keys.push_back({{TokenKind::Punctuation, QString(), QStringLiteral(",")}, false, {}, {}});
        keys.insert(keys.end(), item.column.begin(), item.column.end());
        keys[keys.size() - item.column.size()].token.leadingTrivia = QStringLiteral(" ");
        adapted.order.append({item.asText, item.descending});
    }
    level.insert(level.begin() + Offset(from), std::make_move_iterator(keys.begin()),
                 std::make_move_iterator(keys.end()));
}

void TakeLimit(NodeList& level, AdaptedStatement& adapted) {
    const std::optional<Node> top = TakeTop(level);
    if (!top) return;
    bool whole = false;
    adapted.limit = top->token.text.toInt(&whole);
    if (!whole) RefuseOrder();
}

}  // namespace

void AdaptOrder(NodeList& level, const SqlDialect& engine, const TextRules& rules, const TextNames& names) {
    for (size_t order = 0; order + 1 < level.size(); ++order) {
        if (!IsOrder(level, order)) continue;
        if (engine.like != LikeWriting::Own)
            AdaptItems(level, ReadOrder(level, order, names), engine);
        else if (!engine.textCollation.isEmpty())
            GiveCollations(level, order, engine.textCollation, rules);
    }
}

void TakeOrder(NodeList& level, const TextNames& names, AdaptedStatement& adapted) {
    size_t order = 0, from = 0;
    while (order < level.size() && !IsOrder(level, order)) ++order;
    while (from < level.size() && !level[from].Is(u"FROM")) ++from;
    if (order >= level.size() || from >= order || !level.front().Is(u"SELECT")) return;
    const std::vector<OrderItem> items = ReadOrder(level, order, names);
    if (std::none_of(items.begin(), items.end(), [](const OrderItem& item) { return item.asText; })) return;
    const size_t end = items.back().end;
    if (ChangesRows(level) || (end < level.size() && !level[end].IsPunctuation(u";"))) RefuseOrder();
    level.erase(level.begin() + Offset(order), level.begin() + Offset(end));
    AddKeys(level, from, items, adapted);
    TakeLimit(level, adapted);
}

}  // namespace database
