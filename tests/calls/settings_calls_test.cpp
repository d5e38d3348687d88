#include "calls/call_world.h"
#include "support/test_world.h"
#include "support/waiting.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <sys/stat.h>

namespace velorama::test {
namespace {

const QByteArray head = "Windows Registry Editor Version 5.00\r\n\r\n";

/// Each character as two bytes, the low one first, with the mark before them.
QByteArray wide(const QByteArray& latin1) {
    QByteArray bytes = "\xFF\xFE";
    for (const char c : latin1) {
        bytes += c;
        bytes += '\0';
    }
    return bytes;
}

class SettingsCalls : public testing::Test {
protected:
    QString file(const char* name, const QByteArray& bytes) const {
        QString path = folder + u'/' + QString::fromUtf8(name);
        QFile made(path);
        EXPECT_TRUE(made.open(QIODevice::WriteOnly));
        EXPECT_EQ(made.write(bytes), bytes.size());
        return path;
    }
    static QByteArray bytesOf(const QString& path) {
        QFile read(path);
        EXPECT_TRUE(read.open(QIODevice::ReadOnly)) << path.toStdString();
        return read.readAll();
    }
    Outcome take(const QString& path) const {
        return callProgram({QStringLiteral("--import-settings"), path}, home, folder);
    }
    QByteArray exported(const QStringList& options = {QStringLiteral("--utf8")}) const {
        const QString path = folder + QStringLiteral("/written.reg");
        const Outcome outcome =
            callProgram(QStringList{QStringLiteral("--export-settings"), path} + options, home);
        EXPECT_EQ(outcome.code, 0);
        EXPECT_EQ(outcome.out + outcome.err, QByteArray());
        return bytesOf(path);
    }
    QString store() const {
        return home.value(QStringLiteral("XDG_CONFIG_HOME")) +
               QStringLiteral("/velorama/registry.sqlite");
    }

    QString folder = temporaryFolder();
    QProcessEnvironment home = [this] {
        QProcessEnvironment made = homeWithoutDisplay();
        made.insert(QStringLiteral("XDG_CONFIG_HOME"), folder + QStringLiteral("/config"));
        made.insert(QStringLiteral("XDG_RUNTIME_DIR"), folder);
        return made;
    }();
};

const QByteArray lists = head +
                         "[HKEY_CURRENT_USER\\SOFTWARE\\Brightquay\\Velorama\\frmCONFIG\\Items]\r\n"
                         "\"INTERVAL\"=\"9\"\r\n"
                         "\"unknown\"=hex:00,ff\r\n"
                         "\r\n"
                         "[HKEY_CURRENT_USER\\SOFTWARE\\Elsewhere]\r\n"
                         "@=dword:00000012\r\n"
                         "\r\n";

TEST_F(SettingsCalls, WhatIsImportedIsExported) {
    const Outcome outcome = take(file("a.reg", wide(lists)));
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out + outcome.err, QByteArray());
    EXPECT_EQ(exported().toStdString(), lists.toStdString());
    EXPECT_EQ(exported({}), wide(lists));
    struct stat state = {};
    ASSERT_EQ(::stat(store().toUtf8().constData(), &state), 0);
    EXPECT_EQ(state.st_mode & 0777U, 0600U);
}

TEST_F(SettingsCalls, ImportsComeOneUponTheOther) {
    ASSERT_EQ(take(file("a.reg", lists)).code, 0);
    const QByteArray change =
        head +
        "[-hkey_current_user\\software\\ELSEWHERE]\r\n"
        "[HKEY_CURRENT_USER\\SOFTWARE\\Brightquay\\Velorama\\frmCONFIG\\Items]\r\n"
        "\"INTERVAL\"=-\r\n"
        "\"TBAR\"=\"0\"\r\n";
    ASSERT_EQ(take(file("b & 'c' \xC3\x9C.reg", change)).code, 0);
    const QByteArray left =
        head +
        "[HKEY_CURRENT_USER\\SOFTWARE\\Brightquay\\Velorama\\frmCONFIG\\Items]\r\n"
        "\"TBAR\"=\"0\"\r\n"
        "\"unknown\"=hex:00,ff\r\n\r\n";
    EXPECT_EQ(exported().toStdString(), left.toStdString());
}

TEST_F(SettingsCalls, AFaultyFileIsRefusedWhole) {
    ASSERT_EQ(take(file("a.reg", lists)).code, 0);
    const QByteArray before = bytesOf(store());
    const QString faulty = file("b.reg", lists + "\"INTERVAL\"=\"10\r\n");
    expectOneLine(take(faulty), 1, faulty + QStringLiteral(":10: the closing quote is missing"));
    EXPECT_EQ(bytesOf(store()), before);
}

TEST_F(SettingsCalls, AnExportOfNothingMakesNoSettings) {
    EXPECT_EQ(exported(), head);
    EXPECT_FALSE(QFileInfo::exists(folder + QStringLiteral("/config")));
}

TEST_F(SettingsCalls, TellWhatIsInTheWay) {
    expectOneLine(take(folder + QStringLiteral("/none.reg")), 1, QStringLiteral("/none.reg: "));
    expectOneLine(take(folder), 1, folder + QStringLiteral(": "));
    const QString nowhere = folder + QStringLiteral("/none/a.reg");
    expectOneLine(callProgram({QStringLiteral("--export-settings"), nowhere}, home), 1,
                  nowhere + QStringLiteral(": "));
    ASSERT_TRUE(QDir().mkpath(QFileInfo(store()).path()));
    QFile damaged(store());
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly));
    damaged.write(QByteArray(5000, 'x'));
    damaged.close();
    expectOneLine(take(file("a.reg", lists)), 1, QStringLiteral("the settings are damaged"));
    expectOneLine(
        callProgram({QStringLiteral("--export-settings"), folder + QStringLiteral("/b.reg")}, home),
        1, QStringLiteral("the settings cannot be read"));
    EXPECT_EQ(bytesOf(store()), QByteArray(5000, 'x'));
}

/// With a main window of the program open beside the calls.
class SettingsUnderAWindow : public SettingsCalls {
protected:
    void SetUp() override {
        ASSERT_EQ(::chmod(folder.toUtf8().constData(), 0700), 0);
        QProcessEnvironment window = home;
        window.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        program.setProcessEnvironment(window);
        program.start(QStringLiteral(VELORAMA_PROGRAM), QStringList());
        ASSERT_TRUE(comesTrue([this] { return isWindowKnown(); }));
    }
    bool isWindowKnown() const {
        const QDir sockets(folder + QStringLiteral("/velorama"));
        return !sockets.entryList(QDir::System).isEmpty();
    }

    QProcess program;
};

TEST_F(SettingsUnderAWindow, NothingIsImported) {
    expectOneLine(take(file("a.reg", lists)), 1,
                  QStringLiteral("a window of Velorama is open; close it first"));
    program.terminate();
    EXPECT_TRUE(program.waitForFinished(120'000));
    EXPECT_FALSE(exported().contains("Elsewhere"));
    EXPECT_EQ(take(file("a.reg", lists)).code, 0);
    EXPECT_TRUE(exported().contains("Elsewhere"));
}

// What is held up here for as long as the program waits for its file. An import would come in
// between.
TEST_F(SettingsUnderAWindow, NothingIsWrittenOnceTheWindowIsNoLongerKnown) {
    ASSERT_TRUE(comesTrue([this] { return QFile::exists(store()); }));
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(store().toUtf8().constData(), &other), SQLITE_OK);
    sqlite3_busy_timeout(other, 60'000);
    ASSERT_EQ(sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
    program.terminate();
    ASSERT_TRUE(comesTrue([this] { return !isWindowKnown(); }));
    const QByteArray before = exported();
    EXPECT_EQ(sqlite3_exec(other, "COMMIT", nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(other);
    EXPECT_TRUE(comesTrue([this] { return program.state() == QProcess::NotRunning; }));
    EXPECT_EQ(exported().toStdString(), before.toStdString());
}

}  // namespace
}  // namespace velorama::test
