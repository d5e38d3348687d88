// A folder of a hundred thousand pictures, from its listing to the end of the program.

#include "desktop/albums_page.h"
#include "desktop/pictures_page.h"

#include <QDir>
#include <QFile>
#include <QImage>

#include <gtest/gtest.h>

#include <chrono>

#include <unistd.h>

namespace velorama::desktop {
namespace {

constexpr int pictures = 100'000;
/// Below the number of names that ext4 gives to one file.
constexpr int namesOfOneFile = 50'000;
/// For one pass over all of them, on a machine that has other things to do.
constexpr auto patience = std::chrono::minutes(15);

QString pictureIn(const QString& folder, int number) {
    return folder + QStringLiteral("/Picture %1.bmp").arg(number, 6, 10, QLatin1Char('0'));
}

bool makePictures(const QString& folder) {
    bool all = QDir().mkpath(folder);
    QImage image(8, 6, QImage::Format_RGB32);
    for (int number = 1; all && number <= pictures; ++number) {
        const int first = number - (number - 1) % namesOfOneFile;
        const QByteArray original = QFile::encodeName(pictureIn(folder, first));
        image.fill(first == 1 ? Qt::darkGreen : Qt::darkBlue);
        all = number == first ? image.save(pictureIn(folder, number))
                              : ::link(original, QFile::encodeName(pictureIn(folder, number))) == 0;
    }
    return all;
}

class LargeFolder : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(session.isUp());
        ASSERT_TRUE(makePictures(folder));
        ASSERT_TRUE(setFilesLocation(store, folder));
    }
    void open() {
        page.emplace(session, session.start());
        ASSERT_NE(page->window(), 0U);
        ASSERT_TRUE(waitFor([this] { return !page->thumbnails().empty(); }, patience));
    }
    bool waitForItems(int count) const {
        return waitFor([&] { return storedItems(store) == QString::number(count); }, patience);
    }
    /// Waits until the stored slide of that number is that picture.
    bool becomes(int slide, int picture) const {
        return waitFor([&] { return storedSlide(store, slide) == pictureIn(folder, picture); });
    }
    /// Once nothing that runs keeps it from its place.
    bool waitForWindow() const {
        return waitFor([this] { return page->isOn(Play); }, patience);
    }

    DesktopSession session;
    Store store{session};
    QString folder = session.home() + QStringLiteral("/Large");
    QString album = session.home() + QStringLiteral("/large.vlr");
    std::optional<PicturesPage> page;
};

TEST_F(LargeFolder, IsListedAddedPlayedSavedAndOpenedAgain) {
    ASSERT_NO_FATAL_FAILURE(open());
    const QPoint first = page->thumbnails().front();
    session.click(page->window(), first);
    const QImage top = page->look(QRect(first, QSize(100, 100)));
    session.key(QStringLiteral("End"));
    EXPECT_TRUE(
        waitFor([&] { return page->look(QRect(first, QSize(100, 100))) != top; }, patience));
    session.key(QStringLiteral("ctrl+a"));
    session.key(QStringLiteral("Insert"));
    ASSERT_TRUE(waitForItems(pictures));
    ASSERT_TRUE(waitForWindow());
    // Each goes in at the first place.
    EXPECT_TRUE(becomes(1, pictures));
    EXPECT_TRUE(becomes(pictures, 1));

    ASSERT_NE(page->startShow(), 0U);
    session.key(QStringLiteral("Escape"));
    ASSERT_TRUE(page->waitForEndOfShow());

    session.key(QStringLiteral("F12"));
    ASSERT_TRUE(page->chooseFile(QStringLiteral("Save"), album));
    ASSERT_TRUE(waitFor([&] { return bytesOf(album).count('\n') >= pictures; }, patience));
    const QByteArray saved = bytesOf(album);
    EXPECT_TRUE(saved.startsWith(QByteArray::number(pictures)));

    session.key(QStringLiteral("ctrl+o"));
    ASSERT_TRUE(page->chooseFile(QStringLiteral("Open"), album));
    // The list that was there goes first, once the album has been read from the disk.
    ASSERT_TRUE(waitForItems(0));
    ASSERT_TRUE(waitFor([&] { return page->isOn(RemovePhoto); }, patience));
    EXPECT_EQ(page->close(), 0);
    EXPECT_EQ(storedItems(store), QString::number(pictures));
    EXPECT_TRUE(becomes(pictures, 1));
    EXPECT_EQ(bytesOf(album), saved);
}

TEST_F(LargeFolder, IsLeftInTheMidst) {
    page.emplace(session, session.start());
    ASSERT_NE(page->window(), 0U);
    ASSERT_TRUE(page->thumbnails().empty());
    EXPECT_EQ(page->close(), 0);
}

}  // namespace
}  // namespace velorama::desktop
