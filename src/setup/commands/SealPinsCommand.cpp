// Part of Verbs.h: the verb `seal-pins`.
#include <algorithm>

#include "database/sqlite/OpenSqlite.h"
#include "platform/SealedPins.h"
#include "setup/UsageError.h"
#include "setup/commands/Verbs.h"
#include "setup/schema/GeneralDatabase.h"
#include "setup/storage/Installation.h"
#include "setup/storage/Installer.h"
#include "setup/storage/PinSealing.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

database::Connection Opened(const GeneralDatabaseDefinition& definition, database::ConnectMode mode) {
    database::Connection connection;
    OpenDefined(connection, definition, mode);
    return connection;
}

QStringList PinTexts(database::Connection& connection) {
    QStringList texts;
    for (const PinColumn& place : kPinColumns)
        for (const StoredPin& pin : ReadPins(connection, place)) texts.append(pin.row.join(u' ') + u' ' + pin.text);
    std::sort(texts.begin(), texts.end());
    return texts;
}

/// The key of this installation would not decrypt PINs that were encrypted in another database.
void CheckSameDatabase(const GeneralDatabaseDefinition& defined, const GeneralDatabaseDefinition& owner) {
    database::Connection programs = Opened(defined, database::ConnectMode::Read);
    database::Connection asked = Opened(owner, database::ConnectMode::Read);
    if (PinTexts(programs) != PinTexts(asked))
        throw UsageError(
            u"--odbc のデータベースは、定義のものと暗証番号が異なります。同じデータベースを指定してください。"_s);
}

PinStoreOpener OpenerOf(const GeneralDatabaseDefinition& defined, const Arguments& arguments) {
    const bool asked = arguments.Has(option::kOdbc);
    if (defined.db == u"A"_s) {
        if (asked) throw UsageError(u"一般データベースはファイルです。--odbc は付けられません。"_s);
        return [file = database::SqlitePath(defined.データソース名)] { return OpenFilePins(file); };
    }
    const GeneralDatabaseDefinition owner = asked ? DefinitionFrom(arguments) : defined;
    if (asked) CheckSameDatabase(defined, owner);
    return [owner] { return MakeServerPins(Opened(owner, database::ConnectMode::ReadWrite)); };
}

}  // namespace

void SealPins(const Arguments& arguments, const Console& console) {
    const QString root = InstallationRoot(arguments.Installation());
    const QString configuration = ConfigurationFile(root + u"/conf"_s);
    if (configuration.isEmpty()) throw UsageError(u"%1 にインストールがありません。"_s.arg(root));
    const SealedCount count = SealStoredPins(OpenerOf(ReadDefinition(configuration), arguments),
                                             root + u"/conf/"_s + platform::PinKeyFileName());
    console.out << u"暗証番号 %1 件を封じました。既に封じてあったもの %2 件。\n"_s.arg(count.sealed).arg(count.before);
    if (count.unopenable > 0)
        console.out << u"別の鍵で封じられていて開けないものが %1 件あり、そのまま残しました。\n"_s.arg(
            count.unopenable);
}

}  // namespace setup
