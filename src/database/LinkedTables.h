#pragma once

#include <QList>
#include <QString>
#include <memory>

namespace database {

/// Attributes of a linked table, one that is stored in another file.
inline constexpr long kLinkedTable = 0x40000000;
/// Error number for a link to a table that its file does not contain.
inline constexpr long kNoSuchTable = 3011;

/// A table definition of a database file.
struct TableDef {
    QString Name;
    long Attributes = 0;  ///< kLinkedTable if stored in the file of Connect, otherwise 0
    QString Connect;      ///< ";DATABASE=" and the absolute path of that file; empty if the table is stored here
    QString SourceName;   ///< name of the table in that file
};

/// Builds the connect string for the path of a database file.
QString ConnectTextOf(const QString& databaseFile);
/// The path in a connect string; empty if it has none.
QString DatabaseOfConnectText(const QString& connect);

/// An open database file, for its table definitions. Closed by the destructor.
class TableFile {
  public:
    virtual ~TableFile() = default;
    /// Tables by name, linked ones last. A file that never had a link returns none. Throws DatabaseError.
    virtual QList<TableDef> TableDefs() = 0;
    /// Saves the table's Connect in the file, after checking that the other file opens and contains the table.
    /// Otherwise throws DatabaseError (kNoSuchTable if the table is missing), and the stored link is unchanged.
    virtual void RefreshLink(const TableDef& table) = 0;
};

/// Opens database files to re-point their linked tables.
class TableEngine {
  public:
    virtual ~TableEngine() = default;
    /// Opens a file of either format generation. Throws DatabaseError if it is missing or unreadable.
    virtual std::unique_ptr<TableFile> OpenDatabase(const QString& path) = 0;
};

/// Database files of the suite. Their links are the rows of the table リンクテーブル (名称, 元テーブル, 接続, 属性).
class SuiteTableEngine : public TableEngine {
  public:
    std::unique_ptr<TableFile> OpenDatabase(const QString& path) override;
};

}  // namespace database
