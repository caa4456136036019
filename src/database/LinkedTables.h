#pragma once

#include <QList>
#include <QString>
#include <memory>

namespace database {

// Linked tables: entries of a database file for tables that are stored in another file. The file with the report
// templates has links to the work tables.

/// Attribute of a linked table.
inline constexpr long kLinkedTable = 0x40000000;
/// Error number for a link to a table that its file does not contain.
inline constexpr long kNoSuchTable = 3011;

/// A table definition of a database file.
struct TableDef {
    QString Name;
    long Attributes = 0;  ///< kLinkedTable, or 0 for a table that is stored in this file
    QString Connect;      ///< of a linked table: connect string of the other file, ";DATABASE=" and its absolute path
    QString SourceName;   ///< of a linked table: name of the table in the other file
};

/// Builds the connect string for the path of a database file.
QString ConnectTextOf(const QString& databaseFile);
/// The path in a connect string; empty if it has none.
QString DatabaseOfConnectText(const QString& connect);

/// An open database file, for its table definitions. Closed by the destructor.
class TableFile {
  public:
    virtual ~TableFile() = default;
    /// The tables that are stored in the file, then the linked ones, each in the order of creation. Throws
    /// DatabaseError.
    virtual QList<TableDef> TableDefs() = 0;
    /// Stores Connect of the linked table `table` in the file, after checking that the other file opens and contains
    /// the table. Otherwise throws DatabaseError (kNoSuchTable if the table is missing), and the stored link is
    /// unchanged.
    virtual void RefreshLink(const TableDef& table) = 0;
};

/// Opens database files to read and change their linked tables; tests replace it by a fake.
class TableEngine {
  public:
    virtual ~TableEngine() = default;
    /// Opens the file at `path` (.accdb or .mdb) for reading and writing. Throws DatabaseError if it is missing or
    /// unreadable.
    virtual std::unique_ptr<TableFile> OpenDatabase(const QString& path) = 0;
};

/// Database files of the suite. Their links are the rows of the table リンクテーブル (名称, 元テーブル, 接続, 属性); a
/// file without this table has no links.
class SuiteTableEngine : public TableEngine {
  public:
    std::unique_ptr<TableFile> OpenDatabase(const QString& path) override;
};

}  // namespace database
