// Part of Verbs.h: the verb `repair`.
#include "setup/commands/Verbs.h"

#include "database/sqlite/OpenSqlite.h"
#include "platform/RuntimeError.h"
#include "setup/UsageError.h"
#include "setup/repair/Repair.h"
#include "setup/schema/GeneralDatabase.h"
#include "setup/storage/Installation.h"
#include "setup/storage/InstallationRights.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

constexpr long kWorkFailed = 1;

/// One run: what was changed, and what could not be.
struct Repair {
    QString root;
    const Console& console;
    RepairRequest request{};
    bool changed = false;
    QStringList failures{};

    /// The remaining steps are done even if one fails.
    template <typename Step>
    void Try(const QString& subject, Step step) {
        try {
            for (const QString& line : step()) {
                changed = true;
                console.out << line << u'\n';
            }
        } catch (const UsageError&) {
            throw;
        } catch (const platform::RuntimeError& error) {
            failures.append(u"%1を直せません。%2"_s.arg(subject, platform::TextForPeople(error)));
        }
    }
};

RepairRequest RequestFrom(const Arguments& arguments) {
    RepairRequest request{.office = arguments.Value(option::kOffice),
                          .resetClasses = arguments.Has(option::kResetClasses),
                          .futureRows = arguments.Has(option::kFutureRows)};
    if (arguments.Has(option::kInstallKind))
        request.installKind = arguments.Choice(option::kInstallKind, {u"0"_s, u"1"_s});
    return request;
}

/// The account that may write the general database; empty without a usable definition row.
std::optional<GeneralDatabaseDefinition> OwnerOf(const std::optional<GeneralDatabaseDefinition>& definition,
                                                 const Arguments& arguments) {
    if (!definition) return std::nullopt;
    const bool file = definition->db == u"A"_s, asked = arguments.Has(option::kOdbc);
    if (file && asked) throw UsageError(u"一般データベースはファイルです。--odbc は付けられません。"_s);
    return asked ? DefinitionFrom(arguments) : *definition;
}

void RepairDatabases(Repair& repair, const QList<FilePlaces>& privatePlaces, const Arguments& arguments) {
    const QString configuration = ConfigurationFile(CommonPlaces(repair.root).conf);
    const std::optional<GeneralDatabaseDefinition> definition = FindDefinition(configuration);
    const QString file =
        definition && definition->db == u"A"_s ? database::SqlitePath(definition->データソース名) : QString();
    repair.Try(u"索引"_s, [&] { return RepairIndexes(repair.root, file); });
    const std::optional<GeneralDatabaseDefinition> owner = OwnerOf(definition, arguments);
    if (!owner) return;
    repair.Try(u"一般データベース"_s, [&] {
        database::Connection general;
        OpenDefined(general, *owner, database::ConnectMode::ReadWrite);
        return RepairReferences(repair.root, privatePlaces, general, repair.request) +
               RepairGeneral(general, repair.request);
    });
}

void RepairAll(Repair& repair, const Arguments& arguments) {
    const QList<FilePlaces> privatePlaces = AllPrivatePlacesToChange(repair.root);
    repair.Try(u"フォルダとファイル"_s, [&] { return RepairFiles(repair.root); });
    repair.Try(u"構成データベース"_s, [&] { return RepairConfigurations(repair.root, privatePlaces, repair.request); });
    RepairDatabases(repair, privatePlaces, arguments);
    for (const FilePlaces& places : QList<FilePlaces>{CommonPlaces(repair.root)} + privatePlaces)
        for (const QString& file : TemplateFilesIn(places.report))
            repair.Try(u"出力先"_s, [&] { return RepairTargets(file); });
    CorrectRights(repair.root);  // of the entries that were made
}

QStringList RestoreChosenTemplate(const QString& root, const Arguments& arguments) {
    const QString user = arguments.Value(option::kUser);
    const FilePlaces places = user.isEmpty() ? CommonPlaces(root) : PlacesOf(root, user);
    QStringList done;
    for (const QString& file : TemplateFilesIn(places.report))
        done += RestoreTemplate(file, arguments.Value(option::kReport));
    if (done.isEmpty()) throw UsageError(u"%1 に帳票ファイル repfrmdb がありません。"_s.arg(places.report));
    return done;
}

}  // namespace

void RepairInstallation(const Arguments& arguments, const Console& console) {
    Repair repair{
        .root = InstallationRoot(arguments.Installation()), .console = console, .request = RequestFrom(arguments)};
    if (ConfigurationFile(CommonPlaces(repair.root).conf).isEmpty())
        throw UsageError(u"%1 に構成データベースがありません。"_s.arg(repair.root));
    if (const QString user = arguments.Value(option::kUser); !user.isEmpty()) {
        RequireUser(repair.root, user);
        if (!arguments.Has(option::kReport)) throw UsageError(u"--user は --report と一緒に指定してください。"_s);
    }
    if (arguments.Has(option::kReport))
        repair.Try(u"帳票"_s, [&] { return RestoreChosenTemplate(repair.root, arguments); });
    else
        RepairAll(repair, arguments);
    console.out.flush();
    if (!repair.failures.isEmpty()) throw platform::RuntimeError(kWorkFailed, repair.failures.join(u'\n'));
    if (!repair.changed) console.out << u"直すところはありませんでした。\n"_s;
}

}  // namespace setup
