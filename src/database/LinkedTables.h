#pragma once

#include <QList>
#include <QString>
#include <memory>

namespace database {

/// What Attributes says of a table that lies in another file.
inline constexpr long kLinkedTable = 0x40000000;
/// Number of the error that tells of a link to a table that its file does not have.
inline constexpr long kNoSuchTable = 3011;

/// A table as a database file describes it.
struct TableDef {
    QString Name;
    long Attributes = 0;  ///< kLinkedTable: it lies in the file that Connect names, otherwise it lies here
    QString Connect;      ///< ";DATABASE=" and the absolute path of that file; empty for a table that lies here
    QString SourceName;   ///< what it is called there
};

/// The connect text of a database file.
QString ConnectTextOf(const QString& databaseFile);
/// The path in a connect text; empty without one.
QString DatabaseOfConnectText(const QString& connect);

/// A database file whose tables are looked at, not their rows. It is open as long as the object lives.
class TableFile {
  public:
    virtual ~TableFile() = default;
    /// Its tables by name, linked ones last. A file that has never held a link has none. Throws DatabaseError.
    virtual QList<TableDef> TableDefs() = 0;
    /// Keeps the table's Connect in the file, once it has been found good: the other file can be opened and has the
    /// table. Otherwise throws DatabaseError, and the link stays as it was.
    virtual void RefreshLink(const TableDef& table) = 0;
};

/// What re-points linked tables.
class TableEngine {
  public:
    virtual ~TableEngine() = default;
    /// Of either generation of files. Throws DatabaseError where there is no such file or it can't be read.
    virtual std::unique_ptr<TableFile> OpenDatabase(const QString& path) = 0;
};

/// Files of the suite, whose table リンクテーブル (名称, 元テーブル, 接続, 属性) tells the links.
class SuiteTableEngine : public TableEngine {
  public:
    std::unique_ptr<TableFile> OpenDatabase(const QString& path) override;
};

}  // namespace database
