#include "setup/storage/PinSealing.h"

#include <QFile>
#include <QFileInfo>
#include <optional>

#include "platform/FileRights.h"
#include "platform/SealedPins.h"
#include "setup/storage/Installation.h"

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

}  // namespace

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

QString ClearPinsFault(const QString& root, database::Connection& general, DatabasePlace place) {
    if (!QFile::exists(CommonPlaces(root).conf + u'/' + platform::PinKeyFileName())) return {};
    const int count = CountClearPins(general);
    if (count == 0) return {};
    return u"鍵ファイルがあるのに、封じられていない暗証番号が %1 "
           u"件あり、入力しても一致しません。次を実行してください。\n"
           u"    suite-setup seal-pins '%2'%3"_s.arg(count)
               .arg(root, place == DatabasePlace::Server ? u" --odbc 所有者の接続文字列"_s : QString());
}

}  // namespace setup
