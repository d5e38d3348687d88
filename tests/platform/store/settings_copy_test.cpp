#include "platform/store/settings_copy.h"

#include "platform/store/sqlite_registry_store.h"
#include "support/files.h"
#include "support/test_world.h"

#include <QDirIterator>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace velorama {
namespace {

using test::contentOf;

const QString key = QStringLiteral("SOFTWARE\\Brightquay\\Velorama\\mfrmPRGMAIN\\View");
const QString name = QStringLiteral("Slideshow");

/// An open database of SQLite, by its own library.
class Database {
public:
    explicit Database(const QString& file) {
        EXPECT_EQ(sqlite3_open(file.toUtf8().constData(), &database_), SQLITE_OK);
    }
    ~Database() { sqlite3_close(database_); }
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    int run(const char* sql) { return sqlite3_exec(database_, sql, nullptr, nullptr, nullptr); }

private:
    sqlite3* database_ = nullptr;
};

class SettingsCopyTest : public testing::Test {
protected:
    void store(const QByteArray& data) const {
        SqliteRegistryStore writer(file);
        writer.setValue(Hive::CurrentUser, key, name, {ValueType::Text, data});
    }
    QByteArray read() const { return valueIn(SettingsCopy(file)); }
    static QByteArray valueIn(const SettingsCopy& copy) {
        return copy.value(Hive::CurrentUser, key, name).value_or(RegistryValue{{}, "(none)"}).data;
    }
    /// Names, contents, rights and times of all there is.
    QStringList everything() const {
        QStringList all;
        QDirIterator walk(folder, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                          QDirIterator::Subdirectories);
        while (walk.hasNext()) {
            const QString path = walk.next();
            struct stat status {};
            lstat(QFile::encodeName(path).constData(), &status);
            all.append(path + u' ' + QString::number(status.st_mode, 8) + u' ' +
                       QString::number(status.st_mtim.tv_sec) + u'.' +
                       QString::number(status.st_mtim.tv_nsec) + u' ' +
                       QString::fromLatin1(contentOf(path).toHex()));
        }
        all.sort();
        return all;
    }

    QString folder = test::temporaryFolder();
    QString file = folder + QStringLiteral("/velorama/registry.sqlite");
};

TEST_F(SettingsCopyTest, HasWhatIsStored) {
    store("trip");
    EXPECT_EQ(read(), "trip");
}

TEST_F(SettingsCopyTest, WithoutAFileThereIsTheSystemsVersionOnly) {
    const SettingsCopy copy(file);
    EXPECT_EQ(valueIn(copy), "(none)");
    const auto version = copy.value(
        Hive::LocalMachine, QStringLiteral("software\\microsoft\\windows nt\\currentversion"),
        QStringLiteral("currentversion"));
    ASSERT_TRUE(version.has_value());
    EXPECT_EQ(version->data, "6.0");
    EXPECT_EQ(everything(), QStringList());
}

TEST_F(SettingsCopyTest, WritesStayInMemory) {
    store("trip");
    const QStringList before = everything();
    SettingsCopy copy(file);
    EXPECT_TRUE(copy.setValue(Hive::CurrentUser, key, name, {ValueType::Text, "other"}));
    EXPECT_EQ(valueIn(copy), "other");
    EXPECT_TRUE(copy.removeValue(Hive::CurrentUser, key, name));
    EXPECT_FALSE(copy.removeValue(Hive::CurrentUser, key, name));
    EXPECT_EQ(valueIn(copy), "(none)");
    EXPECT_FALSE(copy.setValue(static_cast<Hive>(7), key, name, {}));
    EXPECT_EQ(everything(), before);
    EXPECT_EQ(read(), "trip");
}

// What others may read the window closes at its next start; a copy has no business there.
TEST_F(SettingsCopyTest, RightsStayAsTheyAre) {
    store("trip");
    chmod(QFile::encodeName(file).constData(), 0644);
    chmod(QFile::encodeName(folder + QStringLiteral("/velorama")).constData(), 0755);
    const QStringList before = everything();
    EXPECT_EQ(read(), "trip");
    EXPECT_EQ(everything(), before);
}

TEST_F(SettingsCopyTest, ADamagedFileStaysWhereItIs) {
    test::writeFile(file, QByteArray(5000, 'x'));
    const QStringList before = everything();
    EXPECT_EQ(read(), "(none)");
    EXPECT_EQ(everything(), before);
}

// As of a process that was killed while it wrote: what the journal holds is what was.
TEST_F(SettingsCopyTest, AJournalIsPlayedBackElsewhere) {
    store("trip");
    const pid_t writer = fork();
    if (writer == 0) {
        sqlite3* database = nullptr;
        sqlite3_open(file.toUtf8().constData(), &database);
        // The file itself is changed before the end, since the memory for it is too small.
        sqlite3_exec(database,
                     "PRAGMA cache_size = 1; PRAGMA cache_spill = 1; BEGIN;"
                     "UPDATE registry SET data = 'half' WHERE name = 'Slideshow';"
                     "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 500)"
                     "INSERT INTO registry SELECT 'HKCU', 'k', i, 1, hex(randomblob(400)) FROM n",
                     nullptr, nullptr, nullptr);
        _exit(0);
    }
    waitpid(writer, nullptr, 0);
    ASSERT_GT(QFileInfo(file + QStringLiteral("-journal")).size(), 0);
    const QStringList before = everything();
    EXPECT_EQ(read(), "trip");
    EXPECT_EQ(everything(), before);
}

TEST_F(SettingsCopyTest, AWriteAheadLogOfAnotherToolIsRead) {
    store("trip");
    Database tool(file);
    ASSERT_EQ(tool.run("PRAGMA journal_mode = WAL; UPDATE registry SET data = 'log'"
                       " WHERE name = 'Slideshow'"),
              SQLITE_OK);
    const QStringList before = everything();
    EXPECT_EQ(read(), "log");
    EXPECT_EQ(everything(), before);
}

TEST_F(SettingsCopyTest, WhoWritesMeanwhileIsNotHeldUp) {
    store("trip");
    Database writer(file);
    ASSERT_EQ(writer.run("BEGIN IMMEDIATE; UPDATE registry SET data = 'next'"
                         " WHERE name = 'Slideshow'"),
              SQLITE_OK);
    const SettingsCopy copy(file);
    EXPECT_EQ(valueIn(copy), "trip");
    EXPECT_EQ(writer.run("COMMIT"), SQLITE_OK) << "the copy still holds the file";
    EXPECT_EQ(read(), "next");
}

}  // namespace
}  // namespace velorama
