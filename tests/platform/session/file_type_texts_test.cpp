#include "platform/session/file_type_texts.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <vector>

namespace velorama {
namespace {

struct Row {
    const char* word;
    const char* written;
};

TEST(ExecWord, IsQuotedByTheRulesOfEntries) {
    const std::vector<Row> rows = {
        {"/usr/bin/velorama", "/usr/bin/velorama"},
        {"/opt/a-b_c.d,e+f:g@h=i", "/opt/a-b_c.d,e+f:g@h=i"},
        {"/opt/\xC3\xBC/velorama", "/opt/\xC3\xBC/velorama"},
        {"/opt/100%", "/opt/100%%"},
        {"/opt/my shows/x", R"w("/opt/my shows/x")w"},
        {"/opt/my 50%/x", R"w("/opt/my 50%%/x")w"},
        {"/opt/it's", R"w("/opt/it's")w"},
        {"/opt/a;b", R"w("/opt/a;b")w"},
        {"/opt/a#b", R"w("/opt/a#b")w"},
        {"/opt/a(b)", R"w("/opt/a(b)")w"},
        // What needs a backslash in quotes gets it doubled: the line is a text value too.
        {R"w(/opt/say "hi")w", R"w("/opt/say \\"hi\\"")w"},
        {"/opt/$HOME", R"w("/opt/\\$HOME")w"},
        {"/opt/$(x)", R"w("/opt/\\$(x)")w"},
        {"/opt/`x`", R"w("/opt/\\`x\\`")w"},
        {R"w(/opt/a\b)w", R"w("/opt/a\\\\b")w"},
        {"/opt/a\nb", R"w("/opt/a\nb")w"},
        {"", R"w("")w"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(execWord(QString::fromUtf8(row.word)), QString::fromUtf8(row.written))
            << row.word;
    }
}

TEST(EntryValue, StaysOnOneLine) {
    EXPECT_EQ(entryValue(QStringLiteral("a\\b\nc\td\re")), QStringLiteral(R"(a\\b\nc\td\re)"));
    EXPECT_EQ(entryValue(QStringLiteral("a \"b\" 100% $x")), QStringLiteral("a \"b\" 100% $x"));
}

TEST(EntryText, IsWhatWasWritten) {
    for (const char* text :
         {"", "/opt/velorama", "a\\b\nc\td\re", "\\\\n", "ends in \\", " \"%$"}) {
        EXPECT_EQ(entryText(entryValue(QLatin1String(text))), QLatin1String(text));
    }
    EXPECT_EQ(entryText(QStringLiteral("a\\sb\\")), QStringLiteral("a b\\"));
}

TEST(EntryProgram, IsTheOneThatTheEntryWasMadeFor) {
    FileType type;
    type.program = QStringLiteral("/opt/my \\n $(x)\n\"5%\"/velorama");
    EXPECT_EQ(entryProgram(desktopEntry(type)), type.program);
    EXPECT_EQ(entryProgram(QStringLiteral("[Desktop Entry]\nExec=/opt/velorama %f\n")), QString());
    EXPECT_EQ(entryProgram(QString()), QString());
}

TEST(MimeIconName, HasNoSlash) {
    EXPECT_EQ(mimeIconName(QStringLiteral("application/x-velorama-album")),
              QStringLiteral("application-x-velorama-album"));
}

TEST(DesktopEntry, NamesProgramAndType) {
    FileType type;
    type.id = QStringLiteral("velorama");
    type.mimeType = QStringLiteral("application/x-velorama-album");
    type.program = QStringLiteral("/opt/my shows/velorama");
    type.programName = QStringLiteral("Velorama");
    type.programComment = QStringLiteral("Shows");
    const QStringList lines = desktopEntry(type).split(u'\n');
    EXPECT_EQ(lines.front(), QStringLiteral("[Desktop Entry]"));
    EXPECT_TRUE(lines.back().isEmpty());
    for (const char* line : {"Type=Application", "Name=Velorama", "Comment=Shows", "Icon=velorama",
                             "Exec=\"/opt/my shows/velorama\" %f", "TryExec=/opt/my shows/velorama",
                             "MimeType=application/x-velorama-album;", "X-MadeAtFirstRun=true"}) {
        EXPECT_TRUE(lines.contains(QLatin1String(line))) << line;
    }
}

TEST(MimePackage, EscapesWhatXmlWouldRead) {
    FileType type;
    type.mimeType = QStringLiteral("application/x-a");
    type.extension = QStringLiteral(".vlr");
    type.description = QStringLiteral("A & <b> File");
    const QString xml = mimePackage(type);
    EXPECT_TRUE(xml.contains(QLatin1String("<comment>A &amp; &lt;b&gt; File</comment>")));
    EXPECT_TRUE(xml.contains(QLatin1String("<glob pattern=\"*.vlr\"/>")));
    EXPECT_TRUE(xml.contains(QLatin1String("<icon name=\"application-x-a\"/>")));
}

}  // namespace
}  // namespace velorama
