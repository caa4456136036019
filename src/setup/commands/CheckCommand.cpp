// Part of Verbs.h: the verb `check`.
#include "setup/commands/Verbs.h"

#include <QFileInfo>

#include "data/Connections.h"
#include "data/Files.h"
#include "data/ServerSchema.h"
#include "database/DatabaseSession.h"
#include "platform/FileRights.h"
#include "platform/RuntimeError.h"
#include "platform/SealedPins.h"
#include "setup/UsageError.h"
#include "setup/checks/Checks.h"
#include "setup/schema/GeneralDatabase.h"
#include "setup/storage/Installation.h"
#include "setup/storage/InstallationRights.h"
#include "setup/storage/Installer.h"
#include "setup/storage/PinSealing.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

constexpr long kWorkFailed = 1;
constexpr int kSharedFiles = 0, kPrivateCopies = 1;

/// Missing PIN tables are reported by another check.
void CheckPins(CheckReport& findings, const QString& root, database::Connection& general, DatabasePlace place) {
    try {
        const QString fault = ClearPinsFault(root, general, place);
        if (!fault.isEmpty()) findings.Add(fault);
    } catch (const database::DatabaseError& error) {
        if (error.Number() != database::kStatementFailure) throw;
    }
}

void CheckPinsOfFile(CheckReport& findings, const QString& root, const GeneralDatabaseDefinition& definition) {
    try {
        database::Connection general;
        OpenDefined(general, definition, database::ConnectMode::Read);
        CheckPins(findings, root, general, DatabasePlace::File);
    } catch (const database::DatabaseError&) {
        // CheckDatabase has reported it already.
    }
}

void CheckServer(CheckReport& findings, const QString& root, const GeneralDatabaseDefinition& definition) {
    try {
        database::Connection server;
        OpenDefined(server, definition, database::ConnectMode::Read);
        for (const QString& missing : MissingIn(server, server.Session().EngineName()))
            findings.Add(u"一般データベースに%1 がありません。"_s.arg(missing));
        for (const ServerTextFault& fault : FindServerTextFaults(server))
            findings.Add(u"一般データベースの%1。次を実行してください。\n    %2"_s.arg(fault.what, fault.remedy));
        CheckPins(findings, root, server, DatabasePlace::Server);
    } catch (const platform::RuntimeError& error) {
        findings.Add(u"一般データベースのサーバーに接続できません。%1"_s.arg(platform::TextForPeople(error)));
    }
}

QString CommonConfiguration(const QString& root) {
    const QString found = ConfigurationFile(CommonPlaces(root).conf);
    return found.isEmpty() ? CommonPlaces(root).conf + u'/' + DesktopFileName(u"usrcnfg"_s, FileKind::Accdb) : found;
}

void CheckGeneral(CheckReport& findings, const UserAccess& user, const QString& root, const QString& configuration) {
    const std::optional<GeneralDatabaseDefinition> definition = FindDefinition(configuration);
    if (!definition)
        findings.Add(u"%1 に一般データベースの定義がありません。"_s.arg(configuration));
    else if (definition->db == u"S"_s || definition->db == u"O"_s)
        CheckServer(findings, root, *definition);
    else if (definition->db == u"A"_s &&
             CheckDatabase(findings, user, definition->データソース名, u"一般データベース"_s))
        CheckPinsOfFile(findings, root, *definition);
}

void CheckPrograms(CheckReport& findings, const UserAccess& user, const QString& root) {
    for (const QString& folder : {u"/prgbin"_s, u"/data"_s, u"/conf"_s, u"/report"_s, u"/manual"_s})
        if (!QFileInfo(root + folder).isDir()) findings.Add(u"フォルダ %1 がありません。"_s.arg(root + folder));
    for (const QString& program : {u"要員名簿照会"_s, u"要員台帳更新"_s})
        CheckProgram(findings, user, root + u"/prgbin/"_s + program, u"プログラム"_s);
    findings.Add(HostFaults(user));
    const QString key = CommonPlaces(root).conf + u'/' + platform::PinKeyFileName();
    // Sites that store PINs in clear text have none.
    if (QFileInfo::exists(key)) CheckFile(findings, user, key, u"暗証番号の鍵ファイル"_s);
}

void CheckRights(CheckReport& findings, const QString& root) {
    const QStringList wrong = WrongRights(root);
    if (wrong.isEmpty()) return;
    findings.Add(
        u"権限が違います。次を、所有者か root が実行すると直ります。\n    suite-setup upgrade '%1'\n  "_s.arg(root) +
        wrong.join(u"\n  "_s));
}

/// The install kind as the programs read it; anything but a number counts as shared files.
int InstallKind(CheckReport& findings, const QString& configuration) {
    const int kind = InstallKindOf(configuration);
    if (kind != kSharedFiles && kind != kPrivateCopies)
        findings.Add(u"%1 のインストール区分が 0 でも 1 でもありません。"_s.arg(configuration));
    return kind;
}

/// Returns the install kind; shared files if the configuration can't be read.
int CheckCommon(CheckReport& findings, const UserAccess& user, const QString& root) {
    CheckPrograms(findings, user, root);
    CheckRights(findings, root);
    findings.Add(LeftoverFaults(root));
    const QString configuration = CommonConfiguration(root), what = u"構成データベース"_s;
    int kind = kSharedFiles;
    if (CheckDatabase(findings, user, configuration, what)) {
        CheckGeneral(findings, user, root, configuration);
        kind = InstallKind(findings, configuration);
        if (kind == kSharedFiles) CheckWritable(findings, user, configuration, what);
    }
    CheckReportFiles(findings, user, WorkTablesIn(CommonPlaces(root).report), kind == kSharedFiles);
    return kind;
}

/// Private copies have the same file format as the common files, whatever else is in the folder.
void CheckPrivate(CheckReport& findings, const QString& root, const FilePlaces& places) {
    const UserAccess user(places.user);
    const auto own = [](const QString& folder, const QString& common) {
        return folder + u'/' + QFileInfo(common).fileName();
    };
    const QString configuration = own(places.conf, CommonConfiguration(root)), what = u"構成データベース"_s;
    if (CheckDatabase(findings, user, configuration, what)) CheckWritable(findings, user, configuration, what);
    CheckReportFiles(findings, user, own(places.report, WorkTablesIn(CommonPlaces(root).report)), true);
    findings.Add(TrustFaults(user, places.report));
}

void CheckUser(CheckReport& findings, const QString& root, const FilePlaces& places) {
    const QString users = root + u"/users"_s;
    const QStringList faults = platform::PrivateFolderFaults(users + u'/' + places.user, UserAccess(places.user).Id());
    if (!faults.isEmpty()) return findings.Add(faults);
    if (QFileInfo(users + u'/' + places.user).isDir()) return CheckPrivate(findings, root, places);
    findings.Add(u"この利用者のファイルがまだありません。最初の起動で作られます。"_s);
    if (!UserAccess(places.user).MayMakeFilesIn(users))
        findings.Add(u"フォルダ %1 に書き込む権限がないので、作れません。"_s.arg(users));
}

}  // namespace

void CheckInstallation(const Arguments& arguments, const Console& console) {
    const QString root = InstallationRoot(arguments.Installation()), name = arguments.Value(option::kUser);
    if (name.contains(u'/') || name == u"."_s || name == u".."_s)
        throw UsageError(u"利用者名 %1 は正しくありません。"_s.arg(name));
    CheckReport findings(console.out);
    const UserAccess user(name);
    if (!user.IsKnown())
        console.out << u"利用者 %1 はこのコンピューターにいないので、実行者の権限で調べます。\n"_s.arg(name);
    if (CheckCommon(findings, user, root) == kPrivateCopies)
        for (const FilePlaces& places : name.isEmpty() ? AllPrivatePlaces(root) : QList{PlacesOf(root, name)}) {
            console.out << u"利用者 %1\n"_s.arg(places.user);
            if (!MayEnter(places))
                console.out << u"この利用者だけのフォルダなので、調べられません。root で実行してください。\n"_s;
            else
                CheckUser(findings, root, places);
        }
    console.out.flush();
    if (findings.Count() > 0)
        throw platform::RuntimeError(kWorkFailed, u"問題が %1 件あります。"_s.arg(findings.Count()));
    console.out << u"問題はありません。\n"_s;
}

}  // namespace setup
