#include "database/NewRecord.h"

namespace database {

NewRecord::NewRecord(std::weak_ptr<DatabaseSession> session, UpdatableResult result)
    : session_(std::move(session)), target_(std::move(result.target)), rows_(std::move(result.rows)) {}

void NewRecord::Begin() {
    if (pending_) WriteToTable();
    written_.clear();
    places_.assign(static_cast<size_t>(rows_->Columns().Count()), -1);
    view_.reset();
    pending_ = exists_ = true;
}

void NewRecord::Write(int column, const QString& value) {
    int& place = places_[static_cast<size_t>(column)];
    view_.reset();
    if (place >= 0) {
        written_[static_cast<size_t>(place)].value = value;
        return;
    }
    place = static_cast<int>(written_.size());
    written_.push_back({column, value});
}

void NewRecord::WriteToTable() {
    const std::shared_ptr<DatabaseSession> session = session_.lock();
    if (session == nullptr) throw DatabaseError(kObjectClosed, QStringLiteral("接続が開いていません。"));
    session->Insert(*target_, written_);
    pending_ = false;
}

void NewRecord::Leave() {
    if (pending_) WriteToTable();
    exists_ = false;
}

const ResultTable& NewRecord::AsTable() {
    if (view_ != nullptr) return *view_;
    view_ = std::make_unique<ResultTable>(rows_->SharedColumns());
    view_->BeginRow();
    for (const int place : places_) {
        if (place < 0)
            view_->AppendNull();
        else
            view_->AppendText(written_[static_cast<size_t>(place)].value.toUtf8());
    }
    return *view_;
}

}  // namespace database
