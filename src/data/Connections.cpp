#include "data/Connections.h"

#include "data/Catalogue.h"
#include "data/Files.h"
#include "globals/ProgramGlobals.h"
#include "platform/FileSystem.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace {

QString FieldText(const QString& name, const QString& value) { return name + u'=' + value + u';'; }

void Reopen(database::Connection& connection, database::ConnectMode mode, const QString& connectionString) {
    connection = database::Connection();
    ApplyConnectionSettings(connection);
    connection.Mode = mode;
    connection.Rules = SuiteTextRules();
    connection.Open(connectionString);
}

}  // namespace

QString DesktopProvider(FileKind kind) {
    switch (kind) {
        case FileKind::Accdb:
            return u"Microsoft.ACE.OLEDB.12.0"_s;
        case FileKind::Mdb:
            return u"Microsoft.Jet.OLEDB.4.0"_s;
        default:
            return QString();
    }
}

QString DesktopConnectionString(FileKind kind, const QString& path) {
    const QString provider = DesktopProvider(kind);
    return (provider.isEmpty() ? QString() : FieldText(u"Provider"_s, provider)) +
           u"User ID=;Password=;Data Source="_s + path;
}

QString ConfigConnectionString(FileKind kind, const QString& path) { return DesktopConnectionString(kind, path); }

QString UserConfigDataSource() {
    const InstallationLayout& layout = Globals().Layout;
    const FileKind kind = layout.ConfigDbKind == FileKind::Mdb ? FileKind::Mdb : FileKind::Accdb;
    const QString name = DesktopFileName(u"usrcnfg"_s, kind);
    return layout.UserConfFolder + platform::kPathSeparator + name + u';';
}

std::optional<QString> GeneralConnectionString(const GeneralDatabaseDefinition& definition) {
    const bool byServer = definition.db == u"S"_s;
    if (!byServer && definition.db != u"A"_s && definition.db != u"O"_s) return std::nullopt;
    const QString account = FieldText(u"Provider"_s, definition.プロバイダ名) +
                            FieldText(u"User ID"_s, definition.ユーザーID) +
                            FieldText(u"Password"_s, definition.パスワード);
    if (!byServer) return account + FieldText(u"Data Source"_s, definition.データソース名);
    return account + FieldText(u"Data Source"_s, definition.サーバー名) +
           FieldText(u"Initial Catalog"_s, definition.データベース名);
}

void ApplyConnectionSettings(database::Connection& connection) {
    connection.ConnectionTimeout = 60;
    connection.CommandTimeout = 30000;
    connection.CursorLocation = database::CursorLocation::Client;
}

void OpenConfigConnection(const QString& connectionString) {
    database::Connection& connection = Globals().ConfigConnection;
    connection = database::Connection();
    ApplyConnectionSettings(connection);
    connection.Open(connectionString);
}

bool ReconnectConfigConnection() {
    ProgramGlobals& globals = Globals();
    if (globals.ConfigConnectionOpen) {
        globals.ConfigConnection.Close();
        globals.ConfigConnection = database::Connection();
        globals.ConfigConnectionOpen = false;
    }
    try {
        OpenConfigConnection(ConfigConnectionString(globals.Layout.ConfigDbKind, UserConfigDataSource()));
        globals.ConfigConnectionOpen = true;
    } catch (const platform::RuntimeError&) {
        globals.ConfigConnectionOpen = false;
    }
    return globals.ConfigConnectionOpen;
}

void OpenGeneralConnection() {
    ProgramGlobals& globals = Globals();
    const GeneralDatabaseDefinition& definition = globals.GeneralDatabase;
    const std::optional<QString> connectionString = GeneralConnectionString(definition);
    if (definition.db == u"A"_s) globals.GeneralFilePath = TrimBlanks(definition.データソース名);
    if (!connectionString) return;
    Reopen(globals.MainConnection, database::ConnectMode::Read, *connectionString);
}

void OpenForWriting(database::Connection& connection) {
    const std::optional<QString> connectionString = GeneralConnectionString(Globals().GeneralDatabase);
    if (!connectionString)
        throw database::DatabaseError(database::kProviderNotFound, u"データベースの種類が定義されていません。"_s);
    Reopen(connection, database::ConnectMode::ReadWrite, *connectionString);
}
