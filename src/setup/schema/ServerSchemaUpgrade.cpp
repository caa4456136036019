// Part of SchemaUpgrade.h: the upgrade of a database on a server.
#include <algorithm>

#include "data/ServerSchema.h"
#include "database/DatabaseSession.h"
#include "database/collation/PostgresFunctions.h"
#include "database/sql/Quoting.h"
#include "setup/UsageError.h"
#include "setup/schema/GeneralDatabase.h"
#include "setup/schema/SchemaUpgrade.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

constexpr long kWorkFailed = 1;

QString Added(const QString& what) { return what + u" を追加しました。"_s; }

/// First column of every row.
QStringList Texts(database::Connection& server, const QString& sql) {
    database::Recordset rows;
    QStringList texts;
    for (rows.Open(sql, server); !rows.AtEOF(); rows.MoveNext()) texts.append(rows.FieldAt(0).TextOr(QString()));
    return texts;
}

class ServerUpgrade {
  public:
    explicit ServerUpgrade(database::Connection& server) : server_(server), engine_(server.Session().EngineName()) {
        for (const TableDefinition& table : tables_) present_.append(ColumnsOf(server_, table.name));
    }

    bool AnyTable() const {
        return std::any_of(present_.begin(), present_.end(), [](const QStringList& table) { return !table.isEmpty(); });
    }

    QStringList Run() {
        // Checks that the engine is supported; also provides the statements for new tables.
        const ServerSchema schema = ServerSchemaOf(engine_, tables_);
        database::Transaction whole(server_);
        UpgradeFunctions();
        for (qsizetype i = 0; i < tables_.size(); ++i) {
            if (present_[i].isEmpty())
                Add(u"テーブル "_s + tables_[i].name, ServerSchemaOf(engine_, {tables_[i]}).tables.last());
            else
                AddColumns(tables_[i], present_[i]);
        }
        AddIndexes();
        whole.Commit();
        return done_;
    }

  private:
    void Add(const QString& what, const QString& statement) {
        server_.Execute(statement);
        done_.append(Added(what));
    }

    void AddColumns(const TableDefinition& table, const QStringList& present) {
        for (const ColumnDefinition& column : table.columns)
            if (!present.contains(column.name, Qt::CaseInsensitive))
                Add(u"列 %1.%2"_s.arg(table.name, column.name), AddServerColumnStatement(engine_, table, column));
    }

    void AddIndexes() {
        const QStringList present = Texts(
            server_,
            engine_.startsWith(u"PostgreSQL"_s)
                ? u"SELECT indexname FROM pg_indexes WHERE schemaname = current_schema()"_s
                : u"SELECT DISTINCT index_name FROM information_schema.statistics WHERE table_schema = DATABASE()"_s);
        for (const TableDefinition& table : tables_)
            for (const ServerIndex& index : ServerIndexesOf(engine_, table))
                if (!present.contains(KeptServerName(engine_, index.name)))
                    Add(u"索引 "_s + index.name, index.statement);
    }

    /// If a function was replaced, the indexes on it contain results of the old one and must be rebuilt.
    void UpgradeFunctions() {
        bool replaced = false;
        for (const auto& [name, statement] : ServerFunctionsOf(engine_)) {
            const QStringList present =
                Texts(server_,
                      u"SELECT p.prosrc FROM pg_proc p JOIN pg_namespace n ON n.oid = p.pronamespace"
                      u" WHERE n.nspname = current_schema() AND p.proname = "_s +
                          database::TextLiteral(name));
            // The function body is between the two $suite$ delimiters of the statement.
            if (present.value(0) == statement.section(u"$suite$"_s, 1, 1)) continue;
            server_.Execute(statement);
            replaced = replaced || !present.isEmpty();
            done_.append(present.isEmpty() ? Added(u"関数 "_s + name) : u"関数 %1 を新しくしました。"_s.arg(name));
        }
        for (qsizetype i = 0; replaced && i < tables_.size(); ++i)
            if (!present_[i].isEmpty() && HasComputedIndex(tables_[i]))
                server_.Execute(u"REINDEX TABLE "_s + ServerName(engine_, tables_[i].name));
    }

    bool HasComputedIndex(const TableDefinition& table) const {
        const QList<ServerIndex> indexes = ServerIndexesOf(engine_, table);
        return std::any_of(indexes.begin(), indexes.end(), [](const ServerIndex& index) {
            return index.statement.contains(database::PostgresOrderFunction() + u'(');
        });
    }

    database::Connection& server_;
    QString engine_;
    QList<TableDefinition> tables_ = TablesOf(DatabaseKind::General);
    QList<QStringList> present_;  // columns of each table; empty if the table is missing
    QStringList done_;
};

}  // namespace

QStringList UpgradeServerSchema(database::Connection& server) {
    ServerUpgrade upgrade(server);
    if (!upgrade.AnyTable())
        throw UsageError(u"--odbc のデータベースに一般データベースの表がありません。server-init で作ってください。"_s);
    return upgrade.Run();
}

void CheckSeenByPrograms(const GeneralDatabaseDefinition& definition) {
    QStringList missing;
    try {
        database::Connection connection;
        OpenDefined(connection, definition, database::ConnectMode::Read);
        missing = MissingIn(connection, connection.Session().EngineName());
    } catch (const database::DatabaseError& error) {
        throw platform::RuntimeError(kWorkFailed,
                                     u"定義の利用者では一般データベースを使えません。%1"_s.arg(error.TextForPeople()));
    }
    if (!missing.isEmpty())
        throw platform::RuntimeError(
            kWorkFailed,
            u"定義のデータベースに足りないものがあります。%1。--odbc が同じデータベースを指しているか"
            u"確かめてください。"_s.arg(missing.join(u'、')));
}

}  // namespace setup
