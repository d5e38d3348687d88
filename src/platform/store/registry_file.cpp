#include "platform/store/registry_file.h"

#include "platform/files/private_files.h"
#include "platform/store/registry_names.h"
#include "platform/store/sqlite_statement.h"
#include "platform/utf8.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velorama {
namespace {

/// How long a locked file is waited for. Whatever fails then is tried again a second later.
constexpr int busyMilliseconds = 500;

const HiveName* findHive(const QByteArray& name) {
    const QString text = QString::fromUtf8(name);
    const HiveName* found = hiveByName(text);
    return found != nullptr ? found : hiveByLongName(text);
}

void loadRow(const Statement& row, RegistryTable& table) {
    const HiveName* hive = findHive(row.bytes(0));
    if (hive == nullptr) {
        return;
    }
    const auto type =
        row.isNull(3) ? ValueType::Text : static_cast<ValueType>(static_cast<int>(row.number(3)));
    table.load({hive->hive, textOfUtf8(row.bytes(1)), textOfUtf8(row.bytes(2)),
                RegistryValue{type, row.bytes(4)}});
}

/// Of the types that the program itself writes; others may be any bytes.
bool isOwn(ValueType type) {
    return type == ValueType::Text || type == ValueType::ExpandableText ||
           type == ValueType::Number;
}

void bindData(Statement& statement, int at, const RegistryValue& value) {
    bool isNumber = false;
    const qint64 number = value.data.toLongLong(&isNumber);
    if (value.type == ValueType::Number && isNumber) {
        statement.number(at, number);
    } else if (isOwn(value.type)) {
        statement.text(at, value.data);
    } else {
        statement.blob(at, value.data);
    }
}

void bindAddress(Statement& statement, const AddressedValue& entry) {
    const HiveName& hive = nameOf(entry.hive);
    statement.text(1, hive.name.data()).text(2, hive.longName.data());
    statement.text(3, entry.key.toUtf8()).text(4, entry.name.toUtf8());
}

bool isDamage(int code) {
    const int kind = code & 0xFF;
    return kind == SQLITE_NOTADB || kind == SQLITE_CORRUPT;
}

}  // namespace

RegistryFile::RegistryFile(const QString& path, Access access) : path_(path), access_(access) {}

RegistryFile::~RegistryFile() {
    close();
}

bool RegistryFile::exists() const {
    return QFileInfo(path_).isFile();
}

RegistryFile::Identity RegistryFile::identity() const {
    struct stat state = {};
    if (::stat(QFile::encodeName(path_).constData(), &state) != 0) {
        return {};
    }
    return {state.st_dev, state.st_ino};
}

bool RegistryFile::isReplaced() const {
    return database_ != nullptr && identity() != opened_;
}

bool RegistryFile::open(bool create) {
    busy_ = false;
    if (isReplaced()) {
        close();
    }
    if (database_ != nullptr) {
        return true;
    }
    if (create && access_ == Access::Reading) {
        return false;
    }
    if (create) {
        makePrivateFolder(QFileInfo(path_).absolutePath());
        makeFile();
    }
    if (access_ == Access::Writing) {
        closeAllToOthers();
    }
    const int flags = access_ == Access::Writing ? SQLITE_OPEN_READWRITE : SQLITE_OPEN_READONLY;
    if (sqlite3_open_v2(path_.toUtf8().constData(), &database_, flags, nullptr) != SQLITE_OK) {
        close();
        return false;
    }
    sqlite3_busy_timeout(database_, busyMilliseconds);
    opened_ = identity();
    return true;
}

/// The library would make it with everybody's rights, and where a link to nowhere leads. What it
/// makes itself, journals, has the file's.
void RegistryFile::makeFile() const {
    const int made = ::open(QFile::encodeName(path_).constData(), O_CREAT | O_NOFOLLOW | O_CLOEXEC,
                            S_IRUSR | S_IWUSR);
    if (made >= 0) {
        ::close(made);
    }
}

/// An older run has left the folder, the file, its journals and damaged ones as they came.
void RegistryFile::closeAllToOthers() const {
    const QFileInfo file(path_);
    closeToOthers(file.absolutePath());
    const QStringList kin = {file.fileName() + u'*'};
    for (const QFileInfo& one : file.absoluteDir().entryInfoList(kin, QDir::Files)) {
        closeToOthers(one.filePath());
    }
}

void RegistryFile::close() {
    sqlite3_close_v2(database_);
    database_ = nullptr;
    loadedVersion_ = -1;
}

int RegistryFile::execute(const char* sql) {
    return sqlite3_exec(database_, sql, nullptr, nullptr, nullptr);
}

std::int64_t RegistryFile::dataVersion() {
    Statement query(database_, "PRAGMA data_version");
    return query.step() == SQLITE_ROW ? query.number(0) : -1;
}

bool RegistryFile::isNews() {
    if (isReplaced()) {
        close();
    }
    if (!exists()) {
        return false;
    }
    return database_ == nullptr || loadedVersion_ < 0 || dataVersion() != loadedVersion_;
}

bool RegistryFile::hasTable() {
    Statement query(database_, "SELECT 1 FROM sqlite_master WHERE lower(name) = 'registry'");
    return query.step() == SQLITE_ROW;
}

RegistryFile::Result RegistryFile::resultOf(int code) {
    busy_ = (code & 0xFF) == SQLITE_BUSY;
    if (code == SQLITE_OK || code == SQLITE_DONE) {
        return Result::Done;
    }
    const bool foreign = code == SQLITE_ERROR && hasTable();
    return isDamage(code) || foreign ? Result::Damaged : Result::Failed;
}

int RegistryFile::readAll(RegistryTable& table) {
    Statement rows(database_, "SELECT hive, key, name, type, data FROM registry ORDER BY rowid");
    while (rows.step() == SQLITE_ROW) {
        loadRow(rows, table);
    }
    return rows.code();
}

RegistryFile::Result RegistryFile::load(RegistryTable& table) {
    if (!open(false)) {
        return Result::Failed;
    }
    const std::int64_t version = dataVersion();
    const int code = readAll(table);
    const bool empty = code == SQLITE_ERROR && !hasTable();
    const Result result = empty ? Result::Done : resultOf(code);
    if (result == Result::Done) {
        loadedVersion_ = version;
    }
    return result;
}

int RegistryFile::writeOne(const AddressedValue& entry) {
    if (!entry.value) {
        Statement removal(database_,
                          "DELETE FROM registry WHERE upper(hive) IN (?1, ?2)"
                          " AND key = ?3 COLLATE NOCASE AND name = ?4 COLLATE NOCASE");
        bindAddress(removal, entry);
        return removal.step();
    }
    // Rows put in by hand may stand there twice: all of them take the new value.
    Statement update(database_,
                     "UPDATE registry SET type = ?5, data = ?6 WHERE upper(hive) IN (?1, ?2)"
                     " AND key = ?3 COLLATE NOCASE AND name = ?4 COLLATE NOCASE");
    bindAddress(update, entry);
    update.number(5, static_cast<int>(entry.value->type));
    bindData(update, 6, *entry.value);
    const int code = update.step();
    if (code != SQLITE_DONE || sqlite3_changes(database_) > 0) {
        return code;
    }
    Statement insertion(database_,
                        "INSERT INTO registry (hive, key, name, type, data)"
                        " VALUES (?1, ?3, ?4, ?5, ?6)");
    insertion.text(1, nameOf(entry.hive).name.data());
    insertion.text(3, entry.key.toUtf8()).text(4, entry.name.toUtf8());
    insertion.number(5, static_cast<int>(entry.value->type));
    bindData(insertion, 6, *entry.value);
    return insertion.step();
}

int RegistryFile::begin() {
    return execute(
        "BEGIN IMMEDIATE;"
        "CREATE TABLE IF NOT EXISTS registry"
        "(hive TEXT, key TEXT, name TEXT, type INTEGER, data);"
        "CREATE INDEX IF NOT EXISTS registry_address"
        " ON registry(key COLLATE NOCASE, name COLLATE NOCASE)");
}

int RegistryFile::writeAll(const std::vector<AddressedValue>& values) {
    int code = SQLITE_OK;
    for (const AddressedValue& entry : values) {
        if (code != SQLITE_OK && code != SQLITE_DONE) {
            return code;
        }
        code = writeOne(entry);
    }
    return code == SQLITE_OK || code == SQLITE_DONE ? execute("COMMIT") : code;
}

RegistryFile::Result RegistryFile::end(int code) {
    if (code != SQLITE_OK && sqlite3_get_autocommit(database_) == 0) {
        execute("ROLLBACK");
    }
    opened_ = identity();
    const Result result = resultOf(code);
    if (result != Result::Done) {
        close();  // a failed open keeps no stale handle, and the next try starts afresh
    }
    return result;
}

RegistryFile::Result RegistryFile::write(const std::vector<AddressedValue>& values) {
    if (!open(true)) {
        return Result::Failed;
    }
    const int code = begin();
    return end(code == SQLITE_OK ? writeAll(values) : code);
}

RegistryFile::Result RegistryFile::rewrite(const Change& change) {
    if (!open(true)) {
        return Result::Failed;
    }
    int code = begin();
    RegistryTable stored;
    if (code == SQLITE_OK) {
        code = readAll(stored);
    }
    return end(code == SQLITE_DONE ? writeAll(change(stored)) : code);
}

void RegistryFile::moveAside() {
    const bool movedByOthers = isReplaced();
    close();
    if (movedByOthers) {
        return;
    }
    const QString stamp = QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss"));
    const QString base = path_ + QStringLiteral(".damaged-") + stamp;
    QString kept = base;
    for (int number = 2; QFileInfo::exists(kept); ++number) {
        kept = base + u'-' + QString::number(number);
    }
    const QString journal = QStringLiteral("-journal");
    if (QFile::rename(path_, kept)) {
        QFile::rename(path_ + journal, kept + journal);
    }
}

}  // namespace velorama
