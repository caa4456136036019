#include "support/OtherProgram.h"

#include <sqlite3.h>
#include <stdexcept>

OtherProgram::OtherProgram(const QString& file) : handle_(nullptr, sqlite3_close) {
    sqlite3* handle = nullptr;
    const int result = sqlite3_open_v2(file.toUtf8().constData(), &handle, SQLITE_OPEN_READWRITE, nullptr);
    handle_.reset(handle);
    if (result != SQLITE_OK) throw std::runtime_error(sqlite3_errmsg(handle));
}

void OtherProgram::Run(const QString& sql) {
    if (sqlite3_exec(handle_.get(), sql.toUtf8().constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(handle_.get()));
}
