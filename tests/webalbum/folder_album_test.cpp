#include "webalbum/folder_album.h"

#include "support/full_disk.h"
#include "support/test_world.h"
#include "webalbum/album_world.h"

#include <QDir>
#include <QFileInfo>

namespace velorama::test {
namespace {

class FolderAlbumTest : public AlbumWorld {
protected:
    FolderAlbumTest() {
        for (const char* name : {"a.bmp", "b.bmp", "c.bmp"}) {
            addSlide(QLatin1String(name), {40, 30});
        }
    }
    std::string write() {
        FolderAlbum pages(slides, values(), folder, stop);
        pages.onStep([this](const QString& what, int done, int of) {
            steps.append(what + u' ' + QString::number(done) + u'/' + QString::number(of));
            if (atStep) {
                atStep();
            }
        });
        return pages.write().toStdString();
    }

    QString folder = temporaryFolder() + QStringLiteral("/x/pages");
    std::stop_source stop;
    QStringList steps;
    std::function<void()> atStep;
};

TEST_F(FolderAlbumTest, HasTheFilesOfTheWindow) {
    EXPECT_EQ(write(), "");
    expectSameFiles(filesBelow(folder), expected());
    EXPECT_FALSE(QFileInfo::exists(documents() + QStringLiteral("My WebAlbum")));
}

TEST_F(FolderAlbumTest, StepsAreTold) {
    EXPECT_EQ(write(), "");
    for (const char* step : {"picture 3/3", "page 1/3", "page 3/3"}) {
        EXPECT_TRUE(steps.contains(QLatin1String(step))) << steps.join(u',').toStdString();
    }
}

TEST_F(FolderAlbumTest, AStopEndsItAtTheNextPicture) {
    atStep = [this] { stop.request_stop(); };
    EXPECT_EQ(write(), "");
    EXPECT_FALSE(steps.isEmpty());
    EXPECT_TRUE(steps.filter(QStringLiteral("page")).isEmpty()) << steps.join(u',').toStdString();
    EXPECT_EQ(QDir(folder).entryList(QDir::Files).size(), 0);
}

// Killed before it was complete, it is known for a web album all the same.
TEST_F(FolderAlbumTest, GoesOnWhereItWasStopped) {
    atStep = [this] { stop.request_stop(); };
    write();
    stop = std::stop_source();
    atStep = nullptr;
    EXPECT_EQ(write(), "");
    expectSameFiles(filesBelow(folder), expected());
}

TEST_F(FolderAlbumTest, NothingMoreIsTriedOnAFullDisk) {
    std::string failure;
    {
        const FullDisk disk(100);
        failure = write();
    }
    EXPECT_EQ(failure, folder.toStdString() + "/images/mainwa.css: it cannot be written");
    EXPECT_TRUE(stop.stop_requested());
    EXPECT_EQ(filesBelow(folder).size(), 0);
}

TEST_F(FolderAlbumTest, APageThatCannotBeWrittenIsTold) {
    EXPECT_EQ(write(), "");
    QFile::remove(folder + QStringLiteral("/b.bmp.html"));
    QDir().mkpath(folder + QStringLiteral("/b.bmp.html"));
    EXPECT_EQ(write(), folder.toStdString() + "/b.bmp.html: there is something else of that name");
}

// Not even the first or the last picture of another's folder is written over.
TEST_F(FolderAlbumTest, APictureInTheWayIsKept) {
    for (const char* name : {"a.bmp", "b.bmp", "c.bmp"}) {
        folder = temporaryFolder();
        const QString other = folder + QStringLiteral("/pictures/") + QLatin1String(name);
        ASSERT_TRUE(QDir().mkpath(folder + QStringLiteral("/pictures")));
        writeFile(other, "another");
        EXPECT_EQ(write(),
                  other.toStdString() + ": it is there already, and the folder holds no web album");
        EXPECT_EQ(readFile(other), QByteArray("another"));
    }
}

TEST_F(FolderAlbumTest, NothingIsWrittenWhereAFolderCannotBeMade) {
    ASSERT_TRUE(QDir().mkpath(folder));
    writeFile(folder + QStringLiteral("/pictures"), "no folder");
    EXPECT_EQ(write(),
              folder.toStdString() + "/pictures: the folder cannot be made: a file has its name");
    EXPECT_EQ(entriesBelow(folder).join(u' ').toStdString(), "images pictures");
}

// Two slides of one name: the later one takes the place, however many threads copy.
TEST_F(FolderAlbumTest, OfSlidesOfOneNameTheLastIsCopied) {
    const QString other = temporaryFolder() + QStringLiteral("/a.bmp");
    const QByteArray bytes = pictureBytes({20, 60});
    writeFile(other, bytes);
    ASSERT_NE(lvwSLIDEBAR.Add(4, other, QStringLiteral("a.bmp"), 0), nullptr);
    EXPECT_EQ(write(), "");
    EXPECT_TRUE(readFile(folder + QStringLiteral("/pictures/a.bmp")) == bytes);
}

TEST_F(FolderAlbumTest, MissingSlidesHoldNothingUp) {
    addMissing(QStringLiteral("gone.bmp"));
    EXPECT_EQ(write(), "");
    expectSameFiles(filesBelow(folder), expected());
}

}  // namespace
}  // namespace velorama::test
