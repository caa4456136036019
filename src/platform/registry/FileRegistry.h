#pragma once

#include <functional>

#include "platform/Registry.h"
#include "platform/registry/RegistryFile.h"

namespace platform {

/// The registry in two text files, one for each root. Not cached: each call reads the file, so that writes of other
/// programs are visible at once. A write takes the lock, reads the current content and replaces the file atomically;
/// concurrent writers lose no update, and readers never see a partial file. New files and folders of the machine root
/// are readable by all users, whatever the umask is.
class FileRegistry : public Registry {
  public:
    /// Uses MachineRegistryFile() and UserRegistryFile().
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

/// Reads a registry file into `content`; unchanged if the file is missing. Returns kRegistryDone, kRegistryDenied or
/// kRegistryDamaged; the latter also for anything that is not a regular file (never blocks).
long LoadRegistry(const QString& path, RegistryContent& content);

/// Paths of the two files: the environment variables MEIBO_MACHINE_REGISTRY and MEIBO_USER_REGISTRY if set; otherwise
/// /etc/youin-meibo/registry, and youin-meibo/registry in the user's configuration folder.
QString MachineRegistryFile();
QString UserRegistryFile();

}  // namespace platform
