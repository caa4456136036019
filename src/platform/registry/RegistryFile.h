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
    /// The key, made with all keys above it where it is missing. The path is usable.
    Key& Make(const QString& path);
};

// Bounds, so that no file and no name makes the programs run out of memory or stack. A key is kept with all keys above
// it, each under its whole path.
inline constexpr qsizetype kMaxKeyDepth = 32;            ///< names in a key's path
inline constexpr qsizetype kMaxNameLength = 255;         ///< UTF-16 code units of one name, of a key or of a value
inline constexpr qsizetype kMaxRegistryBytes = 1 << 20;  ///< of the whole file

/// True for a path of a key that keeps the bounds and that a line can hold.
bool IsUsableKeyPath(const QString& path);
/// True for a name of a value that keeps the bounds; a line can hold any.
bool IsUsableValueName(const QString& name);

/// How names are compared: without letter case, otherwise by code unit.
QString FoldedName(const QString& name);

/// The file's text (UTF-8): a line "[path]" for each key, below it a line for each value, "name"="text" or
/// "name"=number. "\", quotes and line ends inside quotes are written with "\".
QByteArray RegistryText(const RegistryContent& content);
/// None when a line is something else, a key or name is out of bounds, or the text is not UTF-8.
std::optional<RegistryContent> ParseRegistry(const QByteArray& text);

}  // namespace platform
