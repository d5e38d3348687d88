#include "browse/kept_thumbnails.h"

#include "browse/browse_world.h"

#include <QFileInfo>

#include <chrono>
#include <thread>

namespace velorama {
namespace {

using test::savePicture;

class KeptThumbnailsTest : public test::WithServices {
protected:
    KeptThumbnailsTest() { qputenv("XDG_CACHE_HOME", folder.toUtf8()); }
    ~KeptThumbnailsTest() override { qputenv("XDG_CACHE_HOME", before); }

    static void setSize(const QString& text) {
        saveSetting(QStringLiteral("\\frmTOOLSSETTINGS\\Items"), QStringLiteral("Thumbnail Cache"),
                    text);
    }
    /// Whether a thumbnail is kept from one run to the next.
    static bool keeps() {
        const FileStamp file{.path = "/p.jpg", .size = 7};
        { keptThumbnails()->keep(file, 64, test::plainImage({64, 48})); }
        return keptThumbnails()->find(file, 64).has_value();
    }

    const QByteArray before = qgetenv("XDG_CACHE_HOME");
    const QString folder = test::temporaryFolder();
    const QString file = folder + QStringLiteral("/velorama/thumbnails.sqlite");
};

TEST_F(KeptThumbnailsTest, AreInTheUsersCache) {
    EXPECT_TRUE(keeps());
    EXPECT_TRUE(QFileInfo::exists(file));
}

TEST_F(KeptThumbnailsTest, AreNoneWhereTheSettingIsZero) {
    setSize(QStringLiteral("0"));
    EXPECT_FALSE(keeps());
    EXPECT_FALSE(QFileInfo::exists(QFileInfo(file).path()));
}

TEST_F(KeptThumbnailsTest, AreKeptWhateverElseTheSettingSays) {
    for (const char* text : {"", "none", "-1", "99999999999999999999", "1"}) {
        setSize(QString::fromLatin1(text));
        EXPECT_TRUE(keeps()) << text;
    }
}

// Both lists, twice with a cache and once without: the cells are the same to the last pixel.
TEST_F(KeptThumbnailsTest, AreThoseThatDecodingGives) {
    const QStringList paths = {savePicture(folder, QStringLiteral("a.bmp"), {640, 480}),
                               savePicture(folder, QStringLiteral("b.jpg"), {900, 1600}),
                               savePicture(folder, QStringLiteral("c.jpg"), {3, 2}),
                               folder + QStringLiteral("/none.gif")};
    std::this_thread::sleep_for(std::chrono::milliseconds(2100));
    for (const double scale : {1.0, 1.25, 2.0}) {
        QList<QImage> cells[3];
        for (int run = 0; run < 3; ++run) {
            LookAhead pictures(run == 0 ? std::make_shared<ThumbnailCache>() : keptThumbnails());
            ImageList found;
            ImageList slides;
            Thumbnails thumbnails(found, slides, pictures, scale);
            for (const QString& path : paths) {
                thumbnails.FoundThumbnailAdd(path);
                thumbnails.SlideThumbnailAdd(path);
                cells[run] << found.image(found.Count()) << slides.image(slides.Count());
            }
        }
        EXPECT_EQ(cells[0], cells[1]);
        EXPECT_EQ(cells[0], cells[2]);
        const FileStamp first = FileStamp::of(paths[1]);
        EXPECT_TRUE(keptThumbnails()->find(first, static_cast<int>(64 * scale)));
        EXPECT_TRUE(keptThumbnails()->find(first, static_cast<int>(90 * scale)));
    }
}

}  // namespace
}  // namespace velorama
