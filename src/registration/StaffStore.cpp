#include "registration/StaffStore.h"

#include "data/Connections.h"
#include "data/RunHistory.h"
#include "globals/ProgramGlobals.h"
#include "platform/Services.h"
#include "text/TimeStamp.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace {

QString Literal(const QString& text) { return u'\'' + QuoteSqlText(text) + u'\''; }

QString OfPerson(const QString& code) { return u" WHERE コード = "_s + Literal(code); }

StaffRecord RecordFrom(const database::Recordset& row) {
    const auto text = [&row](QStringView column) { return row[column].TextOr(QString()); };
    StaffRecord record{text(u"コード"), {}, text(u"登録日付"), text(u"更新日付")};
    for (size_t i = 0; i < kStaffItemCount; ++i) record.values[i] = text(kStaffItems[i].column);
    return record;
}

QString UpdateStatement(const QString& code, const StaffValues& values) {
    QString sql = u"UPDATE M担当者 SET "_s;
    for (size_t i = 0; i < kStaffItemCount; ++i)
        sql += kStaffItems[i].column.toString() + u" = "_s + Literal(values[i]) + u", "_s;
    return sql + u"更新日付 = "_s + Literal(TimeStamp(platform::Services().clock->Now())) + OfPerson(code);
}

/// The three columns of a slip are empty texts, not Nulls: a person has no slip, and readers compare with "".
QString ViewStatement(const QString& viewer, const QString& seen, ViewKind kind) {
    const QString stamp = TimeStamp(platform::Services().clock->Now());
    return u"INSERT INTO T閲覧 (担当者コード,閲覧情報,伝票事業所コード,伝票番号基準日付,伝票No,キー項目,閲覧日付,"
           u"閲覧時刻,閲覧区分) VALUES ("_s +
           QStringList{Literal(viewer),
                       Literal(Globals().ProgramId),
                       u"''"_s,
                       u"''"_s,
                       u"''"_s,
                       Literal(seen),
                       Literal(stamp.left(8)),
                       Literal(stamp.mid(9)),
                       Literal(QString::number(static_cast<int>(kind)))}
               .join(u',') +
           u')';
}

}  // namespace

bool StaffStore::Open() {
    try {
        OpenForWriting(connection_);
        return true;
    } catch (const database::DatabaseError& error) {
        RecordRunError(u"DB_OPEN ERROR"_s + QString::number(error.Number()) + u' ' + error.Description());
        return false;
    }
}

void StaffStore::Execute(const QString& sql) {
    statement_ = sql;
    connection_.Execute(sql);
}

bool StaffStore::Read(const QString& code, StaffRecord& record) {
    statement_ = u"SELECT * FROM M担当者"_s + OfPerson(code);
    database::Recordset row;
    row.Open(statement_, connection_);
    const bool found = !row.AtEOF();
    if (found) record = RecordFrom(row);
    return found;
}

StoreOutcome StaffStore::Load(const QString& code, StaffRecord& record) {
    try {
        return Read(code, record) ? StoreOutcome::Done : StoreOutcome::Gone;
    } catch (const database::DatabaseError& error) {
        RecordRunError(error.Description() + statement_);
        return StoreOutcome::Failed;
    }
}

template <typename Write>
StoreOutcome StaffStore::WriteUnlessChanged(const StaffRecord& before, const Write& write) {
    statement_.clear();
    try {
        database::Transaction whole(connection_);
        // Locks the row: servers lock a row for a writer, not for a reader.
        Execute(u"UPDATE M担当者 SET コード = コード"_s + OfPerson(before.担当者コード));
        StaffRecord now;
        if (!Read(before.担当者コード, now)) return StoreOutcome::Gone;
        if (now != before) return StoreOutcome::Changed;
        write();
        whole.Commit();
        return StoreOutcome::Done;
    } catch (const database::DatabaseError& error) {
        RecordRunError(error.Description() + statement_);
        return StoreOutcome::Failed;
    }
}

StoreOutcome StaffStore::Save(const StaffRecord& before, const StaffValues& entered) {
    return WriteUnlessChanged(before, [&] {
        Execute(UpdateStatement(before.担当者コード, entered));
        const QString& viewer = Globals().Staff.LaunchingStaffCode;
        if (!viewer.isEmpty()) Execute(ViewStatement(viewer, before.担当者コード, ViewKind::Saved));
    });
}

StoreOutcome StaffStore::Delete(const StaffRecord& before) {
    return WriteUnlessChanged(before, [&] {
        Execute(u"DELETE FROM 担当者別操作許可プログラム WHERE 担当者コード = "_s + Literal(before.担当者コード));
        Execute(u"DELETE FROM M担当者"_s + OfPerson(before.担当者コード));
    });
}

void StaffStore::LogView(const QString& code, ViewKind kind) {
    const QString& viewer = Globals().Staff.LaunchingStaffCode;
    if (viewer.isEmpty()) return;
    try {
        Execute(ViewStatement(viewer, code, kind));
    } catch (const database::DatabaseError& error) {
        RecordRunError(error.Description() + statement_);
    }
}
