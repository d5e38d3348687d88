#include "albums/album_world.h"

#include <random>

namespace velorama {
namespace {

/// Albums that other programs, other systems or accidents have written.
class AlbumForeign : public test::WithAlbums {
protected:
    QString read(const QByteArray& bytes) { return file->DocumentOpenText(album(bytes)); }
    QByteArray lines(const QByteArray& end) const {
        return "2" + end + p[0].toUtf8() + end + p[1].toUtf8() + end;
    }
    /// Memory of the process in megabytes.
    static qint64 residentMegabytes() {
        QFile file(QStringLiteral("/proc/self/statm"));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll().split(' ').value(1).toLongLong() * 4096 / (1024LL * 1024);
    }

    QStringList p = pictures({QStringLiteral("a.jpg"), QStringLiteral("b.jpg")});
};

TEST_F(AlbumForeign, everyKindOfLineEnd) {
    for (const QByteArray& end : {QByteArray("\r\n"), QByteArray("\n"), QByteArray("\r")}) {
        read(lines(end));
        EXPECT_EQ(keys(), p) << end.toHex().toStdString();
        EXPECT_EQ(prgBARSLIDES->Max(), 2);
    }
}

TEST_F(AlbumForeign, noLineEndAtTheEnd) {
    read(lines("\n").chopped(1));
    EXPECT_EQ(keys(), p);
    // No field follows the missing picture: its own path stands in for it.
    read("2\n" + p[0].toUtf8() + "\n/none/m.jpg");
    EXPECT_EQ(keys(), QStringList({p[0], "/none/m.jpg, /none/m.jpg,/none/m.jpg"}));
}

TEST_F(AlbumForeign, aMarkAtTheStart) {
    read("\xef\xbb\xbf" + lines("\r\n").replace("2\r", "2|My note\r"));
    EXPECT_EQ(keys(), p);
    EXPECT_EQ(file->note(), QStringLiteral("My note"));
    EXPECT_EQ(prgBARSLIDES->Max(), 2);
}

TEST_F(AlbumForeign, blankLinesAddNothing) {
    read("2\r\n\r\n  \r\n" + p[0].toUtf8() + "\r\n\r\n\r\n" + p[1].toUtf8() + "\r\n\r\n\r\n\r\n");
    EXPECT_EQ(keys(), p);
}

TEST_F(AlbumForeign, blanksAroundAPath) {
    read("2 \r\n   " + p[0].toUtf8() + "   \r\n\t\r\n");
    ASSERT_FALSE(keys().isEmpty());
    EXPECT_EQ(keys()[0], p[0]);
}

TEST_F(AlbumForeign, aListWithoutACountLosesItsFirstLine) {
    read(p[0].toUtf8() + "\n" + p[1].toUtf8() + "\n");
    EXPECT_EQ(keys(), QStringList(p[1]));
}

TEST_F(AlbumForeign, picturesThatCannotBeReadAreSlidesAllTheSame) {
    const QString broken = test::saved(test::temporaryFolder(), QStringLiteral("x.jpg"), "no jpeg");
    read(formA({broken, p[0]}));
    EXPECT_EQ(keys(), QStringList({broken, p[0]}));
    EXPECT_EQ(imlTHUMBNAILS.Count(), 2);
}

TEST_F(AlbumForeign, binaryData) {
    std::mt19937 random(3);
    QByteArray noise;
    for (int i = 0; i < 100000; ++i) {
        noise += static_cast<char>(random() % 256U);
    }
    read(noise);
    EXPECT_FALSE(lvwSLIDEBAR->isHidden());
    EXPECT_TRUE(prgBARSLIDES->isHidden());
    read("2\r\n" + noise + "\r\n\r\n");
    EXPECT_GT(lvwSLIDEBAR->Count(), 0);
    read(QByteArray(1000000, '\0'));
    read("1\n" + QByteArray(20000, '"'));
    EXPECT_FALSE(lvwSLIDEBAR->isHidden());
}

TEST_F(AlbumForeign, aPictureGivenAsAnAlbum) {
    const QString path =
        test::savePicture(test::temporaryFolder(), QStringLiteral("p.bmp"), QSize(300, 200));
    file->DocumentOpenText(path);
    EXPECT_FALSE(lvwSLIDEBAR->isHidden());
}

TEST_F(AlbumForeign, aLineOfTenMegabytes) {
    const qsizetype size = 10LL * 1024 * 1024;
    const QByteArray line(size, 'x');
    read("1\r\n" + line + "\r\n\r\n");
    ASSERT_EQ(lvwSLIDEBAR->Count(), 1);
    EXPECT_EQ(keys()[0].size(), size + 3);
    read("1\r\n/none/m.jpg\r\n/" + line + "\r\n\r\n");
    EXPECT_EQ(lvwSLIDEBAR->Count(), 1);
    read(line);
    EXPECT_EQ(lvwSLIDEBAR->Count(), 0);
}

TEST_F(AlbumForeign, manyCommasAddNothing) {
    read("1\r\n" + QByteArray(10000, ','));
    EXPECT_EQ(lvwSLIDEBAR->Count(), 0);
}

TEST_F(AlbumForeign, aHundredThousandMissingPictures) {
    QByteArray bytes = "100000\r\n";
    for (int i = 0; i < 100000; ++i) {
        bytes += "/none/picture" + QByteArray::number(i) + ".jpg\r\n";
    }
    const qint64 before = residentMegabytes();
    read(bytes + "\r\n");
    EXPECT_EQ(lvwSLIDEBAR->Count(), 50000);
    EXPECT_EQ(keys().value(0), QStringLiteral("/none/picture0.jpg, /none/picture1.jpg,"
                                              "/none/picture1.jpg"));
    EXPECT_EQ(prgBARSLIDES->Value(), 50000);
    EXPECT_EQ(imlTHUMBNAILS.Count(), 50000);
    EXPECT_EQ(imlTHUMBNAILS.image(50000).size(), QSize(90, 90));
    // A sanitizer keeps notes of its own about each piece of memory.
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
    EXPECT_LT(residentMegabytes() - before, 200);
#else
    Q_UNUSED(before)
#endif
}

}  // namespace
}  // namespace velorama
