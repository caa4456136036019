// Fake ODBC driver without a server: logs the calls and answers every statement with the same rows. It replaces the
// drivers of engines that get statements unchanged.
//   MEIBO_TEST_DRIVER_LOG     the log file, one line per call
//   MEIBO_TEST_DRIVER_ENGINE  the engine name that it reports
//   MEIBO_TEST_DRIVER_CELL    length in characters of the first column's text in each row, if set;
//                             "endless": unknown length, and no end
//   MEIBO_TEST_DRIVER_FAILS   calls that fail, separated by commas: commit, rollback, autocommit 1
//   MEIBO_TEST_DRIVER_PORT    port of a local server, which it connects to; the engine name is then received from there
// A statement with "M長" runs until it is cancelled; the cancel then blocks until the statement is freed, at most 4 s.

#include <sql.h>
#include <sqlext.h>

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <mutex>
#include <set>
#include <string>
#include <vector>

namespace {

using Text = std::u16string;

struct Cell {
    Text text;
    bool null = false;
    size_t given = 0;  // units that have been fetched
    bool finished = false;
    bool endless = false;
};

struct Statement {
    int row = -1;
    std::vector<Cell> cells;
    bool failed = false;
};

// A text that is fetched in several pieces, with a surrogate pair across the first boundary, then a Null.
std::vector<Cell> RowAt(int row) {
    const char* units = std::getenv("MEIBO_TEST_DRIVER_CELL");
    if (units != nullptr && std::strcmp(units, "endless") == 0) return {{u"", false, 0, false, true}, {u"", true}};
    if (units != nullptr) return {{Text(std::strtoul(units, nullptr, 10), u'x')}, {u"", true}};
    if (row == 0) return {{Text(1022, u'長') + u"𠮷" + Text(2000, u'い')}, {u"", true}};
    return {{u""}, {u"短"}};
}

constexpr int kRows = 2;

std::string Utf8(const SQLWCHAR* text, SQLINTEGER units) {
    std::string bytes;
    const auto* begin = reinterpret_cast<const char16_t*>(text);
    const Text whole = units == SQL_NTS ? Text(begin) : Text(begin, static_cast<size_t>(units));
    for (size_t i = 0; i < whole.size(); ++i) {
        char32_t code = whole[i];
        if (code >= 0xD800 && code < 0xDC00) code = 0x10000 + ((code - 0xD800) << 10) + (whole[++i] - 0xDC00);
        if (code < 0x80) {
            bytes += static_cast<char>(code);
            continue;
        }
        const int more = code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
        bytes += static_cast<char>((0xFFU << (7 - more)) | (code >> (6 * more)));
        for (int shift = 6 * (more - 1); shift >= 0; shift -= 6)
            bytes += static_cast<char>(0x80U | ((code >> shift) & 0x3FU));
    }
    return bytes;
}

void Note(const std::string& line) {
    if (const char* file = std::getenv("MEIBO_TEST_DRIVER_LOG")) std::ofstream(file, std::ios::app) << line << '\n';
}

// Copies the ASCII text that fits, with its NUL terminator; reports the length in bytes.
void Give(const std::string& text, SQLPOINTER target, SQLSMALLINT bytes, SQLSMALLINT* length) {
    auto* units = static_cast<SQLWCHAR*>(target);
    const size_t count = std::min(text.size(), static_cast<size_t>(bytes) / sizeof(SQLWCHAR) - 1);
    std::copy_n(text.begin(), count, units);
    units[count] = 0;
    if (length != nullptr) *length = static_cast<SQLSMALLINT>(text.size() * sizeof(SQLWCHAR));
}

bool Fails(const std::string& call) {
    const char* calls = std::getenv("MEIBO_TEST_DRIVER_FAILS");
    return calls != nullptr && (',' + std::string(calls) + ',').find(',' + call + ',') != std::string::npos;
}

int g_server = -1;

bool ConnectToServer(const char* port) {
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<uint16_t>(std::strtoul(port, nullptr, 10)));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    g_server = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    return ::connect(g_server, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

bool ReceiveFromServer() {
    char byte = 0;
    return g_server < 0 || ::recv(g_server, &byte, 1, 0) == 1;
}

std::mutex g_mutex;
std::condition_variable g_changed;
std::set<SQLHANDLE> g_cancelled, g_freed;

void RunUntilCancelled(SQLHANDLE statement) {
    std::unique_lock lock(g_mutex);
    g_freed.erase(statement);
    g_changed.wait(lock, [&] { return g_cancelled.count(statement) != 0; });
}

long Number(SQLPOINTER value) { return static_cast<long>(reinterpret_cast<SQLLEN>(value)); }

}  // namespace

extern "C" {

SQLRETURN SQLAllocHandle(SQLSMALLINT type, SQLHANDLE, SQLHANDLE* handle) {
    *handle = type == SQL_HANDLE_STMT ? static_cast<SQLHANDLE>(new Statement) : static_cast<SQLHANDLE>(new char);
    return SQL_SUCCESS;
}

SQLRETURN SQLFreeHandle(SQLSMALLINT type, SQLHANDLE handle) {
    {
        const std::lock_guard lock(g_mutex);
        g_freed.insert(handle);
        g_changed.notify_all();
    }
    if (type == SQL_HANDLE_STMT)
        delete static_cast<Statement*>(handle);
    else
        delete static_cast<char*>(handle);
    return SQL_SUCCESS;
}

SQLRETURN SQLSetEnvAttr(SQLHENV, SQLINTEGER, SQLPOINTER, SQLINTEGER) { return SQL_SUCCESS; }

SQLRETURN SQLSetConnectAttrW(SQLHDBC, SQLINTEGER attribute, SQLPOINTER value, SQLINTEGER) {
    if (attribute == SQL_ATTR_LOGIN_TIMEOUT) Note("login " + std::to_string(Number(value)));
    if (attribute != SQL_ATTR_AUTOCOMMIT) return SQL_SUCCESS;
    const std::string call = "autocommit " + std::to_string(Number(value));
    Note(call);
    return Fails(call) ? SQL_ERROR : SQL_SUCCESS;
}

SQLRETURN SQLDriverConnectW(SQLHDBC, SQLHWND, SQLWCHAR* text, SQLSMALLINT units, SQLWCHAR*, SQLSMALLINT, SQLSMALLINT*,
                            SQLUSMALLINT) {
    Note("connect " + Utf8(text, units));
    const char* port = std::getenv("MEIBO_TEST_DRIVER_PORT");
    return port == nullptr || ConnectToServer(port) ? SQL_SUCCESS : SQL_ERROR;
}

SQLRETURN SQLDisconnect(SQLHDBC) {
    Note("disconnect");
    if (g_server >= 0) ::close(g_server);
    g_server = -1;
    return SQL_SUCCESS;
}

SQLRETURN SQLGetInfoW(SQLHDBC, SQLUSMALLINT which, SQLPOINTER target, SQLSMALLINT bytes, SQLSMALLINT* length) {
    const char* engine = std::getenv("MEIBO_TEST_DRIVER_ENGINE");
    if (which == SQL_DBMS_NAME && !ReceiveFromServer()) return SQL_ERROR;
    if (which == SQL_DBMS_NAME)
        Give(engine == nullptr ? "" : engine, target, bytes, length);
    else if (which == SQL_DRIVER_ODBC_VER)
        Give("03.51", target, bytes, length);
    else
        std::memset(target, 0, sizeof(SQLUSMALLINT));
    return SQL_SUCCESS;
}

SQLRETURN SQLSetStmtAttrW(SQLHSTMT, SQLINTEGER attribute, SQLPOINTER value, SQLINTEGER) {
    if (attribute == SQL_ATTR_QUERY_TIMEOUT) Note("timeout " + std::to_string(Number(value)));
    return SQL_SUCCESS;
}

SQLRETURN SQLGetStmtAttrW(SQLHSTMT, SQLINTEGER, SQLPOINTER value, SQLINTEGER, SQLINTEGER*) {
    *static_cast<SQLPOINTER*>(value) = nullptr;
    return SQL_SUCCESS;
}

SQLRETURN SQLExecDirectW(SQLHSTMT handle, SQLWCHAR* text, SQLINTEGER units) {
    const std::string sql = Utf8(text, units);
    Note("run " + sql);
    auto* statement = static_cast<Statement*>(handle);
    const bool isLong = sql.find("M長") != std::string::npos;
    if (isLong) RunUntilCancelled(handle);
    statement->failed = isLong || sql.find("M無") != std::string::npos;
    return statement->failed ? SQL_ERROR : SQL_SUCCESS;
}

SQLRETURN SQLCancel(SQLHSTMT handle) {
    std::unique_lock lock(g_mutex);
    g_cancelled.insert(handle);
    g_changed.notify_all();
    const bool freed = g_changed.wait_for(lock, std::chrono::seconds(4), [&] { return g_freed.count(handle) != 0; });
    Note(freed ? "freed while cancelled" : "cancelled");
    return SQL_SUCCESS;
}

SQLRETURN SQLEndTran(SQLSMALLINT, SQLHANDLE, SQLSMALLINT how) {
    const std::string call = how == SQL_COMMIT ? "commit" : "rollback";
    Note(call);
    return Fails(call) ? SQL_ERROR : SQL_SUCCESS;
}

SQLRETURN SQLNumResultCols(SQLHSTMT, SQLSMALLINT* count) {
    *count = 2;
    return SQL_SUCCESS;
}

SQLRETURN SQLDescribeColW(SQLHSTMT, SQLUSMALLINT column, SQLWCHAR* name, SQLSMALLINT units, SQLSMALLINT* length,
                          SQLSMALLINT* type, SQLULEN* size, SQLSMALLINT* digits, SQLSMALLINT* nullable) {
    Give(column == 1 ? "ONE" : "TWO", name, static_cast<SQLSMALLINT>(units * 2), nullptr);
    *length = 3;
    *type = SQL_WVARCHAR;
    *size = 4000;
    *digits = 0;
    *nullable = SQL_NULLABLE;
    return SQL_SUCCESS;
}

SQLRETURN SQLColAttributeW(SQLHSTMT, SQLUSMALLINT, SQLUSMALLINT, SQLPOINTER target, SQLSMALLINT bytes,
                           SQLSMALLINT* length, SQLLEN*) {
    Give("VARCHAR2", target, bytes, length);
    return SQL_SUCCESS;
}

SQLRETURN SQLFetch(SQLHSTMT handle) {
    auto* statement = static_cast<Statement*>(handle);
    if (++statement->row >= kRows) return SQL_NO_DATA;
    statement->cells = RowAt(statement->row);
    return SQL_SUCCESS;
}

// Copies as much as fits, with a NUL terminator; reports the total remaining length.
static SQLRETURN GiveEndless(Cell& cell, SQLWCHAR* units, SQLLEN bytes, SQLLEN* left) {
    constexpr size_t kEnd = size_t{1} << 26;
    const size_t count = static_cast<size_t>(bytes) / sizeof(SQLWCHAR) - 1;
    std::fill_n(units, count, SQLWCHAR{u'x'});
    units[count] = 0;
    *left = SQL_NO_TOTAL;
    cell.given += count;
    if (cell.given < kEnd) return SQL_SUCCESS_WITH_INFO;
    Note("endless cell read");
    cell.finished = true;
    return SQL_SUCCESS_WITH_INFO;
}

SQLRETURN SQLGetData(SQLHSTMT handle, SQLUSMALLINT column, SQLSMALLINT, SQLPOINTER target, SQLLEN bytes, SQLLEN* left) {
    Cell& cell = static_cast<Statement*>(handle)->cells[column - 1U];
    if (cell.finished) return SQL_NO_DATA;
    if (cell.endless) return GiveEndless(cell, static_cast<SQLWCHAR*>(target), bytes, left);
    const size_t rest = cell.text.size() - cell.given;
    *left = cell.null ? SQL_NULL_DATA : static_cast<SQLLEN>(rest * sizeof(SQLWCHAR));
    const size_t count = std::min(rest, static_cast<size_t>(bytes) / sizeof(SQLWCHAR) - 1);
    auto* units = static_cast<SQLWCHAR*>(target);
    std::copy_n(cell.text.begin() + static_cast<std::ptrdiff_t>(cell.given), count, units);
    units[count] = 0;
    cell.given += count;
    cell.finished = count == rest;
    return cell.finished ? SQL_SUCCESS : SQL_SUCCESS_WITH_INFO;
}

SQLRETURN SQLFreeStmt(SQLHSTMT, SQLUSMALLINT) { return SQL_SUCCESS; }

SQLRETURN SQLGetDiagRecW(SQLSMALLINT type, SQLHANDLE handle, SQLSMALLINT record, SQLWCHAR* state, SQLINTEGER* code,
                         SQLWCHAR* text, SQLSMALLINT units, SQLSMALLINT* length) {
    if (record > 1 || type != SQL_HANDLE_STMT || !static_cast<Statement*>(handle)->failed) return SQL_NO_DATA;
    Give("42S02", state, 6 * sizeof(SQLWCHAR), nullptr);
    *code = 942;
    const std::string words = "[Plain][Engine]ORA-00942: table or view does not exist";
    Give(words, text, static_cast<SQLSMALLINT>(units * 2), nullptr);
    *length = static_cast<SQLSMALLINT>(words.size());
    return SQL_SUCCESS;
}

// Without this function the manager does not query messages either.
SQLRETURN SQLGetDiagFieldW(SQLSMALLINT, SQLHANDLE, SQLSMALLINT, SQLSMALLINT, SQLPOINTER, SQLSMALLINT, SQLSMALLINT*) {
    return SQL_ERROR;
}

}  // extern "C"
