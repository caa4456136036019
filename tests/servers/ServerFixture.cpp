#include "servers/ServerFixture.h"

#include "access/StartUp.h"
#include "data/Connections.h"
#include "inquiry/ConditionProcedures.h"
#include "inquiry/StaffQuery.h"
#include "setup/RunTool.h"
#include "setup/schema/GeneralDatabase.h"

using namespace Qt::StringLiterals;

ToolOutput RunServerTool(const QStringList& arguments) { return RunTool(arguments); }

namespace {
bool IsPostgresRun() { return ServerDatabase::Engine() == u"PostgreSQL"_s; }
}  // namespace

ReadingUser::ReadingUser(const ServerDatabase& server) : server_(server), name_(u"reader_"_s + server.Name()) {
    server_.Run(
        (IsPostgresRun() ? u"CREATE ROLE %1 LOGIN PASSWORD '%2'"_s : u"CREATE USER %1@127.0.0.1 IDENTIFIED BY '%2'"_s)
            .arg(name_, Password()));
    Grant();
}

ReadingUser::~ReadingUser() {
    server_.Run((IsPostgresRun() ? u"DROP OWNED BY %1; DROP ROLE %1"_s : u"DROP USER %1@127.0.0.1"_s).arg(name_));
}

void ReadingUser::Grant() const {
    if (IsPostgresRun()) return server_.Run(u"GRANT SELECT ON ALL TABLES IN SCHEMA public TO %1"_s.arg(name_));
    // Table by table, as PostgreSQL does: in MariaDB a grant on a database includes future tables.
    const QString tables =
        u"SELECT table_name FROM information_schema.tables WHERE table_schema = '%1'"_s.arg(server_.Name());
    for (const QStringList& row : server_.Rows(tables))
        server_.Run(u"GRANT SELECT ON \"%1\" TO %2@127.0.0.1"_s.arg(row.first(), name_));
}

OnServer::OnServer(int staff) : installation({.staff = staff}) {
    const ToolOutput made =
        RunTool({u"server-init"_s, u"--odbc"_s, server.OdbcString(), u"--from"_s, installation.Root()});
    EXPECT_EQ(made.status, 0) << made.err.toStdString();
    const ToolOutput used = RunTool({u"use-server"_s, installation.Root(), u"--odbc"_s, server.OdbcString()});
    EXPECT_EQ(used.status, 0) << used.err.toStdString();
    ProgramGlobals& globals = Globals();
    globals.ProgramId = u"要員名簿照会"_s;
    globals.Environment.OperatingOfficeCode = globals.ScopeOfficeCode = u"000"_s;
    globals.MainForm = &form;
    globals.RowsPerPage = 8;
    SetInitialConditions();
    OpenConfigConnection(ConfigConnectionString(FileKind::Accdb, installation.Configuration().Path()));
    globals.ConfigConnectionOpen = true;
}

bool OnServer::OpenGeneral() {
    Globals().GeneralDatabase = setup::ReadDefinition(installation.Configuration().Path());
    return OpenMainConnection();
}

QStringList OnServer::Search() const {
    ResetRowStore();
    RunStaffSearch();
    QStringList codes;
    for (int row = 0; row <= Globals().LastRow; ++row) codes.append(Globals().Rows.Text(StaffText::担当者コード, row));
    return codes;
}

void OnServer::StopSessions() const {
    if (IsPostgres()) {
        server.Rows(
            u"SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE datname = '%1'"
            " AND pid <> pg_backend_pid()"_s.arg(server.Name()));
        return;
    }
    const QString others =
        u"SELECT ID FROM information_schema.PROCESSLIST WHERE DB = '%1' AND ID <> CONNECTION_ID()"_s.arg(server.Name());
    for (const QStringList& row : server.Rows(others)) server.Run(u"KILL CONNECTION "_s + row.first());
}

StaffListConditions EveryListCondition() {
    StaffListConditions conditions;
    conditions.allEnrolments = 2;
    conditions.allEmployees = conditions.employeeClass = 6;
    conditions.code = u"00005"_s;
    conditions.name = u"山"_s;
    conditions.kana = u"ﾔﾏ"_s;
    conditions.departmentCode = u"010"_s;
    conditions.sectionCode = u"011"_s;
    return conditions;
}
