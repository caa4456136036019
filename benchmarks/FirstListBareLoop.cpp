#include "FirstListBareLoop.h"

#include <sqlite3.h>

#include <stdexcept>
#include <string_view>

namespace {
using Statement = std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)>;

constexpr const char* kStaff =
    "SELECT M担当者.*, M事業所.名称, M部門.名称, Mセクション.名称, M役職.名称, K性別区分.名称, K在籍区分.名称,"
    " K社員区分.名称 FROM M担当者"
    " LEFT JOIN M事業所 ON M事業所.コード = M担当者.事業所コード"
    " LEFT JOIN M部門 ON M部門.コード = M担当者.部門コード"
    " LEFT JOIN Mセクション ON Mセクション.コード = M担当者.セクションコード"
    " LEFT JOIN M役職 ON M役職.コード = M担当者.役職コード"
    " INNER JOIN K性別区分 ON K性別区分.区分 = M担当者.性別区分"
    " INNER JOIN K在籍区分 ON K在籍区分.区分 = M担当者.在籍区分"
    " INNER JOIN K社員区分 ON K社員区分.区分 = M担当者.社員区分"
    " WHERE M担当者.コード <> '' AND M担当者.在籍区分 = '0'"
    " ORDER BY M担当者.事業所コード, M担当者.部門コード, M担当者.セクションコード, M担当者.役職コード, M担当者.コード";
constexpr const char* kLastView =
    "SELECT 閲覧日付, 閲覧時刻, 閲覧区分 FROM T閲覧 WHERE 担当者コード = ?1 AND 閲覧情報 = '要員台帳更新'"
    " AND 伝票事業所コード = '' AND 伝票番号基準日付 = '' AND 伝票No = '' AND キー項目 = ?2"
    " ORDER BY 閲覧日付 DESC, 閲覧時刻 DESC LIMIT 1";

constexpr const char* kViews =
    "SELECT キー項目, 閲覧区分 FROM T閲覧 WHERE 担当者コード = ?1 AND 閲覧情報 = '要員台帳更新'"
    " AND 伝票事業所コード = '' AND 伝票番号基準日付 = '' AND 伝票No = ''"
    " ORDER BY 閲覧日付 DESC, 閲覧時刻 DESC";

[[noreturn]] void Fail(sqlite3* database) { throw std::runtime_error(sqlite3_errmsg(database)); }

Statement Prepare(sqlite3* database, const char* sql) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(database, sql, -1, &statement, nullptr) != SQLITE_OK) Fail(database);
    return {statement, sqlite3_finalize};
}

OpenDatabase Open(const QString& path) {
    sqlite3* raw = nullptr;
    const int result =
        sqlite3_open_v2(path.toUtf8().constData(), &raw, SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX, nullptr);
    OpenDatabase database(raw, sqlite3_close);
    if (result != SQLITE_OK) Fail(raw);
    return database;
}

void Execute(sqlite3* database, const char* sql) {
    if (sqlite3_exec(database, sql, nullptr, nullptr, nullptr) != SQLITE_OK) Fail(database);
}

QString Cell(sqlite3_stmt* statement, int column) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return text ? QString::fromUtf8(text, sqlite3_column_bytes(statement, column)) : QString();
}

std::string_view Bytes(sqlite3_stmt* statement, int column) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return text ? std::string_view(text, static_cast<size_t>(sqlite3_column_bytes(statement, column)))
                : std::string_view();
}

int LastView(sqlite3_stmt* look, sqlite3_stmt* staff) {
    sqlite3_bind_text(look, 2, reinterpret_cast<const char*>(sqlite3_column_text(staff, 0)),
                      sqlite3_column_bytes(staff, 0), SQLITE_STATIC);
    const int kind = sqlite3_step(look) == SQLITE_ROW ? sqlite3_column_int(look, 2) : -1;
    sqlite3_reset(look);
    return kind;
}
}  // namespace

FirstListBareLoop::FirstListBareLoop(const QString& path) : database_(Open(path)) {}

void FirstListBareLoop::Clear() {
    cells_ = {};
    views_ = {};
    eras_ = {};
}

void FirstListBareLoop::Run(const QString& launcher) {
    Clear();
    Execute(database_.get(), "BEGIN");
    ReadEras();
    ReadStaff(launcher);
    Execute(database_.get(), "COMMIT");
}

void FirstListBareLoop::ReadEras() {
    const Statement eras = Prepare(database_.get(), "SELECT 開始日付, 名称 FROM K年号区分 ORDER BY 開始日付");
    while (sqlite3_step(eras.get()) == SQLITE_ROW) eras_.emplace_back(Cell(eras.get(), 0), Cell(eras.get(), 1));
}

void FirstListBareLoop::ReadStaff(const QString& launcher) {
    const Statement staff = Prepare(database_.get(), kStaff);
    const Statement look = Prepare(database_.get(), kLastView);
    const QByteArray code = launcher.toUtf8();
    sqlite3_bind_text(look.get(), 1, code.constData(), static_cast<int>(code.size()), SQLITE_STATIC);
    const int columns = sqlite3_column_count(staff.get());
    while (sqlite3_step(staff.get()) == SQLITE_ROW) {
        for (int column = 0; column < columns; ++column) cells_.push_back(Cell(staff.get(), column));
        views_.push_back(LastView(look.get(), staff.get()));
    }
}

FirstListLimit::FirstListLimit(const QString& path) : database_(Open(path)) {}

void FirstListLimit::Clear() {
    cells_ = {};
    ends_ = {};
    views_ = {};
    lastViews_ = {};
    eras_ = {};
}

void FirstListLimit::Run(const QString& launcher) {
    Clear();
    Execute(database_.get(), "BEGIN");
    const Statement eras = Prepare(database_.get(), "SELECT 開始日付, 名称 FROM K年号区分 ORDER BY 開始日付");
    while (sqlite3_step(eras.get()) == SQLITE_ROW) eras_.emplace_back(Bytes(eras.get(), 0), Bytes(eras.get(), 1));
    ReadViews(launcher);
    ReadStaff();
    Execute(database_.get(), "COMMIT");
}

void FirstListLimit::ReadViews(const QString& launcher) {
    const Statement views = Prepare(database_.get(), kViews);
    const QByteArray code = launcher.toUtf8();
    sqlite3_bind_text(views.get(), 1, code.constData(), static_cast<int>(code.size()), SQLITE_STATIC);
    while (sqlite3_step(views.get()) == SQLITE_ROW)
        lastViews_.try_emplace(std::string(Bytes(views.get(), 0)), sqlite3_column_int(views.get(), 1));
}

void FirstListLimit::ReadStaff() {
    const Statement staff = Prepare(database_.get(), kStaff);
    const int columns = sqlite3_column_count(staff.get());
    while (sqlite3_step(staff.get()) == SQLITE_ROW) {
        for (int column = 0; column < columns; ++column) {
            cells_.append(Bytes(staff.get(), column));
            ends_.push_back(static_cast<quint32>(cells_.size()));
        }
        const auto view = lastViews_.find(std::string(Bytes(staff.get(), 0)));
        views_.push_back(view == lastViews_.end() ? -1 : view->second);
    }
}
