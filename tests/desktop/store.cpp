#include "desktop/store.h"

#include "desktop/session.h"

#include <QDir>
#include <QFileInfo>

#include <sqlite3.h>

#include <memory>

namespace velorama::desktop {
namespace {

constexpr int kBusyMilliseconds = 10000;

using Database = std::unique_ptr<sqlite3, decltype(&sqlite3_close)>;
using Statement = std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)>;

Database open(const QString& file, int flags) {
    sqlite3* handle = nullptr;
    const int result = sqlite3_open_v2(file.toUtf8().constData(), &handle, flags, nullptr);
    Database database(handle, &sqlite3_close);
    if (result != SQLITE_OK) {
        return {nullptr, &sqlite3_close};
    }
    sqlite3_busy_timeout(handle, kBusyMilliseconds);
    return database;
}

Statement prepare(sqlite3* database, const char* sql, const QStringList& texts) {
    sqlite3_stmt* handle = nullptr;
    sqlite3_prepare_v2(database, sql, -1, &handle, nullptr);
    int column = 0;
    for (const QString& text : texts) {
        const QByteArray utf8 = text.toUtf8();
        sqlite3_bind_text(handle, ++column, utf8.constData(), static_cast<int>(utf8.size()),
                          SQLITE_TRANSIENT);
    }
    return {handle, &sqlite3_finalize};
}

}  // namespace

Store::Store(const DesktopSession& session) : Store(session.configFolder()) {}

Store::Store(const QString& configFolder)
    : m_file(configFolder + QStringLiteral("/velorama/registry.sqlite")) {}

std::optional<QString> Store::value(const QString& key, const QString& name,
                                    const QString& hive) const {
    const Database database = open(m_file, SQLITE_OPEN_READONLY);
    if (!database) {
        return std::nullopt;
    }
    const Statement row = prepare(database.get(),
                                  "SELECT data FROM registry WHERE hive = ? AND"
                                  " key = ? COLLATE NOCASE AND name = ? COLLATE NOCASE",
                                  {hive, key, name});
    if (sqlite3_step(row.get()) != SQLITE_ROW) {
        return std::nullopt;
    }
    return QString::fromUtf8(static_cast<const char*>(sqlite3_column_blob(row.get(), 0)),
                             sqlite3_column_bytes(row.get(), 0));
}

bool Store::setValue(const QString& key, const QString& name, const QString& text,
                     const QString& hive) const {
    QDir().mkpath(QFileInfo(m_file).path());
    const Database database = open(m_file, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    if (!database) {
        return false;
    }
    sqlite3_exec(database.get(),
                 "CREATE TABLE IF NOT EXISTS registry(hive TEXT, key TEXT, name TEXT,"
                 " type INTEGER, data)",
                 nullptr, nullptr, nullptr);
    const Statement old = prepare(database.get(),
                                  "DELETE FROM registry WHERE hive = ? AND"
                                  " key = ? COLLATE NOCASE AND name = ? COLLATE NOCASE",
                                  {hive, key, name});
    const Statement row = prepare(database.get(), "INSERT INTO registry VALUES(?, ?, ?, 1, ?)",
                                  {hive, key, name, text});
    return sqlite3_step(old.get()) == SQLITE_DONE && sqlite3_step(row.get()) == SQLITE_DONE;
}

std::optional<QString> Store::setting(const QString& key, const QString& name) const {
    return value(QString::fromUtf16(kSettingsRoot) + key, name);
}

bool Store::setSetting(const QString& key, const QString& name, const QString& text) const {
    return setValue(QString::fromUtf16(kSettingsRoot) + key, name, text);
}

}  // namespace velorama::desktop
