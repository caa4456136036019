#pragma once

#include <QByteArray>
#include <QHash>
#include <functional>
#include <memory>
#include <vector>

#include "database/DatabaseTypes.h"
#include "database/ResultTable.h"
#include "database/sql/LookupQuery.h"
#include "database/sql/ParameterisedStatement.h"
#include "database/sqlite/SqliteSession.h"

namespace database {

/// Answers small look-ups of one read scope without the way to the server. A look-up that comes again and again, and
/// differs in the values of some terms alone, has all the rows that its other terms allow fetched once, and from then
/// on runs over this copy: inside a scope, which is one snapshot, its results are the same.
///
/// That holds where copy and server compare alike, so only texts made of digits are compared here; every other value
/// goes to the server. The rows fetched never cost more than half of the look-ups that went before. Where they can't be
/// fetched nothing is copied any more: a user may be let read the columns of a look-up and no others.
class LookupCache {
  public:
    /// Runs a statement on the server, in the same scope.
    using Fetch = std::function<std::shared_ptr<ResultTable>(const QString&)>;

    LookupCache(const TextRules& rules, Fetch fetch) : rules_(rules), fetch_(std::move(fetch)) {}

    /// The rows of a statement, lifted by the caller; null where the server has to be asked. Throws what the copy
    /// throws.
    std::shared_ptr<ResultTable> Find(const QString& sql, const ParameterisedStatement& lifted);
    /// At the end of the scope.
    void Forget();

  private:
    struct Lookup {
        std::optional<LookupQuery> shape;
        std::vector<QByteArray> values;  // of the first run
        std::vector<bool> varies;
        quint64 runs = 0;
        quint64 nextTry = 16;
        std::unique_ptr<SqliteSession> copy;
    };

    std::shared_ptr<Lookup> Known(const ParameterisedStatement& lifted);
    void Note(Lookup& lookup, const ParameterisedStatement& lifted) const;
    bool Covers(const Lookup& lookup, const ParameterisedStatement& lifted) const;
    void TryCopy(Lookup& lookup);
    std::shared_ptr<ResultTable> FetchedOrNone(const QString& sql);
    bool Comparable(const Lookup& lookup, const ResultTable& rows) const;
    std::unique_ptr<SqliteSession> Filled(const Lookup& lookup, const ResultTable& rows) const;

    TextRules rules_;
    Fetch fetch_;
    bool givenUp_ = false;
    QHash<QString, std::shared_ptr<Lookup>> lookups_;  // by the text without literals
};

}  // namespace database
