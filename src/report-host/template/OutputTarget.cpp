#include "report-host/template/OutputTarget.h"

#include "database/Database.h"
#include "database/sql/Quoting.h"
#include "platform/RuntimeError.h"
#include "report-host/template/ReportErrors.h"

using namespace Qt::StringLiterals;

namespace {

struct KindName {
    OutputTarget::Kind kind;
    QString name;
};

const KindName kKindNames[] = {{OutputTarget::Kind::Printer, u"プリンター"_s},
                               {OutputTarget::Kind::Folder, u"フォルダ"_s}};

database::Connection Open(const QString& templateFile, database::ConnectMode mode) {
    database::Connection connection;
    connection.CursorLocation = database::CursorLocation::Client;
    connection.Mode = mode;
    connection.Open(u"Provider=Microsoft.ACE.OLEDB.12.0;Data Source="_s + templateFile);
    return connection;
}

bool HasTargets(database::Connection& connection) {
    database::Recordset tables;
    tables.Open(u"SELECT name FROM sqlite_master WHERE type = 'table' AND name = '出力先'"_s, connection);
    return !tables.AtEOF();
}

OutputTarget TargetOf(const database::Recordset& row) {
    const QString kind = row[u"種類"].TextOr({});
    for (const KindName& known : kKindNames)
        if (known.name == kind) return {.kind = known.kind, .name = row[u"名前"].TextOr({})};
    throw ReportFailure(u"出力先の種類「%1」は使えません。"_s.arg(kind));
}

}  // namespace

OutputTarget ReadOutputTarget(const QString& templateFile, const QString& report) {
    try {
        database::Connection connection = Open(templateFile, database::ConnectMode::Read);
        if (!HasTargets(connection)) return {};
        for (const QString& name : {report, u""_s}) {
            database::Recordset row;
            row.Open(u"SELECT 種類, 名前 FROM 出力先 WHERE 帳票 = "_s + database::TextLiteral(name), connection);
            if (!row.AtEOF()) return TargetOf(row);
        }
        return {};
    } catch (const database::DatabaseError& error) {
        throw ReportFailure(u"出力先を読めません。"_s + platform::TextForPeople(error));
    }
}

void WriteOutputTarget(const QString& templateFile, const QString& report, const OutputTarget& target) {
    database::Connection connection = Open(templateFile, database::ConnectMode::ReadWrite);
    database::Transaction change(connection);
    connection.Execute(
        u"CREATE TABLE IF NOT EXISTS 出力先 (帳票 TEXT PRIMARY KEY, 種類 TEXT NOT NULL, 名前 TEXT NOT NULL)"_s);
    connection.Execute(u"DELETE FROM 出力先 WHERE 帳票 = "_s + database::TextLiteral(report));
    for (const KindName& known : kKindNames)
        if (known.kind == target.kind)
            connection.Execute(u"INSERT INTO 出力先 (帳票, 種類, 名前) VALUES (%1, %2, %3)"_s.arg(
                database::TextLiteral(report), database::TextLiteral(known.name), database::TextLiteral(target.name)));
    change.Commit();
}
