// Batches of pictures that take long to load.

#include "albums/album_world.h"
#include "support/busy_threads.h"

namespace velorama {
namespace {

class SlowPictures : public test::WithAlbums {
protected:
    /// Runs `action` when the batch has come to a picture that is not loaded yet.
    void whileLoading(std::function<void()> action) { test::atNextYield(std::move(action)); }
    const QString folder =
        browse({QStringLiteral("a.bmp"), QStringLiteral("b.bmp"), QStringLiteral("c.bmp")});
    const QStringList all = {folder + QStringLiteral("/a.bmp"), folder + QStringLiteral("/b.bmp"),
                             folder + QStringLiteral("/c.bmp")};
    test::BusyThreads threads;
};

TEST_F(SlowPictures, newInTheMidstOfAddAll) {
    whileLoading([&] {
        EXPECT_TRUE(prgBARSLIDES->isVisible());
        file->mnuFILENEW_Click();
        EXPECT_EQ(keys(), QStringList());
        threads.release();
    });
    list->AddAll();
    // The new album has none of them.
    EXPECT_EQ(keys(), QStringList());
    EXPECT_EQ(storedSlide(1), std::nullopt);
    EXPECT_FALSE(isModified());
    EXPECT_TRUE(prgBARSLIDES->isHidden());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(SlowPictures, whatAddAllHasBroughtSoFarIsAskedAbout) {
    QStringList names;
    for (int i = 0; i < 130; ++i) {
        names.append(QStringLiteral("%1.bmp").arg(i, 3, 10, QLatin1Char('0')));
    }
    browse(names);
    bool wasAsked = false;
    atSlide(1, [&] {
        const test::MessageWatch watch(QStringLiteral("btnCANCEL"));
        EXPECT_LT(lvwSLIDEBAR->Count(), names.size());
        EXPECT_TRUE(isUnmodified());
        EXPECT_FALSE(file->mayLeaveAlbum());
        EXPECT_EQ(watch.messages, std::vector({test::saveQuestion(QString())}));
        wasAsked = true;
    });
    threads.release();
    list->AddAll();
    EXPECT_TRUE(wasAsked);
    EXPECT_EQ(lvwSLIDEBAR->Count(), names.size());
    EXPECT_TRUE(isModified());
}

TEST_F(SlowPictures, whatAddAllHadBroughtBeforeNewIsNotAskedAbout) {
    threads.release();
    list->SlideInsert(0);
    EXPECT_TRUE(file->mayLeaveAlbum());
    const test::BusyThreads again;
    whileLoading([&] { file->mnuFILENEW_Click(); });
    list->AddAll();
    EXPECT_TRUE(file->mayLeaveAlbum());
}

TEST_F(SlowPictures, theKeyboardIsAtNoButtonWhileAddRuns) {
    QPushButton next(&form);
    next.show();
    QWidget::setTabOrder(foundControls.lvwFOUND, &next);
    selectFound({1, 2});
    foundControls.lvwFOUND->setFocus();
    const QWidget* where = nullptr;
    whileLoading([&] {
        where = form.focusWidget();
        threads.release();
    });
    list->Add();
    EXPECT_EQ(where, &form);
    EXPECT_EQ(form.focusWidget(), foundControls.lvwFOUND);
}

TEST_F(SlowPictures, anAlbumOpenedInTheMidstOfAddAllHasItsOwnSlidesAlone) {
    const QString path = album(formA({all[1]}));
    whileLoading([&] {
        threads.release();
        file->openFromList(path);
    });
    list->AddAll();
    EXPECT_EQ(keys(), QStringList(all[1]));
    EXPECT_FALSE(isModified());
}

TEST_F(SlowPictures, removeAllInTheMidstOfAddAllEndsIt) {
    whileLoading([&] {
        list->ClearAll();
        threads.release();
    });
    list->AddAll();
    EXPECT_EQ(keys(), QStringList());
    EXPECT_TRUE(isModified());
    EXPECT_TRUE(slideControls.lvwSLIDEBAR->isVisible());
}

TEST_F(SlowPictures, removeAllInTheMidstOfAddEndsIt) {
    selectFound({1, 2, 3});
    whileLoading([&] {
        list->ClearAll();
        threads.release();
    });
    list->Add();
    EXPECT_EQ(keys(), QStringList());
    EXPECT_TRUE(foundControls.lvwFOUND->isVisible());
}

TEST_F(SlowPictures, removeInTheMidstOfAddAll) {
    threads.release();
    list->SlideInsert(0);
    test::BusyThreads again;
    whileLoading([&] {
        list->Clear();
        again.release();
    });
    list->AddAll();
    // The file in hand has lost the slide it was to go in front of, and is the first then.
    EXPECT_EQ(keys(), all);
    EXPECT_EQ(storedSlides(3), keys());
}

TEST_F(SlowPictures, addInTheMidstOfAddAll) {
    whileLoading([&] {
        selectFound({2});
        threads.release();
        list->Add();
        EXPECT_EQ(keys(), QStringList(all[1]));
    });
    list->AddAll();
    EXPECT_EQ(storedSlides(lvwSLIDEBAR->Count()), keys());
    EXPECT_EQ(QSet<QString>(all.begin(), all.end()).size(), lvwSLIDEBAR->Count());
}

TEST_F(SlowPictures, anotherFolderInTheMidstOfAddAll) {
    whileLoading([&] {
        browse({QStringLiteral("x.bmp")});
        threads.release();
    });
    list->AddAll();
    EXPECT_EQ(keys(), all);
}

TEST_F(SlowPictures, anotherFolderInTheMidstOfAdd) {
    selectFound({1, 3});
    whileLoading([&] {
        browse({QStringLiteral("x.bmp")});
        threads.release();
    });
    list->Add();
    EXPECT_EQ(keys(), QStringList({all[2], all[0]}));
}

TEST_F(SlowPictures, closingInTheMidstOfAddAll) {
    whileLoading([&] { list->stop(); });
    list->AddAll();
    EXPECT_TRUE(threads.isBusy());
    EXPECT_EQ(keys(), QStringList());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(SlowPictures, newInTheMidstOfAReadEndsItAtOnce) {
    const QString path = album(formA(all));
    whileLoading([&] {
        EXPECT_TRUE(prgBARSLIDES->isVisible());
        file->mnuFILENEW_Click();
    });
    file->openFromList(path);
    EXPECT_TRUE(threads.isBusy());
    EXPECT_EQ(keys(), QStringList());
    EXPECT_EQ(file->Tag(), QString());
    EXPECT_TRUE(prgBARSLIDES->isHidden());
}

TEST_F(SlowPictures, closingInTheMidstOfARead) {
    const QString path = album(formA(all));
    whileLoading([&] { file->stop(); });
    file->DocumentOpenText(path);
    EXPECT_TRUE(threads.isBusy());
    EXPECT_EQ(keys(), QStringList());
}

TEST_F(SlowPictures, theFileOfAPictureMadeLongAgoIsLookedAtByAnotherThread) {
    threads.release();
    WithSlides::pictures.setMostAge({});
    WithSlides::pictures.expect({all[0]}, Fit::cell(Thumbnails::slideCell));
    pictureThreads().waitForDone();
    const test::BusyThreads again;
    bool left = false;
    whileLoading([&left] { left = true; });
    const auto isLeft = [&left] { return left; };
    EXPECT_TRUE(WithSlides::pictures.await(all[0], Thumbnails::slideCell, isLeft).bitmap.isNull());
    EXPECT_TRUE(left);
}

TEST_F(SlowPictures, theSlidesOfAnAlbumAreLookedForByOtherThreads) {
    const QString path = album(formA({QStringLiteral("/none/x.jpg"), all[0]}));
    // The thumbnail that it gets is there already, and nothing is loaded.
    whileLoading([&] {
        imlTHUMBNAILS.Add(all[0], QImage(4, 4, QImage::Format_RGB32));
        file->stop();
    });
    file->DocumentOpenText(path);
    EXPECT_TRUE(threads.isBusy());
    EXPECT_EQ(keys(), QStringList());
}

}  // namespace
}  // namespace velorama
