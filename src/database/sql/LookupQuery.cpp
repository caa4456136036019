// Part of ParameterisedStatement.h: ReadLookup.

#include "database/sql/ParameterisedStatement.h"

#include <algorithm>
#include <array>

#include "database/sql/SyntaxTree.h"

namespace database {
namespace {

constexpr std::array<QStringView, 5> kOperators = {u"=", u"<", u">", u"<=", u">="};

/// Recursive-descent parser; members return false or an empty value on a mismatch.
class Reader {
  public:
    explicit Reader(const NodeList& level) : level_(level) {}

    bool AtEnd() const { return at_ >= level_.size() || level_[at_].IsPunctuation(u";"); }
    bool Take(QStringView keyword) {
        if (at_ >= level_.size() || !level_[at_].Is(keyword)) return false;
        ++at_;
        return true;
    }
    // Columns are not parsed, but rejected if they contain a bracket, which may be a subquery.
    bool SkipColumns() {
        while (at_ < level_.size() && !level_[at_].Is(u"FROM")) {
            if (level_[at_].group) return false;
            ++at_;
        }
        return at_ < level_.size();
    }
    // The last part of a qualified name, without [].
    QString Name() {
        if (at_ >= level_.size() || !level_[at_].IsName()) return {};
        at_ = EndOfName(level_, at_);
        return level_[at_ - 1].IsName() ? NameOf(level_[at_ - 1]) : QString();
    }
    bool TakeTerm(LookupQuery::Term& term) {
        term.column = Name();
        if (term.column.isEmpty() || at_ + 1 >= level_.size() || level_[at_].group) return false;
        term.op = level_[at_++].token.text;
        const Node& value = level_[at_++];
        if (value.group || value.token.kind != TokenKind::Parameter) return false;
        term.literal = value.token.text.mid(1).toULong() - 1;
        return std::any_of(kOperators.begin(), kOperators.end(), [&](QStringView op) { return term.op == op; });
    }
    bool TakeOrderItem(QStringList& columns) {
        columns.append(Name());
        if (!Take(u"DESC")) Take(u"ASC");
        return !columns.last().isEmpty();
    }
    bool TakeComma() {
        if (at_ >= level_.size() || !level_[at_].IsPunctuation(u",")) return false;
        ++at_;
        return true;
    }

  private:
    const NodeList& level_;
    size_t at_ = 0;
};

bool ReadTerms(Reader& reader, LookupQuery& shape) {
    do {
        LookupQuery::Term term;
        if (!reader.TakeTerm(term)) return false;
        shape.terms.push_back(term);
    } while (reader.Take(u"AND"));
    return true;
}

bool ReadOrder(Reader& reader, LookupQuery& shape) {
    if (!reader.Take(u"ORDER")) return true;
    if (!reader.Take(u"BY")) return false;
    do {
        if (!reader.TakeOrderItem(shape.order)) return false;
    } while (reader.TakeComma());
    return true;
}

}  // namespace

std::optional<LookupQuery> ReadLookup(const QString& lifted) {
    const std::optional<SyntaxTree> tree = ParseStatement(lifted);
    if (!tree) return std::nullopt;
    Reader reader(tree->level);
    LookupQuery shape;
    if (!reader.Take(u"SELECT") || !reader.SkipColumns() || !reader.Take(u"FROM")) return std::nullopt;
    shape.table = reader.Name();
    if (shape.table.isEmpty() || !reader.Take(u"WHERE")) return std::nullopt;
    if (!ReadTerms(reader, shape) || !ReadOrder(reader, shape) || !reader.AtEnd()) return std::nullopt;
    return shape;
}

}  // namespace database
