// Part of Repair.h: rows of the general database.
#include "database/sql/Quoting.h"
#include "setup/repair/Repair.h"
#include "setup/sample/Sample.h"
#include "setup/schema/ClassTables.h"
#include "setup/schema/GeneralDatabase.h"

using namespace Qt::StringLiterals;
using database::TextLiteral;

namespace setup {

namespace {

/// The programs fix the meaning of the first classes of enrolment, of no others.
QString NameOf(const ClassTable& table, const QString& value) {
    if (table.table == u"K在籍区分"_s && value <= u"1"_s) return value == u"0"_s ? u"在籍"_s : u"退職"_s;
    return u"未登録"_s + value;
}

class GeneralRepair {
  public:
    explicit GeneralRepair(database::Connection& general) : general_(general), whole_(general) {}

    QStringList Run(const RepairRequest& request) {
        AddCompany();
        AddEras();
        FillAddresses();
        for (const ClassTable& table : kClassTables) {
            if (request.resetClasses) ResetClasses(table);
            AddClasses(table);
        }
        whole_.Commit();
        return done_;
    }

  private:
    void Execute(const QString& statement, const QString& what) {
        general_.Execute(statement);
        done_.append(what);
    }
    /// First value of the first row; a null QString without a row or table.
    QString Value(const QString& sql) const {
        return RowsOf(general_, sql).value_or(QList<QStringList>()).value(0).value(0);
    }
    bool Lacks(const QString& table, const QString& column, const QString& value) const {
        const auto rows = RowsOf(general_, u"SELECT %1 FROM %2 WHERE %1 = %3"_s.arg(column, table, TextLiteral(value)));
        return rows && rows->isEmpty();
    }

    /// The row that is still there decides about the PINs.
    void AddCompany() {
        const auto pinOf = [this](const QString& sql) {
            const QString pin = Value(sql);
            return TextLiteral(pin.isNull() ? u"0"_s : pin);
        };
        if (Lacks(u"Mユーザ"_s, u"ID"_s, u"0001"_s))
            Execute(u"INSERT INTO Mユーザ (ID, 名称, 暗証番号有無) VALUES ('0001', '未登録', %1)"_s.arg(
                        pinOf(u"SELECT 暗証番号有無 FROM M事業所 WHERE コード = '000'"_s)),
                    u"Mユーザ に会社の行 0001 を加えました。"_s);
        if (Lacks(u"M事業所"_s, u"コード"_s, u"000"_s))
            Execute(u"INSERT INTO M事業所 (コード, 名称, 暗証番号有無) VALUES ('000', '全社', %1)"_s.arg(
                        pinOf(u"SELECT 暗証番号有無 FROM Mユーザ WHERE ID = '0001'"_s)),
                    u"M事業所 に全社の行 000 を加えました。"_s);
    }

    void AddEras() {
        if (Value(u"SELECT COUNT(*) FROM K年号区分"_s) != u"0"_s) return;
        for (const QString& line : StandardEras())
            general_.Execute(u"INSERT INTO K年号区分 (開始日付, 名称) VALUES (%1, %2)"_s.arg(
                TextLiteral(line.section(u'|', 0, 0)), TextLiteral(line.section(u'|', 1))));
        done_.append(u"K年号区分 に年号を加えました。"_s);
    }

    void FillAddresses() {
        const QString condition = u" WHERE 住所A IS NOT NULL AND 住所B IS NULL"_s;
        const QString count = Value(u"SELECT COUNT(*) FROM M担当者"_s + condition);
        if (!count.isNull() && count != u"0"_s)
            Execute(u"UPDATE M担当者 SET 住所B = ''"_s + condition, u"要員 %1 名の住所B を空にしました。"_s.arg(count));
    }

    void ResetClasses(const ClassTable& table) {
        const std::optional<ClassState> state = ReadClassState(general_, table);
        if (!state || !state->HasOthers(table)) return;
        if (!table.staffColumn.isEmpty()) ResetStaff(table, *state);
        if (!table.numbered) return;
        for (const QString& value : state->rows)
            if (!IsClassDigit(value))
                Execute(u"DELETE FROM %1 WHERE 区分 = %2"_s.arg(table.table, TextLiteral(value)),
                        u"%1 の区分「%2」を取り除きました。"_s.arg(table.table, value));
    }

    void ResetStaff(const ClassTable& table, const ClassState& state) {
        QStringList conditions;
        for (const UnlistedClass& one : state.unlisted)
            if (one.value.isNull())
                conditions.append(u"%1 IS NULL"_s.arg(table.staffColumn));
            else if (!IsClassDigit(one.value))
                conditions.append(u"%1 = %2"_s.arg(table.staffColumn, TextLiteral(one.value)));
        if (table.numbered)
            for (const QString& value : state.rows)
                if (!IsClassDigit(value)) conditions.append(u"%1 = %2"_s.arg(table.staffColumn, TextLiteral(value)));
        const QString where = u" WHERE "_s + conditions.join(u" OR "_s);
        const QString count = Value(u"SELECT COUNT(*) FROM M担当者"_s + where);
        if (count != u"0"_s)
            Execute(u"UPDATE M担当者 SET %1 = '0'"_s.arg(table.staffColumn) + where,
                    u"要員 %1 名の%2を 0 にしました。"_s.arg(count, table.staffColumn));
    }

    void AddClasses(const ClassTable& table) {
        const std::optional<ClassState> state = ReadClassState(general_, table);
        if (!state) return;
        for (const QString& value : state->MissingDigits(table))
            Execute(u"INSERT INTO %1 (区分, 名称) VALUES (%2, %3)"_s.arg(table.table, TextLiteral(value),
                                                                         TextLiteral(NameOf(table, value))),
                    u"%1 に区分 %2 を加えました。"_s.arg(table.table, value));
    }

    database::Connection& general_;
    database::Transaction whole_;
    QStringList done_;
};

}  // namespace

QStringList RepairGeneral(database::Connection& general, const RepairRequest& request) {
    return GeneralRepair(general).Run(request);
}

}  // namespace setup
