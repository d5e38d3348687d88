#include "shell/command_line.h"

#include "support/test_world.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace velorama {
namespace {

/// A working folder with albums in it and beside it.
class CommandLine : public testing::Test {
protected:
    CommandLine() {
        QDir(top).mkpath(QStringLiteral("albums/of 2026"));
        make(QStringLiteral("other.vlr"));
        make(QStringLiteral("albums/trip.vlr"));
        make(QStringLiteral("albums/my trip.vlr"));
        make(QStringLiteral("albums/of 2026/Summer.vlr"));
        QDir::setCurrent(albums);
    }
    ~CommandLine() override { QDir::setCurrent(before); }

    void make(const QString& name) const {
        EXPECT_TRUE(QFile(top + u'/' + name).open(QIODevice::WriteOnly));
    }
    static QString command(const QStringList& words) {
        return commandLine(QStringList(QStringLiteral("/usr/bin/velorama")) + words);
    }

    const QString before = QDir::currentPath();
    const QString top = QDir(test::temporaryFolder()).canonicalPath();
    const QString albums = top + QStringLiteral("/albums");
};

TEST_F(CommandLine, IsEmptyWithoutWords) {
    EXPECT_EQ(commandLine({}), QString());
    EXPECT_EQ(command({}), QString());
}

TEST_F(CommandLine, AFileNamedFromTheWorkingFolderHasItsWholePath) {
    const struct {
        const char* word;
        QString path;
    } rows[] = {
        {"trip.vlr", albums + QStringLiteral("/trip.vlr")},
        {"./trip.vlr", albums + QStringLiteral("/trip.vlr")},
        {"../other.vlr", top + QStringLiteral("/other.vlr")},
        {"of 2026/Summer.vlr", albums + QStringLiteral("/of 2026/Summer.vlr")},
        // As every album is found that is written otherwise.
        {"of 2026\\SUMMER.vlr", albums + QStringLiteral("/of 2026/Summer.vlr")},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(command({QLatin1String(row.word)}), row.path) << row.word;
    }
}

TEST_F(CommandLine, WordsOfOnePathAreOneFile) {
    EXPECT_EQ(command({QStringLiteral("my"), QStringLiteral("trip.vlr")}),
              albums + QStringLiteral("/my trip.vlr"));
}

TEST_F(CommandLine, EverythingElseStaysAsItStands) {
    const QString whole = top + QStringLiteral("/albums/../other.vlr");
    for (const QString& line :
         {QStringLiteral("none.vlr"), QStringLiteral("trip.vlr and more"),
          QStringLiteral("  trip.vlr "), QStringLiteral("\"trip.vlr\""), QStringLiteral("of 2026"),
          QStringLiteral("C:\\trip.vlr"), QStringLiteral("."), whole}) {
        EXPECT_EQ(command({line}), line);
    }
}

TEST_F(CommandLine, BehindALinkThePathLeadsToTheSameFile) {
    QDir(top).mkpath(QStringLiteral("elsewhere/deep"));
    make(QStringLiteral("elsewhere/far.vlr"));
    ASSERT_TRUE(
        QFile::link(top + QStringLiteral("/elsewhere/deep"), albums + QStringLiteral("/l")));
    EXPECT_EQ(command({QStringLiteral("l/../far.vlr")}), albums + QStringLiteral("/l/../far.vlr"));
    make(QStringLiteral("elsewhere/deep/near.vlr"));
    EXPECT_EQ(command({QStringLiteral("l/near.vlr")}), albums + QStringLiteral("/l/near.vlr"));
}

}  // namespace
}  // namespace velorama
