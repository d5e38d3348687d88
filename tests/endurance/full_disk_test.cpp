// A disk that is full at each call that needs room, one after the other, of each operation.

#include "endurance/full_disk/tally.h"
#include "endurance/lived_in.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <iostream>

namespace velorama::endurance {
namespace {

struct Operation {
    const char* name;
    /// Letters of a session, or nothing: then it is a call.
    const char* session;
    /// How a call has it; {} is a place of the home.
    QStringList (*call)(const Home& home) = nullptr;
    /// Folder below the home that is taken away before.
    const char* without = nullptr;
    /// All rows are old, or all are new.
    bool isAtOnce = false;
    /// A page measures the copies that there are.
    bool measuresCopies = false;
};

/// Every call in turn, and both kinds of full disks, which takes a quarter of an hour.
bool isThorough() {
    return qEnvironmentVariableIsSet("VELORAMA_EVERY_WRITE");
}

/// Pages that are whole, whatever they say, count as new.
void passOverWholePages(State& found, const State& after) {
    for (auto file = found.files.begin(); file != found.files.end(); ++file) {
        if (file.key().endsWith(QLatin1String(".html")) && file->startsWith("<HTML>") &&
            file->endsWith("</BODY></HTML>\r\n")) {
            *file = after.files.value(file.key());
        }
    }
}

struct FullRun {
    Outcome outcome;
    Tally tally;
};

class FullDisks : public testing::Test {
protected:
    FullDisks() : home(test::temporaryFolder()) {
        liveIn(home);
        QFile file(tallyFile);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray(sizeof(Tally), 0));
    }

    /// From call number `at` on the disk is full, or at that one alone.
    FullRun runFull(const Operation& operation, int at, bool stays) const {
        QFile file(tallyFile);
        EXPECT_TRUE(file.open(QIODevice::ReadWrite));
        file.write(QByteArray(sizeof(Tally), 0));
        file.flush();
        QProcessEnvironment environment = home.environment();
        environment.insert(QStringLiteral("LD_PRELOAD"), QStringLiteral(VELORAMA_FULL_DISK));
        environment.insert(QStringLiteral("VELORAMA_FULL_PLACE"), home.path());
        environment.insert(QStringLiteral("VELORAMA_FULL_TALLY"), tallyFile);
        environment.insert(QStringLiteral("VELORAMA_FULL_AT"), QString::number(at));
        if (stays) {
            environment.insert(QStringLiteral("VELORAMA_FULL_STAYS"), QStringLiteral("1"));
        }
        FullRun result{run(operation, environment), {}};
        file.seek(0);
        const QByteArray bytes = file.read(sizeof(Tally));
        std::memcpy(&result.tally, bytes.constData(), static_cast<size_t>(bytes.size()));
        return result;
    }
    Outcome run(const Operation& operation, const QProcessEnvironment& environment) const {
        return operation.session != nullptr
                   ? runProgram(QStringLiteral(VELORAMA_WORKER),
                                {QString::fromLatin1(operation.session)}, environment)
                   : runProgram(QStringLiteral(VELORAMA_PROGRAM), operation.call(home),
                                environment);
    }
    void begin(const Operation& operation) const {
        home.restore();
        if (operation.without != nullptr) {
            QDir(home.path() + u'/' + QLatin1String(operation.without)).removeRecursively();
        }
    }

    /// The disk full at each call in turn, until the operation goes through untouched.
    void fillAtEach(const Operation& operation);
    void fillAtEach(const Operation& operation, bool stays);
    void expectNothingHalf(const Operation& operation, const FullRun& full);
    void expectTold(const Outcome& outcome, const State& found) const;

    Home home;
    QString tallyFile = test::temporaryFolder() + QStringLiteral("/tally");
    State before;
    State after;
};

void FullDisks::fillAtEach(const Operation& operation) {
    begin(operation);
    before = home.state();
    const Outcome undisturbed = run(operation, home.environment());
    EXPECT_TRUE(undisturbed.code == 0 || operation.call != nullptr)
        << undisturbed.err.toStdString();
    after = home.state();
    ASSERT_TRUE(!differences(before, after).isEmpty() || before.thumbnails != after.thumbnails)
        << "it changes nothing";
    fillAtEach(operation, true);
    fillAtEach(operation, false);
}

void FullDisks::fillAtEach(const Operation& operation, bool stays) {
    // Sessions have hundreds of calls. The seventh of a new file of thumbnails is its journal's
    // fsync.
    const int step = isThorough() || operation.call != nullptr ? 1 : 8;
    int tries = 0;
    bool isThrough = false;
    for (int at = isThorough() || stays ? 1 : std::max(1, step - 1); !isThrough && !HasFailure();
         at += step) {
        begin(operation);
        const FullRun full = runFull(operation, at, stays);
        SCOPED_TRACE(std::string(operation.name) + ", call " + std::to_string(at) +
                     (stays ? " and all after it: " : " alone: ") + full.tally.first);
        isThrough = full.tally.refused == 0;
        tries += isThrough ? 0 : 1;
        expectNothingHalf(operation, full);
    }
    std::cout << operation.name << ": full at " << tries << " calls, "
              << (stays ? "and from then on" : "and at that one alone") << std::endl;
    EXPECT_GT(tries, 0);
}

void FullDisks::expectNothingHalf(const Operation& operation, const FullRun& full) {
    State found = home.state();
    if (operation.measuresCopies) {
        passOverWholePages(found, after);
    }
    EXPECT_EQ(joined(neitherOldNorNew(before, after, found, slidesBetween(home))), "");
    EXPECT_EQ(joined(home.wrongThumbnails(found)), "");
    EXPECT_EQ(joined(found.unfinished), "");
    if (operation.isAtOnce && found.rows != before.rows) {
        EXPECT_EQ(joined(differences(after, found)), "");
    }
    EXPECT_GE(full.outcome.code, 0) << "it crashed";
    if (operation.call != nullptr) {
        expectTold(full.outcome, found);
    } else {
        EXPECT_EQ(full.outcome.code, 0) << full.outcome.err.toStdString();
    }
}

/// A call says what it could not do, and says nothing where all was done.
void FullDisks::expectTold(const Outcome& outcome, const State& found) const {
    const std::string said = outcome.err.toStdString();
    if (outcome.code == 0) {
        EXPECT_EQ(said, "");
        EXPECT_EQ(joined(differences(after, found)), "") << "all was well, it said";
        return;
    }
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(said.rfind("velorama: ", 0), 0U) << said;
    EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 1) << said;
}

TEST_F(FullDisks, LeaveTheAlbumOldOrNew) {
    fillAtEach({"saving an album", "ms"});
}

TEST_F(FullDisks, LeaveTheSettingsOldOrNewAtTheEnd) {
    fillAtEach({"settings at the end", "t"});
}

TEST_F(FullDisks, LeaveWholeSlidesWhereSomeAreAdded) {
    fillAtEach({"adding", "a"});
}

TEST_F(FullDisks, LeaveWholePagesOfTheWindowsWebAlbum) {
    fillAtEach({"web album of the window", "ab", nullptr, nullptr, false, true});
}

TEST_F(FullDisks, LeaveTheWallpaperOldOrNew) {
    fillAtEach({"wallpaper of the window", "aw"});
}

TEST_F(FullDisks, LeaveWholeThumbnails) {
    fillAtEach({"kept thumbnails", "", nullptr, "cache"});
}

TEST_F(FullDisks, LeaveTheSettingsOfAFirstStart) {
    fillAtEach({"settings of a first start", "t", nullptr, "config/velorama"});
}

TEST_F(FullDisks, LeaveWholePagesOfACallsWebAlbum) {
    fillAtEach({"--web-album into a new folder", nullptr, [](const Home& place) {
                    return QStringList{QStringLiteral("--web-album"), place.smallAlbum(),
                                       QStringLiteral("--to"),
                                       place.documents() + QStringLiteral("/pages")};
                }});
}

TEST_F(FullDisks, LeaveWholePagesWhereACallRenewsAWebAlbum) {
    fillAtEach({"--web-album over an old one", nullptr, [](const Home& place) {
                    return QStringList{QStringLiteral("--web-album"),
                                       place.smallAlbum(),
                                       QStringLiteral("--to"),
                                       place.documents() + QStringLiteral("/My WebAlbum/Trip"),
                                       QStringLiteral("--photo-size"),
                                       QStringLiteral("444"),
                                       QStringLiteral("--title"),
                                       QStringLiteral("New"),
                                       QStringLiteral("--colours"),
                                       QStringLiteral("page=#123456")};
                }});
}

TEST_F(FullDisks, LeaveTheExportedSettingsOldOrNew) {
    fillAtEach({"--export-settings", nullptr, [](const Home& place) {
                    return QStringList{QStringLiteral("--export-settings"), place.exported()};
                }});
}

TEST_F(FullDisks, LeaveAllSettingsOldOrAllImported) {
    fillAtEach({"--import-settings", nullptr,
                [](const Home& place) {
                    return QStringList{QStringLiteral("--import-settings"), place.imported()};
                },
                nullptr, true});
}

TEST_F(FullDisks, LeaveTheWallpaperOfACallOldOrNew) {
    fillAtEach({"--wallpaper", nullptr, [](const Home& place) {
                    return QStringList{QStringLiteral("--wallpaper"), place.pictureFiles().at(7)};
                }});
}

}  // namespace
}  // namespace velorama::endurance
