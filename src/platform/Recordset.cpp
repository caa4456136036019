#include "platform/Database.h"
#include "platform/database/DatabaseSession.h"
#include "platform/database/ResultTable.h"

namespace platform {
namespace {

[[noreturn]] void RaiseClosed() {
    throw DatabaseError(kObjectClosed, QStringLiteral("レコードセットが開いていません。"));
}

[[noreturn]] void RaiseNoRecord() {
    throw DatabaseError(kNoCurrentRecord, QStringLiteral("現在のレコードがありません。"));
}

}  // namespace

bool Field::IsNull() const { return table_->IsNull(row_, column_); }

QString Field::Text() const {
    if (IsNull()) throw RuntimeError(kInvalidUseOfNull, QStringLiteral("Null の使い方が不正です。"));
    return table_->Text(row_, column_);
}

QString Field::DeclaredType() const { return table_->Columns().DeclaredType(column_); }

Recordset::Recordset() = default;
Recordset::~Recordset() = default;
Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;

void Recordset::Open(const QString& sql, Connection& connection, CursorType cursor, LockType /*lock*/) {
    table_.reset();
    row_ = 0;
    forwardOnly_ = cursor == CursorType::ForwardOnly;
    table_ = connection.Session().Query(sql);
}

void Recordset::Close() {
    if (table_ == nullptr) RaiseClosed();
    table_.reset();
}

const ResultTable& Recordset::OpenTable() const {
    if (table_ == nullptr) RaiseClosed();
    return *table_;
}

// Reading goes forward only, so the place before the first row exists in an empty result alone.
bool Recordset::AtBOF() const { return OpenTable().RowCount() == 0; }

bool Recordset::AtEOF() const { return row_ >= OpenTable().RowCount(); }

void Recordset::MoveNext() {
    if (AtEOF()) RaiseNoRecord();
    ++row_;
    // Rows that others may still read, since the provider remembers them, stay.
    if (forwardOnly_ && table_.use_count() == 1) table_->ForgetRowsBefore(row_);
}

Field Recordset::operator[](QStringView name) const {
    const ResultTable& table = OpenTable();
    const int column = table.Columns().Find(name);
    if (column < 0)
        throw DatabaseError(kItemNotFound, QStringLiteral("項目「%1」は、このレコードセットにありません。").arg(name));
    if (row_ >= table.RowCount()) RaiseNoRecord();
    return {table, row_, column};
}

}  // namespace platform
