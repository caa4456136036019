#include "setup/storage/PinSealing.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <optional>

#include "database/sqlite/OpenSqlite.h"
#include "platform/FileRights.h"
#include "platform/SealedPins.h"
#include "setup/UsageError.h"
#include "setup/commands/OdbcString.h"
#include "setup/schema/GeneralDatabase.h"
#include "setup/storage/ConfigurationFiles.h"
#include "setup/storage/InstallationUsers.h"
#include "setup/storage/Installer.h"

using namespace Qt::StringLiterals;
using platform::PinKey;

namespace setup {

namespace {

void SealColumn(PinStore& store, const PinColumn& place, const PinKey& key, SealedCount& count) {
    for (const StoredPin& pin : store.Pins(place)) {
        if (platform::IsSealedPin(pin.text)) {
            ++(platform::OpenPin(pin.text, key) ? count.before : count.unopenable);
            continue;
        }
        store.Replace(place, pin, platform::SealPin(pin.text, key));
        ++count.sealed;
    }
}

PinKey KeyOf(const QString& keyFile) {
    if (const std::optional<PinKey> key = PinKey::Read(keyFile)) return *key;
    throw platform::RuntimeError(1, u"鍵ファイル %1 を読めません。"_s.arg(keyFile));
}

bool GiveToGroupOfFolder(const QString& keyFile) {
    const std::optional<platform::FileRights> folder = platform::RightsOf(QFileInfo(keyFile).canonicalPath());
    const std::optional<platform::FileRights> key = platform::RightsOf(keyFile);
    return folder && key && platform::SetRights(keyFile, folder->group, key->mode);
}

/// The folder's group must be able to read the key, whatever this user's default group is.
void MakeKey(const QString& keyFile) {
    const bool written = PinKey().Write(keyFile);
    if (written && GiveToGroupOfFolder(keyFile)) return;
    if (written) QFile::remove(keyFile);
    throw platform::RuntimeError(1, u"鍵ファイル %1 を作成できません。"_s.arg(keyFile));
}

/// Runs in one transaction. `newKey` is set if the key file was created.
SealedCount SealAll(PinStore& store, const QString& keyFile, bool& newKey) {
    // Must precede the check for the key file: of two concurrent runs the second waits here and then finds the first
    // one's key.
    store.Begin();
    if (!QFile::exists(keyFile)) {
        MakeKey(keyFile);
        newKey = true;
    }
    const PinKey key = KeyOf(keyFile);
    SealedCount count;
    for (const PinColumn& place : kPinColumns) SealColumn(store, place, key, count);
    store.Commit();
    return count;
}

bool AnyOpens(PinStore& store, const PinKey& key) {
    for (const PinColumn& place : kPinColumns)
        for (const StoredPin& pin : store.Pins(place))
            if (platform::OpenPin(pin.text, key)) return true;
    return false;
}

/// A COMMIT that reported an error may have succeeded if only the reply was lost, and another run may have used the key
/// meanwhile. So the key is removed only if no PIN decrypts with it.
void ForgetUnusedKey(const PinStoreOpener& open, const QString& keyFile) {
    try {
        const std::unique_ptr<PinStore> store = open();
        store->Begin();
        if (!AnyOpens(*store, KeyOf(keyFile))) QFile::remove(keyFile);
    } catch (const platform::RuntimeError&) {
        return;
    }
}

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
    const bool asked = arguments.Has(kOdbcOption);
    if (defined.db == u"A"_s) {
        if (asked) throw UsageError(u"一般データベースはファイルです。--odbc は付けられません。"_s);
        return [file = database::SqlitePath(defined.データソース名)] { return OpenFilePins(file); };
    }
    const GeneralDatabaseDefinition owner = asked ? DefinitionFrom(arguments) : defined;
    if (asked) CheckSameDatabase(defined, owner);
    return [owner] { return MakeServerPins(Opened(owner, database::ConnectMode::ReadWrite)); };
}

}  // namespace

QList<OptionRule> SealPinsOptions() { return {{kOdbcOption, true}}; }

SealedCount SealStoredPins(const PinStoreOpener& open, const QString& keyFile) {
    std::unique_ptr<PinStore> store = open();
    bool newKey = false;
    try {
        return SealAll(*store, keyFile, newKey);
    } catch (const platform::RuntimeError&) {
        const bool stillLocked = store->StillLocked();
        if (newKey && stillLocked) QFile::remove(keyFile);
        store.reset();
        if (newKey && !stillLocked) ForgetUnusedKey(open, keyFile);
        throw;
    }
}

int CountClearPins(database::Connection& general) {
    int count = 0;
    for (const PinColumn& place : kPinColumns)
        for (const StoredPin& pin : ReadPins(general, place)) count += platform::IsSealedPin(pin.text) ? 0 : 1;
    return count;
}

QString ClearPinsFault(const QString& root, database::Connection& general, bool onServer) {
    if (!QFile::exists(CommonPlaces(root).conf + u'/' + platform::PinKeyFileName())) return {};
    const int count = CountClearPins(general);
    if (count == 0) return {};
    return u"鍵ファイルがあるのに、封じられていない暗証番号が %1 "
           u"件あり、入力しても一致しません。次を実行してください。\n"
           u"    suite-setup seal-pins %2%3"_s.arg(count)
               .arg(root, onServer ? u" --odbc 所有者の接続文字列"_s : QString());
}

void SealPins(const Arguments& arguments, const Console& console) {
    const QString root = InstallationRoot(arguments.installation);
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
