#pragma once

#include <functional>

#include "platform/Registry.h"
#include "platform/registry/RegistryFile.h"

namespace platform {

/// The registry in two text files. Every call reads the file anew, so that programs see each other's writes at once. A
/// write takes the file's lock, reads what stands there now, and puts the new file into its place in one step: two
/// programs that write at once lose nothing, and a reader never sees half a file.
class FileRegistry : public Registry {
  public:
    FileRegistry();
    FileRegistry(QString machineFile, QString userFile);

    long OpenKey(const RegistryKey& parent, const QString& subkey, quint32 access, RegistryKey& key) override;
    long CreateKey(const RegistryKey& parent, const QString& subkey, quint32 access, RegistryKey& key) override;
    long CloseKey(RegistryKey& key) override;
    long EnumKey(const RegistryKey& key, int index, QString& buffer, int& length) override;
    long QueryText(const RegistryKey& key, const QString& name, QString& buffer, int& length) override;
    long QueryNumber(const RegistryKey& key, const QString& name, quint32& number) override;
    long SetText(const RegistryKey& key, const QString& name, const QString& text, qsizetype bytes) override;
    long SetNumber(const RegistryKey& key, const QString& name, quint32 number) override;

  private:
    const QString& FileOf(RegistryRoot root) const;
    long Read(const RegistryKey& key, RegistryContent& content) const;
    long ReadValue(const RegistryKey& key, const QString& name, std::variant<QString, quint32>& data) const;
    long Write(const RegistryKey& key, const std::function<long(RegistryContent&)>& change) const;
    long SetValue(const RegistryKey& key, const QString& name, std::variant<QString, quint32> data) const;

    QString machineFile_, userFile_;
};

/// Content of a registry file; a missing one leaves `content` as it is. kRegistryDone, kRegistryDenied, or
/// kRegistryDamaged for one that is no plain file as well: it is never waited for.
long LoadRegistry(const QString& path, RegistryContent& content);

/// Where the two files lie: the environment variables MEIBO_MACHINE_REGISTRY and MEIBO_USER_REGISTRY, where they are
/// set; otherwise /etc/youin-meibo/registry, and youin-meibo/registry in the user's folder for settings.
QString MachineRegistryFile();
QString UserRegistryFile();

}  // namespace platform
