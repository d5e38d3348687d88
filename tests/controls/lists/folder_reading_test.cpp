#include "controls/lists/folder_reading.h"

#include "support/test_world.h"

#include <QDir>

#include <gtest/gtest.h>

#include <thread>

namespace velorama {
namespace {

using namespace std::chrono_literals;

QString sorted(std::optional<QStringList> names) {
    if (!names) {
        return QStringLiteral("none yet");
    }
    names->sort();
    return names->join(u' ');
}

class FolderReadingTest : public testing::Test {
protected:
    FolderReadingTest() {
        for (const char* name : {"b", "a", ".c", ".d"}) {
            EXPECT_TRUE(QDir(base).mkpath(QLatin1String(name)));
        }
    }
    const QString base = test::temporaryFolder();
    FolderReading reading{base, {QStringLiteral(".d"), QStringLiteral(".gone")}};
};

TEST_F(FolderReadingTest, TellsTheFoldersAndTheHiddenOnesThatAreWanted) {
    std::thread thread([this] { reading.run(); });
    EXPECT_EQ(sorted(reading.await(24h)), QStringLiteral(".d a b"));
    thread.join();
    EXPECT_EQ(sorted(reading.names()), QStringLiteral(".d a b"));
}

TEST_F(FolderReadingTest, WhatNoThreadHasBegunIsReadHere) {
    EXPECT_EQ(sorted(reading.await(0ms)), QStringLiteral(".d a b"));
}

}  // namespace
}  // namespace velorama
