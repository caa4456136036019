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

/// Answers repeated small lookups of one read scope without a round trip to the server. For a lookup that recurs with
/// different values in some terms, all rows that the constant terms select are fetched once into an in-memory database,
/// which answers from then on. Valid because the scope is one snapshot.
///
/// Only values made of digits are compared locally, since server and copy may collate other text differently; all other
/// values go to the server. A fetch may cost at most half of the lookups made before it. After a failed fetch, copying
/// is disabled for the connection: the user may have permission for the lookup's columns only.
class LookupCache {
  public:
    /// Runs a statement on the server, in the same scope.
    using Fetch = std::function<std::shared_ptr<ResultTable>(const QString&)>;

    LookupCache(const TextRules& rules, Fetch fetch) : rules_(rules), fetch_(std::move(fetch)) {}

    /// Rows of a statement, or null if the server must be queried. `lifted` is the same statement, already lifted by
    /// the caller. Throws DatabaseError if the copy fails.
    std::shared_ptr<ResultTable> Find(const QString& sql, const ParameterisedStatement& lifted);
    /// To be called at the end of the scope.
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
    QHash<QString, std::shared_ptr<Lookup>> lookups_;  // by statement text without literals
};

}  // namespace database
