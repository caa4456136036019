// Part of Database.h: Field, ResultRows and Recordset.

#include "database/Database.h"
#include "database/DatabaseSession.h"
#include "database/NewRecord.h"
#include "database/ResultTable.h"

namespace database {
namespace {

[[noreturn]] void ThrowClosed() {
    throw DatabaseError(kObjectClosed, QStringLiteral("レコードセットが開いていません。"));
}

[[noreturn]] void ThrowNoRecord() {
    throw DatabaseError(kNoCurrentRecord, QStringLiteral("現在のレコードがありません。"));
}

int ColumnNamed(const ResultTable& table, QStringView name) {
    const int column = table.Columns().Find(name);
    if (column < 0)
        throw DatabaseError(platform::kItemNotFound,
                            QStringLiteral("項目「%1」は、このレコードセットにありません。").arg(name));
    return column;
}

}  // namespace

bool Field::IsNull() const { return table_->IsNull(row_, column_); }

QString Field::Text() const {
    if (IsNull())
        throw platform::RuntimeError(platform::kInvalidUseOfNull, QStringLiteral("Null の使い方が不正です。"));
    return table_->Text(row_, column_);
}

QString Field::DeclaredType() const { return table_->Columns().DeclaredType(column_); }

int ResultRows::Count() const { return table_->RowCount(); }

int ResultRows::ColumnOf(QStringView name) const { return ColumnNamed(*table_, name); }

bool ResultRows::IsNull(int row, int column) const { return table_->IsNull(row, column); }

QString ResultRows::Text(int row, int column) const { return table_->Text(row, column); }

QByteArrayView ResultRows::Utf8(int row, int column) const { return table_->Utf8(row, column); }

Recordset::Recordset() = default;
Recordset::~Recordset() = default;
Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;

void Recordset::Open(const QString& sql, Connection& connection, CursorType cursor, LockType lock) {
    table_.reset();
    newRecord_.reset();
    row_ = 0;
    forwardOnly_ = cursor == CursorType::ForwardOnly;
    if (lock == LockType::ReadOnly) {
        table_ = connection.Session().Query(sql);
        return;
    }
    UpdatableResult result = connection.Session().QueryForUpdate(sql);
    table_ = result.rows;
    newRecord_ = std::make_unique<NewRecord>(connection.SharedSession(), std::move(result));
}

void Recordset::Close() {
    if (table_ == nullptr) ThrowClosed();
    if (newRecord_ != nullptr && newRecord_->IsPending())
        throw DatabaseError(kNotAllowedHere, QStringLiteral("追加中のレコードがあるため、この操作はできません。"));
    table_.reset();
    newRecord_.reset();
}

const ResultTable& Recordset::OpenTable() const {
    if (table_ == nullptr) ThrowClosed();
    return *table_;
}

// There is no MovePrevious: only an empty result is ever at BOF.
bool Recordset::AtBOF() const { return OpenTable().RowCount() == 0 && !AtAddedRecord(); }

bool Recordset::AtEOF() const { return row_ >= OpenTable().RowCount() && !AtAddedRecord(); }

bool Recordset::AtAddedRecord() const { return newRecord_ != nullptr && newRecord_->Exists(); }

void Recordset::MoveNext() {
    if (AtEOF()) ThrowNoRecord();
    if (AtAddedRecord()) {
        newRecord_->Leave();
        row_ = table_->RowCount();
        return;
    }
    ++row_;
    // If the provider has cached the result, others may still read its rows.
    if (forwardOnly_ && table_.use_count() == 1) table_->ForgetRowsBefore(row_);
}

ResultRows Recordset::Rows() const {
    OpenTable();
    return ResultRows(table_);
}

int Recordset::ColumnOf(QStringView name) const { return ColumnNamed(OpenTable(), name); }

Field Recordset::operator[](QStringView name) const { return FieldAt(ColumnOf(name)); }

int Recordset::RecordCount() const { return OpenTable().RowCount(); }

int Recordset::FieldCount() const { return OpenTable().Columns().Count(); }

const QString& Recordset::FieldName(int column) const { return OpenTable().Columns().Name(column); }

const QString& Recordset::FieldType(int column) const { return OpenTable().Columns().DeclaredType(column); }

Field Recordset::FieldAt(int column) const {
    const ResultTable& table = OpenTable();
    if (AtAddedRecord()) return {newRecord_->AsTable(), 0, column};
    if (row_ >= table.RowCount()) ThrowNoRecord();
    return {table, row_, column};
}

void Recordset::AddNew() {
    if (table_ == nullptr) ThrowClosed();
    if (newRecord_ == nullptr)
        throw DatabaseError(kNotUpdatable, QStringLiteral("このレコードセットには追加できません。"));
    newRecord_->Begin();
}

NewRecord& Recordset::PendingRecord() const {
    if (table_ == nullptr) ThrowClosed();
    if (newRecord_ == nullptr || !newRecord_->IsPending()) ThrowNoRecord();
    return *newRecord_;
}

void Recordset::Write(QStringView name, const QString& value) {
    NewRecord& record = PendingRecord();
    record.Write(ColumnOf(name), value);
}

void Recordset::Update() { PendingRecord().WriteToTable(); }

}  // namespace database
