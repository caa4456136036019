#pragma once

#include <QByteArray>
#include <QString>
#include <map>
#include <optional>
#include <variant>

namespace platform {

/// Parsed content of a registry file. Lookup is by folded name; the original spelling is stored with it.
struct RegistryContent {
    struct Value {
        QString name;
        std::variant<QString, quint32> data;
    };
    struct Key {
        QString path;
        std::map<QString, Value> values;  ///< by folded name
    };
    std::map<QString, Key> keys;  ///< by folded path; the parents of every key are present

    /// Null if there is no such key.
    const Key* Find(const QString& path) const;
    Key* Find(const QString& path);
    /// Returns the key; creates it and missing parents. `path` must satisfy IsUsableKeyPath.
    Key& Make(const QString& path);
};

// Limits that bound memory and recursion for any input. Depth matters because every parent of a key is stored with its
// full path.
inline constexpr qsizetype kMaxKeyDepth = 32;            ///< components of a key's path
inline constexpr qsizetype kMaxNameLength = 255;         ///< UTF-16 code units of the name of a key or value
inline constexpr qsizetype kMaxRegistryBytes = 1 << 20;  ///< of the whole file

/// True if the path is within the limits and can be written on a line.
bool IsUsableKeyPath(const QString& path);
/// True if the name is within the limits; any character can be escaped.
bool IsUsableValueName(const QString& name);

/// Case-folded name for comparison.
QString FoldedName(const QString& name);

/// Serialises to UTF-8: a line "[path]" for each key, followed by a line "name"="text" or "name"=number for each value.
/// "\", quotes, line ends and NUL are escaped with "\" inside quotes.
QByteArray RegistryText(const RegistryContent& content);
/// nullopt for a malformed line, an invalid key or name, or text that is not UTF-8.
std::optional<RegistryContent> ParseRegistry(const QByteArray& text);

}  // namespace platform
