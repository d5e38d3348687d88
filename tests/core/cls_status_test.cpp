#include "core/cls_status.h"

#include "core/lib_txt.h"

#include <gtest/gtest.h>

namespace velorama {
namespace {

class MenuHelp : public testing::Test {
protected:
    void SetUp() override { fillTextConstants(2026, QStringLiteral("http://server.invalid/")); }
};

struct Row {
    const char* text;
    const char* help;
};

void expectHelp(const Row& row) {
    EXPECT_EQ(clsSTATUS::menuHelp(QString::fromUtf8(row.text)), QString::fromUtf8(row.help))
        << "entry \"" << row.text << '"';
}

TEST_F(MenuHelp, EveryRowHasItsLine) {
    const Row rows[] = {
        {"&Restore", "Restore the window to its normal size"},
        {"&Move", "Change the window position"},
        {"&Size", "Change the window size"},
        {"Mi&nimize", "Reduce the window to an icon"},
        {"Ma&ximize", "Enlarge the window to its full size"},
        {"&New", "Create a new empty slideshow"},
        {"&Open", "Open an existing slideshow"},
        {"&Save", "Save the current list as a slideshow file"},
        {"Save &As", "Save the current file with a new file name"},
        {"E&xit", "Quits Velorama; prompts to save file"},
        {"&Add Selected", "Add selected slides"},
        {"A&dd All", "Add all slides"},
        {"&Clear Selected", "Clear selected slides"},
        {"Set As Desktop &Wallpaper", "Use the selected picture as the Desktop Wallpaper"},
        {"Check For &Updates", "Checks the website for newer release of Velorama"},
        {"Customer &Support", "Send email to our support"},
        {"&About", "Display information about Velorama"},
    };
    for (const Row& row : rows) {
        expectHelp(row);
    }
}

TEST_F(MenuHelp, TheKeysLengthFromTheLeftCounts) {
    const Row rows[] = {
        {"&Save", "Save the current list as a slideshow file"},
        {"Save &As...", "Save the current file with a new file name"},
        {"&Save\tCtrl+S", "Save the current list as a slideshow file"},
        {"&Open...", "Open an existing slideshow"},
        {"&About Velorama", "Display information about Velorama"},
        {"&Saver", "Save the current list as a slideshow file"},
        {" &Save", ""},
        {"&Sav", ""},
    };
    for (const Row& row : rows) {
        expectHelp(row);
    }
}

TEST_F(MenuHelp, CaseAndAmpersandCount) {
    const Row rows[] = {
        {"&save", ""}, {"Save", "View Save"}, {"S&ave", ""},
        {"e&xit", ""}, {"Exit", "View Exit"}, {"New", "View New"},
    };
    for (const Row& row : rows) {
        expectHelp(row);
    }
}

TEST_F(MenuHelp, EntriesWithoutARowFallBack) {
    const char* entries[] = {
        "Start Slidesho&w", "Help &Center Online", "&Visit Website", "Picture Pr&eview",
        "Se&ttings...",     "Remo&ve All",         "&Preview",       "&Remove"};
    for (const char* entry : entries) {
        expectHelp({entry, ""});
    }
}

TEST_F(MenuHelp, TheFallbacksFollowInTheirOrder) {
    const Row rows[] = {
        {"C", " "},                  // before the rule on short texts
        {"C&lose", " "},             // before the rule on ampersands
        {"Check For Updates", " "},  // no row: the ampersand is missing
        {"c", ""},                   // short, and another case
        {"Recent File", ""},         //
        {"Recent File 1", "View Recent File 1"},
        {"&", ""},
        {"", ""},
        {"x", ""},
        {"xy", "View xy"},
        {"Details", "View Details"},
    };
    for (const Row& row : rows) {
        expectHelp(row);
    }
}

TEST_F(MenuHelp, TheProductsNameIsTheOneAtHand) {
    const QString name = libTxt.ProductName;
    libTxt.ProductName = QStringLiteral("100%1");
    EXPECT_EQ(clsSTATUS::menuHelp(QStringLiteral("&About")),
              QStringLiteral("Display information about 100%1"));
    libTxt.ProductName = name;
}

TEST_F(MenuHelp, ShowingALineChangesNothing) {
    clsSTATUS status;
    for (const char* text : {"", "&Save", "Save &As...", "C", "anything else"}) {
        status.MenuText(QString::fromUtf8(text));
    }
    EXPECT_EQ(status.MessageBoxClick(), 0);
}

TEST(Status, TheClickIsKeptAsItIsWritten) {
    clsSTATUS status;
    EXPECT_EQ(status.MessageBoxClick(), 0);
    for (const qint32 code : {6, 7, 2, 0, -1, 2147483647}) {
        status.setMessageBoxClick(code);
        EXPECT_EQ(status.MessageBoxClick(), code);
    }
}

}  // namespace
}  // namespace velorama
