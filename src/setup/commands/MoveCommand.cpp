// Part of Verbs.h: the verb `move`.
#include "setup/commands/Verbs.h"

#include <QFileInfo>

#include "database/LinkedTables.h"
#include "database/sql/Quoting.h"
#include "platform/RuntimeError.h"
#include "platform/Services.h"
#include "setup/storage/Installation.h"
#include "setup/storage/Installer.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

constexpr long kWorkFailed = 1;

/// State of one run: output, general databases outside the installation, and failures.
struct Move {
    QString root;
    const Console& console;
    int changes = 0;
    QStringList outside{}, failures{};

    void Report(const QString& file, const QString& from, const QString& to) {
        ++changes;
        console.out << u"%1: %2 → %3\n"_s.arg(file, from, to);
    }
};

QString FileName(QString path) { return path.replace(u'\\', u'/').section(u'/', -1); }

void MoveDefinition(Move& move, const QString& file) {
    database::Connection connection = OpenSuiteFile(file, database::ConnectMode::ReadWrite);
    database::Recordset row;
    row.Open(u"SELECT db, データソース名 FROM データベース定義 WHERE 情報種類 = 'GNR'"_s, connection);
    if (row.AtEOF()) return;
    const QString dialect = row[u"db"].TextOr(u""_s), source = TrimBlanks(row[u"データソース名"].TextOr(u""_s));
    row.Close();
    if (dialect != u"A"_s) {
        move.console.out << u"%1: サーバーのデータベース %2 はそのままです。\n"_s.arg(file, source);
        return;
    }
    const QString own = move.root + u"/data/"_s + FileName(source);
    if (source == own) return;
    if (!QFileInfo(own).isFile()) {
        move.outside.append(source);
        return;
    }
    connection.Execute(
        u"UPDATE データベース定義 SET データソース名 = %1 WHERE 情報種類 = 'GNR'"_s.arg(database::TextLiteral(own)));
    move.Report(file, source, own);
}

void MoveLinks(Move& move, const QString& templateFile, const QString& workTables) {
    const auto file = database::SuiteTableEngine().OpenDatabase(templateFile);
    for (database::TableDef& table : file->TableDefs()) {
        const QString old = database::DatabaseOfConnectText(table.Connect);
        if (table.Attributes != database::kLinkedTable || old == workTables) continue;
        table.Connect = database::ConnectTextOf(workTables);
        file->RefreshLink(table);
        move.Report(templateFile + u" の "_s + table.Name, old, workTables);
    }
}

/// If one file can't be changed, the others must still be updated: they would keep using the original's files.
template <typename Step>
void Try(Move& move, const QString& file, Step step) {
    try {
        step();
    } catch (const platform::RuntimeError& error) {
        move.failures.append(u"%1 を変更できません。%2"_s.arg(file, platform::TextForPeople(error)));
    }
}

void MovePlaces(Move& move, const FilePlaces& places) {
    const QString configuration = ConfigurationFile(places.conf);
    if (!configuration.isEmpty()) Try(move, configuration, [&] { MoveDefinition(move, configuration); });
    for (const QString& file : TemplateFilesIn(places.report))
        Try(move, file, [&] { MoveLinks(move, file, WorkTablesIn(places.report)); });
}

}  // namespace

void MoveInstallation(const Arguments& arguments, const Console& console) {
    Move move{.root = InstallationRoot(arguments.Installation()), .console = console};
    const QList<FilePlaces> privatePlaces = AllPrivatePlacesToChange(move.root);
    MovePlaces(move, CommonPlaces(move.root));
    for (const FilePlaces& places : privatePlaces) MovePlaces(move, places);
    move.outside.removeDuplicates();
    for (const QString& file : move.outside)
        move.failures.append(u"一般データベース %1 は %2 の外にあり、変更していません。"_s.arg(file, move.root));
    if (!move.failures.isEmpty()) throw platform::RuntimeError(kWorkFailed, move.failures.join(u'\n'));
    if (move.changes == 0) console.out << u"変更するところはありませんでした。\n"_s;
}

}  // namespace setup
