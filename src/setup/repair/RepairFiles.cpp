// Part of Repair.h: folders, files, indexes and template files.
#include "setup/repair/Repair.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <functional>

#include "data/Files.h"
#include "report-host/template/OutputTarget.h"
#include "report-host/template/TemplateFile.h"
#include "setup/UsageError.h"
#include "setup/sample/Sample.h"
#include "setup/schema/DatabaseFileWriter.h"
#include "setup/schema/GeneralDatabase.h"
#include "setup/schema/Integrity.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

constexpr long kWorkFailed = 1;

QString Made(const QString& path) { return u"%1 を作りました。"_s.arg(path); }

void MakeFolders(const QString& root, QStringList& done) {
    for (const QString& name : {u"/report"_s, u"/manual"_s, u"/users"_s}) {
        const QString folder = root + name;
        if (QFileInfo(folder).isDir()) continue;
        if (!QDir().mkdir(folder))
            throw platform::RuntimeError(kWorkFailed, u"フォルダ %1 を作成できません。"_s.arg(folder));
        done.append(Made(folder));
    }
}

/// A file that could not be written completely is removed: it would count as damaged from then on.
void MakeDatabase(const QString& path, const std::function<void()>& write, QStringList& done) {
    try {
        write();
    } catch (const platform::RuntimeError&) {
        QFile::remove(path);
        QFile::remove(path + u"-journal"_s);
        throw;
    }
    done.append(Made(path));
}

/// The suffix of the databases that exist; the programs expect the same kind in all folders.
QString WorkTablesToMake(const QString& root) {
    const QString report = CommonPlaces(root).report;
    const FileKind kind = KindOfDesktopFile(ConfigurationFile(CommonPlaces(root).conf));
    const QString found = DatabaseIn(report, u"repdb"_s);
    return found.isEmpty() ? report + u'/' + DesktopFileName(u"repdb"_s, kind) : found;
}

QStringList DatabasesOf(const QString& root, const QString& generalFile) {
    QStringList files{generalFile};
    for (const FilePlaces& places : QList<FilePlaces>{CommonPlaces(root)} + AllPrivatePlacesToChange(root))
        files +=
            QStringList{ConfigurationFile(places.conf), WorkTablesIn(places.report)} + TemplateFilesIn(places.report);
    files.removeIf([](const QString& file) { return !QFileInfo(file).isFile(); });
    return files;
}

}  // namespace

QStringList RepairFiles(const QString& root) {
    QStringList done;
    MakeFolders(root, done);
    const QString manual = root + u"/manual/要員名簿照会.doc"_s;
    if (!QFileInfo(manual).isFile()) {
        WriteManual(manual);
        done.append(Made(manual));
    }
    const QString workTables = WorkTablesToMake(root), folder = CommonPlaces(root).report;
    if (!QFileInfo(workTables).isFile())
        MakeDatabase(
            workTables, [&] { DatabaseFileWriter(workTables, DatabaseKind::Report).Commit(); }, done);
    if (TemplateFilesIn(folder).isEmpty()) {
        const QString templates = folder + u'/' + DesktopFileName(u"repfrmdb"_s, KindOfDesktopFile(workTables));
        MakeDatabase(
            templates, [&] { WriteStandardTemplates(templates, workTables); }, done);
    }
    return done;
}

QStringList RepairIndexes(const QString& root, const QString& generalFile) {
    QStringList done;
    for (const QString& file : DatabasesOf(root, generalFile)) {
        const Integrity integrity = IntegrityOf(file);
        if (integrity.IsIntact() || !integrity.onlyIndexes) continue;
        RebuildIndexes(file);
        done.append(u"%1 の索引を作り直しました。"_s.arg(file));
    }
    return done;
}

QStringList RepairTargets(const QString& templateFile) {
    const QStringList reports = report::TemplateFile(templateFile).Names();
    QStringList done;
    database::Connection connection = OpenSuiteFile(templateFile, database::ConnectMode::ReadWrite);
    const auto rows = RowsOf(connection, u"SELECT 帳票, 種類 FROM 出力先"_s);
    connection.Close();
    for (const QStringList& row : rows.value_or(QList<QStringList>())) {
        const bool known = row[1] == u"フォルダ"_s || row[1] == u"プリンター"_s;
        if (known && (row[0].isEmpty() || reports.contains(row[0]))) continue;
        WriteOutputTarget(templateFile, row[0], {});
        const QString whose = row[0].isEmpty() ? u"すべての帳票"_s : u"帳票「%1」"_s.arg(row[0]);
        done.append(u"%1 の%2の出力先を取り除きました。"_s.arg(templateFile, whose));
    }
    return done;
}

QStringList RestoreTemplate(const QString& templateFile, const QString& report) {
    const QString text = report::StandardTemplate(report);
    if (text.isEmpty()) throw UsageError(u"標準の帳票に「%1」はありません。"_s.arg(report));
    report::TemplateFile(templateFile, database::ConnectMode::ReadWrite).StoreTemplates({report}, {text});
    return {u"%1 の帳票「%2」を標準のものに戻しました。"_s.arg(templateFile, report)};
}

}  // namespace setup
