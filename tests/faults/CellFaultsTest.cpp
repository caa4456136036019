#include "faults/FaultFixture.h"

using namespace Qt::StringLiterals;

namespace {

/// Numbers, which the engine has to write as text in memory of its own before anybody can read or compare them.
class NumbersUnderFaults : public FaultTest {
  protected:
    NumbersUnderFaults() {
        installation.Report().Execute(
            u"CREATE TABLE 数 (整数 INTEGER, 実数 REAL); INSERT INTO 数 VALUES (1234567, 0.5), (1234568, 5)"_s);
        KeepAsBeginning();
    }

    void Work() override {
        rows_.clear();
        platform::Connection connection;
        connection.Open(DesktopConnectionString(kAccdb, installation.Report().Path()));
        platform::Recordset record;
        record.Open(u"SELECT 整数, 実数 FROM 数 WHERE 整数 LIKE '123%' ORDER BY 整数"_s, connection);
        for (; !record.AtEOF(); record.MoveNext()) rows_.append({record[u"整数"].Text(), record[u"実数"].Text()});
    }
    void CheckBehindFault(bool untold) override {
        if (untold) CheckBehindNextWork();
    }
    void CheckBehindNextWork() override {
        EXPECT_EQ(rows_, (QList<QStringList>{{u"1234567"_s, u"0.5"_s}, {u"1234568"_s, u"5"_s}}));
    }

    QList<QStringList> rows_;
};

}  // namespace

TEST_F(NumbersUnderFaults, AreNeitherEmptyNorPassedOverWhenMemoryRanOut) { RunOutOfMemory(); }
