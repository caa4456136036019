#include "servers/ServerFixture.h"

#include "access/MainConnection.h"
#include "data/Connections.h"
#include "inquiry/ConditionProcedures.h"
#include "inquiry/RowStoreProcedures.h"
#include "inquiry/StaffQuery.h"
#include "setup/GeneralDatabase.h"
#include "setup/RunTool.h"

using namespace Qt::StringLiterals;

ToolOutput RunServerTool(const QStringList& arguments) { return RunTool(arguments); }

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
    OpenConfigConnection(ConfigConnectionString(kAccdb, installation.Configuration().Path()));
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
