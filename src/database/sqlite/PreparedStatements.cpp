#include "database/sqlite/PreparedStatements.h"

#include "database/sql/Tokenizer.h"
#include "platform/Utf8Text.h"

namespace database {
PreparedStatement::PreparedStatement(sqlite3* database, const QString& text) {
    const QByteArray utf8 = text.toUtf8();
    sqlite3_stmt* raw = nullptr;
    const char* tail = nullptr;
    const int code = sqlite3_prepare_v3(database, utf8.constData(), static_cast<int>(utf8.size()),
                                        SQLITE_PREPARE_PERSISTENT, &raw, &tail);
    handle_.reset(raw);
    if (code != SQLITE_OK) throw SqliteFailure(database);
    const qsizetype used = tail - utf8.constData();
    if (raw == nullptr || !IsEmptyStatement(platform::TextFromUtf8(utf8.sliced(used))))
        throw DatabaseError(kStatementFailure, QStringLiteral("SQL 文は 1 つだけ指定してください。"));
}

const std::shared_ptr<const ColumnSet>& PreparedStatement::Columns() {
    const int preparations = sqlite3_stmt_status(Handle(), SQLITE_STMTSTATUS_REPREPARE, 0);
    if (columns_ == nullptr || preparations != preparations_) {
        preparations_ = preparations;
        DescribeColumns();
    }
    return columns_;
}

void PreparedStatement::DescribeColumns() {
    auto columns = std::make_shared<ColumnSet>();
    empty_.reset();
    const int count = sqlite3_column_count(Handle());
    for (int i = 0; i < count; ++i)
        columns->Add(platform::TextFromUtf8(sqlite3_column_name(Handle(), i)),
                     platform::TextFromUtf8(sqlite3_column_decltype(Handle(), i)));
    columns_ = std::move(columns);
}

const std::shared_ptr<ResultTable>& PreparedStatement::EmptyResult() {
    const auto& columns = Columns();
    if (empty_ == nullptr) empty_ = std::make_shared<ResultTable>(columns);
    return empty_;
}

PreparedStatement& PreparedStatements::Get(const QString& text, const std::function<PreparedStatement()>& prepare) {
    if (const auto found = byText_.constFind(text); found != byText_.cend()) {
        entries_.splice(entries_.begin(), entries_, *found);
        return entries_.front().statement;
    }
    if (text.size() > kLongestText) {
        giant_ = std::make_unique<PreparedStatement>(prepare());
        return *giant_;
    }
    entries_.push_front({text, prepare()});
    byText_.insert(text, entries_.begin());
    if (entries_.size() > static_cast<size_t>(kMost)) {
        byText_.remove(entries_.back().text);
        entries_.pop_back();
    }
    return entries_.front().statement;
}

void PreparedStatements::Clear() {
    byText_.clear();
    entries_.clear();
    giant_.reset();
}

}  // namespace database
