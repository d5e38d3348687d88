#include "albums/album_slides.h"

#include "albums/album_world.h"

namespace velorama {
namespace {

class AlbumSlidesTest : public test::WithAlbums {
protected:
    /// Each path and how it was found, as a line.
    std::string named(const QByteArray& bytes) {
        const char* const finds[] = {"as written", "on a drive", "otherwise", "missing", "lost"};
        const std::optional<AlbumSlides> slides = slidesOfAlbum(album(bytes));
        QStringList lines;
        for (const NamedSlide& slide : slides ? slides->named : std::vector<NamedSlide>()) {
            lines.append(QString(slide.path).remove(folder + u'/') + QLatin1String(": ") +
                         QLatin1String(finds[static_cast<int>(slide.find)]));
        }
        return lines.join(QLatin1String(", ")).toStdString();
    }
    QByteArray in(const char* name) const { return folder.toUtf8() + '/' + name + "\r\n"; }

    const QString folder = test::temporaryFolder();
};

TEST_F(AlbumSlidesTest, TellHowEachWasFoundAndNoneTwice) {
    for (const char* name : {"a.bmp", "b.bmp", "c.bmp"}) {
        test::savePicture(folder, QLatin1String(name));
    }
    EXPECT_EQ(named("4\r\n" + in("a.bmp") + in("B.BMP") + in("a.bmp") + in("c.bmp")),
              "a.bmp: as written, B.BMP: otherwise, c.bmp: as written");
    EXPECT_EQ(named("3\r\n" + in("a.bmp") + in("none.bmp") + in("c.bmp")),
              "a.bmp: as written, none.bmp: missing, c.bmp: lost");
    EXPECT_EQ(named("3\r\n" + in("none.bmp") + in("nor.bmp") + in("c.bmp")),
              "none.bmp: missing, nor.bmp: missing, c.bmp: as written");
}

TEST_F(AlbumSlidesTest, ComeWithTheHeader) {
    const std::optional<AlbumSlides> slides = slidesOfAlbum(album("7|Rome \r\n/none/a.bmp\r\n"));
    ASSERT_TRUE(slides);
    EXPECT_EQ(slides->header.note.toStdString(), "Rome");
    EXPECT_EQ(slidesOfAlbum(QStringLiteral("/none/a.vlr")), std::nullopt);
}

}  // namespace
}  // namespace velorama
