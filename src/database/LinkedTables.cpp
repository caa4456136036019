#include "database/LinkedTables.h"

#include <algorithm>

#include "database/Database.h"
#include "database/sql/Quoting.h"

using namespace Qt::StringLiterals;

namespace database {

namespace {

const QString kDatabaseField = u";DATABASE="_s;
const QString kLinks = u"リンクテーブル"_s;
constexpr int kTimeout = 60;

Connection OpenFile(const QString& path, ConnectMode mode) {
    Connection connection;
    connection.ConnectionTimeout = kTimeout;
    connection.CursorLocation = CursorLocation::Client;
    connection.Mode = mode;
    connection.Open(u"Provider=Microsoft.ACE.OLEDB.12.0;User ID=;Password=;Data Source="_s + path + u';');
    return connection;
}

QList<TableDef> TablesOf(Connection& connection) {
    QList<TableDef> tables;
    Recordset row;
    row.Open(u"SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY rowid"_s, connection);
    for (; !row.AtEOF(); row.MoveNext())
        tables.append({.Name = row[u"name"].TextOr(u""_s), .Attributes = 0, .Connect = {}, .SourceName = {}});
    row.Close();
    return tables;
}

bool Holds(const QList<TableDef>& tables, const QString& name) {
    return std::any_of(tables.cbegin(), tables.cend(),
                       [&](const TableDef& table) { return table.Name.compare(name, Qt::CaseInsensitive) == 0; });
}

class SuiteTableFile : public TableFile {
  public:
    explicit SuiteTableFile(const QString& path) : connection_(OpenFile(path, ConnectMode::ReadWrite)) {}

    QList<TableDef> TableDefs() override {
        QList<TableDef> tables = TablesOf(connection_);
        if (!Holds(tables, kLinks)) return tables;
        Recordset row;
        row.Open(u"SELECT 名称, 元テーブル, 接続, 属性 FROM リンクテーブル ORDER BY rowid"_s, connection_);
        for (; !row.AtEOF(); row.MoveNext())
            tables.append({.Name = row[u"名称"].TextOr(u""_s),
                           .Attributes = row[u"属性"].TextOr(u""_s).toLong(),
                           .Connect = row[u"接続"].TextOr(u""_s),
                           .SourceName = row[u"元テーブル"].TextOr(u""_s)});
        row.Close();
        return tables;
    }

    void RefreshLink(const TableDef& table) override {
        Connection source = OpenFile(DatabaseOfConnectText(table.Connect), ConnectMode::Read);
        if (!Holds(TablesOf(source), table.SourceName))
            throw DatabaseError(kNoSuchTable, u"リンク先にテーブル「%1」がありません。"_s.arg(table.SourceName));
        connection_.Execute(u"UPDATE リンクテーブル SET 接続 = "_s + TextLiteral(table.Connect) + u" WHERE 名称 = "_s +
                            TextLiteral(table.Name));
    }

  private:
    Connection connection_;
};

}  // namespace

QString ConnectTextOf(const QString& databaseFile) { return kDatabaseField + databaseFile; }

QString DatabaseOfConnectText(const QString& connect) {
    const qsizetype at = connect.indexOf(kDatabaseField, 0, Qt::CaseInsensitive);
    return at < 0 ? QString() : connect.mid(at + kDatabaseField.size()).section(u';', 0, 0);
}

std::unique_ptr<TableFile> SuiteTableEngine::OpenDatabase(const QString& path) {
    return std::make_unique<SuiteTableFile>(path);
}

}  // namespace database
