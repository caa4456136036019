// Part of ServerSchema.h: FindServerTextFaults.

#include "data/ServerSchema.h"

#include "database/DatabaseSession.h"

using namespace Qt::StringLiterals;

namespace {

QList<QStringList> Rows(database::Connection& connection, const QString& sql) {
    database::Recordset record;
    QList<QStringList> rows;
    for (record.Open(sql, connection); !record.AtEOF(); record.MoveNext()) {
        rows.emplace_back();
        for (int column = 0; column < record.FieldCount(); ++column)
            rows.last().append(record.FieldAt(column).TextOr(QString()));
    }
    return rows;
}

/// The catalogue's column for a column name as stored by the engine.
const ColumnDefinition* SuiteColumn(const QString& engine, const TableDefinition& table, const QString& kept) {
    for (const ColumnDefinition& column : table.columns)
        if (KeptServerName(engine, column.name).compare(kept, Qt::CaseInsensitive) == 0) return &column;
    return nullptr;
}

class Search {
  public:
    explicit Search(database::Connection& general) : general_(general), engine_(general.Session().EngineName()) {}

    QList<ServerTextFault> Run() {
        FindMissingFunctions();
        if (engine_.startsWith(u"PostgreSQL"_s)) FindPostgresCollations();
        if (engine_.startsWith(u"MariaDB"_s) || engine_.startsWith(u"MySQL"_s)) FindMariaDbCollations();
        return faults_;
    }

  private:
    void FindMissingFunctions() {
        const QString sql =
            u"SELECT has_function_privilege(p.oid, 'EXECUTE') FROM pg_proc p"
            u" WHERE p.proname = '%1' AND p.pronargs = 1 AND pg_function_is_visible(p.oid)"_s;
        for (const auto& [name, statement] : ServerFunctionsOf(engine_)) {
            const QList<QStringList> rows = Rows(general_, sql.arg(name));
            if (rows.isEmpty())
                faults_.append({u"関数 %1 がありません"_s.arg(name),
                                u"suite-setup server-init --odbc 所有者の接続文字列 --add-missing"_s});
            else if (rows.first().first() != u"1"_s && rows.first().first() != u"t"_s)
                faults_.append({u"関数 %1 を使う権限がありません"_s.arg(name),
                                u"GRANT EXECUTE ON FUNCTION %1(text) TO PUBLIC"_s.arg(name)});
        }
    }

    /// Older server versions have no nondeterministic collations and lack the queried column, so the statement fails.
    QList<QStringList> NondeterministicColumns() {
        try {
            return Rows(general_,
                        u"SELECT c.relname, a.attname, o.collname FROM pg_attribute a"
                        u" INNER JOIN pg_class c ON c.oid = a.attrelid"
                        u" INNER JOIN pg_collation o ON o.oid = a.attcollation"
                        u" WHERE pg_table_is_visible(c.oid) AND a.attnum > 0 AND NOT a.attisdropped"
                        u" AND NOT o.collisdeterministic ORDER BY c.relname, a.attnum"_s);
        } catch (const database::DatabaseError& error) {
            if (error.Number() != database::kStatementFailure) throw;
            return {};
        }
    }

    void FindPostgresCollations() {
        const QList<QStringList> columns = NondeterministicColumns();
        for (const TableDefinition& table : TablesOf(DatabaseKind::General))
            for (const QStringList& row : columns) {
                if (KeptServerName(engine_, table.name) != row[0]) continue;
                const ColumnDefinition* column = SuiteColumn(engine_, table, row[1]);
                if (column == nullptr) continue;
                Add(table.name, column->name, row[2],
                    u"ALTER TABLE %1 ALTER COLUMN %2 TYPE text COLLATE \"C\""_s.arg(ServerName(engine_, table.name),
                                                                                    ServerName(engine_, column->name)));
            }
    }

    /// Exact collations compare code points without blank padding. Columns of bytes have no collation.
    static bool IsExact(const QString& collation) {
        return collation.endsWith(u"_nopad_bin"_s) || collation.endsWith(u"_0900_bin"_s) || collation == u"binary"_s;
    }

    void FindMariaDbCollations() {
        const QList<QStringList> columns =
            Rows(general_,
                 u"SELECT table_name, column_name, collation_name FROM information_schema.columns"
                 u" WHERE table_schema = DATABASE() AND collation_name IS NOT NULL"
                 u" ORDER BY table_name, ordinal_position"_s);
        for (const TableDefinition& table : TablesOf(DatabaseKind::General))
            for (const QStringList& row : columns) {
                if (table.name.compare(row[0], Qt::CaseInsensitive) != 0 || IsExact(row[2])) continue;
                const ColumnDefinition* column = SuiteColumn(engine_, table, row[1]);
                if (column == nullptr) continue;
                Add(table.name, column->name, row[2],
                    u"ALTER TABLE `%1` CONVERT TO CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin"_s.arg(table.name));
            }
    }

    /// Reports only the first of several columns with the same remedy.
    void Add(const QString& table, const QString& column, const QString& collation, const QString& remedy) {
        if (!faults_.isEmpty() && faults_.last().remedy == remedy) return;
        faults_.append(
            {u"列 %1.%2 の照合順序 %3 は異なる文字を同じとみなします"_s.arg(table, column, collation), remedy});
    }

    database::Connection& general_;
    QString engine_;
    QList<ServerTextFault> faults_;
};

}  // namespace

QList<ServerTextFault> FindServerTextFaults(database::Connection& general) {
    if (!general.IsOpen() || general.Session().EngineName().isEmpty()) return {};
    return Search(general).Run();
}
