// Also part of Registry.h: Registry::GetValue.

#include "platform/registry/FileRegistry.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include "platform/AtomicFile.h"
#include "platform/PlainFile.h"
#include "platform/posix/RegistryLock.h"

using namespace Qt::StringLiterals;

namespace platform {
namespace {

constexpr quint32 kMayWriteValues = 0x2;
constexpr quint32 kMayMakeKeys = 0x4;

QString Below(const RegistryKey& parent, const QString& subkey) {
    if (subkey.isEmpty()) return parent.path;
    return parent.path.isEmpty() ? subkey : parent.path + u'\\' + subkey;
}

long WriteContent(const QString& path, const RegistryContent& content) {
    const QByteArray text = RegistryText(content);
    QString error;
    // A larger file would be rejected as damaged by the next read.
    const bool written = text.size() <= kMaxRegistryBytes && ReplaceFile(path, text, error);
    return written ? kRegistryDone : kRegistryNotWritten;
}

bool MayWrite(const QString& path) {
    const QFileInfo file(path);
    if (file.exists()) return file.isWritable();
    QString folder = file.path();
    while (!QFileInfo::exists(folder)) folder = QFileInfo(folder).path();
    return QFileInfo(folder).isWritable();
}

/// Writes text and NUL over the beginning of the buffer. `length`: in, size of the buffer; out, required size.
long CopyToBuffer(const QString& text, QString& buffer, int& length) {
    const qsizetype capacity = qMin<qsizetype>(length, buffer.size());
    length = static_cast<int>(text.size()) + 1;
    if (length > capacity) return kRegistryMoreData;
    buffer.replace(0, length, text + QChar(u'\0'));
    return kRegistryDone;
}

QString FileByEnvironment(const char* variable, const QString& otherwise) {
    const QString named = qEnvironmentVariable(variable);
    return named.isEmpty() ? otherwise : named;
}

// Files of the machine root must be readable by all users, regardless of the administrator's umask.
constexpr auto kReadableByAll =
    QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ReadGroup | QFileDevice::ReadOther;
constexpr auto kPassableByAll = kReadableByAll | QFileDevice::ExeOwner | QFileDevice::ExeGroup | QFileDevice::ExeOther;

/// Creates the folder and its missing parents.
bool MakeFolder(const QString& folder, bool forAll) {
    const QFileInfo wanted(folder);
    if (wanted.isDir()) return true;
    if (!MakeFolder(wanted.path(), forAll)) return false;
    // Another program may create it at the same time.
    if (!QDir().mkdir(folder)) return wanted.isDir();
    return !forAll || QFile::setPermissions(folder, kPassableByAll);
}

}  // namespace

QString MachineRegistryFile() { return FileByEnvironment("MEIBO_MACHINE_REGISTRY", u"/etc/youin-meibo/registry"_s); }

QString UserRegistryFile() {
    return FileByEnvironment(
        "MEIBO_USER_REGISTRY",
        QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u"/youin-meibo/registry"_s);
}

long LoadRegistry(const QString& path, RegistryContent& content) {
    QByteArray text;
    switch (ReadPlainFile(path, kMaxRegistryBytes, text)) {
        case FileRead::Missing:
            return kRegistryDone;
        case FileRead::Denied:
            return kRegistryDenied;
        case FileRead::Done:
            break;
        default:
            return kRegistryDamaged;
    }
    std::optional<RegistryContent> read = ParseRegistry(text);
    if (!read) return kRegistryDamaged;
    content = *std::move(read);
    return kRegistryDone;
}

long Registry::GetValue(const RegistryKey& root, const QString& subkey, const QString& name, int type, QString& buffer,
                        int& length) {
    if (type != kRegistryTextType) return kRegistryOtherType;
    RegistryKey key;
    const long opened = OpenKey(root, subkey, kRegistryRead, key);
    if (opened != kRegistryDone) return opened;
    const long status = QueryText(key, name, buffer, length);
    CloseKey(key);
    return status;
}

FileRegistry::FileRegistry() : FileRegistry(MachineRegistryFile(), UserRegistryFile()) {}

FileRegistry::FileRegistry(QString machineFile, QString userFile)
    : machineFile_(std::move(machineFile)), userFile_(std::move(userFile)) {}

const QString& FileRegistry::FileOf(RegistryRoot root) const {
    return root == RegistryRoot::LocalMachine ? machineFile_ : userFile_;
}

long FileRegistry::Read(const RegistryKey& key, RegistryContent& content) const {
    return key.open ? LoadRegistry(FileOf(key.root), content) : kRegistryClosed;
}

long FileRegistry::Write(const RegistryKey& key, const std::function<long(RegistryContent&)>& change) const {
    const QString& file = FileOf(key.root);
    const bool forAll = key.root == RegistryRoot::LocalMachine;
    if (!MakeFolder(QFileInfo(file).path(), forAll)) return kRegistryDenied;
    const RegistryLock lock(file);
    if (lock.Status() != kRegistryDone) return lock.Status();
    RegistryContent content;
    const long read = LoadRegistry(file, content);
    if (read != kRegistryDone) return read;
    const long changed = change(content);
    if (changed != kRegistryDone) return changed;
    const bool fresh = !QFileInfo::exists(file);
    const long stored = WriteContent(file, content);
    if (stored != kRegistryDone || !fresh || !forAll) return stored;
    return QFile::setPermissions(file, kReadableByAll) ? kRegistryDone : kRegistryDenied;
}

long FileRegistry::OpenKey(const RegistryKey& parent, const QString& subkey, quint32 access, RegistryKey& key) {
    RegistryContent content;
    const long read = Read(parent, content);
    if (read != kRegistryDone) return read;
    const QString path = Below(parent, subkey);
    if (!path.isEmpty() && content.Find(path) == nullptr) return kRegistryNotFound;
    if ((access & (kMayWriteValues | kMayMakeKeys)) != 0 && !MayWrite(FileOf(parent.root))) return kRegistryDenied;
    key = {parent.root, path, access, true};
    return kRegistryDone;
}

long FileRegistry::CreateKey(const RegistryKey& parent, const QString& subkey, quint32 access, RegistryKey& key) {
    const long opened = OpenKey(parent, subkey, access, key);
    if (opened != kRegistryNotFound) return opened;
    if ((parent.access & kMayMakeKeys) == 0) return kRegistryDenied;
    const QString path = Below(parent, subkey);
    if (!IsUsableKeyPath(path)) return kRegistryBadName;
    const long made = Write(parent, [&](RegistryContent& content) {
        content.Make(path);
        return kRegistryDone;
    });
    if (made == kRegistryDone) key = {parent.root, path, access, true};
    return made;
}

long FileRegistry::CloseKey(RegistryKey& key) {
    if (!key.open) return kRegistryClosed;
    key.open = key.path.isEmpty();
    return kRegistryDone;
}

long FileRegistry::EnumKey(const RegistryKey& key, int index, QString& buffer, int& length) {
    RegistryContent content;
    const long read = Read(key, content);
    if (read != kRegistryDone) return read;
    const QString prefix = key.path.isEmpty() ? QString() : FoldedName(key.path) + u'\\';
    for (auto found = content.keys.lower_bound(prefix); found != content.keys.end() && found->first.startsWith(prefix);
         ++found) {
        if (found->first.indexOf(u'\\', prefix.size()) >= 0 || index-- > 0) continue;
        const QString& path = found->second.path;
        const long status = CopyToBuffer(path.sliced(path.lastIndexOf(u'\\') + 1), buffer, length);
        --length;
        return status;
    }
    return kRegistryNoMoreItems;
}

long FileRegistry::ReadValue(const RegistryKey& key, const QString& name, std::variant<QString, quint32>& data) const {
    RegistryContent content;
    const long read = Read(key, content);
    if (read != kRegistryDone) return read;
    const RegistryContent::Key* found = content.Find(key.path);
    if (found == nullptr) return kRegistryNotFound;
    const auto value = found->values.find(FoldedName(name));
    if (value == found->values.end()) return kRegistryNotFound;
    data = value->second.data;
    return kRegistryDone;
}

long FileRegistry::QueryText(const RegistryKey& key, const QString& name, QString& buffer, int& length) {
    std::variant<QString, quint32> data;
    const long status = ReadValue(key, name, data);
    if (status != kRegistryDone) return status;
    const auto* text = std::get_if<QString>(&data);
    return text == nullptr ? kRegistryOtherType : CopyToBuffer(*text, buffer, length);
}

long FileRegistry::QueryNumber(const RegistryKey& key, const QString& name, quint32& number) {
    std::variant<QString, quint32> data;
    const long status = ReadValue(key, name, data);
    if (status != kRegistryDone) return status;
    const auto* found = std::get_if<quint32>(&data);
    if (found == nullptr) return kRegistryOtherType;
    number = *found;
    return kRegistryDone;
}

long FileRegistry::SetValue(const RegistryKey& key, const QString& name, std::variant<QString, quint32> data) const {
    if (!key.open) return kRegistryClosed;
    if ((key.access & kMayWriteValues) == 0) return kRegistryDenied;
    if (!IsUsableValueName(name)) return kRegistryBadName;
    return Write(key, [&](RegistryContent& content) {
        // Another process may have replaced the file without this key meanwhile.
        RegistryContent::Key* found = content.Find(key.path);
        if (found == nullptr) return kRegistryNotFound;
        RegistryContent::Value& value = found->values[FoldedName(name)];
        if (value.name.isEmpty()) value.name = name;
        value.data = std::move(data);
        return kRegistryDone;
    });
}

long FileRegistry::SetText(const RegistryKey& key, const QString& name, const QString& text, qsizetype bytes) {
    return SetValue(key, name, text.first(qBound<qsizetype>(0, bytes / 2, text.size())));
}

long FileRegistry::SetNumber(const RegistryKey& key, const QString& name, quint32 number) {
    return SetValue(key, name, number);
}

}  // namespace platform
