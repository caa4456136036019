// Part of Rewriters.h: RewriteRightJoins.

#include "database/sql/Rewriters.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace database {
namespace {

void MoveBehind(NodeList& target, NodeList&& more) {
    target.insert(target.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

bool ContainsRightJoin(const NodeList& level) {
    for (size_t i = 0; i < level.size(); ++i) {
        if (level[i].Is(u"RIGHT") && StartsJoin(level, i)) return true;
        if (level[i].group && ContainsRightJoin(level[i].inside)) return true;
    }
    return false;
}

// Parses a table or bracket with its alias, whose inner joins are rewritten, then any number of join operator, right
// side, ON.
class JoinReader {
  public:
    explicit JoinReader(const NodeList& from) : from_(from) {}

    // Empty if the clause contains anything but tables joined by JOIN ... ON.
    std::optional<NodeList> Read() {
        NodeList left = ReadOperand();
        bool chain = false;
        while (!failed_ && at_ < from_.size()) {
            left = ReadJoin(std::move(left), chain);
            chain = true;
        }
        if (failed_) return std::nullopt;
        return left;
    }

  private:
    NodeList ReadOperand() {
        NodeList operand;
        for (; at_ < from_.size() && !StartsJoin(from_, at_) && !from_[at_].Is(u"ON"); ++at_) {
            if (from_[at_].IsPunctuation(u",")) failed_ = true;
            operand.push_back(from_[at_]);
            if (operand.back().group) RewriteBracket(operand.back());
        }
        failed_ = failed_ || operand.empty();
        return operand;
    }

    void RewriteBracket(Node& piece) {
        if (piece.inside.empty() || piece.inside.front().Is(u"SELECT")) return;
        std::optional<NodeList> inside = JoinReader(piece.inside).Read();
        if (inside) piece.inside = std::move(*inside);
        failed_ = failed_ || !inside;
    }

    NodeList ReadOperator() {
        NodeList words;
        while (at_ < from_.size() && !from_[at_].Is(u"JOIN")) words.push_back(from_[at_++]);
        if (at_ < from_.size()) words.push_back(from_[at_++]);
        failed_ = failed_ || words.empty() || !words.back().Is(u"JOIN");
        return words;
    }

    NodeList ReadCondition() {
        NodeList condition;
        failed_ = failed_ || at_ >= from_.size() || !from_[at_].Is(u"ON");
        while (at_ < from_.size() && !StartsJoin(from_, at_)) {
            if (from_[at_].IsPunctuation(u",") || (!condition.empty() && from_[at_].Is(u"ON"))) failed_ = true;
            condition.push_back(from_[at_++]);
        }
        return condition;
    }

    NodeList ReadJoin(NodeList left, bool leftIsChain) {
        NodeList words = ReadOperator();
        NodeList right = ReadOperand();
        NodeList condition = ReadCondition();
        if (failed_) return left;
        if (words.front().Is(u"RIGHT")) {
            words.front().token.text = QStringLiteral("LEFT");
            if (leftIsChain) {
                Node bracket = MakeGroup(std::move(left));
                left.clear();
                left.push_back(std::move(bracket));
            }
            std::swap(left.front().token.leadingTrivia, right.front().token.leadingTrivia);
            std::swap(left, right);
        }
        MoveBehind(left, std::move(words));
        MoveBehind(left, std::move(right));
        MoveBehind(left, std::move(condition));
        return left;
    }

    const NodeList& from_;
    size_t at_ = 0;
    bool failed_ = false;
};

// True for "SELECT *" and "a, *", but not for "t.*", "COUNT(*)" or a multiplication.
bool SelectsBareStar(const NodeList& level, size_t select, size_t from) {
    for (size_t i = select + 1; i < from; ++i) {
        if (!level[i].IsPunctuation(u"*")) continue;
        const Node& before = level[i - 1];
        if (before.IsPunctuation(u",") || before.Is(u"SELECT") || before.Is(u"DISTINCT") || before.Is(u"ALL"))
            return true;
    }
    return false;
}

void RewriteClause(NodeList& level, size_t from, size_t end) {
    const auto begin = level.begin() + static_cast<std::ptrdiff_t>(from);
    const auto behind = level.begin() + static_cast<std::ptrdiff_t>(end);
    const NodeList clause(begin, behind);
    if (!ContainsRightJoin(clause)) return;
    std::optional<NodeList> rewritten = JoinReader(clause).Read();
    if (!rewritten) return;
    // The clause may get longer or shorter: replace it as a whole.
    const auto place = level.erase(begin, behind);
    level.insert(place, std::make_move_iterator(rewritten->begin()), std::make_move_iterator(rewritten->end()));
}

}  // namespace

void RewriteRightJoins(NodeList& level) {
    size_t select = level.size();
    for (size_t i = 0; i < level.size(); ++i) {
        if (level[i].Is(u"SELECT")) select = i;
        if (!level[i].Is(u"FROM") || select == level.size()) continue;
        if (!SelectsBareStar(level, select, i)) RewriteClause(level, i + 1, EndOfFrom(level, i + 1));
        select = level.size();
    }
}

}  // namespace database
