// Part of Checks.h: the checks of files.
#include <QFileInfo>

#include "database/LinkedTables.h"
#include "platform/RuntimeError.h"
#include "platform/Services.h"
#include "setup/checks/Checks.h"
#include "setup/storage/Installation.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

void CheckLinks(CheckReport& findings, const QString& templateFile, const QString& workTables) {
    try {
        const auto file = database::SuiteTableEngine().OpenDatabase(templateFile);
        for (const database::TableDef& table : file->TableDefs()) {
            const QString linked = database::DatabaseOfConnectText(table.Connect);
            if (table.Attributes == database::kLinkedTable && linked != workTables)
                findings.Add(u"帳票ファイル %1 のテーブル %2 が %4 ではなく %3 にリンクしています。"_s.arg(
                    templateFile, table.Name, linked, workTables));
        }
    } catch (const platform::RuntimeError& error) {
        findings.Add(u"帳票ファイル %1 を開けません。%2"_s.arg(templateFile, platform::TextForPeople(error)));
    }
}

}  // namespace

bool CheckFile(CheckReport& findings, const UserAccess& user, const QString& path, const QString& what) {
    if (!QFileInfo(path).isFile())
        findings.Add(u"%1 %2 がありません。"_s.arg(what, path));
    else if (!user.MayRead(path))
        findings.Add(u"%1 %2 を読む権限がありません。"_s.arg(what, path));
    else
        return true;
    return false;
}

void CheckProgram(CheckReport& findings, const UserAccess& user, const QString& path, const QString& what) {
    if (CheckFile(findings, user, path, what) && !user.MayRun(path))
        findings.Add(u"%1 %2 を起動する権限がありません。"_s.arg(what, path));
}

bool CheckDatabase(CheckReport& findings, const UserAccess& user, const QString& path, const QString& what) {
    if (!CheckFile(findings, user, path, what)) return false;
    try {
        OpenSuiteFile(path, database::ConnectMode::Read);
        return true;
    } catch (const platform::RuntimeError& error) {
        findings.Add(u"%1 %2 を開けません。%3"_s.arg(what, path, platform::TextForPeople(error)));
        return false;
    }
}

void CheckWritable(CheckReport& findings, const UserAccess& user, const QString& path, const QString& what) {
    const QString folder = QFileInfo(path).path();
    if (!user.MayWrite(path))
        findings.Add(u"%1 %2 に書き込む権限がありません。"_s.arg(what, path));
    else if (!user.MayMakeFilesIn(folder))  // for the rollback journal
        findings.Add(u"%1のフォルダ %2 に書き込む権限がありません。"_s.arg(what, folder));
}

void CheckReportFiles(CheckReport& findings, const UserAccess& user, const QString& workTables, bool own) {
    const QFileInfo place(workTables);
    const QString what = u"帳票データベース"_s;
    if (CheckDatabase(findings, user, workTables, what) && own) CheckWritable(findings, user, workTables, what);
    CheckFile(findings, user, place.path() + u"/repfrmdb."_s + place.suffix(), u"帳票ファイル"_s);
    for (const QString& file : TemplateFilesIn(place.path())) CheckLinks(findings, file, workTables);
}

}  // namespace setup
