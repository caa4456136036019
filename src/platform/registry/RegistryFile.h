#pragma once

#include <QByteArray>
#include <QString>
#include <map>
#include <optional>
#include <variant>

namespace platform {

/// What a registry file holds. Names are sought folded; the spelling is kept beside.
struct RegistryContent {
    struct Value {
        QString name;
        std::variant<QString, quint32> data;
    };
    struct Key {
        QString path;
        std::map<QString, Value> values;  ///< by folded name
    };
    std::map<QString, Key> keys;  ///< by folded path; every key above a key is there as well

    const Key* Find(const QString& path) const;
    Key* Find(const QString& path);
    /// The key, made with all keys above it where it is missing.
    Key& Make(const QString& path);
};

/// How names are compared: without letter case, otherwise by code unit.
QString FoldedName(const QString& name);

/// The file's text (UTF-8): a line "[path]" for each key, below it a line for each value, "name"="text" or
/// "name"=number. "\", quotes and line ends inside quotes are written with "\".
QByteArray RegistryText(const RegistryContent& content);
/// None when a line is something else.
std::optional<RegistryContent> ParseRegistry(const QByteArray& text);

}  // namespace platform
