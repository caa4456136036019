// Part of Checks.h: the checks of database files and servers, without the meaning of their rows.
#include <QFileInfo>

#include "data/ServerSchema.h"
#include "database/DatabaseSession.h"
#include "database/sqlite/OpenSqlite.h"
#include "platform/FileRights.h"
#include "platform/RuntimeError.h"
#include "setup/checks/Checks.h"
#include "setup/schema/GeneralDatabase.h"
#include "setup/schema/Integrity.h"
#include "setup/storage/Installation.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

const QString kNoDatabase = u"起動すると「データベースが使用できません。」と出て終わります。"_s;
const QString kNoReports = u"印刷やテキスト出力をすると「帳票が使用できません。」と出ます。"_s;
const QString kNoTemplates = u"印刷とプレビュができません。"_s;
const QString kJoinGroup = u"利用者をインストールのグループに加え、次を所有者か root が実行してください。"_s;

QString RestoreText(const QString& name) { return u"%1をバックアップから戻してください。"_s.arg(name); }

bool CheckReadable(CheckReport& report, const UserAccess& user, const QString& path, const DatabaseSubject& subject) {
    const QString file = subject.name + u' ' + path;
    if (!platform::MayEnterFolder(QFileInfo(path).path())) {
        report.Add({.what = u"%1 を調べる権限がありません。"_s.arg(file), .remedy = u"root で調べてください。"_s});
        return false;
    }
    if (!QFileInfo(path).isFile()) {
        report.Add({.what = file + u" がありません。"_s,
                    .effect = subject.effect,
                    .remedy = subject.remedy,
                    .commands = subject.commands});
        return false;
    }
    if (user.MayRead(path)) return true;
    report.Add({.what = file + u" を読む権限がありません。"_s, .effect = subject.effect, .remedy = kJoinGroup});
    return false;
}

/// The damaged file is kept: its site may be able to save something from it.
QStringList CommandsForUnusable(const DatabaseSubject& subject, const QString& path) {
    if (subject.commands.isEmpty()) return {};
    return QStringList{u"mv %1 %2"_s.arg(ShellWord(path), ShellWord(path + u".damaged"_s))} + subject.commands;
}

/// Only an index can be rebuilt from what is left.
void CheckIntegrity(const CheckScope& scope, CheckReport& report, const QString& path, const DatabaseSubject& subject) {
    const Integrity integrity = IntegrityOf(path);
    if (integrity.IsIntact()) return;
    Finding finding{.what = u"%1 %2 の内容が壊れています。（%3）"_s.arg(subject.name, path, integrity.errors.first()),
                    .effect = u"検索や保存が途中で失敗したり、一部の行が出なかったりします。"_s};
    if (integrity.onlyIndexes) {
        finding.commands = {ToolCommand(u"repair"_s, scope.root)};
    } else {
        finding.remedy = subject.remedy;
        finding.commands = CommandsForUnusable(subject, path);
    }
    report.Add(finding);
}

Finding MissingFinding(const QString& where, const QStringList& missing, const QString& effect) {
    return {.what = u"%1に足りない表や列が %2 個あります。"_s.arg(where).arg(missing.size()),
            .entries = missing,
            .effect = effect};
}

void CheckServer(const CheckScope& scope, CheckReport& report) {
    database::Connection& server = *scope.general;
    const QStringList missing = MissingIn(server, server.Session().EngineName());
    if (!missing.isEmpty()) {
        Finding finding =
            MissingFinding(scope.GeneralName(), missing, SubjectOf(scope, DatabaseKind::General).tablesEffect);
        finding.commands = {ToolCommand(u"upgrade"_s, scope.root, u"--odbc '所有者の接続文字列'"_s)};
        report.Add(finding);
    }
    for (const ServerTextFault& fault : FindServerTextFaults(server))
        report.Add({.what = u"一般データベースの%1。"_s.arg(fault.what),
                    .effect = u"名前やコードで検索すると、出るはずの要員が出ないか、別の要員が出ます。"_s,
                    .commands = {fault.remedy}});
}

void ReportUnusableServer(const CheckScope& scope, CheckReport& report) {
    report.Add({.what = u"%1に接続できません。%2"_s.arg(scope.GeneralName(), scope.generalError),
                .effect = kNoDatabase,
                .remedy = u"サーバーと、その間のネットワークを確かめてください。サーバーや利用者が変わったときは、"
                          u"次で指定し直してください。"_s,
                .commands = {ToolCommand(u"use-server"_s, scope.root, u"--odbc '接続文字列'"_s)}});
}

QString EffectOfReadOnly(DatabaseKind kind) {
    if (kind == DatabaseKind::Configuration) return u"履歴が残らず、要員台帳更新との行き来ができません。"_s;
    return kind == DatabaseKind::General ? u"要員台帳更新で保存できません。"_s : kNoReports;
}

}  // namespace

DatabaseSubject SubjectOf(const CheckScope& scope, DatabaseKind kind) {
    const QString stops = u"印刷とテキスト出力が途中で止まります。"_s;
    const QStringList repair{ToolCommand(u"repair"_s, scope.root)};
    switch (kind) {
        case DatabaseKind::General:
            return {u"一般データベース"_s, kind, kNoDatabase,
                    u"起動できないか、検索すると問題が表示されるか、一覧に何も出ません。"_s,
                    RestoreText(u"一般データベース"_s)};
        case DatabaseKind::Configuration:
            return {u"構成データベース"_s, kind, kNoDatabase,
                    u"起動できないか、起動のときに問題が表示されるか、履歴が残りません。"_s,
                    RestoreText(u"構成データベース"_s)};
        case DatabaseKind::Report:
            return {u"帳票データベース"_s, kind, kNoReports, stops, {}, repair};
        default:
            return {u"帳票ファイル"_s,
                    kind,
                    kNoTemplates,
                    kNoTemplates,
                    u"帳票を直してあるときは、バックアップから戻してください。標準の帳票に戻すときは、次を実行してく"
                    u"ださい。"_s,
                    repair};
    }
}

bool CheckDatabase(const CheckScope& scope, CheckReport& report, const QString& path, const DatabaseSubject& subject) {
    if (!CheckReadable(report, scope.user, path, subject)) return false;
    if (NeedsRecovery(path)) {
        report.Add({.what = u"%1 %2 に、途中で終わった書き込みが残っています。"_s.arg(subject.name, path),
                    .effect = u"書き込む権限のない利用者は開けません。ほかの利用者が次に開くと元に戻ります。"_s,
                    .commands = {ToolCommand(u"repair"_s, scope.root)}});
        return false;
    }
    try {
        OpenSuiteFile(path, database::ConnectMode::Read);
        return true;
    } catch (const platform::RuntimeError& error) {
        report.Add({.what = u"%1 %2 を開けません。%3"_s.arg(subject.name, path, platform::TextForPeople(error)),
                    .effect = subject.effect,
                    .remedy = subject.remedy,
                    .commands = CommandsForUnusable(subject, path)});
        return false;
    }
}

bool CheckContent(const CheckScope& scope, CheckReport& report, const QString& path, const DatabaseSubject& subject) {
    bool whole = false;
    RunCheck(report, subject.name + u' ' + path + u' ', [&] {
        CheckIntegrity(scope, report, path, subject);
        database::Connection connection = OpenSuiteFile(path, database::ConnectMode::Read);
        const QStringList missing = MissingIn(connection, {}, subject.kind);
        whole = missing.isEmpty();
        if (whole) return;
        Finding finding = MissingFinding(subject.name + u' ' + path + u' ', missing, subject.tablesEffect);
        finding.commands = {ToolCommand(u"upgrade"_s, scope.root)};
        report.Add(finding);
    });
    return whole;
}

void CheckWritable(const CheckScope& scope, CheckReport& report, const QString& path, const DatabaseSubject& subject) {
    const QString folder = QFileInfo(path).path();
    Finding finding{.effect = EffectOfReadOnly(subject.kind),
                    .remedy = kJoinGroup,
                    .commands = {ToolCommand(u"upgrade"_s, scope.root)}};
    if (!scope.user.MayWrite(path))
        finding.what = u"%1 %2 に書き込む権限がありません。"_s.arg(subject.name, path);
    else if (!scope.user.MayMakeFilesIn(folder))  // for the rollback journal
        finding.what = u"%1のフォルダ %2 に書き込む権限がありません。"_s.arg(subject.name, folder);
    if (!finding.what.isEmpty()) report.Add(finding);
}

void CheckConfiguration(const CheckScope& scope, CheckReport& report) {
    const DatabaseSubject subject = SubjectOf(scope, DatabaseKind::Configuration);
    if (!CheckDatabase(scope, report, scope.configuration, subject)) return;
    CheckContent(scope, report, scope.configuration, subject);
    if (!scope.HasPrivateCopies()) CheckWritable(scope, report, scope.configuration, subject);
}

void CheckGeneral(const CheckScope& scope, CheckReport& report) {
    if (!scope.definition) return;
    if (scope.IsServer()) {
        if (scope.general != nullptr) return CheckServer(scope, report);
        return ReportUnusableServer(scope, report);
    }
    if (scope.general == nullptr) return;  // reported by CheckDefinition
    const DatabaseSubject subject = SubjectOf(scope, DatabaseKind::General);
    const QString path = database::SqlitePath(scope.definition->データソース名);
    if (!CheckDatabase(scope, report, path, subject)) return;
    CheckContent(scope, report, path, subject);
    CheckWritable(scope, report, path, subject);
}

}  // namespace setup
