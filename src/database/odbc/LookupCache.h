#pragma once

#include <QByteArray>
#include <QHash>
#include <functional>
#include <memory>
#include <vector>

#include "database/DatabaseTypes.h"
#include "database/ResultTable.h"
#include "database/sql/ParameterisedStatement.h"
#include "database/sqlite/SqliteSession.h"

namespace database {

/// Answers repeated small lookups (LookupQuery) of one read scope without a round trip to the server. If a lookup
/// recurs with other values in some terms, all rows that the unchanged terms select are fetched once into an in-memory
/// database, the copy, which answers from then on. Valid because the scope is one snapshot.
///
/// The copy compares only values that consist of digits, since server and copy may collate other text differently; a
/// lookup with another value is not answered. The number of rows that a fetch may return is limited so that it costs
/// about half the time of the lookups made before it. After a failed fetch nothing is copied any more on this
/// connection: the user may have permission for the lookup's columns only.
class LookupCache {
  public:
    /// Runs a statement on the server, in the same scope. Throws DatabaseError.
    using Fetch = std::function<std::shared_ptr<ResultTable>(const QString&)>;

    LookupCache(const TextRules& rules, Fetch fetch) : rules_(rules), fetch_(std::move(fetch)) {}

    /// Rows of a statement, or null if the caller must query the server. `lifted`: the same statement after Lift.
    /// Throws DatabaseError if the copy fails; a failed fetch is ignored.
    std::shared_ptr<ResultTable> Find(const QString& sql, const ParameterisedStatement& lifted);
    /// Deletes all copies. To be called at the end of the scope.
    void Forget();

  private:
    struct Lookup {
        std::optional<LookupQuery> shape;
        std::vector<QByteArray> values;  // of the first run
        std::vector<bool> varies;        // by literal: a later run had another value
        quint64 runs = 0;
        quint64 nextTry = 16;  // number of runs before the next fetch
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
    QHash<QString, std::shared_ptr<Lookup>> lookups_;  // by statement text without literals
};

}  // namespace database
