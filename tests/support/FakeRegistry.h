#pragma once

#include <QStringList>
#include <QTemporaryDir>
#include <memory>

#include "platform/registry/FileRegistry.h"

/// Fake registry that fails for the keys and values that the test names.
class FakeRegistry : public platform::FileRegistry {
  public:
    FakeRegistry();

    QStringList refusedKeys;    ///< can be neither opened nor created
    QStringList readOnlyKeys;   ///< can be opened for reading only
    QStringList unmakableKeys;  ///< can be opened, not created
    QStringList refusedValues;  ///< can't be written
    QStringList refusedCloses;  ///< closing returns an error
    QStringList writes;         ///< "key name" of each value written or refused
    int reads = 0;              ///< keys opened

    long OpenKey(const platform::RegistryKey& parent, const QString& subkey, quint32 access,
                 platform::RegistryKey& key) override;
    long CreateKey(const platform::RegistryKey& parent, const QString& subkey, quint32 access,
                   platform::RegistryKey& key) override;
    long CloseKey(platform::RegistryKey& key) override;
    long SetText(const platform::RegistryKey& key, const QString& name, const QString& text, qsizetype bytes) override;
    long SetNumber(const platform::RegistryKey& key, const QString& name, quint32 number) override;

    /// Creates a key of the user, with a text value if a name is given.
    void Give(const QString& path, const QString& name = {}, const QString& text = {});
    void GiveHost(const QString& folder);
    /// A text value of the user; "(none)" without one.
    QString Text(const QString& path, const QString& name);
    /// A number value of the user; -1 without one.
    int Number(const QString& path, const QString& name);
    /// Names of the direct subkeys.
    QStringList Subkeys(const QString& path);
    QString UserFile() const { return folder_->filePath(QStringLiteral("user")); }

  private:
    explicit FakeRegistry(std::shared_ptr<QTemporaryDir> folder);
    long Write(const platform::RegistryKey& key, const QString& name);

    std::shared_ptr<QTemporaryDir> folder_;
};

/// Installs a FakeRegistry for as long as the TestServices exist.
FakeRegistry& UseStandInRegistry();

inline const QString kAssociations = QStringLiteral("Software\\Microsoft\\Windows\\CurrentVersion\\Extensions");
/// The trusted locations of a version.
QString LocationsOf(const QString& version);
