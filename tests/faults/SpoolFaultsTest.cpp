#include "faults/FaultFixture.h"
#include "platform/database/SqliteOpening.h"
#include "report-host/RowSpool.h"

using namespace Qt::StringLiterals;

namespace {

const QStringList kColumns = {u"コード"_s, u"氏名"_s, u"担当者メモ"_s};

/// The report host takes the rows of a work table into a file of its own and reads them from there, page by page.
class SpoolUnderFaults : public FaultTest {
  protected:
    SpoolUnderFaults() {
        installation.Report().Execute(
            u"INSERT INTO 要員名簿照会 (コード, 氏名, 担当者メモ) VALUES ('00002', '佐藤　花子', NULL),"
            u" ('00001', '山田　太郎', '英語が話せる')"_s);
        KeepAsBeginning();
    }

    void Work() override {
        rows_.clear();
        platform::ConnectionRequest request;
        request.dataSource = installation.Report().Path();
        request.mode = platform::ConnectMode::Read;
        const platform::SqliteDatabase source = platform::OpenSqliteFile(request);
        report::RowSpool spool(source.get(), u"要員名簿照会"_s, kColumns, {u"コード"_s});
        for (int row = 0; row < spool.Count(); ++row) rows_ << spool.Row(row);
    }
    void CheckBehindFault(bool untold) override {
        if (untold) CheckBehindNextWork();
    }
    void CheckBehindNextWork() override {
        EXPECT_EQ(rows_, (QList<QStringList>{{u"00001"_s, u"山田　太郎"_s, u"英語が話せる"_s},
                                             {u"00002"_s, u"佐藤　花子"_s, QString()}}));
    }

    QList<QStringList> rows_;
};

}  // namespace

TEST_F(SpoolUnderFaults, OneFaultOfTheDiskIsToldOrEveryRowIsThere) { EXPECT_GT(FailOnce(), 15); }

TEST_F(SpoolUnderFaults, NoCellIsPrintedEmptyWhenMemoryRanOut) { EXPECT_GT(RunOutOfMemory(), 300); }
