#include "imaging/cache/thumbnail_file.h"

#include "platform/files/private_files.h"
#include "platform/store/sqlite_statement.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>

namespace velorama {
namespace {

/// Whoever holds the file longer costs this process a thumbnail made anew, no more.
constexpr int busyMilliseconds = 200;
constexpr std::chrono::seconds retryDelay{1};

/// Says that a file is ours ("Velo"), and what it holds. To be raised with every change of the
/// table, of the packing, of decoding or of scaling that moves a pixel.
constexpr qint64 applicationId = 0x56656c6f;
constexpr qint64 version = 3;

/// Thumbnails of a folder are written one after the other and are read so.
constexpr const char* table =
    "CREATE TABLE IF NOT EXISTS thumbnail (id INTEGER PRIMARY KEY, key INTEGER NOT NULL UNIQUE,"
    " path BLOB NOT NULL, cell INTEGER NOT NULL, size INTEGER NOT NULL,"
    " modified INTEGER NOT NULL, changed INTEGER NOT NULL, inode INTEGER NOT NULL,"
    " used INTEGER NOT NULL, pixels BLOB NOT NULL);"
    "CREATE INDEX IF NOT EXISTS thumbnail_used ON thumbnail (used)";

/// Of a page: two or three thumbnails, which then lie in one piece.
constexpr const char* form =
    "PRAGMA page_size = 16384; PRAGMA auto_vacuum = INCREMENTAL;"
    "PRAGMA journal_mode = WAL";

/// For each connection. What is lost with the power is a thumbnail; overwriting what is removed
/// would cost a write of its size, and what remains tells as much.
constexpr const char* habits =
    "PRAGMA synchronous = NORMAL; PRAGMA secure_delete = OFF; PRAGMA wal_autocheckpoint = 256;"
    " PRAGMA journal_size_limit = 4194304";

/// What the journal and a transaction that is not shrunk yet may take: the library takes the
/// journal over into the file once it has 4 MB, and one transaction comes on top.
constexpr qint64 journalBytes = 24LL * 1024 * 1024;

bool isDamage(int code) {
    const int kind = code & 0xFF;
    return kind == SQLITE_NOTADB || kind == SQLITE_CORRUPT;
}

/// Code of the step, and how many tables and indices there are.
std::pair<int, qint64> countTables(sqlite3* database) {
    Statement query(database, "SELECT count(*) FROM sqlite_master");
    const int code = query.step();
    return {code, code == SQLITE_ROW ? query.number(0) : 0};
}

void rollBack(sqlite3* database) {
    if (sqlite3_get_autocommit(database) == 0) {
        sqlite3_exec(database, "ROLLBACK", nullptr, nullptr, nullptr);
    }
}

void bindFile(Statement& statement, const FileStamp& file, int cell) {
    statement.number(1, ThumbnailFile::keyOf(file.path, cell)).blob(2, file.path).number(3, cell);
    statement.number(4, file.size).number(5, file.modified).number(6, file.changed);
    statement.number(7, file.inode);
}

bool stands(const QByteArray& name, mode_t kind) {
    struct stat state = {};
    return ::lstat(name.constData(), &state) == 0 && (state.st_mode & S_IFMT) == kind;
}

std::pair<std::uint64_t, std::uint64_t> identityOf(const QByteArray& name) {
    struct stat state = {};
    return ::lstat(name.constData(), &state) == 0 ? std::pair(state.st_dev, state.st_ino)
                                                  : std::pair<std::uint64_t, std::uint64_t>();
}

/// The library would make it with everybody's rights. What it makes itself has the file's.
void makeFile(const QByteArray& name) {
    const int made = ::open(name.constData(), O_CREAT | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR);
    if (made >= 0) {
        ::close(made);
    }
}

/// The file and what the library keeps beside it. A link is renamed itself, and what it points to
/// stays as it is.
void moveAside(const QByteArray& name) {
    for (const QByteArray part : {"", "-wal", "-shm"}) {
        const QByteArray from = name + part;
        const QByteArray to = name + ".damaged" + part;
        ::rename(from.constData(), to.constData());
    }
}

void remove(const QByteArray& name) {
    for (const QByteArray part : {"", "-wal", "-shm"}) {
        const QByteArray gone = name + part;
        ::unlink(gone.constData());
    }
}

}  // namespace

ThumbnailFile::ThumbnailFile(const QString& path) : path_(path) {
    makeFolder();
    open(busyMilliseconds);
}

void ThumbnailFile::makeFolder() const {
    const QString folder = QFileInfo(path_).absolutePath();
    makePrivateFolder(folder);
    closeToOthers(folder);
}

ThumbnailFile::~ThumbnailFile() {
    close();
}

void ThumbnailFile::close() {
    sqlite3_close_v2(database_);
    database_ = nullptr;
}

void ThumbnailFile::open(int patience) {
    retry_.reset();
    State found = tryToOpen(patience);
    if (found == State::Outdated || found == State::Foreign) {
        close();
        const QByteArray name = QFile::encodeName(path_);
        found == State::Outdated ? remove(name) : moveAside(name);
        found = tryToOpen(patience);
    }
    if (found == State::Busy) {
        retry_ = std::chrono::steady_clock::now() + retryDelay;
    }
    if (found != State::Usable) {
        close();
    }
}

ThumbnailFile::State ThumbnailFile::tryToOpen(int patience) {
    const QByteArray name = QFile::encodeName(path_);
    makeFile(name);
    if (!stands(name, S_IFREG)) {
        return State::Foreign;
    }
    closeToOthers(path_);
    if (sqlite3_open_v2(name.constData(), &database_, SQLITE_OPEN_READWRITE, nullptr) !=
        SQLITE_OK) {
        return State::Unusable;
    }
    sqlite3_busy_timeout(database_, patience);
    opened_ = identityOf(name);
    const State state = prepare();
    if (state == State::Usable) {
        execute(habits);
        sqlite3_busy_timeout(database_, busyMilliseconds);
    }
    return state;
}

/// Somebody has emptied the folder, or another has found the file damaged.
bool ThumbnailFile::isReady() {
    if (database_ != nullptr && identityOf(QFile::encodeName(path_)) != opened_) {
        close();
        makeFolder();
        open(busyMilliseconds);
    } else if (database_ == nullptr && retry_ && std::chrono::steady_clock::now() >= *retry_) {
        // The window may be the one that asks.
        open(0);
    }
    return isOpen();
}

ThumbnailFile::State ThumbnailFile::prepare() {
    const auto [code, tables] = countTables(database_);
    if (code != SQLITE_ROW) {
        return failure();
    }
    if (tables == 0) {
        return create();
    }
    const std::optional<qint64> application = ask("PRAGMA application_id");
    if (application != applicationId) {
        return application ? State::Foreign : failure();
    }
    const std::optional<qint64> itsVersion = ask("PRAGMA user_version");
    if (itsVersion != version) {
        return itsVersion ? State::Outdated : failure();
    }
    return State::Usable;
}

/// What the file is by the last step, which has failed.
ThumbnailFile::State ThumbnailFile::failure() const {
    const int code = sqlite3_errcode(database_);
    return isDamage(code)                 ? State::Foreign
           : (code & 0xFF) == SQLITE_BUSY ? State::Busy
                                          : State::Unusable;
}

/// Another process may be doing the same.
ThumbnailFile::State ThumbnailFile::create() {
    // After a full disk the library may take the same file, which is empty yet, for a damaged one.
    if (!execute(form) && failure() != State::Busy) {
        return failure();
    }
    const QByteArray make = QByteArrayLiteral("BEGIN IMMEDIATE;") + table +
                            ";PRAGMA application_id = " + QByteArray::number(applicationId) +
                            ";PRAGMA user_version = " + QByteArray::number(version) + ";COMMIT";
    if (execute(make.constData())) {
        return State::Usable;
    }
    const State state = failure();
    rollBack(database_);
    return state;
}

bool ThumbnailFile::succeeds(int code) {
    if (isDamage(code)) {
        const QByteArray name = QFile::encodeName(path_);
        // Another may have found it so before, and begun anew.
        const bool isOpened = identityOf(name) == opened_;
        close();
        if (isOpened) {
            moveAside(name);
        }
        open(busyMilliseconds);
    }
    return code == SQLITE_OK || code == SQLITE_DONE || code == SQLITE_ROW;
}

bool ThumbnailFile::execute(const char* sql) {
    return sqlite3_exec(database_, sql, nullptr, nullptr, nullptr) == SQLITE_OK;
}

std::optional<qint64> ThumbnailFile::ask(const char* sql) {
    Statement query(database_, sql);
    return query.step() == SQLITE_ROW ? std::optional(query.number(0)) : std::nullopt;
}

qint64 ThumbnailFile::keyOf(const QByteArray& path, int cell) {
    const QByteArray name = path + '\0' + QByteArray::number(cell);
    return qFromLittleEndian<qint64>(
        QCryptographicHash::hash(name, QCryptographicHash::Md5).constData());
}

std::optional<StoredThumbnail> ThumbnailFile::find(const FileStamp& file, int cell) {
    if (!isReady()) {
        return {};
    }
    int code = SQLITE_OK;
    {
        Statement query(database_,
                        "SELECT used, pixels FROM thumbnail WHERE key = ?1"
                        " AND path = ?2 AND cell = ?3 AND size = ?4 AND modified = ?5"
                        " AND changed = ?6 AND inode = ?7");
        bindFile(query, file, cell);
        code = query.step();
        if (code == SQLITE_ROW) {
            return StoredThumbnail{file, cell, query.bytes(1), query.number(0)};
        }
    }
    succeeds(code);
    return {};
}

template <typename Step, typename Items>
bool ThumbnailFile::inTransaction(const Step& step, const Items& items) {
    if (!isReady() || items.empty()) {
        return false;
    }
    Statement begin(database_, "BEGIN IMMEDIATE");
    int code = begin.step();
    for (auto item = items.begin(); item != items.end() && code == SQLITE_DONE; ++item) {
        code = step(*item);
    }
    if (code == SQLITE_DONE) {
        Statement commit(database_, "COMMIT");
        code = commit.step();
    }
    rollBack(database_);
    return succeeds(code);
}

bool ThumbnailFile::write(const std::vector<StoredThumbnail>& thumbnails) {
    return inTransaction([&](const StoredThumbnail& thumbnail) { return writeOne(thumbnail); },
                         thumbnails);
}

int ThumbnailFile::writeOne(const StoredThumbnail& thumbnail) {
    Statement insertion(database_,
                        "INSERT OR REPLACE INTO thumbnail (key, path, cell, size, modified,"
                        " changed, inode, used, pixels) VALUES"
                        " (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9)");
    bindFile(insertion, thumbnail.file, thumbnail.cell);
    insertion.number(8, thumbnail.used).blob(9, thumbnail.pixels);
    return insertion.step();
}

bool ThumbnailFile::markUsed(const std::vector<qint64>& keys, qint64 day) {
    return inTransaction(
        [&](qint64 key) {
            Statement update(database_, "UPDATE thumbnail SET used = ?2 WHERE key = ?1");
            return update.number(1, key).number(2, day).step();
        },
        keys);
}

qint64 ThumbnailFile::bytes() {
    return (ask("PRAGMA page_count").value_or(0) - ask("PRAGMA freelist_count").value_or(0)) *
           ask("PRAGMA page_size").value_or(0);
}

void ThumbnailFile::shrink(qint64 most) {
    // A small cache is all journal, and as much is granted to it.
    const qint64 goal = most - std::min(journalBytes, most / 2);
    for (qint64 before = 0, now = isOpen() ? bytes() : 0; now > goal && now != before;) {
        before = now;
        // In small steps, since each is a transaction in the journal.
        execute(
            "DELETE FROM thumbnail WHERE id IN (SELECT id FROM thumbnail ORDER BY used, id"
            " LIMIT max(1, (SELECT count(*) FROM thumbnail) / 64))");
        execute("PRAGMA incremental_vacuum");
        now = bytes();
    }
}

}  // namespace velorama
