#pragma once

#include <QString>

namespace platform {

/// The part of the registry that all users share, and that of the current user.
enum class RegistryRoot { LocalMachine, CurrentUser };

/// An open key, or one of the two roots, which are always open.
struct RegistryKey {
    RegistryRoot root = RegistryRoot::LocalMachine;
    QString path;        ///< relative to the root, separated by "\", in the spelling of the caller
    quint32 access = 0;  ///< access mask it was opened with
    bool open = false;
};

// Access masks. A key opened with kRegistryAll can be written to.
inline constexpr quint32 kRegistryRead = 0x20019;
inline constexpr quint32 kRegistryAll = 0xF003F;

inline RegistryKey MachineRoot() { return {RegistryRoot::LocalMachine, {}, kRegistryAll, true}; }
inline RegistryKey UserRoot() { return {RegistryRoot::CurrentUser, {}, kRegistryAll, true}; }

// Status codes. Every call returns one; none throws.
inline constexpr long kRegistryDone = 0;
inline constexpr long kRegistryNotFound = 2;    ///< no such key, or no such value
inline constexpr long kRegistryDenied = 5;      ///< no permission for the file, or the key was not opened for writing
inline constexpr long kRegistryClosed = 6;      ///< the key is not open
inline constexpr long kRegistryLocked = 33;     ///< other processes had the write lock for more than five seconds
inline constexpr long kRegistryBadName = 87;    ///< too long, too deep, or with characters that can't be stored
inline constexpr long kRegistryMoreData = 234;  ///< buffer too small; the required length is returned
inline constexpr long kRegistryNoMoreItems = 259;  ///< the index is past the last subkey
inline constexpr long kRegistryDamaged = 1015;     ///< unreadable registry file; it is never overwritten
inline constexpr long kRegistryNotWritten = 1016;  ///< disk full or registry too large; the file is unchanged
inline constexpr long kRegistryOtherType = 1630;   ///< the value is of the other type

// Types of a value.
inline constexpr int kRegistryTextType = 1;
inline constexpr int kRegistryNumberType = 4;

/// Named values under a tree of keys, shared by the programs of the machine and of the user. Names of keys and values
/// are case-insensitive and keep the spelling of their first writer. Components of a key's path are separated by "\" on
/// every platform.
///
/// Text is returned in a buffer that the caller has filled with blanks: text and NUL terminator overwrite its
/// beginning, the rest is unchanged. `length` is in UTF-16 code units: in, the size of the buffer; out, the length of
/// the text, also if it does not fit (kRegistryMoreData; the buffer is then unchanged).
///
/// Every call on a key returns kRegistryClosed if the key is not open, and kRegistryDenied or kRegistryDamaged if the
/// registry cannot be read. Calls that write also return kRegistryDenied without write access, kRegistryLocked and
/// kRegistryNotWritten. The comments below list further codes only.
class Registry {
  public:
    virtual ~Registry() = default;

    /// kRegistryNotFound if there is no such key; kRegistryDenied if write access is requested and not permitted.
    virtual long OpenKey(const RegistryKey& parent, const QString& subkey, quint32 access, RegistryKey& key) = 0;
    /// Opens the key; creates it and its missing parents first if needed. kRegistryBadName if the name of a new key is
    /// invalid.
    virtual long CreateKey(const RegistryKey& parent, const QString& subkey, quint32 access, RegistryKey& key) = 0;
    /// Closes a key. Roots stay open.
    virtual long CloseKey(RegistryKey& key) = 0;

    /// Name of the `index`-th direct subkey (from 0, sorted by name), without its path. `length` is returned without
    /// the NUL. kRegistryNoMoreItems past the last one.
    virtual long EnumKey(const RegistryKey& key, int index, QString& buffer, int& length) = 0;
    /// Reads a text value; an empty `name` is the key's default value. `length` is returned including the NUL.
    /// kRegistryNotFound if there is no such value, kRegistryOtherType if it is a number.
    virtual long QueryText(const RegistryKey& key, const QString& name, QString& buffer, int& length) = 0;
    /// Reads a number. kRegistryNotFound if there is no such value, kRegistryOtherType if it is text.
    virtual long QueryNumber(const RegistryKey& key, const QString& name, quint32& number) = 0;

    // Both replace a value of either type. kRegistryBadName if `name` is too long, kRegistryNotFound if the key has
    // been deleted meanwhile.

    /// Stores the part of the text that has `bytes` bytes in UTF-16, without NUL; see TwoByteLength for all of it.
    virtual long SetText(const RegistryKey& key, const QString& name, const QString& text, qsizetype bytes) = 0;
    virtual long SetNumber(const RegistryKey& key, const QString& name, quint32 number) = 0;

    /// Opens the key `subkey` below the open key `root`, reads one text value as QueryText does, and closes the key. On
    /// failure the buffer is unchanged. kRegistryOtherType for a `type` other than kRegistryTextType.
    long GetValue(const RegistryKey& root, const QString& subkey, const QString& name, int type, QString& buffer,
                  int& length);
};

/// Size of the text in UTF-16, in bytes, without a NUL.
inline qsizetype TwoByteLength(const QString& text) { return text.size() * 2; }

}  // namespace platform
