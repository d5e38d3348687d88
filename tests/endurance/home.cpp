#include "endurance/home.h"

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QRegularExpression>

#include <sqlite3.h>

#include <filesystem>
#include <memory>

namespace velorama::endurance {
namespace {

namespace fs = std::filesystem;

constexpr int pictureCount = 12;
constexpr int busyMilliseconds = 10'000;

using Database = std::unique_ptr<sqlite3, decltype(&sqlite3_close)>;
using Rows = std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)>;

fs::path native(const QString& path) {
    return fs::path(path.toStdString());
}

Database open(const QString& file, int flags) {
    sqlite3* handle = nullptr;
    sqlite3_open_v2(file.toUtf8().constData(), &handle, flags, nullptr);
    sqlite3_busy_timeout(handle, busyMilliseconds);
    return {handle, &sqlite3_close};
}

Rows query(const Database& database, const char* sql) {
    sqlite3_stmt* handle = nullptr;
    sqlite3_prepare_v2(database.get(), sql, -1, &handle, nullptr);
    return {handle, &sqlite3_finalize};
}

QByteArray column(const Rows& rows, int number) {
    const void* bytes = sqlite3_column_blob(rows.get(), number);
    const int size = sqlite3_column_bytes(rows.get(), number);
    return bytes == nullptr ? QByteArray() : QByteArray(static_cast<const char*>(bytes), size);
}

bool isWhole(const Database& database) {
    const Rows told = query(database, "PRAGMA integrity_check");
    return sqlite3_step(told.get()) == SQLITE_ROW && column(told, 0) == "ok";
}

bool hasTable(const Database& database, const char* name) {
    const Rows found = query(database, "SELECT 1 FROM sqlite_master WHERE name = ?");
    sqlite3_bind_text(found.get(), 1, name, -1, SQLITE_STATIC);
    return sqlite3_step(found.get()) == SQLITE_ROW;
}

void readSettings(const Database& database, State& state) {
    const Rows rows = query(database, "SELECT hive, key, name, type, data FROM registry");
    while (sqlite3_step(rows.get()) == SQLITE_ROW) {
        const QByteArray name = column(rows, 0) + '|' + column(rows, 1) + '|' + column(rows, 2);
        state.rows[QString::fromUtf8(name)] = column(rows, 3) + '|' + column(rows, 4);
    }
}

void readThumbnails(const Database& database, State& state) {
    const Rows rows = query(database, "SELECT path, cell, pixels FROM thumbnail");
    while (sqlite3_step(rows.get()) == SQLITE_ROW) {
        const QByteArray name = column(rows, 0) + '|' + column(rows, 1);
        state.thumbnails[QString::fromUtf8(name)] =
            QCryptographicHash::hash(column(rows, 2), QCryptographicHash::Md5);
    }
}

/// Opening plays back what a killed process has left in a journal.
void readDatabase(const QString& file, const QString& name, State& state) {
    const Database database = open(file, SQLITE_OPEN_READWRITE);
    if (!isWhole(database)) {
        state.broken.append(name);
        return;
    }
    if (hasTable(database, "registry")) {
        readSettings(database, state);
    }
    if (hasTable(database, "thumbnail")) {
        readThumbnails(database, state);
    }
}

bool isJournal(const QString& name) {
    return name.endsWith(QLatin1String("-journal")) || name.endsWith(QLatin1String("-wal")) ||
           name.endsWith(QLatin1String("-shm"));
}

/// Names that last no longer than the write that they are made for.
bool isUnfinished(const QString& name) {
    static const QRegularExpression names(QStringLiteral("(^|/)\\.velorama-[0-9a-z]+$"));
    return names.match(name).hasMatch();
}

QByteArray bytesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void putFile(const QString& path, const QByteArray& bytes) {
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
        qFatal("cannot write %s", qPrintable(path));
    }
}

QString keptFolder(const QString& home) {
    return home + QStringLiteral(".kept");
}

void copyFolder(const QString& from, const QString& to) {
    fs::remove_all(native(to));
    fs::copy(native(from), native(to), fs::copy_options::recursive);
}

}  // namespace

Home::Home(const QString& place) : place_(place) {
    QDir().mkpath(pictures());
    for (int i = 1; i <= pictureCount; ++i) {
        QImage picture(40 + i, 30, QImage::Format_RGB32);
        picture.fill(QColor::fromHsv(i * 29, 200, 200));
        const QString path = pictures() + QStringLiteral("/%1.%2")
                                              .arg(i, 2, 10, QLatin1Char('0'))
                                              .arg(QLatin1String(i % 3 == 0 ? "bmp" : "jpg"));
        if (!picture.save(path)) {
            qFatal("cannot write %s", qPrintable(path));
        }
        pictureFiles_.append(path);
    }
    QDir().mkpath(documents());
    QDir().mkpath(path() + QStringLiteral("/runtime"));
    putFile(path() + QStringLiteral("/config/user-dirs.dirs"),
            "XDG_DOCUMENTS_DIR=\"$HOME/Documents\"\n");
    const QByteArray two = (pictureFiles_.at(1) + QStringLiteral("\r\n") + pictureFiles_.at(0) +
                            QStringLiteral("\r\n\r\n"))
                               .toUtf8();
    putFile(album(), "2|Our note \r\n" + two);
    putFile(smallAlbum(), "2\r\n" + two);
}

QMap<QString, QString> Home::names() const {
    return {{QStringLiteral("HOME"), path()},
            {QStringLiteral("XDG_CONFIG_HOME"), path() + QStringLiteral("/config")},
            {QStringLiteral("XDG_DATA_HOME"), path() + QStringLiteral("/data")},
            {QStringLiteral("XDG_CACHE_HOME"), path() + QStringLiteral("/cache")},
            {QStringLiteral("XDG_RUNTIME_DIR"), path() + QStringLiteral("/runtime")}};
}

QProcessEnvironment Home::environment() const {
    QProcessEnvironment environment;
    for (const char* kept : {"PATH", "TMPDIR", "LD_LIBRARY_PATH"}) {
        if (qEnvironmentVariableIsSet(kept)) {
            environment.insert(QLatin1String(kept), qEnvironmentVariable(kept));
        }
    }
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    const QMap<QString, QString> all = names();
    for (auto name = all.begin(); name != all.end(); ++name) {
        environment.insert(name.key(), name.value());
    }
    return environment;
}

void Home::keep() {
    // Opened once and closed, so that no journal is copied in the midst.
    thumbnails_ = state().thumbnails;
    copyFolder(path(), keptFolder(path()));
}

void Home::restore() const {
    copyFolder(keptFolder(path()), path());
}

QStringList Home::wrongThumbnails(const State& found) const {
    QStringList wrong;
    for (auto one = found.thumbnails.begin(); one != found.thumbnails.end(); ++one) {
        if (thumbnails_.value(one.key()) != one.value()) {
            wrong.append(one.key());
        }
    }
    return wrong;
}

State Home::state() const {
    State state;
    QDirIterator walk(path(), QDir::Files | QDir::Hidden | QDir::System,
                      QDirIterator::Subdirectories);
    QStringList databases;
    while (walk.hasNext()) {
        const QString file = walk.next();
        const QString name = QDir(path()).relativeFilePath(file);
        if (name.startsWith(QLatin1String("runtime/")) || isJournal(name)) {
            continue;
        }
        if (name.endsWith(QLatin1String(".sqlite"))) {
            databases.append(file);
        } else if (isUnfinished(name)) {
            state.unfinished.append(name);
        } else {
            state.files[name] = bytesOf(file);
        }
    }
    for (const QString& file : databases) {
        readDatabase(file, QDir(path()).relativeFilePath(file), state);
    }
    return state;
}

bool putSetting(const QString& file, const QString& key, const QString& name, const QString& text) {
    QDir().mkpath(QFileInfo(file).path());
    const Database database = open(file, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    sqlite3_exec(database.get(),
                 "CREATE TABLE IF NOT EXISTS registry(hive TEXT, key TEXT, name TEXT,"
                 " type INTEGER, data)",
                 nullptr, nullptr, nullptr);
    const Rows row = query(database, "INSERT INTO registry VALUES('HKCU', ?, ?, 1, ?)");
    const QString whole = QStringLiteral("SOFTWARE\\Brightquay\\Velorama\\") + key;
    int column = 0;
    for (const QString& value : {whole, name, text}) {
        const QByteArray utf8 = value.toUtf8();
        sqlite3_bind_text(row.get(), ++column, utf8.constData(), static_cast<int>(utf8.size()),
                          SQLITE_TRANSIENT);
    }
    return sqlite3_step(row.get()) == SQLITE_DONE;
}

bool runSql(const QString& file, const char* statement) {
    const Database database = open(file, SQLITE_OPEN_READWRITE);
    return sqlite3_exec(database.get(), statement, nullptr, nullptr, nullptr) == SQLITE_OK;
}

namespace {

using Values = QMap<QString, QByteArray>;

bool isSame(const Values& all, const Values& found, const QString& name) {
    return all.contains(name) == found.contains(name) && all.value(name) == found.value(name);
}

QString told(const QString& name, const Values& found) {
    return name + (found.contains(name) ? u" holds " + QString::fromUtf8(found.value(name).left(60))
                                        : QString(QStringLiteral(" is gone")));
}

void compare(const Values& before, const Values& after, const Values& found, const Between& between,
             QStringList& strange) {
    Values names = before;
    names.insert(after);
    names.insert(found);
    for (auto name = names.keyBegin(); name != names.keyEnd(); ++name) {
        const bool isBetween = between && found.contains(*name) && between(*name, found[*name]);
        if (!isSame(before, found, *name) && !isSame(after, found, *name) && !isBetween) {
            strange.append(told(*name, found));
        }
    }
}

}  // namespace

QStringList neitherOldNorNew(const State& before, const State& after, const State& found,
                             const Between& between) {
    QStringList strange = found.broken;
    compare(before.files, after.files, found.files, {}, strange);
    compare(before.rows, after.rows, found.rows, between, strange);
    return strange;
}

QStringList differences(const State& wanted, const State& found) {
    return neitherOldNorNew(wanted, wanted, found);
}

}  // namespace velorama::endurance
