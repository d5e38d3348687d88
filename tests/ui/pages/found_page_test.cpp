#include "browse/wallpaper.h"
#include "support/waiting.h"
#include "ui/window_world.h"

namespace velorama {
namespace {

class FoundPage : public test::WithWindow {
protected:
    /// The window with a folder on show that has files of these names.
    void open(const QStringList& names) {
        const QString folder = test::temporaryFolder();
        for (const QString& name : names) {
            savePicture(folder, name);
        }
        setToolSetting("Files Location", folder);
        start();
        pages().tabPAGES->press(2);
    }
    QString line() { return pages().pictures->lblFOUNDCOUNT->Caption(); }
    ListView& found() { return *foundControls().lvwFOUND; }
    QString description(int row) {
        return found().model()->index(row - 1, 0).data(Qt::AccessibleDescriptionRole).toString();
    }
};

TEST_F(FoundPage, TheCountLineFollowsTheSelection) {
    open({QStringLiteral("a.jpg"), QStringLiteral("b.jpg"), QStringLiteral("c.jpg"),
          QStringLiteral("d.png"), QStringLiteral("e.png")});
    EXPECT_EQ(line(), QStringLiteral("3 pictures, 2 others not shown"));
    QTest::keyClick(&found(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(line(), QStringLiteral("3 of 3 selected, 2 others not shown"));
    QTest::keyClick(&found(), Qt::Key_Home);
    QTest::keyClick(&found(), Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(line(), QStringLiteral("2 of 3 selected, 2 others not shown"));
    foundControls().ftvFOLDER->setPath(test::temporaryFolder());
    EXPECT_EQ(line(), QString());
}

TEST_F(FoundPage, AFolderOfOtherPicturesSaysSo) {
    open({QStringLiteral("a.png"), QStringLiteral("b.png")});
    EXPECT_EQ(found().accessibleDescription(),
              QStringLiteral("No BMP, JPG or GIF pictures; 2 other pictures are not shown"));
    const QImage other = found().grab().toImage();
    foundControls().ftvFOLDER->setPath(test::temporaryFolder());
    EXPECT_NE(found().grab().toImage(), other);
    EXPECT_EQ(found().accessibleDescription().section(u'\n', 0, 0),
              QStringLiteral("No pictures in this folder."));
}

TEST_F(FoundPage, APictureIsTakenFromTheFolderOnShowWhileTheNextIsRead) {
    open({QStringLiteral("a.jpg")});
    found().setFocus();
    QFile::remove(wallpaperFile());
    bool isAsked = false;
    QTimer::singleShot(0, window.get(), [&] {
        isAsked = found().Count() == 1;
        commands().wallpaper.trigger();
    });
    foundControls().ftvFOLDER->setPath(test::temporaryFolder());
    EXPECT_TRUE(isAsked) << "the next folder was there first";
    EXPECT_EQ(QImage(wallpaperFile()).size(), QSize(40, 30));
}

TEST_F(FoundPage, WhatIsInTheShowIsMarked) {
    open({QStringLiteral("a.jpg"), QStringLiteral("b.jpg")});
    EXPECT_EQ(found().accessibleDescription(), QString());
    // Adding gives the list the keyboard, and its selection another colour.
    window->activateWindow();
    found().setFocus();
    const QImage before = found().grab().toImage();
    EXPECT_EQ(description(1), QString());
    commands().add.trigger();
    EXPECT_EQ(description(1), QStringLiteral("in the show"));
    EXPECT_EQ(description(2), QString());
    EXPECT_NE(found().grab().toImage(), before);
    commands().removeAll.trigger();
    EXPECT_EQ(description(1), QString());
}

TEST_F(FoundPage, SlidesAndAlbumsHaveTheirMarks) {
    open({});
    const QString gone = QStringLiteral("/gone/a.jpg");
    ListView& slides = *slideControls().lvwSLIDEBAR;
    slides.Add(1, gone, QStringLiteral("a.jpg"), 0);
    slides.grab();
    EXPECT_TRUE(test::comesTrue([&] {
        return slides.model()->index(0, 0).data(Qt::AccessibleDescriptionRole).toString() ==
               QStringLiteral("file not found");
    }));
    ReportView& albums = *albumControls().lvwALBUMS;
    albums.Add(QStringLiteral("/gone/a.vlr"), QStringLiteral("a.vlr"));
    pages().tabPAGES->press(1);
    EXPECT_TRUE(test::comesTrue([&] {
        return albums.model()->index(0, 0).data(Qt::AccessibleDescriptionRole).toString() ==
               QStringLiteral("file not found");
    }));
}

TEST_F(FoundPage, AnAlbumWrittenWhereItWasMissingIsGreyNoLonger) {
    open({});
    const QString album = test::temporaryFolder() + QStringLiteral("/a.vlr");
    ReportView& albums = *albumControls().lvwALBUMS;
    pages().tabPAGES->press(1);
    albums.Add(album, QStringLiteral("a.vlr"));
    const auto told = [&albums] {
        return albums.model()->index(0, 0).data(Qt::AccessibleDescriptionRole).toString();
    };
    EXPECT_TRUE(test::comesTrue([&] { return told() == QStringLiteral("file not found"); }));
    chosen = album;
    commands().saveAs.trigger();
    EXPECT_TRUE(test::comesTrue([&] { return told().isEmpty(); }));
}

}  // namespace
}  // namespace velorama
