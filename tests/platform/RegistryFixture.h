#pragma once

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "platform/registry/FileRegistry.h"

inline const QString kOffice = QStringLiteral("Software\\Suite\\Office");

/// A registry in two temporary files.
class RegistryTest : public ::testing::Test {
  protected:
    QString MachineFile() const { return folder.filePath(QStringLiteral("machine")); }
    QString UserFile() const { return folder.filePath(QStringLiteral("user")); }
    platform::FileRegistry Another() const { return {MachineFile(), UserFile()}; }

    platform::RegistryKey Made(const QString& path, const platform::RegistryKey& root = platform::UserRoot()) {
        platform::RegistryKey key;
        EXPECT_EQ(registry.CreateKey(root, path, platform::kRegistryAll, key), platform::kRegistryDone);
        return key;
    }
    long SetText(const platform::RegistryKey& key, const QString& name, const QString& text) {
        return registry.SetText(key, name, text, platform::TwoByteLength(text));
    }
    /// The text up to its NUL; "status N" on failure.
    QString Text(const platform::RegistryKey& root, const QString& path, const QString& name) {
        QString buffer(256, u' ');
        int length = 256;
        const long status = Another().GetValue(root, path, name, platform::kRegistryTextType, buffer, length);
        return status == platform::kRegistryDone ? buffer.first(length - 1) : QStringLiteral("status %1").arg(status);
    }
    QStringList Subkeys(const platform::RegistryKey& key) {
        QStringList names;
        for (int index = 0;; ++index) {
            QString buffer(256, u' ');
            int length = 256;
            const long status = registry.EnumKey(key, index, buffer, length);
            if (status != platform::kRegistryDone) {
                EXPECT_EQ(status, platform::kRegistryNoMoreItems);
                return names;
            }
            names.append(buffer.first(length));
        }
    }

    QTemporaryDir folder;
    platform::FileRegistry registry{MachineFile(), UserFile()};
};
