#include "setup/CheckCommand.h"

#include <QFileInfo>

#include "platform/LinkedTables.h"
#include "platform/Services.h"
#include "platform/database/DatabaseSession.h"
#include "setup/ConfigurationFiles.h"
#include "setup/GeneralDatabase.h"
#include "setup/HostCheck.h"
#include "setup/InstallationUsers.h"
#include "setup/Installer.h"
#include "setup/UserAccess.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

constexpr long kWorkFailed = 1;
const QString kUser = u"--user"_s;

/// What has been found for one user, told at once.
class Findings {
  public:
    explicit Findings(QTextStream& out) : out_(out) {}
    void Add(const QString& fault) {
        ++count_;
        out_ << u"・"_s << fault << u'\n';
    }
    void Add(const QStringList& faults) {
        for (const QString& fault : faults) Add(fault);
    }
    int Count() const { return count_; }

  private:
    QTextStream& out_;
    int count_ = 0;
};

/// True when the file is there and may be read; otherwise that is a finding.
bool CheckFile(Findings& findings, const UserAccess& user, const QString& path, const QString& what) {
    if (!QFileInfo(path).isFile())
        findings.Add(u"%1 %2 がありません。"_s.arg(what, path));
    else if (!user.MayRead(path))
        findings.Add(u"%1 %2 を読む権限がありません。"_s.arg(what, path));
    else
        return true;
    return false;
}

/// Opens the file as the programs do, for what is wrong inside.
bool CheckDatabase(Findings& findings, const UserAccess& user, const QString& path, const QString& what) {
    if (!CheckFile(findings, user, path, what)) return false;
    try {
        OpenForReading(path);
        return true;
    } catch (const platform::RuntimeError& error) {
        findings.Add(u"%1 %2 を開けません。%3"_s.arg(what, path, error.Description()));
        return false;
    }
}

/// A database that its user writes as well.
void CheckOwnDatabase(Findings& findings, const UserAccess& user, const QString& path, const QString& what) {
    if (CheckDatabase(findings, user, path, what) && !user.MayWrite(path))
        findings.Add(u"%1 %2 に書き込む権限がありません。"_s.arg(what, path));
}

QString Value(const QString& file, const QString& statement, QStringView column) {
    platform::Connection connection = OpenForReading(file);
    platform::Recordset row;
    row.Open(statement, connection);
    return row.AtEOF() ? QString() : row[column].TextOr(u""_s);
}

void CheckServer(Findings& findings, const QString& configuration) {
    try {
        platform::Connection server;
        OpenDefined(server, ReadDefinition(configuration), platform::ConnectMode::Read);
        for (const QString& missing : MissingIn(server, server.Session().EngineName()))
            findings.Add(u"一般データベースに%1 がありません。"_s.arg(missing));
    } catch (const platform::RuntimeError& error) {
        findings.Add(u"一般データベースのサーバーに接続できません。%1"_s.arg(error.Description()));
    }
}

void CheckGeneral(Findings& findings, const UserAccess& user, const QString& configuration) {
    const QString statement = u"SELECT db, データソース名 FROM データベース定義 WHERE 情報種類 = 'GNR'"_s;
    const QString dialect = Value(configuration, statement, u"db");
    if (dialect.isNull())
        findings.Add(u"%1 に一般データベースの定義がありません。"_s.arg(configuration));
    else if (dialect == u"S"_s || dialect == u"O"_s)
        CheckServer(findings, configuration);
    else if (dialect == u"A"_s)
        CheckDatabase(findings, user, Value(configuration, statement, u"データソース名"), u"一般データベース"_s);
}

void CheckLinks(Findings& findings, const QString& formsFile, const QString& workTables) {
    try {
        const auto file = platform::Services().tableEngine->OpenDatabase(formsFile);
        for (const platform::TableDef& table : file->TableDefs()) {
            const QString linked = platform::DatabaseOfConnectText(table.Connect);
            if (table.Attributes == platform::kLinkedTable && linked != workTables)
                findings.Add(u"帳票ファイル %1 のテーブル %2 が %4 ではなく %3 にリンクしています。"_s.arg(
                    formsFile, table.Name, linked, workTables));
        }
    } catch (const platform::RuntimeError& error) {
        findings.Add(u"帳票ファイル %1 を開けません。%2"_s.arg(formsFile, error.Description()));
    }
}

void CheckReports(Findings& findings, const UserAccess& user, const FilePlaces& places) {
    const QString workTables = WorkTablesIn(places.report);
    CheckOwnDatabase(findings, user, workTables, u"帳票データベース"_s);
    const QString suffix = workTables.section(u'.', -1);
    const QString forms = places.report + u"/repfrmdb."_s + suffix;
    CheckFile(findings, user, forms, u"帳票ファイル"_s);
    for (const QString& file : FormsFilesIn(places.report)) CheckLinks(findings, file, workTables);
}

void CheckPrivate(Findings& findings, const FilePlaces& places) {
    const UserAccess user(places.user);
    const QString configuration = ConfigurationFile(places.conf);
    CheckOwnDatabase(findings, user, configuration.isEmpty() ? places.conf + u"/usrcnfg.accdb"_s : configuration,
                     u"構成データベース"_s);
    CheckReports(findings, user, places);
    findings.Add(TrustFaults(user, places.report));
}

void CheckPrivates(Findings& findings, const QString& root, const QString& name, const Console& console) {
    const QList<FilePlaces> places = name.isEmpty() ? AllPrivatePlaces(root) : QList{PlacesOf(root, name)};
    for (const FilePlaces& place : places) {
        console.out << u"利用者 %1\n"_s.arg(place.user);
        if (QFileInfo(root + u"/users/"_s + place.user).isDir())
            CheckPrivate(findings, place);
        else
            findings.Add(u"この利用者のファイルがまだありません。最初の起動で作られます。"_s);
    }
}

/// Install kind of a configuration that can be read; empty without one.
QString CheckCommon(Findings& findings, const UserAccess& user, const QString& root) {
    for (const QString& folder : {u"/prgbin"_s, u"/data"_s, u"/conf"_s, u"/report"_s, u"/manual"_s})
        if (!QFileInfo(root + folder).isDir()) findings.Add(u"フォルダ %1 がありません。"_s.arg(root + folder));
    const QString program = root + u"/prgbin/要員名簿照会"_s;
    if (CheckFile(findings, user, program, u"プログラム"_s) && !user.MayRun(program))
        findings.Add(u"プログラム %1 を起動する権限がありません。"_s.arg(program));
    findings.Add(HostFaults(user));
    const QString found = ConfigurationFile(root + u"/conf"_s);
    const QString file = found.isEmpty() ? root + u"/conf/usrcnfg.accdb"_s : found;
    if (!CheckDatabase(findings, user, file, u"構成データベース"_s)) return {};
    CheckGeneral(findings, user, file);
    const QString kind =
        Value(file, u"SELECT インストール区分 FROM 動作環境定義 WHERE 動作環境定義ID = '001'"_s, u"インストール区分");
    if (kind != u"0"_s && kind != u"1"_s)
        findings.Add(u"%1 のインストール区分が 0 でも 1 でもありません。"_s.arg(file));
    return kind;
}

}  // namespace

QList<OptionRule> CheckOptions() { return {{kUser, true}}; }

void CheckInstallation(const Arguments& arguments, const Console& console) {
    const QString root = InstallationRoot(arguments.installation), name = arguments.options.value(kUser);
    if (name.contains(u'/') || name == u"."_s || name == u".."_s)
        throw Refusal(u"利用者名 %1 は正しくありません。"_s.arg(name));
    Findings findings(console.out);
    const UserAccess user(name);
    const QString kind = CheckCommon(findings, user, root);
    CheckReports(findings, user, CommonPlaces(root));
    if (kind == u"1"_s) CheckPrivates(findings, root, name, console);
    console.out.flush();
    if (findings.Count() > 0)
        throw platform::RuntimeError(kWorkFailed, u"問題が %1 件あります。"_s.arg(findings.Count()));
    console.out << u"問題はありません。\n"_s;
}

}  // namespace setup
