#include "platform/store/sqlite_registry_store.h"

#include "support/test_world.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <memory>
#include <random>
#include <string>
#include <thread>

#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace velorama {
namespace {

const QString key = QStringLiteral("SOFTWARE\\Brightquay\\Velorama\\frmSLIDESHOW\\Selection");
const QString systemKey = QStringLiteral("SOFTWARE\\MICROSOFT\\WINDOWS NT\\CURRENTVERSION");
const QString versionName = QStringLiteral("CurrentVersion");
constexpr int patience = 20000;  // milliseconds until another thread must have come round

RegistryValue text(const QByteArray& data) {
    return {ValueType::Text, data};
}

QString number(int n) {
    return QString::number(n);
}

bool save(SqliteRegistryStore& store, const QString& name, const QByteArray& data) {
    return store.setValue(Hive::CurrentUser, key, name, text(data));
}

QByteArray load(const SqliteRegistryStore& store, const QString& name) {
    const auto value = store.value(Hive::CurrentUser, key, name);
    return value ? value->data : QByteArray("(none)");
}

/// Runs SQL on the file as the sqlite3 tool would; the first column of the last row comes back.
QByteArray sql(const QString& file, const QByteArray& statements) {
    QByteArray last;
    sqlite3* database = nullptr;
    EXPECT_EQ(sqlite3_open(file.toUtf8().constData(), &database), SQLITE_OK);
    sqlite3_busy_timeout(database, patience);
    char* error = nullptr;
    const auto take = [](void* target, int, char** columns, char**) {
        *static_cast<QByteArray*>(target) = columns[0] != nullptr ? columns[0] : "(null)";
        return 0;
    };
    EXPECT_EQ(sqlite3_exec(database, statements.constData(), take, &last, &error), SQLITE_OK)
        << (error != nullptr ? error : "");
    sqlite3_free(error);
    sqlite3_close(database);
    return last;
}

const QByteArray createTable =
    "CREATE TABLE registry(hive TEXT, key TEXT, name TEXT, type INTEGER, data);";

/// Writes value after value until it is killed, and tells on its standard output which generation
/// is on disk.
[[noreturn]] void writeUntilKilled(const QString& file) {
    int argc = 0;
    const QCoreApplication app(argc, nullptr);
    SqliteRegistryStore store(file);
    for (int generation = 1;; ++generation) {
        for (int i = 1; i <= 20; ++i) {
            save(store, number(i), QByteArray::number(generation));
        }
        store.flush();
        const ssize_t written = ::write(STDOUT_FILENO, &generation, sizeof generation);
        if (written != static_cast<ssize_t>(sizeof generation)) {
            std::_Exit(1);
        }
    }
}

/// The test program is its own victim: started with this variable it never gets to `main`.
constexpr const char* victimVariable = "VELORAMA_TEST_STORE_VICTIM";
const bool isVictim = [] {
    if (const char* file = std::getenv(victimVariable)) {
        writeUntilKilled(QString::fromUtf8(file));
    }
    return false;
}();

class SqliteStore : public testing::Test {
protected:
    void SetUp() override {
        folder = test::temporaryFolder();
        file = folder + QStringLiteral("/velorama/registry.sqlite");
    }
    QStringList damagedFiles() const {
        return QFileInfo(file).dir().entryList({QStringLiteral("registry.sqlite.damaged-*")},
                                               QDir::Files);
    }
    void putFile(const QByteArray& content) const {
        ASSERT_TRUE(QDir().mkpath(QFileInfo(file).path()));
        QFile target(file);
        ASSERT_TRUE(target.open(QIODevice::WriteOnly));
        ASSERT_EQ(target.write(content), content.size());
    }
    void runSql(const QByteArray& statements) const {
        ASSERT_TRUE(QDir().mkpath(QFileInfo(file).path()));
        sql(file, statements);
    }
    QString folder;
    QString file;
};

TEST_F(SqliteStore, ReadingCreatesNoFile) {
    {
        SqliteRegistryStore store(file);
        EXPECT_EQ(load(store, number(1)), "(none)");
        store.flush();
    }
    EXPECT_TRUE(QDir(folder).isEmpty());
}

TEST_F(SqliteStore, SeveralValuesAreKeptAsOneByOne) {
    {
        SqliteRegistryStore store(file);
        save(store, number(2), "old");
        const QString otherSpelling = u'\\' + key.toLower() + u'\\';
        EXPECT_TRUE(store.setValues(Hive::CurrentUser, otherSpelling,
                                    {{number(1), text("one")},
                                     {number(2), text("two")},
                                     {number(3), text("")},
                                     {number(1), text("last")}}));
        EXPECT_EQ(load(store, number(2)), "two");
        EXPECT_FALSE(store.setValues(static_cast<Hive>(7), key, {{number(1), text("x")}}));
        EXPECT_TRUE(store.setValues(Hive::CurrentUser, key + QStringLiteral("\\None"), {}));
    }
    SqliteRegistryStore again(file);
    EXPECT_EQ(load(again, number(1)), "last");
    EXPECT_EQ(load(again, number(2)), "two");
    EXPECT_EQ(load(again, number(3)), "");
    EXPECT_EQ(sql(file, "SELECT count(*) FROM registry WHERE key LIKE '%None%'"), "0");
    EXPECT_EQ(sql(file, "SELECT count(*) FROM registry WHERE name = '1'"), "1");
}

/// The rights of a file or folder, in octal.
QByteArray modeOf(const QString& path) {
    struct stat state = {};
    EXPECT_EQ(::stat(QFile::encodeName(path).constData(), &state), 0) << path.toStdString();
    return QByteArray::number(state.st_mode & 0777U, 8);
}

void setMode(const QString& path, mode_t mode) {
    ASSERT_EQ(::chmod(QFile::encodeName(path).constData(), mode), 0) << path.toStdString();
}

TEST_F(SqliteStore, IsTheUsersAlone) {
    const mode_t before = ::umask(0);
    {
        SqliteRegistryStore store(file);
        save(store, number(1), "/pics/a.jpg");
        store.flush();
    }
    ::umask(before);
    EXPECT_EQ(modeOf(QFileInfo(file).path()), "700");
    EXPECT_EQ(modeOf(file), "600");
    EXPECT_NE(modeOf(folder), "700");
}

TEST_F(SqliteStore, OfAnOlderRunIsTakenFromTheEyesOfOthers) {
    runSql(createTable);
    const QString place = QFileInfo(file).path();
    const QStringList files = {file, file + QStringLiteral(".damaged-20260102-030405"),
                               file + QStringLiteral("-journal"), file + QStringLiteral("-wal")};
    for (const QString& one : files) {
        ASSERT_TRUE(QFile(one).open(QIODevice::Append));
        setMode(one, 0664);
    }
    const QString users = place + QStringLiteral("/drives");
    ASSERT_TRUE(QFile(users).open(QIODevice::WriteOnly));
    setMode(users, 0644);
    setMode(place, 0755);
    const SqliteRegistryStore store(file);
    EXPECT_EQ(modeOf(place), "700");
    // The journal of nothing goes when the file is opened.
    for (const QString& one : files) {
        EXPECT_TRUE(!QFile::exists(one) || modeOf(one) == "600") << one.toStdString();
    }
    EXPECT_EQ(modeOf(users), "644");
}

TEST_F(SqliteStore, OnlyTakesRightsAndGivesNone) {
    runSql(createTable);
    const QString place = QFileInfo(file).path();
    setMode(file, 0444);
    setMode(place, 0555);
    { const SqliteRegistryStore store(file); }
    EXPECT_EQ(modeOf(file), "400");
    EXPECT_EQ(modeOf(place), "500");
    setMode(place, 0700);
}

// A folder that everybody works in is not the store's own.
TEST_F(SqliteStore, LeavesACommonFolderAsItIs) {
    runSql(createTable);
    const QString place = QFileInfo(file).path();
    setMode(place, 01777);
    { const SqliteRegistryStore store(file); }
    EXPECT_EQ(modeOf(place), "777");
}

TEST_F(SqliteStore, WorksBehindLinksAndLeavesTheRightsThere) {
    const QString elsewhere = test::temporaryFolder();
    const QString place = QFileInfo(file).path();
    ASSERT_TRUE(QFile::link(elsewhere, place));
    sql(file, createTable);
    ASSERT_TRUE(QFile::rename(file, folder + QStringLiteral("/kept.sqlite")));
    ASSERT_TRUE(QFile::link(folder + QStringLiteral("/kept.sqlite"), file));
    setMode(elsewhere, 0755);
    setMode(file, 0644);
    {
        SqliteRegistryStore store(file);
        save(store, number(1), "x");
    }
    EXPECT_EQ(sql(folder + QStringLiteral("/kept.sqlite"), "SELECT data FROM registry"), "x");
    EXPECT_EQ(modeOf(elsewhere), "755");
    EXPECT_EQ(modeOf(file), "644");
}

TEST_F(SqliteStore, ALinkToNowhereGetsNoFile) {
    const QString nowhere = test::temporaryFolder() + QStringLiteral("/none.sqlite");
    ASSERT_TRUE(QDir().mkpath(QFileInfo(file).path()));
    ASSERT_TRUE(QFile::link(nowhere, file));
    SqliteRegistryStore store(file);
    save(store, number(1), "x");
    store.flush();
    EXPECT_FALSE(QFile::exists(nowhere));
    EXPECT_EQ(load(store, number(1)), "x");
}

TEST_F(SqliteStore, HoldsEveryTypeOverTheEndOfTheProgram) {
    const RegistryValue expandable = {ValueType::ExpandableText, "%HOME%/\xC3\xA4"};
    const RegistryValue count = {ValueType::Number, "42"};
    {
        SqliteRegistryStore store(file);
        save(store, number(1), "/pics/a.jpg");
        save(store, number(2), "");
        store.setValue(Hive::ClassesRoot, QStringLiteral(".vlr"), QString(), expandable);
        store.setValue(Hive::CurrentUser, key, QStringLiteral("Count"), count);
    }
    SqliteRegistryStore store(file);
    EXPECT_EQ(load(store, number(1)), "/pics/a.jpg");
    EXPECT_EQ(load(store, number(2)), "");
    EXPECT_EQ(store.value(Hive::ClassesRoot, QStringLiteral(".VLR"), QString()), expandable);
    EXPECT_EQ(store.value(Hive::CurrentUser, key, QStringLiteral("count")), count);
}

TEST_F(SqliteStore, AByteOrderMarkIsALetterOfKeyAndName) {
    const QString mark = QStringLiteral("\uFEFF");
    {
        SqliteRegistryStore store(file);
        store.setValue(Hive::CurrentUser, mark + key, mark + number(1), text("marked"));
        save(store, number(1), "plain");
    }
    SqliteRegistryStore store(file);
    EXPECT_EQ(store.value(Hive::CurrentUser, mark + key, mark + number(1)), text("marked"));
    EXPECT_EQ(store.value(Hive::CurrentUser, key, number(1)), text("plain"));
}

TEST_F(SqliteStore, TheTableIsPlain) {
    {
        SqliteRegistryStore store(file);
        save(store, number(1), "text");
        store.setValue(Hive::CurrentUser, key, number(2), {ValueType::Number, "7"});
    }
    EXPECT_EQ(sql(file, "SELECT sql FROM sqlite_master WHERE name = 'registry'"),
              "CREATE TABLE registry(hive TEXT, key TEXT, name TEXT, type INTEGER, data)");
    EXPECT_EQ(sql(file,
                  "SELECT hive||'|'||name||'|'||type||'|'||data||'|'||typeof(data)"
                  " FROM registry WHERE name = '1'"),
              "HKCU|1|1|text|text");
    EXPECT_EQ(sql(file, "SELECT type||'|'||data||'|'||typeof(data) FROM registry WHERE name = '2'"),
              "4|7|integer");
    EXPECT_EQ(sql(file, "PRAGMA journal_mode"), "delete");
}

TEST_F(SqliteStore, AChangeOfOneValueKeepsOneRow) {
    SqliteRegistryStore store(file);
    for (int i = 0; i < 5; ++i) {
        save(store, number(1), QByteArray::number(i));
        store.flush();
    }
    EXPECT_EQ(sql(file, "SELECT count(*) FROM registry WHERE name = '1'"), "1");
    EXPECT_EQ(sql(file, "SELECT data FROM registry WHERE name = '1'"), "4");
}

TEST_F(SqliteStore, ARemovedValueIsGoneFromTheFileToo) {
    SqliteRegistryStore store(file);
    save(store, number(1), "x");
    store.flush();
    EXPECT_TRUE(store.removeValue(Hive::CurrentUser, key, number(1)));
    EXPECT_EQ(load(store, number(1)), "(none)");
    EXPECT_FALSE(store.removeValue(Hive::CurrentUser, key, number(1)));
    store.flush();
    EXPECT_EQ(sql(file, "SELECT count(*) FROM registry WHERE name = '1'"), "0");
}

TEST_F(SqliteStore, AChangeReachesTheDiskWithoutAnyFurtherCall) {
    SqliteRegistryStore store(file);
    save(store, number(1), "x");
    ASSERT_TRUE(QTest::qWaitFor([this] { return QFile::exists(file); }, patience));
    EXPECT_TRUE(QTest::qWaitFor(
        [this] {
            return sql(file, "SELECT count(*) FROM sqlite_master WHERE name = 'registry'") == "1" &&
                   sql(file, "SELECT data FROM registry WHERE name = '1'") == "x";
        },
        patience));
}

TEST_F(SqliteStore, TheSystemVersionIsThereFromTheStart) {
    {
        SqliteRegistryStore store(file);
        EXPECT_EQ(store.value(Hive::LocalMachine, systemKey, versionName), text("6.0"));
        save(store, number(1), "x");
    }
    EXPECT_EQ(sql(file, "SELECT hive||data FROM registry WHERE name = 'CurrentVersion'"),
              "HKLM6.0");
}

TEST_F(SqliteStore, TheSystemVersionJoinsAFileThatHasNone) {
    runSql(createTable);
    {
        SqliteRegistryStore store(file);
        store.flush();
        EXPECT_EQ(sql(file, "SELECT count(*) FROM registry"), "0");
        save(store, number(1), "x");
    }
    EXPECT_EQ(sql(file, "SELECT data FROM registry WHERE name = 'CurrentVersion'"), "6.0");
}

TEST_F(SqliteStore, AVersionSetByHandIsKept) {
    runSql(createTable +
           "INSERT INTO registry VALUES('HKLM', 'SOFTWARE\\MICROSOFT\\WINDOWS NT\\CURRENTVERSION',"
           "'CurrentVersion', 1, '4.0')");
    {
        SqliteRegistryStore store(file);
        EXPECT_EQ(store.value(Hive::LocalMachine, systemKey, versionName), text("4.0"));
        save(store, number(1), "x");
    }
    EXPECT_EQ(sql(file, "SELECT group_concat(data) FROM registry WHERE name = 'CurrentVersion'"),
              "4.0");
}

TEST_F(SqliteStore, RowsByHandMayBeOdd) {
    runSql(createTable +
           "INSERT INTO registry VALUES('hkey_current_user', 'software\\a', 'One', 1, 'first');"
           "INSERT INTO registry VALUES('HKCU', 'SOFTWARE\\A', 'one', 1, 'last');"
           "INSERT INTO registry VALUES('HKCU', 'SOFTWARE\\A', 'integer', 1, 15);"
           "INSERT INTO registry VALUES('HKCU', 'SOFTWARE\\A', 'real', 1, 1.5);"
           "INSERT INTO registry VALUES('HKCU', 'SOFTWARE\\A', 'blob', 1, x'4142');"
           "INSERT INTO registry VALUES('HKCU', 'SOFTWARE\\A', 'nothing', 1, NULL);"
           "INSERT INTO registry(hive, key, name, data) VALUES('HKCU', 'SOFTWARE\\A', 'u', 'v');"
           "INSERT INTO registry VALUES('HKCU', 'SOFTWARE\\A', 'type', 'text', 'v');"
           "INSERT INTO registry VALUES('HKCU', x'FF00FE', x'80', 99999999999, x'FF');"
           "INSERT INTO registry VALUES('HKXX', 'SOFTWARE\\A', 'other', 1, 'x');"
           "INSERT INTO registry VALUES(NULL, NULL, NULL, NULL, NULL);");
    SqliteRegistryStore store(file);
    const auto value = [&store](const char* name) {
        return store.value(Hive::CurrentUser, QStringLiteral("Software\\A"),
                           QString::fromUtf8(name));
    };
    EXPECT_EQ(value("ONE"), text("last"));
    EXPECT_EQ(value("integer"), text("15"));
    EXPECT_EQ(value("real"), text("1.5"));
    EXPECT_EQ(value("blob"), text("AB"));
    EXPECT_EQ(value("nothing"), text(""));
    EXPECT_EQ(value("u"), text("v"));
    ASSERT_TRUE(value("type"));
    EXPECT_NE(value("type")->type, ValueType::Text);
    EXPECT_EQ(value("other"), std::nullopt);

    store.setValue(Hive::CurrentUser, QStringLiteral("SOFTWARE\\A"), QStringLiteral("ONE"),
                   text("new"));
    store.flush();
    EXPECT_EQ(sql(file,
                  "SELECT group_concat(DISTINCT data) FROM registry"
                  " WHERE name = 'one' COLLATE NOCASE"),
              "new");
}

TEST_F(SqliteStore, TakesOverWhatOthersWrite) {
    SqliteRegistryStore store(file);
    save(store, number(1), "mine");
    save(store, number(2), "mine");
    store.flush();
    SqliteRegistryStore other(file);
    EXPECT_EQ(load(other, number(1)), "mine");
    save(other, number(1), "theirs");
    other.removeValue(Hive::CurrentUser, key, number(2));
    save(other, number(3), "new");
    EXPECT_TRUE(QTest::qWaitFor(
        [&store] {
            return load(store, number(1)) == "theirs" && load(store, number(2)) == "(none)" &&
                   load(store, number(3)) == "new";
        },
        patience));
}

TEST_F(SqliteStore, SeesWhatToolsWriteWithOtherJournals) {
    runSql(createTable);
    SqliteRegistryStore store(file);
    // A write-ahead log stays once it is there, also for the next who writes.
    for (const QByteArray mode :
         {"delete", "truncate", "persist", "memory", "off", "wal", "wal -- again"}) {
        sql(file, "PRAGMA journal_mode=" + mode + "\n; INSERT INTO registry VALUES('HKCU', '" +
                      key.toUtf8() + "', '" + mode + "', 1, 'theirs')");
        EXPECT_TRUE(QTest::qWaitFor(
            [&] { return load(store, QString::fromLatin1(mode)) == "theirs"; }, patience))
            << mode.toStdString();
    }
}

TEST_F(SqliteStore, SeesWhatIsWrittenBehindALink) {
    const QString real = test::temporaryFolder() + QStringLiteral("/real.sqlite");
    sql(real, createTable);
    ASSERT_TRUE(QDir().mkpath(QFileInfo(file).path()));
    ASSERT_TRUE(QFile::link(real, file));
    SqliteRegistryStore store(file);
    for (const QByteArray& data : {QByteArray("one"), QByteArray("two")}) {
        sql(real,
            "INSERT INTO registry VALUES('HKCU', '" + key.toUtf8() + "', '1', 1, '" + data + "')");
        EXPECT_TRUE(QTest::qWaitFor([&] { return load(store, number(1)) == data; }, patience));
    }
}

TEST_F(SqliteStore, TakesOverAFileInThePlaceOfTheOneBefore) {
    SqliteRegistryStore store(file);
    save(store, number(1), "ours");
    store.flush();
    for (const QByteArray& data : {QByteArray("one"), QByteArray("two")}) {
        const QString fresh = folder + QStringLiteral("/fresh.sqlite");
        sql(fresh, createTable + "INSERT INTO registry VALUES('HKCU', '" + key.toUtf8() +
                       "', '1', 1, '" + data + "')");
        ASSERT_EQ(::rename(fresh.toUtf8().constData(), file.toUtf8().constData()), 0);
        EXPECT_TRUE(QTest::qWaitFor([&] { return load(store, number(1)) == data; }, patience));
    }
}

TEST_F(SqliteStore, TakesOverAFileThatComesLater) {
    SqliteRegistryStore store(file);
    SqliteRegistryStore other(file);
    save(other, number(1), "theirs");
    EXPECT_TRUE(QTest::qWaitFor([&store] { return load(store, number(1)) == "theirs"; }, patience));
}

TEST_F(SqliteStore, TwoWritersLoseNothing) {
    {
        SqliteRegistryStore one(file);
        SqliteRegistryStore two(file);
        for (int round = 0; round < 20; ++round) {
            save(one, QStringLiteral("one%1").arg(round), "1");
            save(two, QStringLiteral("two%1").arg(round), "2");
            one.flush();
            two.flush();
        }
    }
    EXPECT_EQ(sql(file, "SELECT count(*) FROM registry WHERE name LIKE 'one%'"), "20");
    EXPECT_EQ(sql(file, "SELECT count(*) FROM registry WHERE name LIKE 'two%'"), "20");
}

TEST_F(SqliteStore, ALockedFileIsWrittenLater) {
    runSql(createTable);
    sqlite3* locker = nullptr;
    ASSERT_EQ(sqlite3_open(file.toUtf8().constData(), &locker), SQLITE_OK);
    SqliteRegistryStore store(file);
    ASSERT_EQ(sqlite3_exec(locker, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
    save(store, number(1), "x");
    store.flush();
    EXPECT_EQ(load(store, number(1)), "x");
    ASSERT_EQ(sqlite3_exec(locker, "COMMIT", nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(locker);
    store.flush();
    EXPECT_EQ(sql(file, "SELECT data FROM registry WHERE name = '1'"), "x");
}

TEST_F(SqliteStore, AFileLockedAtTheEndIsWaitedFor) {
    runSql(createTable);
    sqlite3* locker = nullptr;
    ASSERT_EQ(sqlite3_open(file.toUtf8().constData(), &locker), SQLITE_OK);
    auto store = std::make_unique<SqliteRegistryStore>(file);
    ASSERT_EQ(sqlite3_exec(locker, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
    save(*store, number(1), "x");
    QElapsedTimer failedTry;
    failedTry.start();
    store->flush();
    // A try fails meanwhile where the machine is quick; an end waits for longer on any.
    using std::chrono::milliseconds;
    const auto held = std::min(milliseconds(failedTry.elapsed() + 250), milliseconds(4000));
    std::thread ending([&store] { store.reset(); });
    std::this_thread::sleep_for(held);
    ASSERT_EQ(sqlite3_exec(locker, "COMMIT", nullptr, nullptr, nullptr), SQLITE_OK);
    ending.join();
    sqlite3_close(locker);
    EXPECT_EQ(sql(file, "SELECT data FROM registry WHERE name = '1'"), "x");
}

TEST_F(SqliteStore, ADamagedFileIsKeptAsideAndANewOneBegun) {
    for (const QByteArray& content :
         {QByteArray("this is no database at all, but a letter to my aunt").repeated(50),
          QByteArray("SQLite format 3\0then rubbish", 28).leftJustified(8192, '\xA5')}) {
        putFile(content);
        {
            SqliteRegistryStore store(file);
            EXPECT_EQ(store.value(Hive::LocalMachine, systemKey, versionName), text("6.0"));
            save(store, number(1), "x");
        }
        EXPECT_EQ(sql(file, "SELECT data FROM registry WHERE name = '1'"), "x");
        ASSERT_FALSE(damagedFiles().isEmpty());
        QFile kept(QFileInfo(file).path() + u'/' + damagedFiles().constFirst());
        ASSERT_TRUE(kept.open(QIODevice::ReadOnly));
        EXPECT_EQ(kept.readAll(), content);
        ASSERT_TRUE(kept.remove());
        ASSERT_TRUE(damagedFiles().isEmpty());
    }
}

TEST_F(SqliteStore, ATableOfAnotherShapeIsKeptAside) {
    runSql("CREATE TABLE registry(a, b)");
    {
        SqliteRegistryStore store(file);
        save(store, number(1), "x");
    }
    EXPECT_EQ(damagedFiles().size(), 1);
    EXPECT_EQ(sql(file, "SELECT data FROM registry WHERE name = '1'"), "x");
}

TEST_F(SqliteStore, DamageWhileItRunsLosesNothing) {
    SqliteRegistryStore store(file);
    save(store, number(1), "old");
    save(store, number(2), "kept");
    store.flush();
    {
        QFile raw(file);
        ASSERT_TRUE(raw.open(QIODevice::ReadWrite));
        raw.write(QByteArray(static_cast<int>(raw.size()), '\x5A'));
    }
    save(store, number(1), "new");
    store.flush();
    EXPECT_EQ(sql(file, "SELECT data FROM registry WHERE name = '1'"), "new");
    EXPECT_EQ(sql(file, "SELECT data FROM registry WHERE name = '2'"), "kept");
    EXPECT_EQ(damagedFiles().size(), 1);
}

TEST_F(SqliteStore, AnyDamagedByteIsSurvived) {
    QByteArray sound;
    {
        SqliteRegistryStore store(file);
        for (int i = 0; i < 40; ++i) {
            save(store, number(i), QByteArray(60, 'v'));
        }
    }
    {
        QFile raw(file);
        ASSERT_TRUE(raw.open(QIODevice::ReadOnly));
        sound = raw.readAll();
    }
    std::mt19937 random(20261120);
    for (int round = 0; round < 60; ++round) {
        QByteArray bad = sound;
        for (int hit = 0; hit < 30; ++hit) {
            bad[static_cast<qsizetype>(random() % static_cast<unsigned>(bad.size()))] =
                static_cast<char>(random());
        }
        bad.truncate(round % 3 == 0 ? static_cast<qsizetype>(random() % 8192U) : bad.size());
        putFile(bad);
        SqliteRegistryStore store(file);
        save(store, QStringLiteral("after"), "works");
        store.flush();
        ASSERT_EQ(sql(file, "SELECT data FROM registry WHERE name = 'after'"), "works") << round;
    }
}

TEST_F(SqliteStore, AnEmptyFileIsAnEmptyStore) {
    putFile(QByteArray());
    {
        SqliteRegistryStore store(file);
        save(store, number(1), "x");
    }
    EXPECT_TRUE(damagedFiles().isEmpty());
    EXPECT_EQ(sql(file, "SELECT data FROM registry WHERE name = '1'"), "x");
}

TEST_F(SqliteStore, AFolderInThePlaceOfTheFileLeavesTheValuesInMemory) {
    ASSERT_TRUE(QDir().mkpath(file + QStringLiteral("/inside")));
    {
        SqliteRegistryStore store(file);
        EXPECT_TRUE(save(store, number(1), "x"));
        store.flush();
        EXPECT_EQ(load(store, number(1)), "x");
    }
    EXPECT_TRUE(QDir(file + QStringLiteral("/inside")).exists());
}

TEST_F(SqliteStore, AReadOnlyFolderLeavesTheValuesInMemory) {
    runSql(createTable + "INSERT INTO registry SELECT 'HKCU', '" + key.toUtf8() +
           "', '1', 1, 'old'");
    const QString home = QDir::homePath();
    // The administrator may write everywhere, so be somebody else for a while.
    ::chmod(home.toUtf8().constData(), 0755);
    ::chmod(file.toUtf8().constData(), 0444);
    ::chmod(QFileInfo(file).path().toUtf8().constData(), 0555);
    const bool wasRoot = ::geteuid() == 0;
    if (wasRoot) {
        ASSERT_EQ(::seteuid(65534), 0);
    }
    {
        SqliteRegistryStore store(file);
        EXPECT_EQ(load(store, number(1)), "old");
        EXPECT_TRUE(save(store, number(1), "new"));
        store.flush();
        EXPECT_EQ(load(store, number(1)), "new");
    }
    if (wasRoot) {
        ASSERT_EQ(::seteuid(0), 0);
    }
    ::chmod(QFileInfo(file).path().toUtf8().constData(), 0755);
    ::chmod(file.toUtf8().constData(), 0644);
    EXPECT_EQ(sql(file, "SELECT data FROM registry WHERE name = '1'"), "old");
    EXPECT_TRUE(damagedFiles().isEmpty());
}

void fillAndRecover(const QString& file, const std::function<void()>& makeRoom) {
    SqliteRegistryStore store(file);
    save(store, number(1), "small");
    store.flush();
    const QByteArray large(200000, 'x');
    for (int i = 2; i < 6; ++i) {
        EXPECT_TRUE(save(store, number(i), large));
    }
    save(store, number(1), "later");
    store.flush();
    EXPECT_EQ(load(store, number(5)), large);
    EXPECT_EQ(sql(file, "SELECT data FROM registry WHERE name = '1'"), "small");

    makeRoom();
    store.flush();
    EXPECT_EQ(sql(file, "SELECT data FROM registry WHERE name = '1'"), "later");
    EXPECT_EQ(sql(file, "SELECT length(data) FROM registry WHERE name = '5'"), "200000");
}

TEST_F(SqliteStore, AFullDiskIsWrittenLater) {
    const QString disk = folder + QStringLiteral("/disk");
    ASSERT_TRUE(QDir().mkpath(disk));
    const QByteArray path = disk.toUtf8();
    if (::mount("tmpfs", path.constData(), "tmpfs", 0, "size=256k") != 0) {
        GTEST_SKIP() << "no right to mount a small disk";
    }
    fillAndRecover(disk + QStringLiteral("/registry.sqlite"), [&path] {
        EXPECT_EQ(::mount("tmpfs", path.constData(), "tmpfs", MS_REMOUNT, "size=16m"), 0);
    });
    EXPECT_TRUE(QDir(disk).entryList({QStringLiteral("*damaged*")}).isEmpty());
    ::umount2(path.constData(), MNT_DETACH);
}

TEST_F(SqliteStore, AFileThatMayNotGrowIsWrittenLater) {
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before = {};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit small = {128UL * 1024, before.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    fillAndRecover(file, [&before] { ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &before), 0); });
    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, SIG_DFL);
    EXPECT_TRUE(damagedFiles().isEmpty());
}

TEST_F(SqliteStore, AFileTakenAwayIsWrittenWholeWithTheNextChange) {
    SqliteRegistryStore store(file);
    save(store, number(1), "one");
    save(store, number(2), "two");
    store.flush();
    ASSERT_TRUE(QFile::remove(file));
    save(store, number(2), "three");
    store.flush();
    EXPECT_EQ(sql(file, "SELECT data FROM registry WHERE name = '1'"), "one");
    EXPECT_EQ(sql(file, "SELECT data FROM registry WHERE name = '2'"), "three");
}

/// One start of the victim, killed after `microseconds`. The last generation it had on disk.
int killOnce(const QString& file, unsigned microseconds) {
    int ends[2] = {};
    if (::pipe(ends) != 0) {
        return 0;
    }
    qputenv(victimVariable, file.toUtf8());
    const pid_t victim = ::fork();
    if (victim == 0) {
        ::dup2(ends[1], STDOUT_FILENO);
        ::close(ends[0]);
        ::execl("/proc/self/exe", "victim", nullptr);
        std::_Exit(1);
    }
    qunsetenv(victimVariable);
    ::close(ends[1]);
    int generation = 0;
    int seen = 0;
    // The clock runs from the first generation on disk: it is the writing that is to be hit.
    if (::read(ends[0], &seen, sizeof seen) == static_cast<ssize_t>(sizeof seen)) {
        generation = seen;
        ::usleep(microseconds);
    }
    ::kill(victim, SIGKILL);
    ::waitpid(victim, nullptr, 0);
    while (::read(ends[0], &seen, sizeof seen) == static_cast<ssize_t>(sizeof seen)) {
        generation = seen;
    }
    ::close(ends[0]);
    return generation;
}

TEST_F(SqliteStore, SurvivesBeingKilledAtAnyMoment) {
    ASSERT_TRUE(QDir().mkpath(QFileInfo(file).path()));
    std::mt19937 random(7);
    for (int round = 0; round < 200; ++round) {
        const int safe = killOnce(file, random() % 8000U);
        ASSERT_GT(safe, 0) << round;
        SqliteRegistryStore store(file);
        for (int i = 1; i <= 20; ++i) {
            const int value = load(store, number(i)).toInt();
            ASSERT_TRUE(value == safe || value == safe + 1)
                << "round " << round << ": value " << i << " is " << value << " after " << safe;
        }
        ASSERT_TRUE(damagedFiles().isEmpty()) << round;
    }
    EXPECT_EQ(sql(file, "PRAGMA integrity_check"), "ok");
}

TEST_F(SqliteStore, TwoMillionWritesAreMemoryAccesses) {
    SqliteRegistryStore store(file);
    QStringList names;
    for (int i = 1; i <= 2000; ++i) {
        names.append(number(i));
    }
    QElapsedTimer clock;
    clock.start();
    for (int round = 0; round < 1000; ++round) {
        const QByteArray data = QByteArray::number(round);
        for (const QString& name : names) {
            save(store, name, data);
        }
    }
    RecordProperty("milliseconds", static_cast<int>(clock.elapsed()));
    store.flush();
    EXPECT_EQ(sql(file, "SELECT count(*) FROM registry WHERE data = '999'"), "2000");
}

TEST_F(SqliteStore, KnowsNoOtherHives) {
    SqliteRegistryStore store(file);
    EXPECT_FALSE(store.setValue(static_cast<Hive>(0x80000003U), key, number(1), text("x")));
    EXPECT_FALSE(store.removeValue(static_cast<Hive>(0x80000003U), key, number(1)));
}

TEST(SqliteRegistryStore, StandsInTheConfigurationFolder) {
    EXPECT_EQ(SqliteRegistryStore::standardFile(), qEnvironmentVariable("XDG_CONFIG_HOME") +
                                                       QStringLiteral("/velorama/registry.sqlite"));
}

}  // namespace
}  // namespace velorama
