#include "shell/assoc_com.h"
#include "shell/app.h"
#include "support/test_world.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

namespace velorama {
namespace {

QStringList split(const QString& text, const QString& delimiter) {
    QStringList result = {QStringLiteral("before")};
    StringSplit(text, result, delimiter);
    return result;
}

class QuickTest : public testing::Test {
protected:
    QString make(const QString& name) const {
        QString path = folder + u'/' + name;
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("1\r\n");
        return path;
    }

    QString folder = test::temporaryFolder();
};

TEST_F(QuickTest, AFileThatOpensExists) {
    EXPECT_TRUE(FileExistsQuick(make(QStringLiteral("trip.vlr"))));
    EXPECT_TRUE(FileExistsQuick(make(QStringLiteral("my trip.vlr"))));
    EXPECT_FALSE(FileExistsQuick(folder + QStringLiteral("/none.vlr")));
}

TEST_F(QuickTest, QuotesAndThenOneSeparatorGo) {
    const QString path = make(QStringLiteral("trip.vlr"));
    EXPECT_TRUE(FileExistsQuick(u'"' + path + u'"'));
    EXPECT_TRUE(FileExistsQuick(QStringLiteral("  \"") + path + QStringLiteral("\" ")));
    EXPECT_TRUE(FileExistsQuick(path + u'/'));
    EXPECT_TRUE(FileExistsQuick(u'"' + path + QStringLiteral("/\"")));
    EXPECT_FALSE(FileExistsQuick(path + QStringLiteral("//x")));
    EXPECT_FALSE(FileExistsQuick(u'"' + path));
}

TEST_F(QuickTest, EmptyAndFoldersGiveFalse) {
    EXPECT_FALSE(FileExistsQuick(QString()));
    EXPECT_FALSE(FileExistsQuick(QStringLiteral("   ")));
    EXPECT_FALSE(FileExistsQuick(QStringLiteral("\"\"")));
    EXPECT_FALSE(FileExistsQuick(QStringLiteral("\"")));
    EXPECT_FALSE(FileExistsQuick(folder));
    EXPECT_FALSE(FileExistsQuick(folder + u'/'));
    EXPECT_FALSE(FileExistsQuick(QStringLiteral("/")));
    EXPECT_FALSE(FileExistsQuick(QStringLiteral("C:\\")));
}

TEST_F(QuickTest, APipeKeepsNobodyWaiting) {
    const QString pipe = folder + QStringLiteral("/pipe");
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    EXPECT_FALSE(FileExistsQuick(pipe));
}

TEST_F(QuickTest, AFileThatMayNotBeReadDoesNotOpen) {
    if (::geteuid() == 0) {
        GTEST_SKIP() << "the superuser reads everything";
    }
    const QString path = make(QStringLiteral("locked.vlr"));
    QFile::setPermissions(path, {});
    EXPECT_FALSE(FileExistsQuick(path));
}

TEST(FileSlash, IsAddedOnlyWhereItIsMissing) {
    EXPECT_EQ(FileSlash(QStringLiteral("C:\\Programs")), QStringLiteral("C:\\Programs\\"));
    EXPECT_EQ(FileSlash(QStringLiteral("C:\\Programs\\")), QStringLiteral("C:\\Programs\\"));
    EXPECT_EQ(FileSlash(QStringLiteral("C:\\")), QStringLiteral("C:\\"));
    EXPECT_EQ(FileSlash(QStringLiteral("/usr/bin")), QStringLiteral("/usr/bin/"));
    EXPECT_EQ(FileSlash(QStringLiteral("/usr/bin/")), QStringLiteral("/usr/bin/"));
    EXPECT_EQ(FileSlash(QString()), QStringLiteral("/"));
}

TEST(ShortPath, IsThePathItselfWithoutShortNames) {
    EXPECT_EQ(ShortPath(QStringLiteral("/opt/my shows/velorama")),
              QStringLiteral("/opt/my shows/velorama"));
    EXPECT_EQ(ShortPath(QString()), QString());
}

TEST(StringSplit, SplitsAtEachDelimiter) {
    const auto words = [](std::initializer_list<const char*> list) {
        QStringList result;
        for (const char* word : list) {
            result.append(QString::fromUtf8(word));
        }
        return result;
    };
    const QString blank = QStringLiteral(" ");
    EXPECT_EQ(split(QStringLiteral("a b c"), blank), words({"a", "b", "c"}));
    EXPECT_EQ(split(QStringLiteral(" a  b "), blank), words({"", "a", "", "b", ""}));
    EXPECT_EQ(split(QStringLiteral("a--b"), QStringLiteral("--")), words({"a", "b"}));
    EXPECT_EQ(split(QString(), blank), words({""}));
    EXPECT_EQ(split(QStringLiteral("a b"), QString()), words({"a b"}));
    EXPECT_EQ(split(QString(), QString()), words({""}));
}

TEST(QuotesStrip, TakesAPairOfOuterQuotes) {
    EXPECT_EQ(QuotesStrip(QStringLiteral("  \"C:\\a b\"  ")), QStringLiteral("C:\\a b"));
    EXPECT_EQ(QuotesStrip(QStringLiteral("  a b ")), QStringLiteral("a b"));
    EXPECT_EQ(QuotesStrip(QStringLiteral("\"a")), QStringLiteral("\"a"));
    EXPECT_EQ(QuotesStrip(QStringLiteral("a\"")), QStringLiteral("a\""));
    EXPECT_EQ(QuotesStrip(QStringLiteral("\" a \"")), QStringLiteral(" a "));
    EXPECT_EQ(QuotesStrip(QStringLiteral("\"\"a\"\"")), QStringLiteral("\"a\""));
    EXPECT_EQ(QuotesStrip(QStringLiteral("\"\"")), QString());
    EXPECT_EQ(QuotesStrip(QStringLiteral("\"")), QStringLiteral("\""));
}

TEST(App, TellsTheProgramsPathInTheFormOfItsSystem) {
    const QString name = QStringLiteral("velorama");
    EXPECT_EQ(programPath({QStringLiteral("C:\\Programs"), name}),
              QStringLiteral("C:\\Programs\\velorama.exe"));
    EXPECT_EQ(programPath({QStringLiteral("C:\\"), name}), QStringLiteral("C:\\velorama.exe"));
    EXPECT_EQ(programPath({QStringLiteral("/usr/bin"), name}), QStringLiteral("/usr/bin/velorama"));
    EXPECT_EQ(programPath({QStringLiteral("/"), name}), QStringLiteral("/velorama"));
    EXPECT_EQ(App().Path, QCoreApplication::applicationDirPath());
    EXPECT_EQ(App().EXEName, name);
    EXPECT_EQ(detailsKey(App()), QStringLiteral("Software\\Details\\velorama"));
}

}  // namespace
}  // namespace velorama
