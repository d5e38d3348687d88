#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <vector>

namespace velorama {
namespace {

// Knowledge runs from left to right: a folder includes itself and what stands after it.
const QStringList kOrder = {
    QStringLiteral("main"),     QStringLiteral("ui"),       QStringLiteral("player"),
    QStringLiteral("webalbum"), QStringLiteral("albums"),   QStringLiteral("browse"),
    QStringLiteral("music"),    QStringLiteral("shell"),    QStringLiteral("core"),
    QStringLiteral("imaging"),  QStringLiteral("controls"), QStringLiteral("platform"),
};

QString sourceFolder() {
    return QStringLiteral(VELORAMA_SOURCE_DIR "/src");
}

bool mayInclude(const QString& from, const QString& to) {
    const auto left = kOrder.indexOf(from);
    const auto right = kOrder.indexOf(to);
    if (left < 0 || right < 0) {
        return false;
    }
    const bool siblings = from == QLatin1String("imaging") && to == QLatin1String("controls");
    return left <= right && !siblings;
}

// Paths relative to src/, sorted.
QStringList sources(const QStringList& patterns) {
    const QDir root(sourceFolder());
    QStringList files;
    QDirIterator walk(root.path(), patterns, QDir::Files, QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        files.append(root.relativeFilePath(walk.next()));
    }
    files.sort();
    return files;
}

QString content(const QString& file) {
    QFile handle(sourceFolder() + QLatin1Char('/') + file);
    EXPECT_TRUE(handle.open(QIODevice::ReadOnly)) << file.toStdString();
    return QString::fromUtf8(handle.readAll());
}

QStringList quotedIncludes(const QString& text) {
    static const QRegularExpression line(
        QStringLiteral(R"re(^[ \t]*#[ \t]*include[ \t]*"([^"]*)")re"),
        QRegularExpression::MultilineOption);
    QStringList found;
    for (auto match = line.globalMatch(text); match.hasNext();) {
        found.append(match.next().captured(1));
    }
    return found;
}

// What lies directly in src/ is the main program.
QString folderOf(const QString& file) {
    return file.contains(QLatin1Char('/')) ? file.section(QLatin1Char('/'), 0, 0)
                                           : QStringLiteral("main");
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
    };
    for (const Row& row : rows) {
        EXPECT_EQ(mayInclude(QString::fromLatin1(row.from), QString::fromLatin1(row.to)),
                  row.allowed)
            << row.from << " -> " << row.to;
    }
}

TEST(Includes, AreReadFromQuotedLinesOnly) {
    const QString text = QStringLiteral(
        "#include \"core/a.h\"\n#include <QDir>\n  #  include \"b.moc\"\n// #include \"c.h\"\n");
    EXPECT_EQ(quotedIncludes(text),
              QStringList({QStringLiteral("core/a.h"), QStringLiteral("b.moc")}));
}

TEST(Includes, RunOneWay) {
    const QStringList files = sources({QStringLiteral("*.h"), QStringLiteral("*.cpp")});
    ASSERT_FALSE(files.isEmpty());
    for (const QString& file : files) {
        for (const QString& included : quotedIncludes(content(file))) {
            if (included.endsWith(QLatin1String(".moc"))) {
                continue;
            }
            EXPECT_TRUE(mayInclude(folderOf(file), folderOf(included)))
                << file.toStdString() << " includes " << included.toStdString();
        }
    }
}

TEST(Includes, NameTheFolderAndAFileThatIsThere) {
    for (const QString& file : sources({QStringLiteral("*.h"), QStringLiteral("*.cpp")})) {
        for (const QString& included : quotedIncludes(content(file))) {
            if (included.endsWith(QLatin1String(".moc"))) {
                continue;
            }
            EXPECT_TRUE(included.contains(QLatin1Char('/')) &&
                        QFile::exists(sourceFolder() + QLatin1Char('/') + included))
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
