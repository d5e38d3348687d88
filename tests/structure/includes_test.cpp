#include "structure/source_tree.h"

#include <QFile>

#include <gtest/gtest.h>

#include <vector>

namespace velorama {
namespace {

// Knowledge runs from left to right: a folder includes itself and what stands after it.
const QStringList kOrder = {
    QStringLiteral("main"),     QStringLiteral("ui"),       QStringLiteral("calls"),
    QStringLiteral("player"),   QStringLiteral("webalbum"), QStringLiteral("albums"),
    QStringLiteral("browse"),   QStringLiteral("music"),    QStringLiteral("shell"),
    QStringLiteral("core"),     QStringLiteral("imaging"),  QStringLiteral("controls"),
    QStringLiteral("platform"),
};

bool mayInclude(const QString& from, const QString& to) {
    const auto left = kOrder.indexOf(from);
    const auto right = kOrder.indexOf(to);
    if (left < 0 || right < 0) {
        return false;
    }
    const auto areSiblings = [&](QLatin1String one, QLatin1String other) {
        return from == one && to == other;
    };
    const bool siblings = areSiblings(QLatin1String("imaging"), QLatin1String("controls")) ||
                          areSiblings(QLatin1String("ui"), QLatin1String("calls"));
    return left <= right && !siblings;
}

TEST(Includes, OrderAllowsOnlyTheWayDown) {
    struct Row {
        const char* from;
        const char* to;
        bool allowed;
    };
    const std::vector<Row> rows = {
        {"main", "ui", true},           {"ui", "platform", true},
        {"albums", "browse", true},     {"browse", "albums", false},
        {"core", "core", true},         {"core", "browse", false},
        {"imaging", "platform", true},  {"imaging", "controls", false},
        {"controls", "imaging", false}, {"platform", "platform", true},
        {"platform", "core", false},    {"core", "elsewhere", false},
        {"main", "calls", true},        {"calls", "player", true},
        {"ui", "calls", false},         {"calls", "ui", false},
        {"player", "calls", false},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(mayInclude(QString::fromLatin1(row.from), QString::fromLatin1(row.to)),
                  row.allowed)
            << row.from << " -> " << row.to;
    }
}

TEST(Includes, AreReadFromQuotedLinesOnly) {
    const QString text = QStringLiteral(
        "#include \"core/a.h\"\n#include <QDir>\n  #  include \"b.h\"\n#include \"b.moc\"\n"
        "// #include \"c.h\"\n");
    EXPECT_EQ(quotedIncludes(text),
              QStringList({QStringLiteral("core/a.h"), QStringLiteral("b.h")}));
}

TEST(Includes, RunOneWay) {
    const QStringList files = sources({QStringLiteral("*.h"), QStringLiteral("*.cpp")});
    ASSERT_FALSE(files.isEmpty());
    for (const QString& file : files) {
        for (const QString& included : quotedIncludes(content(file))) {
            EXPECT_TRUE(mayInclude(layerOf(file), layerOf(included)))
                << file.toStdString() << " includes " << included.toStdString();
        }
    }
}

TEST(Includes, NameTheFolderAndAFileThatIsThere) {
    for (const QString& file : sources({QStringLiteral("*.h"), QStringLiteral("*.cpp")})) {
        for (const QString& included : quotedIncludes(content(file))) {
            EXPECT_TRUE(included.contains(QLatin1Char('/')) &&
                        QFile::exists(QStringLiteral(VELORAMA_SOURCE_DIR "/src/") + included))
                << file.toStdString() << " includes " << included.toStdString();
        }
    }
}

TEST(Headers, AreGuardedOnTheirFirstLine) {
    const QStringList headers = sources({QStringLiteral("*.h")});
    ASSERT_FALSE(headers.isEmpty());
    for (const QString& header : headers) {
        EXPECT_TRUE(content(header).startsWith(QLatin1String("#pragma once\n")))
            << header.toStdString();
    }
}

}  // namespace
}  // namespace velorama
