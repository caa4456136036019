#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringView>
#include <memory>

#include "database/DatabaseError.h"
#include "database/DatabaseTypes.h"

namespace database {

class DatabaseSession;
class NewRecord;
class ResultTable;

/// A value of the current record of a Recordset. A view: invalid once another record becomes current or the recordset
/// closes.
class Field {
  public:
    Field(const ResultTable& table, int row, int column) : table_(&table), row_(row), column_(column) {}

    bool IsNull() const;
    /// The value as text. Throws platform::RuntimeError platform::kInvalidUseOfNull for a Null.
    QString Text() const;
    /// The value as text, or `fallback` for a Null.
    QString TextOr(const QString& fallback) const { return IsNull() ? fallback : Text(); }
    /// Declared type of the column in upper case ("TEXT", "CURRENCY"). For an expression it is empty with a desktop
    /// file; a server reports the type of the expression.
    QString DeclaredType() const;

  private:
    const ResultTable* table_;
    int row_;
    int column_;
};

/// All rows of a result, in any order. Independent of the recordset and the connection that they come from. Rows and
/// columns are counted from 0.
class ResultRows {
  public:
    explicit ResultRows(std::shared_ptr<const ResultTable> table) : table_(std::move(table)) {}

    int Count() const;
    /// The column of that name, ignoring case; the first one if the name occurs twice. Throws platform::kItemNotFound
    /// for an unknown name.
    int ColumnOf(QStringView name) const;
    bool IsNull(int row, int column) const;
    /// Empty for a Null.
    QString Text(int row, int column) const;
    /// The bytes of Text(), without a copy; valid as long as this object.
    QByteArrayView Utf8(int row, int column) const;

  private:
    std::shared_ptr<const ResultTable> table_;
};

/// A connection to one database: a desktop file (SQLite) or a server (ODBC), selected by the "Provider=" field of the
/// connection string. Statements are in the suite's SQL dialect; the provider translates them. All members but Close()
/// and IsOpen() throw DatabaseError.
class Connection {
  public:
    Connection();
    ~Connection();
    Connection(Connection&&) noexcept;
    Connection& operator=(Connection&&) noexcept;

    // Settings; they take effect at Open.
    int ConnectionTimeout = 15;  ///< seconds; for a file the wait for its lock, at most 5
    int CommandTimeout = 30;     ///< seconds for one statement of a server; for a file as above
    database::CursorLocation CursorLocation = database::CursorLocation::Server;  ///< no effect: see Recordset
    ConnectMode Mode = ConnectMode::ReadWrite;                                   ///< Read: every write fails
    TextRules Rules;                                                             ///< text comparison by column
    bool Scratch = false;  ///< skips flushing to disk; contents may be lost when the machine crashes

    /// Opens an existing database; shape of the string: ParseConnectionString. A missing file is an error and never
    /// created. Reads header and schema of a file, so that one that is no database fails here and not at the first
    /// statement.
    void Open(const QString& connectionString);
    void Close() noexcept;
    bool IsOpen() const noexcept { return session_ != nullptr; }
    /// Runs one statement and ignores its rows, if any. Throws kStatementFailure for text that is not exactly one
    /// statement.
    void Execute(const QString& sql);

    /// The provider's session, for Recordset and ReadScope. Throws kObjectClosed when not open.
    DatabaseSession& Session() const { return *SharedSession(); }
    /// As Session(). A recordset keeps a weak reference, to detect that the connection was closed.
    const std::shared_ptr<DatabaseSession>& SharedSession() const;

  private:
    std::shared_ptr<DatabaseSession> session_;
};

/// The rows of one SELECT, read forwards. Open reads all of them and finishes the engine's statement, so that an open
/// recordset never locks out a writer. Members throw DatabaseError kObjectClosed if the recordset is not open.
/// (AtBOF and AtEOF are not called BOF and EOF because the C library defines a macro EOF.)
class Recordset {
  public:
    Recordset();
    ~Recordset();
    Recordset(Recordset&&) noexcept;
    Recordset& operator=(Recordset&&) noexcept;

    /// Runs one SELECT and moves to its first row. With LockType::Optimistic, records can be added to the table that
    /// the columns come from; kNotUpdatable if there is no such table. After a DatabaseError the recordset is closed.
    void Open(const QString& sql, Connection& connection, CursorType cursor = CursorType::ForwardOnly,
              LockType lock = LockType::ReadOnly);
    bool IsOpen() const noexcept { return table_ != nullptr; }
    /// Throws kObjectClosed if the recordset is not open; start-up relies on this to stop after a failed read. Throws
    /// kNotAllowedHere while a record is being added, and the recordset stays open.
    void Close();

    /// Before the first record: only in an empty result, since there is no way back.
    bool AtBOF() const;
    /// After the last record.
    bool AtEOF() const;
    /// Throws kNoCurrentRecord at EOF. An added record is the last one; if it is still being added, it is written
    /// first, as by Update.
    void MoveNext();

    /// A field of the current record by its name, ignoring case; the first one if the name occurs twice. Throws
    /// platform::kItemNotFound for an unknown name, kNoCurrentRecord at BOF or EOF. After AddNew, and still after
    /// Update, the current record is the added one; the returned view is then valid until the next write.
    Field operator[](QStringView name) const;

    /// The whole result. As long as a copy exists, rows already read are kept.
    ResultRows Rows() const;
    /// Rows of the whole result, including those already read.
    int RecordCount() const;
    /// Columns are numbered from 0 to FieldCount() - 1, even if there is no row.
    int FieldCount() const;
    const QString& FieldName(int column) const;
    /// As Field::DeclaredType().
    const QString& FieldType(int column) const;
    /// A field of the current record by its column number. Throws kNoCurrentRecord at BOF or EOF.
    Field FieldAt(int column) const;

    /// Begins a new record with all fields Null. A record still being added is written first. Throws kNotUpdatable if
    /// the recordset was opened with LockType::ReadOnly.
    void AddNew();
    /// Sets a field of the record being added; the name is found as in operator[]. Throws kNoCurrentRecord without
    /// AddNew.
    void Write(QStringView name, const QString& value);
    /// Inserts the record into the table immediately, in a separate transaction if none is active. Fields that were not
    /// set get the table's default. Throws kNoCurrentRecord without AddNew; after a failed insertion the record is
    /// still being added.
    void Update();

  private:
    const ResultTable& OpenTable() const;
    int ColumnOf(QStringView name) const;
    bool AtAddedRecord() const;
    NewRecord& PendingRecord() const;

    std::shared_ptr<ResultTable> table_;
    std::unique_ptr<NewRecord> newRecord_;
    int row_ = 0;
    bool forwardOnly_ = true;
};

/// A transaction: Commit makes its statements permanent, the destructor without Commit rolls them back. Until then
/// other writers of the file, or of the rows written on a server, wait; so never show a message box inside one.
class Transaction {
  public:
    /// Throws DatabaseError if the connection is not open or the lock was not acquired within the timeout.
    explicit Transaction(Connection& connection);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    /// Throws DatabaseError; the destructor then rolls back. If the connection to a server is lost during the call, it
    /// is unknown whether the statements are permanent.
    void Commit();

  private:
    Connection* connection_;
    bool active_ = true;
};

/// While it exists, all statements on the connection read from one snapshot, and the provider may cache the results of
/// equal statements. Has no effect if the connection is not open or already in a scope or transaction, or if the engine
/// has no snapshots; never throws. On a desktop file it blocks writers of other programs, so never show a message box
/// inside one. A write on the same connection ends it.
class ReadScope {
  public:
    explicit ReadScope(Connection& connection);
    ~ReadScope() { End(); }
    ReadScope(const ReadScope&) = delete;
    ReadScope& operator=(const ReadScope&) = delete;
    /// Ends the scope early. The connection may already be closed.
    void End() noexcept;

  private:
    Connection* connection_;
    bool active_ = false;
};

}  // namespace database
