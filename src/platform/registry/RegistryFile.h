#pragma once

#include <QByteArray>
#include <QString>
#include <map>
#include <optional>
#include <variant>

namespace platform {

/// Parsed content of a registry file. Keys and values are found by folded name (FoldedName); the original spelling is
/// stored with them.
struct RegistryContent {
    struct Value {
        QString name;
        std::variant<QString, quint32> data;
    };
    struct Key {
        QString path;                     ///< components separated by "\"
        std::map<QString, Value> values;  ///< by folded name
    };
    std::map<QString, Key> keys;  ///< by folded path; the parents of every key are present

    /// The key of a path in any letter case; null if there is none. Valid until a key is added.
    const Key* Find(const QString& path) const;
    Key* Find(const QString& path);
    /// Returns the key; creates it and missing parents. `path` must satisfy IsUsableKeyPath.
    Key& Make(const QString& path);
};

// Limits on memory and recursion for any input. The depth is limited since every parent of a key is stored with its
// full path.
inline constexpr qsizetype kMaxKeyDepth = 32;            ///< components of a key's path
inline constexpr qsizetype kMaxNameLength = 255;         ///< UTF-16 code units of the name of a key or value
inline constexpr qsizetype kMaxRegistryBytes = 1 << 20;  ///< bytes of the whole file

/// True if the path is within the limits, valid UTF-16, and without line ends and NUL, which are not escaped in paths.
bool IsUsableKeyPath(const QString& path);
/// True if the name is within the limits.
bool IsUsableValueName(const QString& name);

/// Case-folded name for comparison.
QString FoldedName(const QString& name);

/// Serialises to UTF-8: a line "[path]" for each key, followed by a line "name"="text" or "name"=number for each value.
/// "\", quotes, line ends and NUL are escaped with "\" inside quotes.
QByteArray RegistryText(const RegistryContent& content);
/// nullopt for a malformed line, an invalid key or name, or text that is not UTF-8.
std::optional<RegistryContent> ParseRegistry(const QByteArray& text);

}  // namespace platform
