#include "calls/option_table.h"
#include "support/files.h"
#include "support/test_world.h"

#include <QProcess>
#include <QStandardPaths>

#include <gtest/gtest.h>

namespace velorama::test {
namespace {

QString completion(const char* ending) {
    return QStringLiteral(VELORAMA_SOURCE_DIR "/packaging/completions/velorama.") +
           QLatin1String(ending);
}

/// What a program prints, a line each; what it says besides fails the test.
QStringList lines(const QString& program, const QStringList& words, const QString& folder) {
    QProcess process;
    process.setWorkingDirectory(folder);
    process.start(program, words);
    EXPECT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.readAllStandardError().toStdString(), "");
    return QString::fromUtf8(process.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
}

/// An empty word and some files to choose from.
class Completions : public testing::Test {
protected:
    Completions() {
        for (const char* name : {"My trip.vlr", "B.VLR", "a.jpg", "notes.txt", "sub/c.vlr"}) {
            writeFile(folder + u'/' + QLatin1String(name));
        }
    }
    /// The words a shell offers for the last one, sorted.
    QStringList inBash(const QStringList& words) const {
        const QString script = QStringLiteral(
            "source \"$1\"; shift; COMP_WORDS=(velorama \"$@\"); COMP_CWORD=$#; _velorama;"
            " printf '%s\\n' \"${COMPREPLY[@]}\"");
        QStringList offered = lines(
            QStringLiteral("bash"),
            QStringList{QStringLiteral("-c"), script, QStringLiteral("bash"), completion("bash")} +
                words,
            folder);
        offered.sort();
        return offered;
    }
    QStringList inFish(const QString& line) const {
        const QString script =
            QStringLiteral("source $argv[1]; complete -C $argv[2] | string replace -r '\\t.*' ''");
        QStringList offered = lines(
            QStringLiteral("fish"),
            {QStringLiteral("--no-config"), QStringLiteral("-c"), script, completion("fish"), line},
            folder);
        offered.sort();
        return offered;
    }

    QString folder = temporaryFolder();
};

QStringList words(const char* text) {
    return QString::fromLatin1(text).split(u' ');
}

TEST_F(Completions, NameEveryOption) {
    for (const char* ending : {"bash", "zsh", "fish"}) {
        const QString text = QString::fromUtf8(contentOf(completion(ending)));
        for (const OptionRow& row : optionTable()) {
            const QString option = (ending == std::string("fish") ? u"-l " : u"--") + row.name;
            EXPECT_TRUE(text.contains(option)) << ending << ' ' << row.name.toStdString();
        }
    }
}

TEST_F(Completions, OfBashOfferWhatFits) {
    EXPECT_EQ(inBash(words("--c")), words("--check"));
    EXPECT_EQ(inBash(words("--check a --")), words("--json"));
    EXPECT_EQ(inBash(words("--web-album a --t")), words("--thumbnail-size --title --to"));
    EXPECT_EQ(inBash(words("--help --")), QStringList());
    const QStringList albums = {QStringLiteral("B.VLR"), QStringLiteral("My trip.vlr"),
                                QStringLiteral("sub")};
    EXPECT_EQ(inBash({QString()}), albums);
    EXPECT_EQ(inBash({QStringLiteral("--web-album"), QString()}), albums);
    EXPECT_EQ(inBash({QStringLiteral("--wallpaper"), QString()}), words("a.jpg sub"));
    EXPECT_EQ(inBash({QStringLiteral("--web-album"), QStringLiteral("a"), QStringLiteral("--to"),
                      QString()}),
              words("sub"));
}

TEST_F(Completions, OfFishOfferWhatFits) {
    if (QStandardPaths::findExecutable(QStringLiteral("fish")).isEmpty()) {
        GTEST_SKIP() << "needs fish";
    }
    EXPECT_EQ(inFish(QStringLiteral("velorama --check a --j")), words("--json"));
    EXPECT_EQ(inFish(QStringLiteral("velorama --web-album a --t")),
              words("--thumbnail-size --title --to"));
    EXPECT_EQ(inFish(QStringLiteral("velorama --check M")),
              QStringList{QStringLiteral("My trip.vlr")});
    EXPECT_EQ(inFish(QStringLiteral("velorama --web-album a --to ")), words("sub/"));
    EXPECT_EQ(inFish(QStringLiteral("velorama --help --ch")), QStringList());
}

TEST_F(Completions, OfZshCanBeRead) {
    if (QStandardPaths::findExecutable(QStringLiteral("zsh")).isEmpty()) {
        GTEST_SKIP() << "needs zsh";
    }
    EXPECT_EQ(lines(QStringLiteral("zsh"), {QStringLiteral("-n"), completion("zsh")}, folder),
              QStringList());
}

}  // namespace
}  // namespace velorama::test
