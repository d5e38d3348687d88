#pragma once

#include <QByteArray>

#include <sqlite3.h>

namespace velorama {

/// A prepared statement with numbered parameters, from 1, and numbered columns, from 0. Text goes
/// in and comes out as UTF-8. One that could not be prepared steps to its error.
class Statement {
public:
    Statement(sqlite3* database, const char* sql) {
        code_ = sqlite3_prepare_v2(database, sql, -1, &handle_, nullptr);
    }
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;
    ~Statement() { sqlite3_finalize(handle_); }

    Statement& text(int at, const QByteArray& value) {
        if (handle_ != nullptr) {
            sqlite3_bind_text64(handle_, at, value.constData(),
                                static_cast<sqlite3_uint64>(value.size()), SQLITE_TRANSIENT,
                                SQLITE_UTF8);
        }
        return *this;
    }
    /// `value` must outlive the next step.
    Statement& blob(int at, const QByteArray& value) {
        if (handle_ != nullptr) {
            sqlite3_bind_blob64(handle_, at, value.constData(),
                                static_cast<sqlite3_uint64>(value.size()), SQLITE_STATIC);
        }
        return *this;
    }
    Statement& number(int at, qint64 value) {
        if (handle_ != nullptr) {
            sqlite3_bind_int64(handle_, at, value);
        }
        return *this;
    }
    int step() {
        code_ = handle_ != nullptr ? sqlite3_step(handle_) : code_;
        return code_;
    }
    int code() const { return code_; }

    bool isNull(int column) const { return sqlite3_column_type(handle_, column) == SQLITE_NULL; }
    qint64 number(int column) const { return sqlite3_column_int64(handle_, column); }
    /// Whatever the row holds, as bytes; empty for nothing.
    QByteArray bytes(int column) const {
        const void* bytes = sqlite3_column_blob(handle_, column);
        const int size = sqlite3_column_bytes(handle_, column);
        return bytes != nullptr ? QByteArray(static_cast<const char*>(bytes), size) : QByteArray();
    }

private:
    sqlite3_stmt* handle_ = nullptr;
    int code_ = SQLITE_OK;
};

}  // namespace velorama
