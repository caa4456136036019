#include <QTemporaryDir>
#include <optional>

#include "faults/FaultFixture.h"
#include "output/ReportData.h"
#include "output/TextOutput.h"
#include "support/FullDisk.h"

using namespace Qt::StringLiterals;
using enum StaffText;

namespace {

/// A text output of two rows: the work table is refilled and exported to the file.
class OutputUnderFaults : public FaultTest {
  protected:
    OutputUnderFaults() {
        for (const QString& code : {u"00001"_s, u"00002"_s})
            AddRow({{担当者コード, code}, {担当者名, u"氏名"_s + code}, {生年月日, u"19800402"_s}});
        Globals().TextOutputFileName = folder_.filePath(u"a.csv"_s);
        installation.Report().Execute(u"INSERT INTO 要員名簿照会 (コード) VALUES ('99999')"_s);
        KeepAsBeginning();
        Work();
        EndProgram();
        file_ = ReadBytes(Globals().TextOutputFileName);
        table_ = WorkRows(u"要員名簿照会"_s);
    }

    void Work() override {
        QFile::remove(Globals().TextOutputFileName);
        OpenConnections();
        RunTextOutput();
    }
    void CheckBehindFault(bool untold) override {
        if (untold) CheckBehindNextWork();
    }
    void CheckBehindNextWork() override {
        EXPECT_EQ(WorkRows(u"要員名簿照会"_s), table_);
        EXPECT_EQ(ReadBytes(Globals().TextOutputFileName), file_);
    }

    QTemporaryDir folder_;
    QByteArray file_;
    QList<QStringList> table_;
};

}  // namespace

TEST_F(OutputUnderFaults, WritesBothRowsWithoutOne) {
    EXPECT_EQ(file_.count('\n'), 3);
    EXPECT_EQ(table_.size(), 2);
    EXPECT_TRUE(table_.first().contains(u"表示生年月日=昭和55年04月02日"_s)) << table_.first().join(u'|').toStdString();
}

TEST_F(OutputUnderFaults, OneFaultOfTheDiskIsToldOrTheFileIsWhole) { EXPECT_GT(FailOnce(), 15); }

TEST_F(OutputUnderFaults, BrokenReportDatabaseIsToldAndTheNextFileIsWhole) { EXPECT_GT(FailFromThenOn("repdb"), 15); }

TEST_F(OutputUnderFaults, FileThatTheDiskHasNoRoomForIsToldAndTheNextOneIsWhole) {
    std::optional<FullDisk> full;
    Try({u"no room for the file"_s, [&](int point) { full.emplace(37 * (point - 1)); },
         [&] {
             full.reset();
             return ReadBytes(Globals().TextOutputFileName) != file_;
         }});
    EXPECT_GT(PrintTried(), 15);
}

TEST_F(OutputUnderFaults, LackOfMemoryIsToldOrTheFileIsWhole) { EXPECT_GT(RunOutOfMemory(), 300); }
