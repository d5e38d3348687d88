#include "structure/source_tree.h"

#include <QFile>
#include <QHash>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <algorithm>

namespace velorama {
namespace {

using Ranks = QList<QStringList>;

// The rooms of each layer that has some. Within a layer, too, knowledge runs one way: a room
// includes itself and those of later rows, and never one of its own row. "" is what lies in no
// room.
const QHash<QString, Ranks>& rooms() {
    static const auto row = [](const char* names) {
        return QString::fromLatin1(names).split(QLatin1Char(' '));
    };
    static const QHash<QString, Ranks> all = {
        {QStringLiteral("platform"),
         {row("sound background instances web session store"), row("files"), row("process"),
          row("")}},
        {QStringLiteral("imaging"), {row("ahead"), row("cache decode scale paint"), row("pixels")}},
        {QStringLiteral("controls"),
         {row("dialogs browser lists"), row("buttons"), row("boxes"), row("input"),
          row("geometry")}},
        {QStringLiteral("ui"), {row(""), row("pages dialogs"), row("parts")}},
    };
    return all;
}

Ranks roomsOf(const QString& layer) {
    return rooms().value(layer, {{QString()}});
}

qsizetype rankOf(const Ranks& ranks, const QString& room) {
    for (qsizetype rank = 0; rank < ranks.size(); ++rank) {
        if (ranks[rank].contains(room)) {
            return rank;
        }
    }
    return -1;
}

bool mayEnter(const Ranks& ranks, const QString& from, const QString& to) {
    return from == to || rankOf(ranks, from) < rankOf(ranks, to);
}

QStringList code() {
    return sources({QStringLiteral("*.h"), QStringLiteral("*.cpp")});
}

TEST(Rooms, AreEnteredFromAboveOnly) {
    const Ranks ranks = {{QStringLiteral("a"), QStringLiteral("b")}, {QStringLiteral("c")}};
    EXPECT_TRUE(mayEnter(ranks, QStringLiteral("a"), QStringLiteral("a")));
    EXPECT_TRUE(mayEnter(ranks, QStringLiteral("b"), QStringLiteral("c")));
    EXPECT_FALSE(mayEnter(ranks, QStringLiteral("a"), QStringLiteral("b")));
    EXPECT_FALSE(mayEnter(ranks, QStringLiteral("c"), QStringLiteral("a")));
}

TEST(Rooms, HoldEveryFileOfTheirLayer) {
    for (const QString& file : code()) {
        EXPECT_GE(rankOf(roomsOf(layerOf(file)), roomOf(file)), 0)
            << file.toStdString() << " stands in a room that the layer does not have";
    }
}

TEST(Rooms, KnowOnlyThoseBelow) {
    for (const QString& file : code()) {
        const QString layer = layerOf(file);
        for (const QString& included : quotedIncludes(content(file))) {
            if (layerOf(included) == layer) {
                EXPECT_TRUE(mayEnter(roomsOf(layer), roomOf(file), roomOf(included)))
                    << file.toStdString() << " includes " << included.toStdString();
            }
        }
    }
}

// Five lines on what belongs in a folder and what does not, from the size on at which it has to be
// searched.
TEST(Rooms, OfMoreThanTenFilesSayWhatBelongsThere) {
    QHash<QString, int> files;
    for (const QString& file : code()) {
        ++files[file.section(QLatin1Char('/'), 0, -2)];
    }
    for (auto folder = files.cbegin(); folder != files.cend(); ++folder) {
        if (folder.value() > 10) {
            EXPECT_TRUE(QFile::exists(QStringLiteral(VELORAMA_SOURCE_DIR "/src/") + folder.key() +
                                      QStringLiteral("/README.md")))
                << folder.key().toStdString() << " has " << folder.value() << " files";
        }
    }
}

TEST(Rooms, StandInTheOverview) {
    QFile file(QStringLiteral(VELORAMA_SOURCE_DIR "/docs/overview.md"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString overview = QString::fromUtf8(file.readAll());
    for (auto layer = rooms().cbegin(); layer != rooms().cend(); ++layer) {
        for (const QStringList& rank : layer.value()) {
            for (const QString& room : rank) {
                EXPECT_TRUE(room.isEmpty() || overview.contains(room + QStringLiteral("/ ")))
                    << layer.key().toStdString() << '/' << room.toStdString();
            }
        }
    }
}

TEST(Sources, EndBeforeLine350) {
    for (const QString& file : code()) {
        EXPECT_LE(content(file).count(QLatin1Char('\n')), 350) << file.toStdString();
    }
}

// Where the block ends whose opening brace ends line `first`; text in quotes holds no lone braces.
qsizetype endOfBlock(const QStringList& lines, qsizetype first) {
    qsizetype depth = 0;
    for (qsizetype line = first; line < lines.size(); ++line) {
        depth += lines[line].count(QLatin1Char('{')) - lines[line].count(QLatin1Char('}'));
        if (depth <= 0) {
            return line;
        }
    }
    return lines.size();
}

// The first line of the statement that goes on in `line`.
qsizetype headOfBlock(const QStringList& lines, qsizetype line) {
    static const QRegularExpression ends(QStringLiteral("^#|(^|[;{}:]|//.*)$"));
    while (line > 0 && !ends.match(lines[line - 1]).hasMatch()) {
        --line;
    }
    return line;
}

TEST(Sources, HaveNoFunctionOfMoreThan40Lines) {
    static const QRegularExpression noFunction(
        QStringLiteral("^ *(namespace|class|struct|enum|extern|constexpr|const) "));
    int longest = 0;
    for (const QString& file : code()) {
        const QStringList lines = content(file).split(QLatin1Char('\n'));
        for (qsizetype line = 0; line < lines.size(); ++line) {
            const qsizetype head = headOfBlock(lines, line);
            if (!lines[line].endsWith(QLatin1Char('{')) ||
                noFunction.match(lines[head]).hasMatch()) {
                continue;
            }
            const int length = static_cast<int>(endOfBlock(lines, line) - head + 1);
            longest = std::max(longest, length);
            EXPECT_LE(length, 40) << file.toStdString() << ':' << head + 1;
        }
    }
    EXPECT_GE(longest, 30) << "functions are not found any more";
}

}  // namespace
}  // namespace velorama
