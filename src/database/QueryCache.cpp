#include "database/QueryCache.h"

namespace database {
namespace {

constexpr quint32 kTrial = 256;        // results a statement may cache before hits are required
constexpr quint32 kPayingShare = 8;    // one hit per this many cached results is enough
constexpr qsizetype kEntryCost = 160;  // bytes of overhead per entry, approximately

bool Pays(const StatementUse& use) { return use.cached < kTrial || use.hits >= use.cached / kPayingShare; }

}  // namespace

std::shared_ptr<ResultTable> QueryCache::Find(const QString& sql) {
    const auto found = entries_.constFind(sql);
    if (found == entries_.cend()) return nullptr;
    ++found->use->hits;
    return found->result;
}

void QueryCache::Keep(const QString& sql, const std::shared_ptr<ResultTable>& result,
                      const std::shared_ptr<StatementUse>& use) {
    if (!Pays(*use) || entries_.size() >= kMostEntries) return;
    const qsizetype size = result->Size();
    const qsizetype cost = size + sql.size() * static_cast<qsizetype>(sizeof(QChar)) + kEntryCost;
    if (size > kLargestResult || bytes_ + cost > kMostBytes) return;
    entries_.insert(sql, {result, use});
    bytes_ += cost;
    ++use->cached;
}

void QueryCache::Forget() {
    entries_ = {};
    bytes_ = 0;
}

}  // namespace database
