#include "support/FakeRegistry.h"

#include "platform/Services.h"

using namespace Qt::StringLiterals;
using namespace platform;

namespace {

QString LastPart(const QString& path) { return path.sliced(path.lastIndexOf(u'\\') + 1); }

bool Names(const QStringList& names, const QString& path) { return names.contains(LastPart(path)); }

}  // namespace

FakeRegistry::FakeRegistry() : FakeRegistry(std::make_shared<QTemporaryDir>()) {}

FakeRegistry::FakeRegistry(std::shared_ptr<QTemporaryDir> folder)
    : FileRegistry(folder->filePath(u"machine"_s), folder->filePath(u"user"_s)), folder_(std::move(folder)) {}

long FakeRegistry::OpenKey(const RegistryKey& parent, const QString& subkey, quint32 access, RegistryKey& key) {
    ++reads;
    if (access == kRegistryAll && Names(readOnlyKeys, subkey)) return kRegistryDenied;
    return Names(refusedKeys, subkey) ? kRegistryDenied : FileRegistry::OpenKey(parent, subkey, access, key);
}

long FakeRegistry::CreateKey(const RegistryKey& parent, const QString& subkey, quint32 access, RegistryKey& key) {
    if (Names(refusedKeys + unmakableKeys, subkey)) return kRegistryDenied;
    return FileRegistry::CreateKey(parent, subkey, access, key);
}

long FakeRegistry::CloseKey(RegistryKey& key) {
    const long status = FileRegistry::CloseKey(key);
    return Names(refusedCloses, key.path) ? kRegistryDenied : status;
}

long FakeRegistry::Write(const RegistryKey& key, const QString& name) {
    writes.append(LastPart(key.path) + u' ' + name);
    return refusedValues.contains(name) ? kRegistryDenied : kRegistryDone;
}

long FakeRegistry::SetText(const RegistryKey& key, const QString& name, const QString& text, qsizetype bytes) {
    const long status = Write(key, name);
    return status == kRegistryDone ? FileRegistry::SetText(key, name, text, bytes) : status;
}

long FakeRegistry::SetNumber(const RegistryKey& key, const QString& name, quint32 number) {
    const long status = Write(key, name);
    return status == kRegistryDone ? FileRegistry::SetNumber(key, name, number) : status;
}

void FakeRegistry::Give(const QString& path, const QString& name, const QString& text) {
    RegistryKey key;
    FileRegistry::CreateKey(UserRoot(), path, kRegistryAll, key);
    if (!name.isEmpty()) FileRegistry::SetText(key, name, text, TwoByteLength(text));
}

void FakeRegistry::GiveHost(const QString& folder) {
    RegistryKey key;
    FileRegistry::CreateKey(MachineRoot(), u"Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\MSACCESS.EXE"_s,
                            kRegistryAll, key);
    FileRegistry::SetText(key, u"Path"_s, folder, TwoByteLength(folder));
}

QString FakeRegistry::Text(const QString& path, const QString& name) {
    QString buffer(1024, u' ');
    int length = 1024;
    const long status = GetValue(UserRoot(), path, name, kRegistryTextType, buffer, length);
    return status == kRegistryDone ? buffer.first(length - 1) : u"(none)"_s;
}

int FakeRegistry::Number(const QString& path, const QString& name) {
    RegistryKey key;
    quint32 number = 0;
    if (FileRegistry::OpenKey(UserRoot(), path, kRegistryRead, key) != kRegistryDone) return -1;
    return QueryNumber(key, name, number) == kRegistryDone ? static_cast<int>(number) : -1;
}

QStringList FakeRegistry::Subkeys(const QString& path) {
    QStringList names;
    RegistryKey key;
    if (FileRegistry::OpenKey(UserRoot(), path, kRegistryRead, key) != kRegistryDone) return names;
    for (int index = 0;; ++index) {
        QString buffer(256, u' ');
        int length = 256;
        if (EnumKey(key, index, buffer, length) != kRegistryDone) return names;
        names.append(buffer.first(length));
    }
}

FakeRegistry& UseStandInRegistry() {
    auto registry = std::make_unique<FakeRegistry>();
    FakeRegistry& used = *registry;
    Services().registry = std::move(registry);
    return used;
}

QString LocationsOf(const QString& version) {
    return u"Software\\Microsoft\\Office\\"_s + version + u"\\Access\\Security\\Trusted Locations"_s;
}
