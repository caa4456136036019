// Part of Rewriters.h: RewritePlusOuterJoins.

#include "database/sql/Rewriters.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace database {
namespace {

/// x.a(+) = y.b: a row of table x may be missing.
struct PlusJoin {
    QString lacking, present;
    NodeList condition;  // without the (+)
};

struct Clause {
    size_t from = 0, where = 0, end = 0;  // first nodes after FROM, after WHERE, and after the conditions
    std::vector<Node> tables;
    std::vector<PlusJoin> joins;
    std::vector<NodeList> others;  // conditions that are not such joins
};

bool IsPlusGroup(const Node& piece) {
    return piece.group && piece.inside.size() == 1 && piece.inside.front().IsPunctuation(u"+");
}

std::vector<NodeList> CutAt(const NodeList& level, size_t begin, size_t end, bool (*cuts)(const Node&)) {
    std::vector<NodeList> parts(1);
    for (size_t i = begin; i < end; ++i) {
        if (cuts(level[i]))
            parts.emplace_back();
        else
            parts.back().push_back(level[i]);
    }
    return parts;
}

// A qualified column name, and whether (+) follows it.
struct Side {
    QString table;
    bool marked = false;
    size_t end = 0;
};

std::optional<Side> SideAt(const NodeList& term, size_t at) {
    if (at + 2 >= term.size() || !term[at].IsName() || !term[at + 1].IsPunctuation(u".") || !term[at + 2].IsName())
        return std::nullopt;
    const bool marked = at + 3 < term.size() && IsPlusGroup(term[at + 3]);
    return Side{NameOf(term[at]), marked, at + 3 + (marked ? 1 : 0)};
}

std::optional<PlusJoin> JoinOf(const NodeList& term) {
    const std::optional<Side> left = SideAt(term, 0);
    if (!left || left->end >= term.size() || !term[left->end].IsPunctuation(u"=")) return std::nullopt;
    const std::optional<Side> right = SideAt(term, left->end + 1);
    if (!right || right->end != term.size() || left->marked == right->marked) return std::nullopt;
    PlusJoin join{left->marked ? left->table : right->table, left->marked ? right->table : left->table, {}};
    for (const Node& piece : term)
        if (!IsPlusGroup(piece)) join.condition.push_back(piece);
    return join;
}

bool ReadTables(const NodeList& level, Clause& clause) {
    const auto comma = [](const Node& piece) { return piece.IsPunctuation(u","); };
    for (const NodeList& table : CutAt(level, clause.from, clause.where - 1, comma)) {
        if (table.size() != 1 || !table.front().IsName()) return false;
        clause.tables.push_back(table.front());
    }
    return true;
}

bool HasSign(const NodeList& level) { return std::any_of(level.begin(), level.end(), IsPlusGroup); }

bool ReadClause(const NodeList& level, Clause& clause) {
    const auto at = [&](QStringView word, size_t begin) {
        while (begin < level.size() && !level[begin].Is(word)) ++begin;
        return begin + 1;
    };
    clause.from = at(u"FROM", 0);
    clause.where = at(u"WHERE", clause.from);
    if (clause.where >= level.size() || !ReadTables(level, clause)) return false;
    clause.end = EndOfFrom(level, clause.where);
    for (size_t i = clause.where; i < clause.end; ++i)
        if (level[i].Is(u"OR") || level[i].Is(u"BETWEEN")) return false;
    const auto conjunction = [](const Node& piece) { return piece.Is(u"AND"); };
    for (NodeList& term : CutAt(level, clause.where, clause.end, conjunction)) {
        if (std::optional<PlusJoin> join = JoinOf(term))
            clause.joins.push_back(std::move(*join));
        else if (term.empty() || HasSign(term))
            return false;
        else
            clause.others.push_back(std::move(term));
    }
    return !clause.joins.empty();
}

void Append(NodeList& target, const NodeList& more) { target.insert(target.end(), more.begin(), more.end()); }

/// Orders the tables so that each optional table follows the table that it is joined to.
class Chain {
  public:
    explicit Chain(const Clause& clause) : clause_(clause) {}

    // Empty unless there is exactly one table that is not optional, and each other table can be placed after it.
    std::optional<NodeList> Build() {
        NodeList text;
        for (const Node& table : clause_.tables) {
            if (Lacks(NameOf(table))) continue;
            if (!text.empty()) return std::nullopt;
            text.push_back(table);
            text.front().token.leadingTrivia = QStringLiteral(" ");
            placed_.append(NameOf(table));
        }
        while (!text.empty() && placed_.size() < static_cast<qsizetype>(clause_.tables.size()))
            if (!PlaceNext(text)) return std::nullopt;
        if (text.empty()) return std::nullopt;
        return text;
    }

  private:
    bool Lacks(const QString& table) const {
        return std::any_of(clause_.joins.begin(), clause_.joins.end(),
                           [&](const PlusJoin& join) { return join.lacking == table; });
    }

    bool PlaceNext(NodeList& text) {
        for (const Node& table : clause_.tables) {
            const QString name = NameOf(table);
            if (placed_.contains(name)) continue;
            NodeList conditions;
            bool ready = true;
            for (const PlusJoin& join : clause_.joins) {
                if (join.lacking != name) continue;
                ready = ready && placed_.contains(join.present);
                conditions.push_back(MakeWord(conditions.empty() ? QStringLiteral("ON") : QStringLiteral("AND")));
                Append(conditions, join.condition);
            }
            if (!ready || conditions.empty()) continue;
            for (const QString& word : {QStringLiteral("LEFT"), QStringLiteral("JOIN")}) text.push_back(MakeWord(word));
            text.push_back(table);
            text.back().token.leadingTrivia = QStringLiteral(" ");
            Append(text, conditions);
            placed_.append(name);
            return true;
        }
        return false;
    }

    const Clause& clause_;
    QStringList placed_;
};

}  // namespace

void RewritePlusOuterJoins(NodeList& level) {
    if (!HasSign(level)) return;
    Clause clause;
    if (!ReadClause(level, clause)) return;
    std::optional<NodeList> text = Chain(clause).Build();
    if (!text) return;
    for (size_t i = 0; i < clause.others.size(); ++i) {
        text->push_back(MakeWord(i == 0 ? QStringLiteral("WHERE") : QStringLiteral("AND")));
        Append(*text, clause.others[i]);
    }
    const auto begin = level.begin() + static_cast<std::ptrdiff_t>(clause.from);
    const auto place = level.erase(begin, level.begin() + static_cast<std::ptrdiff_t>(clause.end));
    level.insert(place, std::make_move_iterator(text->begin()), std::make_move_iterator(text->end()));
}

}  // namespace database
