// Part of Repair.h: rows of configuration files.
#include "setup/repair/Repair.h"

#include <functional>
#include <optional>

#include "data/Connections.h"
#include "data/Files.h"
#include "database/DatabaseSession.h"
#include "database/sql/Quoting.h"
#include "platform/RuntimeError.h"
#include "platform/Services.h"
#include "setup/UsageError.h"
#include "setup/schema/GeneralDatabase.h"
#include "text/TimeStamp.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;
using database::TextLiteral;

namespace setup {

namespace {

/// One configuration file in a transaction.
class ConfigurationRepair {
  public:
    explicit ConfigurationRepair(const QString& file)
        : file_(file), connection_(OpenSuiteFile(file, database::ConnectMode::ReadWrite)), whole_(connection_) {}

    QStringList Finish() {
        whole_.Commit();
        return done_;
    }
    void Run(const QString& statement, const QString& what) {
        connection_.Execute(statement);
        done_.append(u"%1: %2"_s.arg(file_, what));
    }
    /// Rows of a SELECT; none if the table is missing.
    QList<QStringList> Rows(const QString& sql) { return RowsOf(connection_, sql).value_or(QList<QStringList>()); }
    bool HasTable(const QString& name) { return setup::HasTable(connection_, name); }
    QStringList Environment() {
        return Rows(
                   u"SELECT インストール区分, 運用事業所コード, 起動担当者コード FROM 動作環境定義"
                   u" WHERE 動作環境定義ID = '001'"_s)
            .value(0);
    }
    void SetEnvironment(const QString& column, const QString& value, const QString& what) {
        Run(u"UPDATE 動作環境定義 SET %1 = %2 WHERE 動作環境定義ID = '001'"_s.arg(column, TextLiteral(value)), what);
    }

  private:
    QString file_;
    database::Connection connection_;
    database::Transaction whole_;
    QStringList done_;
};

bool Opens(const std::function<void()>& open) {
    try {
        open();
        return true;
    } catch (const platform::RuntimeError&) {
        return false;
    }
}

QString ProviderFor(const QString& file) {
    return database::ParseConnectionString(DesktopConnectionString(KindOfDesktopFile(file), {})).provider;
}

/// True for a definition whose file exists and is a database, but is not opened by its provider.
bool HasWrongProvider(const GeneralDatabaseDefinition& definition) {
    database::Connection connection;
    return !Opens([&] { OpenDefined(connection, definition, database::ConnectMode::Read); }) &&
           Opens([&] { OpenSuiteFile(definition.データソース名, database::ConnectMode::Read); });
}

void AddDefinition(ConfigurationRepair& repair, const QString& ownFile) {
    repair.Run(
        u"INSERT INTO データベース定義 (情報種類, db, dbmw, プロバイダ名, データソース名)"
        u" VALUES ('GNR', 'A', '', %1, %2)"_s.arg(TextLiteral(ProviderFor(ownFile)), TextLiteral(ownFile)),
        u"一般データベースの定義を加えました（%1）。"_s.arg(ownFile));
}

/// A definition of an unknown kind is pointed to the installation's own file, if there is one.
void RepairDefinition(ConfigurationRepair& repair, const QString& ownFile,
                      const std::optional<GeneralDatabaseDefinition>& definition) {
    if (!repair.HasTable(u"データベース定義"_s)) return;
    const QString where = u" WHERE 情報種類 = 'GNR'"_s;
    const QStringList row = repair.Rows(u"SELECT db, dbmw FROM データベース定義"_s + where).value(0);
    if (row.isEmpty() || !definition) {
        if (!ownFile.isEmpty()) AddDefinition(repair, ownFile);
        return;
    }
    if (row[1].isNull()) repair.Run(u"UPDATE データベース定義 SET dbmw = ''"_s + where, u"dbmw を空にしました。"_s);
    const bool isFile = row[0] == u"A"_s;
    if (!isFile && row[0] != u"S"_s && row[0] != u"O"_s && !ownFile.isEmpty())
        repair.Run(u"UPDATE データベース定義 SET db = 'A', プロバイダ名 = %1, データソース名 = %2"_s.arg(
                       TextLiteral(ProviderFor(ownFile)), TextLiteral(ownFile)) +
                       where,
                   u"一般データベースの定義を直しました（%1）。"_s.arg(ownFile));
    else if (isFile && HasWrongProvider(*definition))
        repair.Run(u"UPDATE データベース定義 SET プロバイダ名 = "_s +
                       TextLiteral(ProviderFor(definition->データソース名)) + where,
                   u"一般データベースの定義のプロバイダ名を直しました。"_s);
}

void RepairEnvironment(ConfigurationRepair& repair, const QString& kind, const RepairRequest& request) {
    if (!repair.HasTable(u"動作環境定義"_s)) return;
    const QStringList row = repair.Environment();
    if (row.isEmpty())
        repair.Run(
            u"INSERT INTO 動作環境定義 (動作環境定義ID, 運用事業所コード, インストール区分, 起動担当者コード)"
            u" VALUES ('001', '000', %1, '')"_s.arg(TextLiteral(kind)),
            u"動作環境定義の行 001 を加えました。"_s);
    else if (!request.installKind.isEmpty() && row[0] != request.installKind)
        repair.SetEnvironment(u"インストール区分"_s, request.installKind,
                              u"インストール区分を %1 にしました。"_s.arg(request.installKind));
}

void RepairMenu(ConfigurationRepair& repair) {
    const QString menu = u"販路推進データ管理"_s;
    if (!repair.HasTable(menu)) return;
    const QList<QStringList> rows = repair.Rows(u"SELECT プログラムID FROM "_s + menu);
    for (const QString& program : {u"要員名簿照会"_s, u"要員台帳更新"_s})
        if (!rows.contains(QStringList{program}))
            repair.Run(u"INSERT INTO %1 (プログラムID, 処理分類) VALUES (%2, '1')"_s.arg(menu, TextLiteral(program)),
                       u"%1 に %2 の行を加えました。"_s.arg(menu, program));
}

void DeleteFutureRows(ConfigurationRepair& repair) {
    const QString now = TextLiteral(TimeStamp(platform::Services().clock->Now()));
    for (const auto& [table, column] :
         {std::pair{u"プログラム稼動履歴"_s, u"実行日付"_s}, std::pair{u"プログラム連携情報"_s, u"発信日時"_s}}) {
        const QString condition = u" FROM %1 WHERE %2 > "_s.arg(table, column) + now;
        const QString count = repair.Rows(u"SELECT COUNT(*)"_s + condition).value(0).value(0);
        if (!count.isEmpty() && count != u"0"_s)
            repair.Run(u"DELETE"_s + condition, u"%1 の先の日付の行 %2 件を消しました。"_s.arg(table, count));
    }
}

/// True also if the table is missing or empty, which is no reason to change the configuration.
bool HasRow(database::Connection& general, const QString& table, const QString& code) {
    const QString all = u"SELECT COUNT(*) FROM %1"_s.arg(table);
    const auto rows = RowsOf(general, all + u" WHERE コード = "_s + TextLiteral(code));
    return !rows || rows->first()[0] != u"0"_s || RowsOf(general, all)->first()[0] == u"0"_s;
}

QStringList RepairReferencesOf(const QString& file, database::Connection& general, const RepairRequest& request) {
    ConfigurationRepair repair(file);
    const QStringList row = repair.Environment();
    if (row.isEmpty()) return {};
    const QString office = row[1].isNull() ? u"000"_s : row[1];
    QString wanted = request.office;
    if (wanted.isEmpty()) wanted = HasRow(general, u"M事業所"_s, office) ? office : u"000"_s;
    if (wanted != office)
        repair.SetEnvironment(u"運用事業所コード"_s, wanted, u"運用事業所を %1 にしました。"_s.arg(wanted));
    if (const QString launcher = TrimBlanks(row[2]); !launcher.isEmpty() && !HasRow(general, u"M担当者"_s, launcher))
        repair.SetEnvironment(u"起動担当者コード"_s, {}, u"起動担当者「%1」を空にしました。"_s.arg(launcher));
    return repair.Finish();
}

}  // namespace

QStringList RepairConfigurations(const QString& root, const QList<FilePlaces>& privatePlaces,
                                 const RepairRequest& request) {
    const QString common = ConfigurationFile(CommonPlaces(root).conf);
    const QString kind = privatePlaces.isEmpty() ? u"0"_s : u"1"_s;
    QStringList done;
    for (const FilePlaces& places : QList<FilePlaces>{CommonPlaces(root)} + privatePlaces) {
        const QString file = ConfigurationFile(places.conf);
        if (file.isEmpty()) continue;
        const std::optional<GeneralDatabaseDefinition> definition = FindDefinition(file);
        ConfigurationRepair repair(file);
        // Programs read the definition from the common file only.
        if (file == common) RepairDefinition(repair, DatabaseIn(root + u"/data"_s, u"gnrdb"_s), definition);
        RepairEnvironment(repair, kind, request);
        RepairMenu(repair);
        if (request.futureRows) DeleteFutureRows(repair);
        done += repair.Finish();
    }
    return done;
}

QStringList RepairReferences(const QString& root, const QList<FilePlaces>& privatePlaces, database::Connection& general,
                             const RepairRequest& request) {
    if (!request.office.isEmpty() && !HasRow(general, u"M事業所"_s, request.office))
        throw UsageError(u"事業所 %1 は M事業所 にありません。"_s.arg(request.office));
    QStringList done;
    for (const FilePlaces& places : QList<FilePlaces>{CommonPlaces(root)} + privatePlaces)
        if (const QString file = ConfigurationFile(places.conf); !file.isEmpty())
            done += RepairReferencesOf(file, general, request);
    return done;
}

}  // namespace setup
