#pragma once

#include <sql.h>
#include <sqlext.h>

#include <QString>
#include <array>
#include <stdexcept>

/// UTF-16 for the driver manager: NUL-terminated, read only.
inline SQLWCHAR* OdbcUnits(const QString& text) {
    return reinterpret_cast<SQLWCHAR*>(const_cast<ushort*>(text.utf16()));  // NOLINT
}

/// Throws std::runtime_error with the driver's message if the call has failed. SQL_NO_DATA is not a failure.
inline void CheckOdbc(SQLSMALLINT type, SQLHANDLE handle, SQLRETURN result) {
    if (SQL_SUCCEEDED(result) || result == SQL_NO_DATA) return;
    std::array<SQLCHAR, 6> state{};
    std::array<SQLCHAR, 1000> text{};
    SQLINTEGER code = 0;
    SQLSMALLINT size = 0;
    SQLGetDiagRec(type, handle, 1, state.data(), &code, text.data(), text.size(), &size);
    throw std::runtime_error(reinterpret_cast<const char*>(text.data()));
}
