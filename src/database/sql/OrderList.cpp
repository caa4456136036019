// Part of SelectNames.h: IsOrder, ReadOrder and RefuseOrder.

#include "database/sql/SelectNames.h"

#include <algorithm>
#include <array>

#include "database/sql/SyntaxTree.h"

namespace database {
namespace {

constexpr std::array<QStringView, 11> kAfterOrder = {u"LIMIT", u"OFFSET", u"FETCH",     u"FOR",
                                                     u"UNION", u"EXCEPT", u"INTERSECT", u"ROWS",
                                                     u"RANGE", u"GROUPS", u"SEPARATOR"};
constexpr std::array<QStringView, 3> kCompounds = {u"UNION", u"EXCEPT", u"INTERSECT"};

template <size_t N>
bool IsOneOf(const Node& piece, const std::array<QStringView, N>& keywords) {
    return std::any_of(keywords.begin(), keywords.end(), [&](QStringView word) { return piece.Is(word); });
}

bool EndsOrder(const NodeList& level, size_t at) {
    return at >= level.size() || level[at].IsPunctuation(u";") || IsOneOf(level[at], kAfterOrder);
}

class Reader {
  public:
    Reader(const NodeList& level, size_t order, const TextNames& names)
        : level_(level), order_(order), names_(names), select_(SelectItemsOf(level)) {
        for (size_t at = 0; at < order; ++at) compound_ = compound_ || IsOneOf(level[at], kCompounds);
    }

    std::vector<OrderItem> Read() const {
        std::vector<OrderItem> items;
        size_t first = order_ + 2;
        for (size_t at = first;; ++at) {
            const bool end = EndsOrder(level_, at);
            if (!end && !level_[at].IsPunctuation(u",")) continue;
            if (at > first) items.push_back(ItemOf(first, at));
            if (end) return items;
            first = at + 1;
        }
    }

  private:
    OrderItem ItemOf(size_t first, size_t end) const {
        OrderItem item;
        item.first = first;
        item.end = item.expressionEnd = end;
        item.descending = level_[end - 1].Is(u"DESC");
        if (end > first + 1 && (item.descending || level_[end - 1].Is(u"ASC"))) --item.expressionEnd;
        for (size_t at = first; at < end; ++at) item.placesNulls = item.placesNulls || level_[at].Is(u"NULLS");
        if (compound_)
            CheckCompound();
        else if (IsColumnName(level_, item.first, item.expressionEnd))
            ReadName(item);
        else if (IsPosition(item))
            ReadPosition(item);
        else if (names_.Uses(level_, item.first, item.end))
            RefuseOrder();
        return item;
    }

    // Any part of the compound may contain a column sorted as text.
    void CheckCompound() const {
        const auto all = [](const Node& piece) { return piece.IsPunctuation(u"*"); };
        if (std::any_of(level_.begin(), level_.end(), all) || names_.Uses(level_, 0, level_.size())) RefuseOrder();
    }

    bool IsPosition(const OrderItem& item) const {
        const Node& piece = level_[item.first];
        return item.expressionEnd - item.first == 1 && !piece.group && piece.token.kind == TokenKind::Number &&
               !select_.empty();
    }

    void ReadPosition(OrderItem& item) const {
        const size_t place = level_[item.first].token.text.toUInt();
        for (size_t i = 0; i < place && i < select_.size(); ++i)
            if (select_[i].all) RefuseOrder();
        if (place > 0 && place <= select_.size()) TakeSelected(item, select_[place - 1]);
    }

    void ReadName(OrderItem& item) const {
        const Node& name = level_[item.expressionEnd - 1];
        if (item.expressionEnd - item.first == 1) {
            for (const SelectItem& selected : select_)
                if (selected.alias.compare(NameOf(name), Qt::CaseInsensitive) == 0) return TakeSelected(item, selected);
        }
        if (names_.IsRenamed(name)) RefuseOrder();
        TakeColumn(item, item.first, item.expressionEnd);
        item.asText = names_.IsListed(name);
    }

    // A listed alias is sorted as text whatever column it refers to.
    void TakeSelected(OrderItem& item, const SelectItem& selected) const {
        const bool listed = names_.IsListed(MakeWord(selected.alias));
        if (!IsColumnName(level_, selected.first, selected.end)) {
            if (listed || names_.Uses(level_, selected.first, selected.end)) RefuseOrder();
            return;
        }
        const Node& column = level_[selected.end - 1];
        if (names_.IsRenamed(column)) RefuseOrder();
        TakeColumn(item, selected.first, selected.end);
        item.asText = listed || names_.IsListed(column);
    }

    void TakeColumn(OrderItem& item, size_t first, size_t end) const {
        item.column.assign(level_.begin() + static_cast<std::ptrdiff_t>(first),
                           level_.begin() + static_cast<std::ptrdiff_t>(end));
    }

    const NodeList& level_;
    size_t order_;
    const TextNames& names_;
    std::vector<SelectItem> select_;
    bool compound_ = false;
};

}  // namespace

bool IsOrder(const NodeList& level, size_t at) {
    return at + 1 < level.size() && level[at].Is(u"ORDER") && level[at + 1].Is(u"BY");
}

std::vector<OrderItem> ReadOrder(const NodeList& level, size_t order, const TextNames& names) {
    return Reader(level, order, names).Read();
}

void RefuseOrder() {
    RefuseStatement(QStringLiteral(
        "この ORDER BY はサーバーの並べ替えに置き換えられません。氏名などの順は、列名で指定してください。"));
}

}  // namespace database
