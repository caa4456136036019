// Records added through a recordset, and scratch files.

#include <gtest/gtest.h>

#include "database/Database.h"
#include "database/DatabaseFile.h"

using namespace Qt::StringLiterals;
using namespace database;

namespace {

class AddedRecords : public testing::Test {
  protected:
    void SetUp() override {
        file.Run(u"CREATE TABLE 表 (a TEXT, b TEXT DEFAULT '既定', c TEXT)"_s);
        connection.Scratch = true;
        connection.Open(file.ConnectionString());
        OpenForUpdate(u"SELECT * FROM 表"_s);
    }
    void OpenForUpdate(const QString& sql) { records.Open(sql, connection, CursorType::Keyset, LockType::Optimistic); }
    QString Stored() const {
        return file.Value(
            u"SELECT group_concat(coalesce(a, '(null)') || '/' || coalesce(b, '(null)') || '/' ||"
            u" coalesce(c, '(null)'), ' ') FROM (SELECT * FROM 表 ORDER BY rowid)"_s);
    }

    DatabaseFile file{u"repdb.accdb"_s};
    Connection connection;
    Recordset records;
};

}  // namespace

TEST_F(AddedRecords, StandInTheTableWithWhatWasWrittenAndTheDefaults) {
    records.AddNew();
    records.Write(u"A", u"1"_s);
    records.Write(u"c", QString());
    records.Update();
    EXPECT_EQ(Stored(), u"1/既定/"_s);
    records.AddNew();
    records.Write(u"b", u"2"_s);
    records.Update();
    EXPECT_EQ(Stored(), u"1/既定/ (null)/2/(null)"_s);
}

TEST_F(AddedRecords, WithoutAnyFieldIsARecordOfDefaults) {
    records.AddNew();
    records.Update();
    EXPECT_EQ(Stored(), u"(null)/既定/(null)"_s);
}

TEST_F(AddedRecords, AFieldWrittenTwiceKeepsTheLastValue) {
    records.AddNew();
    records.Write(u"a", u"1"_s);
    records.Write(u"b", u"2"_s);
    records.Write(u"a", u"3"_s);
    records.Update();
    EXPECT_EQ(Stored(), u"3/2/(null)"_s);
}

TEST_F(AddedRecords, CanBeReadBackWhileTheyAreMadeAndAfterwards) {
    records.AddNew();
    EXPECT_TRUE(records[u"a"].IsNull());
    records.Write(u"a", u"山"_s);
    EXPECT_EQ(records[u"a"].Text(), u"山"_s);
    records.Write(u"a", records[u"a"].Text() + u" 様"_s);
    records.Update();
    EXPECT_EQ(records[u"a"].Text(), u"山 様"_s);
    EXPECT_EQ(Stored(), u"山 様/既定/(null)"_s);
}

TEST_F(AddedRecords, AUnknownFieldIsRefusedAndTheRecordGoesOn) {
    records.AddNew();
    EXPECT_EQ(NumberOf([&] { records.Write(u"無い", u"1"_s); }), platform::kItemNotFound);
    records.Write(u"a", u"1"_s);
    records.Update();
    EXPECT_EQ(Stored(), u"1/既定/(null)"_s);
}

TEST_F(AddedRecords, WritesAndUpdatesNeedARecordInWork) {
    EXPECT_EQ(NumberOf([&] { records.Write(u"a", u"1"_s); }), kNoCurrentRecord);
    EXPECT_EQ(NumberOf([&] { records.Update(); }), kNoCurrentRecord);
    records.AddNew();
    records.Update();
    EXPECT_EQ(NumberOf([&] { records.Update(); }), kNoCurrentRecord);
}

TEST_F(AddedRecords, AddNewStoresTheRecordBefore) {
    records.AddNew();
    records.Write(u"a", u"1"_s);
    records.AddNew();
    EXPECT_EQ(Stored(), u"1/既定/(null)"_s);
}

TEST_F(AddedRecords, AreTheLastRecordForMoveNext) {
    file.Run(u"INSERT INTO 表 (a) VALUES ('1'), ('2')"_s);
    OpenForUpdate(u"SELECT * FROM 表"_s);
    records.AddNew();
    records.Write(u"a", u"3"_s);
    records.Update();
    EXPECT_FALSE(records.AtEOF());
    EXPECT_EQ(records[u"a"].Text(), u"3"_s);
    records.MoveNext();
    EXPECT_TRUE(records.AtEOF());
    EXPECT_EQ(NumberOf([&] { records[u"a"]; }), kNoCurrentRecord);
    EXPECT_EQ(NumberOf([&] { records.MoveNext(); }), kNoCurrentRecord);
}

TEST_F(AddedRecords, AreCurrentInAnEmptyTableAndStoredByMoveNext) {
    EXPECT_TRUE(records.AtBOF());
    records.AddNew();
    records.Write(u"a", u"1"_s);
    EXPECT_FALSE(records.AtBOF());
    EXPECT_FALSE(records.AtEOF());
    records.MoveNext();
    EXPECT_EQ(Stored(), u"1/既定/(null)"_s);
    EXPECT_TRUE(records.AtEOF());
    EXPECT_EQ(NumberOf([&] { records[u"a"]; }), kNoCurrentRecord);
    records.Close();
}

TEST_F(AddedRecords, CloseIsRefusedWhileARecordIsInWork) {
    records.AddNew();
    EXPECT_EQ(NumberOf([&] { records.Close(); }), kNotAllowedHere);
    records.Update();
    records.Close();
    EXPECT_FALSE(records.IsOpen());
    EXPECT_EQ(NumberOf([&] { records.AddNew(); }), kObjectClosed);
}

TEST_F(AddedRecords, ARefusedRecordIsStillInWork) {
    file.Run(u"CREATE UNIQUE INDEX i ON 表 (a); INSERT INTO 表 (a) VALUES ('1')"_s);
    records.AddNew();
    records.Write(u"a", u"1"_s);
    EXPECT_EQ(NumberOf([&] { records.Update(); }), kIntegrityViolation);
    records.Write(u"a", u"2"_s);
    records.Update();
    EXPECT_EQ(Stored(), u"1/既定/(null) 2/既定/(null)"_s);
}

TEST_F(AddedRecords, NeedARecordsetForUpdatesOfOneTable) {
    Recordset other;
    other.Open(u"SELECT * FROM 表"_s, connection);
    EXPECT_EQ(NumberOf([&] { other.AddNew(); }), kNotUpdatable);
    EXPECT_EQ(NumberOf([&] { OpenForUpdate(u"SELECT COUNT(*) AS 件数 FROM 表"_s); }), kNotUpdatable);
    file.Run(u"CREATE TABLE 表二 (d TEXT)"_s);
    EXPECT_EQ(NumberOf([&] { OpenForUpdate(u"SELECT 表.a, 表二.d FROM 表 INNER JOIN 表二 ON 表.a = 表二.d"_s); }),
              kNotUpdatable);
}

TEST_F(AddedRecords, OutliveNeitherTheirConnectionNorItsFile) {
    records.AddNew();
    connection.Close();
    EXPECT_EQ(NumberOf([&] { records.Update(); }), kObjectClosed);
}

TEST_F(AddedRecords, AreThereForOthersAtOnceAndEndAReadScope) {
    const ReadScope scope(connection);
    Recordset counted;
    const QString count = u"SELECT COUNT(*) AS 件数 FROM 表"_s;
    counted.Open(count, connection);
    EXPECT_EQ(counted[u"件数"].Text(), u"0"_s);
    records.AddNew();
    records.Update();
    EXPECT_EQ(file.Value(u"SELECT COUNT(*) FROM 表"_s), u"1"_s);
    counted.Open(count, connection);
    EXPECT_EQ(counted[u"件数"].Text(), u"1"_s);
}

TEST_F(AddedRecords, OfAFileThatMayOnlyBeReadAreRefused) {
    Connection reader;
    reader.Mode = ConnectMode::Read;
    reader.Open(file.ConnectionString());
    records.Open(u"SELECT * FROM 表"_s, reader, CursorType::Keyset, LockType::Optimistic);
    records.AddNew();
    EXPECT_EQ(NumberOf([&] { records.Update(); }), kPermissionDenied);
}

TEST_F(AddedRecords, ColumnsAreKnownByPlaceAlsoWithoutARow) {
    EXPECT_EQ(records.FieldCount(), 3);
    EXPECT_EQ(records.FieldName(1), u"b"_s);
    EXPECT_EQ(records.FieldType(1), u"TEXT"_s);
    EXPECT_EQ(records.RecordCount(), 0);
    EXPECT_EQ(NumberOf([&] { records.FieldAt(0); }), kNoCurrentRecord);
    file.Run(u"INSERT INTO 表 VALUES ('1', '2', NULL)"_s);
    OpenForUpdate(u"SELECT * FROM 表"_s);
    EXPECT_EQ(records.RecordCount(), 1);
    EXPECT_EQ(records.FieldAt(1).Text(), u"2"_s);
    EXPECT_TRUE(records.FieldAt(2).IsNull());
}

TEST(ScratchFile, WaitsForNoDiskAndKeepsItsJournalInMemoryUnlikeAnyOther) {
    const DatabaseFile file;
    file.Run(u"CREATE TABLE 表 (a TEXT)"_s);
    for (const bool scratch : {false, true}) {
        Connection connection;
        connection.Scratch = scratch;
        connection.Open(file.ConnectionString());
        EXPECT_EQ(Column(connection, u"PRAGMA synchronous"_s, u"synchronous").value(0), scratch ? u"0"_s : u"2"_s);
        EXPECT_EQ(Column(connection, u"PRAGMA journal_mode"_s, u"journal_mode").value(0),
                  scratch ? u"memory"_s : u"delete"_s);
    }
}
