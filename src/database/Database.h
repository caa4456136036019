#pragma once

#include <QString>
#include <QStringView>
#include <memory>

#include "database/DatabaseError.h"
#include "database/DatabaseTypes.h"

namespace database {

class DatabaseSession;
class NewRecord;
class ResultTable;

/// One value of the current record. A view: it lives no longer than the record stays current.
class Field {
  public:
    Field(const ResultTable& table, int row, int column) : table_(&table), row_(row), column_(column) {}

    bool IsNull() const;
    /// The value as text. A Null has none: platform::RuntimeError platform::kInvalidUseOfNull.
    QString Text() const;
    /// The value as text, or `fallback` for a Null.
    QString TextOr(const QString& fallback) const { return IsNull() ? fallback : Text(); }
    /// Declared type of the column in capitals ("TEXT", "CURRENCY"). Of an expression it is empty in a desktop file and
    /// the type of its values on a server.
    QString DeclaredType() const;

  private:
    const ResultTable* table_;
    int row_;
    int column_;
};

/// A connection to one database. The connection string picks the provider by its "Provider=" field; it is
/// parsed, never pasted into anything. All members but Close() and IsOpen() throw DatabaseError.
class Connection {
  public:
    Connection();
    ~Connection();
    Connection(Connection&&) noexcept;
    Connection& operator=(Connection&&) noexcept;

    // Settings, to be made before Open.
    int ConnectionTimeout = 15;  ///< seconds
    int CommandTimeout = 30;     ///< seconds
    database::CursorLocation CursorLocation = database::CursorLocation::Server;
    ConnectMode Mode = ConnectMode::ReadWrite;  ///< Read: the engine itself refuses every write
    TextRules Rules;
    bool Scratch = false;  ///< what is written may be lost with the machine: nothing waits for the disk

    /// Opens an existing database; a missing file is an error and is never created. Header and schema are
    /// read here, so that garbage fails here and not at the first statement.
    void Open(const QString& connectionString);
    void Close() noexcept;
    bool IsOpen() const noexcept { return session_ != nullptr; }
    /// Runs one statement that gives no rows. Text that is not one single statement is refused.
    void Execute(const QString& sql);

    /// The provider's side, for Recordset and ReadScope. Throws kObjectClosed when not open.
    DatabaseSession& Session() const { return *SharedSession(); }
    /// The same, for a recordset that has to notice that the connection is gone.
    const std::shared_ptr<DatabaseSession>& SharedSession() const;

  private:
    std::shared_ptr<DatabaseSession> session_;
};

/// The rows of one SELECT. With a client-side cursor Open reads them all and ends the engine's statement, so an
/// open recordset never locks out a writer.
/// (BOF and EOF are spelled AtBOF and AtEOF since the C library has a macro EOF.)
class Recordset {
  public:
    Recordset();
    ~Recordset();
    Recordset(Recordset&&) noexcept;
    Recordset& operator=(Recordset&&) noexcept;

    /// Runs the statement and stands on the first row. DatabaseError leaves the recordset unopened. With
    /// LockType::Optimistic records can be added to the table that the columns come from.
    void Open(const QString& sql, Connection& connection, CursorType cursor = CursorType::ForwardOnly,
              LockType lock = LockType::ReadOnly);
    bool IsOpen() const noexcept { return table_ != nullptr; }
    /// DatabaseError kObjectClosed when the recordset never opened: a failed read stops a start-up that way.
    /// kNotAllowedHere while a record is being added; the recordset then stays open.
    void Close();

    bool AtBOF() const;
    bool AtEOF() const;
    void MoveNext();

    /// A field of the current record, found by name without regard to letter case. platform::kItemNotFound when there
    /// is no such column, kNoCurrentRecord at BOF or EOF. Where a column name occurs twice, the first one counts. From
    /// AddNew on, and behind Update, the record that is added is the current one; the view then ends with the next
    /// write.
    Field operator[](QStringView name) const;

    /// Rows of the whole result, those already passed included.
    int RecordCount() const;
    /// The columns from 0 to FieldCount() - 1, also where there is no row.
    int FieldCount() const;
    const QString& FieldName(int column) const;
    /// As Field::DeclaredType().
    const QString& FieldType(int column) const;
    /// The field in that place of the current record.
    Field FieldAt(int column) const;

    /// Begins a new record, all fields Null. One that is still being added is written first. kNotUpdatable where
    /// the recordset was opened for reading only.
    void AddNew();
    /// Writes a field of the record that is being added; found as by operator[]. kNoCurrentRecord without AddNew.
    void Write(QStringView name, const QString& value);
    /// Writes the record to the table, by itself and at once: fields that nobody wrote get what the table gives by
    /// itself, Null as a rule. A failure leaves the record as one that is still being added.
    void Update();

  private:
    const ResultTable& OpenTable() const;
    int ColumnOf(QStringView name) const;
    NewRecord& RecordInWork() const;

    std::shared_ptr<ResultTable> table_;
    std::unique_ptr<NewRecord> newRecord_;
    int row_ = 0;
    bool forwardOnly_ = true;
};

/// Makes the statements on a connection one: Commit keeps them all, and without it the end of the object takes them
/// all back. Other writers wait meanwhile, so it must never stand while a message box is up.
class Transaction {
  public:
    /// Throws DatabaseError when the connection is not open or other programs don't let it write in time.
    explicit Transaction(Connection& connection);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    /// Throws DatabaseError; nothing is kept then.
    void Commit();

  private:
    Connection* connection_;
    bool active_ = true;
};

/// While it lives, all statements on the connection see one snapshot, and the provider may remember the results
/// of equal statements. Does nothing on a connection that is not open or already in a scope, or where the engine
/// refuses the scope; it never throws. It keeps writers of other programs waiting, so it must never stand while a
/// message box is up. A write on the same connection ends it.
class ReadScope {
  public:
    explicit ReadScope(Connection& connection);
    ~ReadScope() { End(); }
    ReadScope(const ReadScope&) = delete;
    ReadScope& operator=(const ReadScope&) = delete;
    /// Ends the scope before its time. The connection may have been closed meanwhile.
    void End() noexcept;

  private:
    Connection* connection_;
    bool active_ = false;
};

}  // namespace database
