// Part of OdbcHandle.h: ReadOdbcRows.

#include "database/odbc/OdbcHandle.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "platform/Utf8Text.h"

namespace database {
namespace {

constexpr SQLLEN kFirstUnits = 64;  // initial capacity of a cell in code units; grows with the values
constexpr SQLLEN kMostBytes = SQLLEN{16} * 1024 * 1024;  // for one column's block

// MariaDB's driver reports wrong lengths for names with kanji; the NUL terminator is reliable.
template <size_t N>
QString UpToNul(const std::array<SQLWCHAR, N>& name) {
    const auto* units = reinterpret_cast<const char16_t*>(name.data());
    return platform::TextFromUtf16(units, static_cast<qsizetype>(std::char_traits<char16_t>::length(units)));
}

QString DeclaredTypeOf(const OdbcStatement& statement, SQLUSMALLINT column, SQLSMALLINT type, SQLULEN size) {
    std::array<SQLWCHAR, 128> name{};
    SQLSMALLINT bytes = 0;
    const SQLRETURN result =
        SQLColAttributeW(statement.Get(), column, SQL_DESC_TYPE_NAME, name.data(), sizeof name, &bytes, nullptr);
    if (!SQL_SUCCEEDED(result)) return {};
    const QString text = UpToNul(name);
    const bool sized = type == SQL_CHAR || type == SQL_VARCHAR || type == SQL_WCHAR || type == SQL_WVARCHAR;
    return sized ? text + u'(' + QString::number(size) + u')' : text;
}

std::shared_ptr<ColumnSet> DescribeColumns(const OdbcStatement& statement, SQLSMALLINT count) {
    auto columns = std::make_shared<ColumnSet>();
    std::array<SQLWCHAR, 256> name{};
    for (SQLUSMALLINT column = 1; column <= count; ++column) {
        SQLSMALLINT units = 0, type = 0, digits = 0, nullable = 0;
        SQLULEN size = 0;
        statement.Check(SQLDescribeColW(statement.Get(), column, name.data(), name.size(), &units, &type, &size,
                                        &digits, &nullable));
        columns->Add(UpToNul(name), DeclaredTypeOf(statement, column, type, size));
    }
    return columns;
}

// Converts UTF-16 to UTF-8. Optimised for ASCII and Japanese: one or three bytes per unit.
class Utf8Writer {
  public:
    QByteArrayView From(const char16_t* text, size_t units) {
        if (bytes_.size() < units * 3) bytes_.resize(units * 3);
        char* out = bytes_.data();
        for (size_t i = 0; i < units; ++i) {
            const char32_t unit = text[i];
            if (unit < 0x80) {
                *out++ = static_cast<char>(unit);
            } else if (unit < 0x800) {
                *out++ = static_cast<char>(0xC0 | (unit >> 6));
                *out++ = static_cast<char>(0x80 | (unit & 0x3F));
            } else if (QChar::isHighSurrogate(unit) && i + 1 < units && QChar::isLowSurrogate(text[i + 1])) {
                out = Four(out, QChar::surrogateToUcs4(text[i], text[i + 1]));
                ++i;
            } else {
                out = Three(out, QChar::isSurrogate(unit) ? char32_t{0xFFFD} : unit);
            }
        }
        return {bytes_.data(), out - bytes_.data()};
    }

  private:
    static char* Three(char* out, char32_t code) {
        *out++ = static_cast<char>(0xE0 | (code >> 12));
        *out++ = static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        *out++ = static_cast<char>(0x80 | (code & 0x3F));
        return out;
    }
    static char* Four(char* out, char32_t code) {
        *out++ = static_cast<char>(0xF0 | (code >> 18));
        *out++ = static_cast<char>(0x80 | ((code >> 12) & 0x3F));
        *out++ = static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        *out++ = static_cast<char>(0x80 | (code & 0x3F));
        return out;
    }

    std::vector<char> bytes_;
};

// Fetches blocks of rows into bound arrays. If a value was truncated, the block is fetched again with larger cells.
class BlockReader {
  public:
    BlockReader(const OdbcStatement& statement, SQLSMALLINT columns, bool utf8)
        : statement_(statement), utf8_(utf8), unit_(utf8 ? 1 : 2), columns_(static_cast<size_t>(columns)) {
        for (Bound& column : columns_) column.capacity = kFirstUnits * unit_;
        Set(SQL_ATTR_ROWS_FETCHED_PTR, &fetched_);
        Bind();
    }
    // The driver must not write to the arrays after they are freed.
    ~BlockReader() { SQLFreeStmt(statement_.Get(), SQL_UNBIND); }
    BlockReader(const BlockReader&) = delete;
    BlockReader& operator=(const BlockReader&) = delete;

    void ReadInto(ResultTable& result) {
        while (Fetch(SQLFetch(statement_.Get()))) {
            while (Widen()) Fetch(SQLFetchScroll(statement_.Get(), SQL_FETCH_RELATIVE, 0));
            for (SQLULEN row = 0; row < fetched_; ++row) AppendRow(result, row);
        }
    }

  private:
    struct Bound {
        SQLLEN capacity = 0;  // bytes per cell, including the NUL terminator
        std::vector<char> cells;
        std::vector<SQLLEN> lengths;  // in bytes; the full length if the value was truncated
    };

    void Set(SQLINTEGER attribute, SQLPOINTER value) const {
        statement_.Check(SQLSetStmtAttr(statement_.Get(), attribute, value, 0));
    }

    // Wide cells reduce the number of rows per block.
    void Bind() {
        SQLLEN widest = 1;
        for (const Bound& column : columns_) widest = std::max(widest, column.capacity);
        rows_ = static_cast<SQLULEN>(std::clamp<SQLLEN>(kMostBytes / widest, 1, kOdbcRowsInBlock));
        Set(SQL_ATTR_ROW_ARRAY_SIZE, reinterpret_cast<SQLPOINTER>(rows_));
        for (size_t i = 0; i < columns_.size(); ++i) {
            Bound& column = columns_[i];
            column.cells.resize(static_cast<size_t>(column.capacity) * rows_);
            column.lengths.resize(rows_);
            statement_.Check(SQLBindCol(statement_.Get(), static_cast<SQLUSMALLINT>(i + 1),
                                        utf8_ ? SQL_C_CHAR : SQL_C_WCHAR, column.cells.data(), column.capacity,
                                        column.lengths.data()));
        }
    }

    bool Fetch(SQLRETURN result) const {
        if (result == SQL_NO_DATA) return false;
        statement_.Check(result);
        return true;
    }

    bool Widen() {
        bool widened = false;
        for (Bound& column : columns_) {
            SQLLEN longest = 0;
            for (SQLULEN row = 0; row < fetched_; ++row) {
                const bool unknown = column.lengths[row] == SQL_NO_TOTAL;
                longest = std::max(longest, unknown ? column.capacity * 2 : column.lengths[row]);
            }
            if (longest + unit_ <= column.capacity) continue;
            if (longest / unit_ > ResultTable::kLongestCell) ResultTable::RefuseCell();
            column.capacity = longest + unit_ * kFirstUnits;
            widened = true;
        }
        if (widened) Bind();
        return widened;
    }

    void AppendRow(ResultTable& result, SQLULEN row) {
        result.BeginRow();
        for (const Bound& column : columns_) {
            const SQLLEN length = column.lengths[row];
            const char* cell = column.cells.data() + static_cast<SQLULEN>(column.capacity) * row;
            if (length == SQL_NULL_DATA)
                result.AppendNull();
            else if (utf8_)
                result.AppendText({cell, length});
            else
                result.AppendText(
                    writer_.From(reinterpret_cast<const char16_t*>(cell), static_cast<size_t>(length) / 2));
        }
    }

    const OdbcStatement& statement_;
    bool utf8_;
    SQLLEN unit_;
    std::vector<Bound> columns_;
    SQLULEN rows_ = 1;
    SQLULEN fetched_ = 0;
    Utf8Writer writer_;
};

// Reads value by value; a long one arrives in several pieces, each NUL-terminated.
void ReadByPieces(const OdbcStatement& statement, SQLSMALLINT columns, ResultTable& result) {
    std::array<SQLWCHAR, 1024> piece{};
    for (;;) {
        const SQLRETURN row = SQLFetch(statement.Get());
        if (row == SQL_NO_DATA) return;
        statement.Check(row);
        result.BeginRow();
        for (SQLUSMALLINT column = 1; column <= columns; ++column) {
            QString text;
            SQLLEN left = 0;
            SQLRETURN got = SQL_SUCCESS_WITH_INFO;
            while (got == SQL_SUCCESS_WITH_INFO) {
                got = SQLGetData(statement.Get(), column, SQL_C_WCHAR, piece.data(), sizeof piece, &left);
                if (got == SQL_NO_DATA) break;
                statement.Check(got);
                if (left == SQL_NULL_DATA) break;
                const bool whole = left != SQL_NO_TOTAL && left < static_cast<SQLLEN>(sizeof piece);
                text.append(reinterpret_cast<const QChar*>(piece.data()),
                            whole ? left / 2 : static_cast<qsizetype>(piece.size()) - 1);
                if (whole) break;
                if (text.size() > ResultTable::kLongestCell) ResultTable::RefuseCell();
            }
            if (left == SQL_NULL_DATA)
                result.AppendNull();
            else
                result.AppendText(text.toUtf8());
        }
    }
}

}  // namespace

std::shared_ptr<ResultTable> ReadOdbcRows(const OdbcStatement& statement, OdbcFetch fetch) {
    SQLSMALLINT count = 0;
    statement.Check(SQLNumResultCols(statement.Get(), &count));
    auto result = std::make_shared<ResultTable>(DescribeColumns(statement, count));
    if (count == 0) return result;
    if (fetch == OdbcFetch::Utf16Pieces)
        ReadByPieces(statement, count, *result);
    else
        BlockReader(statement, count, fetch == OdbcFetch::Utf8Blocks).ReadInto(*result);
    return result;
}

}  // namespace database
