#include "OdbcBareLoop.h"

#include <array>
#include <stdexcept>

#include "support/OdbcCalls.h"

namespace {

constexpr SQLULEN kRowsInBlock = 100;
constexpr SQLLEN kUnits = 128;
constexpr int kCode = 0, kBirth = 19, kEntry = 20, kExit = 21;  // columns of the staff master

/// A prepared lookup with one or two parameters that returns at most one row.
class LookUpStatement {
  public:
    LookUpStatement(SQLHANDLE connection, const QString& sql, int values) {
        SQLAllocHandle(SQL_HANDLE_STMT, connection, &handle_);
        CheckOdbc(SQL_HANDLE_STMT, handle_, SQLPrepareW(handle_, OdbcUnits(sql), SQL_NTS));
        for (int i = 0; i < values; ++i)
            SQLBindParameter(handle_, static_cast<SQLUSMALLINT>(i + 1), SQL_PARAM_INPUT, SQL_C_WCHAR, SQL_WVARCHAR,
                             kUnits, 0, values_[static_cast<size_t>(i)].data(), sizeof values_[0],
                             &lengths_[static_cast<size_t>(i)]);
        SQLBindCol(handle_, 1, SQL_C_WCHAR, cell_.data(), sizeof cell_, &length_);
    }
    ~LookUpStatement() { SQLFreeHandle(SQL_HANDLE_STMT, handle_); }
    LookUpStatement(const LookUpStatement&) = delete;
    LookUpStatement& operator=(const LookUpStatement&) = delete;

    QString Run(std::initializer_list<QString> values) {
        size_t i = 0;
        for (const QString& value : values) {
            std::copy(value.utf16(), value.utf16() + value.size(), values_[i].begin());
            lengths_[i++] = value.size() * 2;
        }
        CheckOdbc(SQL_HANDLE_STMT, handle_, SQLExecute(handle_));
        const SQLRETURN row = SQLFetch(handle_);
        CheckOdbc(SQL_HANDLE_STMT, handle_, row);
        const bool found = SQL_SUCCEEDED(row) && length_ >= 0;
        const QString text =
            found ? QString::fromUtf16(reinterpret_cast<char16_t*>(cell_.data()), length_ / 2) : QString();
        SQLFreeStmt(handle_, SQL_CLOSE);
        return text;
    }

  private:
    SQLHANDLE handle_ = nullptr;
    std::array<std::array<SQLWCHAR, kUnits>, 2> values_{};
    std::array<SQLLEN, 2> lengths_{};
    std::array<SQLWCHAR, kUnits> cell_{};
    SQLLEN length_ = 0;
};

}  // namespace

OdbcBareLoop::OdbcBareLoop(const QString& text, QString statement) : statement_(std::move(statement)) {
    SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment_);
    SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
    SQLAllocHandle(SQL_HANDLE_DBC, environment_, &connection_);
    CheckOdbc(
        SQL_HANDLE_DBC, connection_,
        SQLDriverConnectW(connection_, nullptr, OdbcUnits(text), SQL_NTS, nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT));
}

OdbcBareLoop::~OdbcBareLoop() {
    SQLDisconnect(connection_);
    SQLFreeHandle(SQL_HANDLE_DBC, connection_);
    SQLFreeHandle(SQL_HANDLE_ENV, environment_);
}

void OdbcBareLoop::Clear() {
    cells_ = {};
    found_ = {};
}

void OdbcBareLoop::Execute(const char* sql) const {
    SQLHANDLE statement = nullptr;
    SQLAllocHandle(SQL_HANDLE_STMT, connection_, &statement);
    const SQLRETURN result = SQLExecDirectW(statement, OdbcUnits(QString::fromLatin1(sql)), SQL_NTS);
    SQLFreeHandle(SQL_HANDLE_STMT, statement);
    if (!SQL_SUCCEEDED(result)) throw std::runtime_error(sql);
}

void OdbcBareLoop::Run(const QString& launcher, bool lookUps) {
    Clear();
    Execute("BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY");
    ReadList();
    if (lookUps) LookUp(launcher);
    Execute("ROLLBACK");
}

void OdbcBareLoop::ReadList() {
    SQLHANDLE statement = nullptr;
    SQLAllocHandle(SQL_HANDLE_STMT, connection_, &statement);
    SQLULEN fetched = 0;
    SQLSetStmtAttr(statement, SQL_ATTR_ROW_ARRAY_SIZE, reinterpret_cast<SQLPOINTER>(kRowsInBlock), 0);
    SQLSetStmtAttr(statement, SQL_ATTR_ROWS_FETCHED_PTR, &fetched, 0);
    CheckOdbc(SQL_HANDLE_STMT, statement, SQLExecDirectW(statement, OdbcUnits(statement_), SQL_NTS));
    SQLSMALLINT count = 0;
    SQLNumResultCols(statement, &count);
    columns_ = count;
    rows_ = 0;
    std::vector<std::vector<SQLWCHAR>> bound(static_cast<size_t>(count));
    std::vector<std::vector<SQLLEN>> lengths(static_cast<size_t>(count), std::vector<SQLLEN>(kRowsInBlock));
    for (size_t i = 0; i < bound.size(); ++i) {
        bound[i].resize(kRowsInBlock * kUnits);
        SQLBindCol(statement, static_cast<SQLUSMALLINT>(i + 1), SQL_C_WCHAR, bound[i].data(),
                   kUnits * static_cast<SQLLEN>(sizeof(SQLWCHAR)), lengths[i].data());
    }
    while (SQL_SUCCEEDED(SQLFetch(statement))) {
        for (SQLULEN row = 0; row < fetched; ++row)
            for (size_t i = 0; i < bound.size(); ++i)
                cells_.push_back(lengths[i][row] < 0
                                     ? QString()
                                     : QString::fromUtf16(reinterpret_cast<char16_t*>(&bound[i][row * kUnits]),
                                                          lengths[i][row] / 2));
        rows_ += static_cast<int>(fetched);
    }
    SQLFreeHandle(SQL_HANDLE_STMT, statement);
}

void OdbcBareLoop::LookUp(const QString& launcher) {
    LookUpStatement era(connection_,
                        QStringLiteral("SELECT 名称 FROM K年号区分 WHERE 開始日付 <= ? ORDER BY 開始日付 DESC LIMIT 1"),
                        1);
    LookUpStatement view(
        connection_,
        QStringLiteral("SELECT 閲覧区分 FROM T閲覧 WHERE 担当者コード = ? AND 閲覧情報 = '要員台帳更新' AND"
                       " 伝票事業所コード = '' AND 伝票番号基準日付 = '' AND 伝票No = '' AND キー項目 = ?"
                       " ORDER BY 閲覧日付 DESC NULLS LAST, 閲覧時刻 DESC NULLS LAST LIMIT 1"),
        2);
    for (int row = 0; row < rows_; ++row) {
        const QString* cells = &cells_[static_cast<size_t>(row) * static_cast<size_t>(columns_)];
        for (const int date : {kBirth, kEntry, kExit}) {
            if (cells[date].isEmpty()) continue;
            for (int twice = 0; twice < 2; ++twice) found_.push_back(era.Run({cells[date]}));
        }
        found_.push_back(view.Run({launcher, cells[kCode]}));
    }
}
