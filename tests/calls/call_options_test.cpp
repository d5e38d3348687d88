#include "calls/call_options.h"

#include "calls/option_table.h"
#include "support/files.h"
#include "support/test_world.h"

#include <QDir>

#include <gtest/gtest.h>

namespace velorama {
namespace {

std::optional<Call> callOfWords(const QStringList& words) {
    return callOf(QStringList(QStringLiteral("velorama")) + words);
}

/// What a wrong call is told; "(right)" for any other.
std::string mistake(const QStringList& words) {
    const std::optional<Call> call = callOfWords(words);
    const auto* wrong = call ? std::get_if<WrongCall>(&*call) : nullptr;
    return wrong != nullptr ? wrong->message.toStdString() : "(right)";
}

/// The folder a test runs in, until its end.
class InFolder {
public:
    InFolder() : before_(QDir::currentPath()), folder_(test::temporaryFolder()) {
        QDir::setCurrent(folder_);
    }
    ~InFolder() { QDir::setCurrent(before_); }
    InFolder(const InFolder&) = delete;
    InFolder& operator=(const InFolder&) = delete;

    void make(const QString& name) const { test::writeFile(folder_ + u'/' + name); }

private:
    QString before_;
    QString folder_;
};

TEST(CallOptions, TheWindowHasAllThatDoesNotBeginWithTwoDashes) {
    const std::vector<QStringList> lines = {
        {},
        {QString()},
        {QStringLiteral("trip.vlr")},
        {QStringLiteral("My"), QStringLiteral("trip.vlr")},
        {QStringLiteral("-trip.vlr")},
        {QStringLiteral("-")},
        {QStringLiteral("trip.vlr"), QStringLiteral("--help")},
        {QStringLiteral(" --help")},
    };
    for (const QStringList& words : lines) {
        EXPECT_FALSE(callOfWords(words).has_value()) << words.join(u'|').toStdString();
    }
    EXPECT_FALSE(callOf({}).has_value());
}

TEST(CallOptions, AFileThatBeginsWithTwoDashesIsAnAlbum) {
    const InFolder here;
    ASSERT_TRUE(callOfWords({QStringLiteral("--help")}).has_value());
    here.make(QStringLiteral("--help"));
    EXPECT_FALSE(callOfWords({QStringLiteral("--help")}).has_value());
    EXPECT_FALSE(callOfWords({QStringLiteral("--Help"), QStringLiteral("x")}).has_value());
    QDir().mkdir(QStringLiteral("--version"));
    EXPECT_TRUE(callOfWords({QStringLiteral("--version")}).has_value()) << "a folder is no album";
}

TEST(CallOptions, HelpAndVersionAreTold) {
    EXPECT_TRUE(std::holds_alternative<HelpCall>(*callOfWords({QStringLiteral("--help")})));
    EXPECT_TRUE(std::holds_alternative<VersionCall>(*callOfWords({QStringLiteral("--version")})));
}

TEST(CallOptions, WrongWordsAreTold) {
    const struct {
        const char* words;
        const char* mistake;
    } rows[] = {
        {"--nonsense", "unknown option --nonsense"},
        {"--Help", "unknown option --Help"},
        {"--help -x", "unknown option -x"},
        {"--help --nonsense", "unknown option --nonsense"},
        {"--help --version", "--version does not go with --help"},
        {"--help --help", "--help is given more than once"},
        {"--help trip.vlr", "one word too many: trip.vlr"},
        {"--help=1", "unexpected value after '--help'"},
        {"--", "no call is named"},
        {"-- trip.vlr", "no call is named"},
        {"---", "unknown option ---"},
        {"--to x", "--to belongs to a call that is missing"},
        {"--web-album a.vlr", "--web-album needs --to FOLDER"},
        {"--web-album", "missing value after '--web-album'"},
        {"--web-album=", "--web-album needs a value"},
        {"--web-album a --to b --json", "--json does not go with --web-album"},
        {"--web-album a --to b --check c", "--check does not go with --web-album"},
        {"--web-album a --to b --to c", "--to is given more than once"},
        {"--web-album a --to b --title=", "--title needs a value"},
        {"--web-album a b --to c", "one word too many: b"},
        {"--web-album a --to b --photo-size 99",
         "--photo-size takes a whole number from 100 to 3000, not 99"},
        {"--web-album a --to b --thumbnail-size 95.5",
         "--thumbnail-size takes a whole number from 10 to 2000, not 95.5"},
        {"--web-album a --to b --colours page=#12", "--colours does not take page=#12"},
        {"--web-album a --to b --colours page=red,sky=blue", "--colours does not take sky=blue"},
        {"--web-album a --to b --colours page=#80ff0000", "--colours does not take page=#80ff0000"},
        {"--web-album a --to b --colours page=transparent",
         "--colours does not take page=transparent"},
        {"--check a b", "one word too many: b"},
        {"--check a --to b", "--to does not go with --check"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(mistake(QString::fromLatin1(row.words).split(u' ')), row.mistake) << row.words;
    }
}

TEST(CallOptions, AWebAlbumIsTold) {
    const auto call = callOfWords(
        {QStringLiteral("--to"), QStringLiteral("--out"), QStringLiteral("--web-album=-x=y.vlr"),
         QStringLiteral("--photo-size"), QStringLiteral("100"), QStringLiteral("--colours"),
         QStringLiteral("title-bar=#123456")});
    const auto& web = std::get<WebAlbumCall>(*call);
    EXPECT_EQ(web.album, QStringLiteral("-x=y.vlr"));
    EXPECT_EQ(web.folder, QStringLiteral("--out"));
    EXPECT_EQ(web.title, std::nullopt);
    EXPECT_EQ(web.photoSize, 100);
    EXPECT_EQ(web.thumbnailSize, std::nullopt);
    EXPECT_EQ(web.colours.titleBar, 0x563412);
    EXPECT_EQ(web.colours.page, std::nullopt);
}

TEST(CallOptions, ACheckAndAWallpaperAreTold) {
    const auto check = callOfWords(
        {QStringLiteral("--json"), QStringLiteral("--check"), QStringLiteral("My trip.vlr")});
    EXPECT_FALSE(check && std::holds_alternative<WrongCall>(*check));
    EXPECT_EQ(std::get<CheckCall>(*check).album, QStringLiteral("My trip.vlr"));
    EXPECT_TRUE(std::get<CheckCall>(*check).json);
    EXPECT_FALSE(
        std::get<CheckCall>(*callOfWords({QStringLiteral("--check"), QStringLiteral("a")})).json);
    const auto paper = callOfWords({QStringLiteral("--wallpaper"), QStringLiteral("--help")});
    EXPECT_EQ(std::get<WallpaperCall>(*paper).file, QStringLiteral("--help"));
}

TEST(CallOptions, EachCallHasOneRowThatNamesIt) {
    QMap<CallKind, int> leading;
    for (const OptionRow& row : optionTable()) {
        leading[row.call] += row.leads ? 1 : 0;
    }
    for (const int rows : leading) {
        EXPECT_EQ(rows, 1);
    }
}

}  // namespace
}  // namespace velorama
