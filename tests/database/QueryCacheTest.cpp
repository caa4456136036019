#include "database/QueryCache.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace database;

namespace {

std::shared_ptr<ResultTable> Result(qsizetype bytes) {
    auto columns = std::make_shared<ColumnSet>();
    columns->Add(u"a"_s, u"TEXT"_s);
    auto table = std::make_shared<ResultTable>(columns);
    table->BeginRow();
    table->AppendText(QByteArray(bytes, 'x'));
    return table;
}

}  // namespace

TEST(QueryCache, AnswersEqualTextsUntilItForgets) {
    QueryCache memory;
    const auto result = Result(10);
    memory.Keep(u"one"_s, result, std::make_shared<StatementUse>());
    EXPECT_EQ(memory.Find(u"one"_s), result);
    EXPECT_EQ(memory.Find(u"two"_s), nullptr);
    memory.Forget();
    EXPECT_EQ(memory.Find(u"one"_s), nullptr);
}

TEST(QueryCache, LargeResultsAreNotKept) {
    QueryCache memory;
    memory.Keep(u"large"_s, Result(QueryCache::kLargestResult + 1), std::make_shared<StatementUse>());
    EXPECT_EQ(memory.Find(u"large"_s), nullptr);
}

TEST(QueryCache, EntriesAreBounded) {
    QueryCache memory;
    const auto result = Result(1);
    int kept = 0;
    for (int i = 0; i < QueryCache::kMostEntries + 100; ++i) {
        memory.Keep(QString::number(i), result, std::make_shared<StatementUse>());
        if (memory.Find(QString::number(i)) != nullptr) ++kept;
    }
    EXPECT_EQ(kept, QueryCache::kMostEntries);
}

TEST(QueryCache, BytesAreBounded) {
    QueryCache memory;
    const auto result = Result(QueryCache::kLargestResult / 2);
    int kept = 0;
    for (int i = 0; i < QueryCache::kMostEntries; ++i) {
        memory.Keep(QString::number(i), result, std::make_shared<StatementUse>());
        if (memory.Find(QString::number(i)) != nullptr) ++kept;
    }
    EXPECT_LE(kept * result->Size(), QueryCache::kMostBytes);
    EXPECT_GT(kept, 5000);
}

TEST(QueryCache, AStatementThatNeverComesTwicePushesNobodyOut) {
    QueryCache memory;
    const auto result = Result(1);
    const auto lonely = std::make_shared<StatementUse>();
    const auto busy = std::make_shared<StatementUse>();
    int keptOfLonely = 0;
    for (int i = 0; i < 5000; ++i) {
        memory.Keep(u"lonely %1"_s.arg(i), result, lonely);
        memory.Keep(u"busy %1"_s.arg(i), result, busy);
        EXPECT_NE(memory.Find(u"busy %1"_s.arg(i)), nullptr);
    }
    for (int i = 0; i < 5000; ++i)
        if (memory.Find(u"lonely %1"_s.arg(i)) != nullptr) ++keptOfLonely;
    EXPECT_LT(keptOfLonely, 300);
}
