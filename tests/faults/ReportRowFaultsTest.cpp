#include "database/sqlite/OpenSqlite.h"
#include "faults/FaultFixture.h"
#include "report-host/layout/ReportRowStore.h"

using namespace Qt::StringLiterals;

namespace {

const QStringList kColumns = {u"コード"_s, u"氏名"_s, u"担当者メモ"_s};

/// The report host copies the rows of a work table into a private temporary database and reads them page by page.
class ReportRowsUnderFaults : public FaultTest {
  protected:
    ReportRowsUnderFaults() {
        // Larger than the engine's page cache for the row store, so that its file is written.
        installation.Report().Execute(
            u"WITH n(i) AS (SELECT 3 UNION ALL SELECT i + 1 FROM n WHERE i < 300)"
            u" INSERT INTO 要員名簿照会 (コード, 氏名, 担当者メモ)"
            u" SELECT printf('%05d', i), '佐々木　愛', replace(hex(zeroblob(200)), '00', '記録') FROM n;"
            u"INSERT INTO 要員名簿照会 (コード, 氏名, 担当者メモ) VALUES ('00002', '佐藤　花子', NULL),"
            u" ('00001', '山田　太郎', '英語が話せる')"_s);
        KeepAsBeginning();
    }

    void Work() override {
        rows_.clear();
        database::ConnectionRequest request;
        request.dataSource = installation.Report().Path();
        request.mode = database::ConnectMode::Read;
        const database::SqliteDatabase source = database::OpenSqliteFile(request);
        Read(source.get());
    }
    void Read(sqlite3* source) {
        try {
            report::ReportRowStore store(source, u"要員名簿照会"_s, kColumns, {u"コード"_s});
            for (int row = 0; row < store.Count(); ++row) rows_ << store.Row(row);
        } catch (const database::DatabaseError& error) {
            EXPECT_FALSE(error.Description().contains(u"no transaction is active"_s)) << "a failed BEGIN was ignored";
            throw;
        }
    }
    void CheckBehindFault(bool untold) override {
        if (untold) CheckBehindNextWork();
    }
    void CheckBehindNextWork() override {
        ASSERT_EQ(rows_.size(), 300);
        EXPECT_EQ(rows_.first(2), (QList<QStringList>{{u"00001"_s, u"山田　太郎"_s, u"英語が話せる"_s},
                                                      {u"00002"_s, u"佐藤　花子"_s, QString()}}));
        for (int row = 2; row < 300; ++row)
            EXPECT_EQ(rows_.at(row), (QStringList{QString::number(row + 1).rightJustified(5, u'0'), u"佐々木　愛"_s,
                                                  u"記録"_s.repeated(200)}));
    }
    /// The row store is temporary, so the engine neither syncs nor deletes its file.
    bool AsksFor(DiskOperation operation) const override {
        return operation != DiskOperation::Sync && operation != DiskOperation::Delete;
    }

    QList<QStringList> rows_;
};

}  // namespace

TEST_F(ReportRowsUnderFaults, OneFaultOfTheDiskIsToldOrEveryRowIsThere) { EXPECT_GT(FailOnce(), 15); }

TEST_F(ReportRowsUnderFaults, NoCellIsPrintedEmptyWhenMemoryRanOut) { EXPECT_GT(RunOutOfMemory(), 300); }
