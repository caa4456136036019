#pragma once

#include <QString>

namespace platform {

enum class RegistryRoot { LocalMachine, CurrentUser };

/// An open key, or one of the two roots, which are always open.
struct RegistryKey {
    RegistryRoot root = RegistryRoot::LocalMachine;
    QString path;        ///< below the root, parts apart by "\", as it was asked for
    quint32 access = 0;  ///< what it was opened for
    bool open = false;
};

RegistryKey MachineRoot();
RegistryKey UserRoot();

// Access to ask for.
inline constexpr quint32 kRegistryRead = 0x20019;
inline constexpr quint32 kRegistryAll = 0xF003F;

// Status codes. No call throws.
inline constexpr long kRegistryDone = 0;
inline constexpr long kRegistryNotFound = 2;       ///< no such key, or no such value
inline constexpr long kRegistryDenied = 5;         ///< the user may not, or the key was not opened for it
inline constexpr long kRegistryClosed = 6;         ///< the key is not open
inline constexpr long kRegistryLocked = 33;        ///< other programs kept it busy for longer than five seconds
inline constexpr long kRegistryBadName = 87;       ///< too long, too deep, or with characters that can't be written
inline constexpr long kRegistryMoreData = 234;     ///< the text does not fit; the length says what is needed
inline constexpr long kRegistryNoMoreItems = 259;  ///< the index is past the last subkey
inline constexpr long kRegistryDamaged = 1015;     ///< it can't be read; nothing is written over it
inline constexpr long kRegistryNotWritten = 1016;  ///< the disk is full or the registry too large; it stays as it was
inline constexpr long kRegistryOtherType = 1630;   ///< the value is of the other type

inline constexpr int kRegistryTextType = 1;
inline constexpr int kRegistryNumberType = 4;

/// What programs of the machine and of the user tell each other by named values under named keys. Keys and values are
/// found without regard to letter case and keep the spelling of their first writer. Parts of a key's path are apart by
/// "\" on every platform.
///
/// A text is handed out into a buffer, which the caller fills with blanks: the text and a closing NUL overwrite its
/// beginning, and the rest stays. Lengths that come back count characters (UTF-16 code units).
class Registry {
  public:
    virtual ~Registry() = default;

    /// kRegistryNotFound when there is no such key; kRegistryDenied when it is to be written and may not.
    virtual long OpenKey(const RegistryKey& parent, const QString& subkey, quint32 access, RegistryKey& key) = 0;
    /// Opens the key, and makes it with all keys above it where it is missing. kRegistryBadName when it is missing and
    /// can't be made under that name.
    virtual long CreateKey(const RegistryKey& parent, const QString& subkey, quint32 access, RegistryKey& key) = 0;
    /// kRegistryClosed for a key that is not open. Roots stay open.
    virtual long CloseKey(RegistryKey& key) = 0;

    /// The `index`-th direct subkey in the order of names (from 0), by its own name. `length` comes back without NUL.
    virtual long EnumKey(const RegistryKey& key, int index, QString& buffer, int& length) = 0;
    /// A text value; an empty `name` is the key's own value. `length` comes back with the closing NUL counted.
    virtual long QueryText(const RegistryKey& key, const QString& name, QString& buffer, int& length) = 0;
    virtual long QueryNumber(const RegistryKey& key, const QString& name, quint32& number) = 0;
    /// Writes the first `bytes` bytes of the text's two-byte form; whatever the value was before is gone.
    /// kRegistryBadName for a name of a value that is too long.
    virtual long SetText(const RegistryKey& key, const QString& name, const QString& text, qsizetype bytes) = 0;
    virtual long SetNumber(const RegistryKey& key, const QString& name, quint32 number) = 0;

    /// Opens the key, reads one value of the type into the buffer of `length` characters, and closes the key. A failure
    /// leaves the buffer as it is. Only texts can be read this way; another type asked for is kRegistryOtherType.
    long GetValue(const RegistryKey& root, const QString& subkey, const QString& name, int type, QString& buffer,
                  int& length);
};

/// Bytes of the two-byte form of a text.
inline qsizetype TwoByteLength(const QString& text) { return text.size() * 2; }

}  // namespace platform
